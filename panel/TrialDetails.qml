// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

// The line below a trial's name: the days left and, where there is one, the cost. A number of days
// too long for the room is written smaller; the cost is cut.
RowLayout {
    id: root

    required property string daysText
    required property color daysColor
    required property string costText
    required property real room

    spacing: 6
    Layout.preferredHeight: Math.ceil(line.height)

    Text {
        text: root.daysText
        textFormat: Text.PlainText
        font: Theme.captionMedium
        fontSizeMode: Text.HorizontalFit
        color: root.daysColor
        Accessible.ignored: true
        Layout.preferredWidth: Math.min(Math.ceil(days.advanceWidth), root.room)
        Layout.minimumWidth: Layout.preferredWidth
    }
    Text {
        visible: root.costText !== ""
        horizontalAlignment: Text.AlignLeft
        // In a line from right to left its dot too stands beside the days.
        text: (root.LayoutMirroring.enabled ? "\u200f" : "") + root.costText
        textFormat: Text.PlainText
        font: Theme.caption
        color: Theme.secondary
        elide: Text.ElideRight
        Accessible.ignored: true
        Layout.fillWidth: true
    }

    FontMetrics {
        id: line

        font: Theme.captionMedium
    }
    TextMetrics {
        id: days

        font: Theme.captionMedium
        text: root.daysText
    }
}
