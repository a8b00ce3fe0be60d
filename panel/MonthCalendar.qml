// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// A month to pick a day from: with the mouse, or by arrow keys, Page Up and Page Down, and Return.
T.Popup {
    id: root

    required property UserCalendar calendar

    property int selected: 0
    property int cursor: 0
    property int today: 0

    signal picked(day: int)

    function show(day: int) {
        root.selected = day
        root.cursor = day
        root.today = root.calendar.today()
        root.open()
    }

    implicitWidth: root.implicitContentWidth + 2 * root.padding
    implicitHeight: root.implicitContentHeight + 2 * root.padding
    margins: 8
    padding: 10
    modal: true
    dim: false
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    background: Rectangle {
        color: Theme.background
        radius: 10
        border { color: Theme.outline; width: 1 }

        // A soft shadow, in layers.
        Repeater {
            model: 6

            Rectangle {
                required property int index

                anchors { fill: parent; margins: -index - 1; topMargin: 1 - index; bottomMargin: -index - 3 }
                z: -1
                radius: 11 + index
                color: "#09000000"
            }
        }
    }
    contentItem: MonthPage {
        calendar: root.calendar
        selected: root.selected
        cursor: root.cursor
        today: root.today

        onMoved: day => root.cursor = day
        onPicked: day => {
            root.picked(day)
            root.close()
        }
    }

    Connections {
        target: root.calendar

        function onRefreshed() { root.today = root.calendar.today() }
    }
}
