// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// The line below a trial's name: the days left and, where there is one, the cost. A number of days
// too long for the room is written smaller; the cost is cut.
Item {
    id: root

    required property string daysText
    required property color daysColor
    required property string costText

    height: Theme.captionLine

    Text {
        id: days

        readonly property real needed: TextStyles.width(root.daysText, Theme.captionMedium)

        anchors { left: parent.left; verticalCenter: parent.verticalCenter }
        width: Math.min(days.needed, root.width)
        text: root.daysText
        textFormat: Text.PlainText
        font: Theme.captionMedium
        fontSizeMode: days.needed > root.width ? Text.HorizontalFit : Text.FixedSize
        color: root.daysColor
        Accessible.ignored: true
    }
    Text {
        anchors { left: days.right; leftMargin: 6; right: parent.right; verticalCenter: parent.verticalCenter }
        visible: root.costText !== ""
        horizontalAlignment: Text.AlignLeft
        // In a line from right to left its dot too stands beside the days.
        text: (root.LayoutMirroring.enabled ? "\u200f" : "") + root.costText
        textFormat: Text.PlainText
        font: Theme.caption
        color: Theme.secondary
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
