// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

import org.norvane.panel

// The month around a day, under its title and the buttons to turn the page.
ColumnLayout {
    id: root

    required property UserCalendar calendar
    required property int selected
    required property int cursor
    required property int today

    readonly property bool mirrored: root.LayoutMirroring.enabled

    signal moved(day: int)
    signal picked(day: int)

    function turn(months: int) {
        root.moved(root.calendar.monthsLater(root.cursor, months))
    }

    spacing: 6

    Keys.onPressed: event => {
        const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
        event.accepted = isReturn && (event.modifiers & Qt.ControlModifier) !== 0
        if (event.accepted && !event.isAutoRepeat)
            root.picked(root.cursor)
    }
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    RowLayout {
        PlainButton {
            display: T.AbstractButton.IconOnly
            font { family: Theme.body.family; pixelSize: grid.textSize }
            symbol: root.mirrored ? "chevron.right" : "chevron.left"
            //: Button of the calendar, an arrow.
            text: qsTr("Previous month")
            onClicked: root.turn(-1)
        }
        Text {
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            text: root.calendar.pageTitle(root.cursor)
            textFormat: Text.PlainText
            font { family: Theme.headline.family; weight: Theme.headline.weight; pixelSize: grid.textSize }
            color: Theme.primary
            Layout.fillWidth: true
        }
        PlainButton {
            display: T.AbstractButton.IconOnly
            font { family: Theme.body.family; pixelSize: grid.textSize }
            symbol: root.mirrored ? "chevron.left" : "chevron.right"
            //: Button of the calendar, an arrow.
            text: qsTr("Next month")
            onClicked: root.turn(1)
        }
    }
    MonthGrid {
        id: grid

        calendar: root.calendar
        selected: root.selected
        cursor: root.cursor
        today: root.today
        focus: true

        onMoved: day => root.moved(day)
        onPicked: day => root.picked(day)
    }
}
