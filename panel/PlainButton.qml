// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

// A button without bezel or background: its label alone, with a ring while it has the keyboard.
// It takes presses a little around the label, which does not count in the layout.
PanelButton {
    id: root

    padding: 6
    opacity: root.down ? 0.5 : 1

    background: Rectangle {
        visible: root.showsFocus
        color: "transparent"
        radius: Theme.corner
        border { color: Theme.accent; width: 2 }
    }
}
