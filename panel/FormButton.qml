// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// A push button with a bezel.
PanelButton {
    id: root

    padding: 5
    leftPadding: 12
    rightPadding: 12
    color: Contrast.readable(Theme.palette.buttonText, Theme.bezel)
    opacity: root.enabled ? 1 : 0.45

    background: Rectangle {
        color: root.down ? Contrast.blended(root.color, 0.15, Theme.bezel) : Theme.bezel
        radius: Theme.corner
        border {
            color: root.showsFocus ? Theme.accent : Theme.separator
            width: root.showsFocus ? 2 : 1
        }
    }
}
