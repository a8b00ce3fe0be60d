// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// What the popover shows: the panel, and a thin border around it that sets it off from whatever
// window lies behind.
Item {
    id: root

    required property PanelContent content

    ContentView {
        anchors.fill: parent
        content: root.content
    }
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        opacity: 0.6
        border { color: Theme.secondary; width: 1 }
    }
}
