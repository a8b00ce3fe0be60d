// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

import org.norvane.panel

// Where a new trial is entered. It shows the values it is given and hands every edit up.
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
        dateField.commit() // A date may have been typed to the end and not been left yet.
        root.track()
    }

    function focusName() {
        nameField.forceActiveFocus(Qt.OtherFocusReason)
    }

    Component.onCompleted: root.focusName()

    Shortcut {
        sequence: "Ctrl+Escape"
        onActivated: root.cancel()
    }
    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        enabled: root.canTrack
        onActivated: root.submit()
    }

    FormCaption { text: qsTr("Service name") }
    FormTextField {
        id: nameField

        text: root.newName
        placeholderText: qsTr("e.g. Netflix, Canva Pro")
        Accessible.name: qsTr("Service name")
        Layout.fillWidth: true

        onTextEdited: root.newNameEdited(nameField.text)
    }
    FormCaption { text: qsTr("Trial ends") }
    DateTimeField {
        id: dateField

        calendar: root.calendar
        moment: root.newEndDate
        name: qsTr("Trial ends")
        Layout.fillWidth: true

        onEdited: moment => root.newEndDateEdited(moment)
    }
    FormCaption { text: qsTr("Monthly cost after trial") }
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
