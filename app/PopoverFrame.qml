// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel
import org.norvane.shell

// What the popover shows: the panel, and a thin line around it that sets it off from whatever
// window lies behind. Its corners are round where they can be.
Item {
    id: root

    required property PanelContent content

    ContentView {
        anchors.fill: parent
        radius: Theme.windowCorner
        content: root.content
    }
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        radius: Theme.windowCorner
        border { color: Theme.frame; width: 1 }
    }
    Binding {
        target: Theme
        property: "windowCorner"
        value: Compositor.isPresent ? 12 : 0
    }
}
