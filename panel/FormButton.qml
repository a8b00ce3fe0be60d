// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// A push button with a ground and an outline: those of an ordinary answer, of the one that the form
// is there for, or of one that destroys. A disabled button has no ground and only a faint outline.
PanelButton {
    id: root

    enum Weight { Ordinary, Main, Destructive }

    property int weight: FormButton.Ordinary

    readonly property color ground: root.weight === FormButton.Main ? Theme.accentGround
                                  : root.weight === FormButton.Destructive ? Theme.dangerGround : Theme.bezel
    // Under the pointer the ground is a little lighter or darker, while pressed more so; the label
    // stays readable on it.
    readonly property color groundNow: root.down ? Contrast.blended(root.away, 0.22, root.ground)
                                     : root.hovered ? Contrast.blended(root.away, 0.1, root.ground) : root.ground
    readonly property color away: root.weight === FormButton.Main ? Contrast.onGround(root.color) : root.color

    padding: 5
    leftPadding: 12
    rightPadding: 12
    color: root.weight === FormButton.Main ? Theme.accentText
         : root.weight === FormButton.Destructive ? Theme.dangerText : Theme.bezelText

    contentItem: ButtonLabel {
        text: root.display === T.AbstractButton.IconOnly ? "" : root.text
        symbol: root.symbol
        font: root.font
        color: root.enabled ? Theme.readable(root.color, root.groundNow) : Theme.secondary
        opacity: root.enabled ? 1 : 0.6
    }
    background: Rectangle {
        color: root.enabled ? root.groundNow : "transparent"
        radius: Theme.corner
        border {
            color: !root.enabled ? Theme.separator : Theme.outlined(
                root.weight === FormButton.Main ? root.ground
                : root.weight === FormButton.Destructive ? Theme.red.symbol
                : root.hovered ? Theme.primary : Theme.outline, Theme.background)
            width: root.down && root.enabled ? 2 : 1
        }

        FocusRing {
            anchors { fill: parent; margins: -3 }
            radius: Theme.corner + 3
            visible: root.showsFocus
        }
    }

    Hint {
        shown: root.hovered && !root.down && root.display === T.AbstractButton.IconOnly
        words: root.text
    }
}
