// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick

import org.norvane.panel

// Six weeks around the cursor's month, under the names of the days of the week.
FocusScope {
    id: root

    required property UserCalendar calendar
    required property int selected
    required property int cursor
    required property int today

    readonly property int pageStart: root.calendar.pageStart(root.cursor)
    // Large text must not make the month wider or higher than the panel.
    readonly property int textSize: Math.min(Theme.body.pixelSize, 24)
    readonly property int cellSize: Math.max(28, Math.round(root.textSize * 1.9))

    signal moved(day: int)
    signal picked(day: int)

    implicitWidth: grid.implicitWidth
    implicitHeight: grid.implicitHeight

    activeFocusOnTab: true

    Keys.onUpPressed: root.moved(root.cursor - 7)
    Keys.onDownPressed: root.moved(root.cursor + 7)
    Keys.onLeftPressed: root.moved(root.cursor + (grid.mirrored ? 1 : -1))
    Keys.onRightPressed: root.moved(root.cursor + (grid.mirrored ? -1 : 1))
    Keys.onPressed: event => {
        const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
        // A key that is still held from opening the calendar must not pick the day at once.
        if (isReturn && !event.isAutoRepeat)
            root.picked(root.cursor)
        const months = event.key === Qt.Key_PageUp ? -1 : event.key === Qt.Key_PageDown ? 1 : 0
        event.accepted = isReturn || months !== 0
        if (months !== 0)
            root.moved(root.calendar.monthsLater(root.cursor, months))
    }

    Grid {
        id: grid

        readonly property bool mirrored: grid.effectiveLayoutDirection === Qt.RightToLeft

        columns: 7

        // It has rows and columns for a screen reader. With the role of a table as well, Orca would
        // read the whole week whenever the focus goes to another one.
        Accessible.role: Accessible.Grouping
        Accessible.name: root.calendar.pageTitle(root.cursor)

        Repeater {
            model: 7

            Text {
                required property int index

                width: root.cellSize
                horizontalAlignment: Text.AlignHCenter
                text: root.calendar.weekday(root.pageStart + index)
                textFormat: Text.PlainText
                font { family: Theme.caption.family; pixelSize: Math.min(Theme.caption.pixelSize, root.textSize) }
                color: Theme.secondary
                Accessible.ignored: true
            }
        }
        Repeater {
            model: 42

            DayCell {
                required property int index

                readonly property int day: root.pageStart + index

                width: root.cellSize
                height: root.cellSize
                text: root.calendar.dayOfMonth(day)
                spoken: root.calendar.spokenDay(day)
                textSize: root.textSize
                inMonth: root.calendar.sameMonth(day, root.cursor)
                today: day === root.today
                selected: day === root.selected
                focus: day === root.cursor

                onPicked: root.picked(day)
            }
        }
    }
}
