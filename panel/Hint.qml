// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick

import org.norvane.panel

// A tooltip for its parent item, shown once the pointer has rested on it: beside the item, in front
// of everything else, and always inside the window.
Item {
    id: root

    required property bool shown
    required property string words

    property Item content: null

    function window(): Item {
        let item = root as Item
        while (item.parent !== null)
            item = item.parent
        return item
    }

    anchors.fill: parent
    Accessible.ignored: true
    onShownChanged: {
        if (root.shown)
            root.content = waiting.createObject(root)
        else if (root.content !== null)
            root.content.destroy()
    }

    // There are many hints, and few are ever shown.
    Component {
        id: waiting

        Item {
            Timer {
                id: rest

                property bool over: false

                interval: 600
                running: true
                onTriggered: rest.over = true
            }
            Rectangle {
                id: bubble

                readonly property Item window: root.window()
                readonly property point place: root.mapToItem(bubble.window, 0, 0)
                readonly property real below: bubble.place.y + root.height + 4
                readonly property real above: bubble.place.y - bubble.height - 4
                readonly property real middle: bubble.place.x + (root.width - bubble.width) / 2

                parent: bubble.window
                z: 2000000 // In front of the layer that alert and calendar are in.
                visible: rest.over
                x: Math.round(Math.max(8, Math.min(bubble.middle, bubble.window.width - bubble.width - 8)))
                y: Math.round(bubble.below + bubble.height <= bubble.window.height - 8 ? bubble.below : Math.max(8, bubble.above))
                width: Math.min(Math.ceil(label.implicitWidth) + 16, bubble.window.width - 16)
                height: label.height + 10
                radius: Theme.corner
                color: Theme.bezel
                border { color: Theme.outline; width: 1 }

                Text {
                    id: label

                    x: 8
                    y: 5
                    width: bubble.width - 16
                    text: root.words
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    maximumLineCount: 4
                    elide: Text.ElideRight
                    font: Theme.caption
                    color: Theme.bezelText
                    Accessible.ignored: true
                }
            }
        }
    }
}
