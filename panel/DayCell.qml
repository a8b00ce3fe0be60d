// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// A day of the month calendar.
Item {
    id: root

    required property string text
    required property string spoken
    required property int textSize
    required property bool inMonth
    required property bool today
    required property bool selected

    signal picked()

    // In words, since not every screen reader says the state of a cell.
    function sentence(): string {
        let words = root.spoken
        if (root.today)
            //: What a screen reader says of the calendar's cell that is today. %@ is the date.
            words = Phrase.with(qsTr("%@, today"), words)
        if (root.selected)
            //: What a screen reader says of the calendar's cell that is the chosen day. %@ is the date.
            words = Phrase.with(qsTr("%@, selected"), words)
        return words
    }

    Accessible.role: Accessible.Cell
    Accessible.name: root.sentence()
    Accessible.focusable: true
    Accessible.focused: root.activeFocus
    Accessible.selectable: true
    Accessible.selected: root.selected
    Accessible.onPressAction: root.picked()

    readonly property bool showsFocus: LastInput.isKey && root.activeFocus

    Rectangle {
        anchors { fill: root; margins: root.showsFocus ? 4 : 1 }
        color: root.selected ? Theme.accentGround : pointer.hovered ? Theme.lit : "transparent"
        radius: root.showsFocus ? Theme.corner - 3 : Theme.corner
    }
    FocusRing {
        anchors { fill: root; margins: 1 }
        visible: root.showsFocus
    }
    Rectangle {
        anchors { horizontalCenter: root.horizontalCenter; bottom: root.bottom; bottomMargin: 4 }
        width: 12
        height: 2
        visible: root.today
        color: label.color
    }
    Text {
        id: label

        anchors.centerIn: root
        text: root.text
        textFormat: Text.PlainText
        font { family: Theme.body.family; pixelSize: root.textSize; bold: root.today }
        color: root.selected ? Theme.accentText
             : root.inMonth ? Theme.primary : Theme.secondary
        Accessible.ignored: true
    }
    HoverHandler { id: pointer }
    TapHandler { onTapped: root.picked() }
}
