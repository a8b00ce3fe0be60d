// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

import org.norvane.panel

// Where a new trial is entered. It shows the values it is given and hands every edit up. With text
// too large for its room it scrolls.
FocusScope {
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

    // Scrolls to whatever got the keyboard.
    function reveal(item: Item) {
        const top = item.mapToItem(column, 0, 0).y
        const bottom = top + item.height + 2 * Theme.padding
        if (top < scroll.contentY)
            scroll.contentY = Math.max(0, top)
        else if (bottom > scroll.contentY + scroll.height)
            scroll.contentY = Math.min(bottom, scroll.contentHeight) - scroll.height
    }

    implicitHeight: column.implicitHeight + 2 * Theme.padding

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

    Flickable {
        id: scroll

        anchors.fill: root
        contentHeight: root.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: PanelScrollBar {}

        ColumnLayout {
            id: column

            x: Theme.padding
            y: Theme.padding
            width: root.width - 2 * Theme.padding
            spacing: 8

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
    }
    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem
            if (item !== null && root.activeFocus)
                root.reveal(item)
        }
    }
}
