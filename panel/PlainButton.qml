// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick.Templates as T

import org.norvane.panel

// A button without bezel or background: its label alone, fainter under the pointer and fainter
// still while pressed, with a ring around it while it has the keyboard. It takes presses on its padding
// too; an owner that aligns the label subtracts the padding from the margins. With the icon only, a
// hint shows the text.
PanelButton {
    id: root

    padding: 6

    contentItem.opacity: root.down ? 0.5 : root.hovered ? 0.8 : root.enabled ? 1 : 0.4
    background: FocusRing {
        visible: root.showsFocus
    }

    Hint {
        shown: root.hovered && !root.down && root.display === T.AbstractButton.IconOnly
        words: root.text
    }
}
