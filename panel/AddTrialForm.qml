// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

import org.norvane.panel

// Where a new trial is entered. It shows the values that it is given and reports every edit to its
// owner.
ScrollingColumn {
    id: root

    required property UserCalendar calendar
    required property string newName
    required property pointInTime newEndDate
    required property string newCost

    readonly property bool canTrack: root.newName !== ""

    signal newNameEdited(text: string)
    signal newEndDateEdited(moment: pointInTime)
    signal newCostEdited(text: string)
    signal cancel()
    signal track()

    function submit() {
        if (dateField.commit()) // The field that is being typed into has not been left yet.
            root.track()
    }

    function focusName() {
        nameField.forceActiveFocus(Qt.OtherFocusReason)
    }

    Component.onCompleted: root.focusName()

    Shortcut {
        sequence: "Ctrl+Escape"
        autoRepeat: false
        onActivated: root.cancel()
    }
    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        enabled: root.canTrack
        autoRepeat: false
        onActivated: root.submit()
    }

    FormCaption {
        id: nameCaption

        //: Caption of the field for the name of the service whose trial it is; a screen reader says it of the field.
        text: qsTr("Service name")
    }
    FormTextField {
        id: nameField

        text: root.newName
        //: Shown in the empty field for the name of the service. The names stay as they are.
        placeholderText: qsTr("e.g. Netflix, Canva Pro")
        Accessible.name: nameCaption.text
        Layout.fillWidth: true

        onLineEdited: text => root.newNameEdited(text)
    }
    FormCaption {
        id: endCaption

        //: Caption of the fields for the day and the time at which the trial ends.
        text: qsTr("Trial ends")
    }
    DateTimeField {
        id: dateField

        calendar: root.calendar
        moment: root.newEndDate
        name: endCaption.text
        Layout.fillWidth: true

        onEdited: moment => root.newEndDateEdited(moment)
    }
    FormCaption {
        //: Caption of the field for what the service costs a month once the trial has ended.
        text: qsTr("Monthly cost after trial")
    }
    CostRow {
        cost: root.newCost
        Layout.fillWidth: true

        onEdited: text => root.newCostEdited(text)
    }
    FormActions {
        canTrack: root.canTrack
        Layout.fillWidth: true
        Layout.topMargin: 4

        onCancel: root.cancel()
        onTrack: root.submit()
    }
}
