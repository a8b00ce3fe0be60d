// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// A month to pick a day from: with the mouse, or by arrow keys, Page Up and Page Down, and Return;
// Ctrl+Return picks from wherever in it the focus is. It exists only while it is open.
T.Dialog {
    id: root

    required property UserCalendar calendar

    required property int selected

    property int cursor: root.selected
    property int today: root.calendar.today()

    signal picked(day: int)

    implicitWidth: root.implicitContentWidth + 2 * root.padding
    implicitHeight: root.implicitContentHeight + 2 * root.padding
    margins: 8
    padding: 10
    modal: true
    dim: false
    focus: true
    visible: true
    //: What a screen reader says of the calendar when it opens.
    title: qsTr("Choose a day")
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

        WheelSteps {
            margin: root.padding
            onStepped: steps => root.cursor = root.calendar.monthsLater(root.cursor, -steps)
        }
    }

    Connections {
        target: root.calendar

        function onRefreshed() { root.today = root.calendar.today() }
    }
}
