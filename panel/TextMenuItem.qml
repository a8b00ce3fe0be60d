// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// One entry of a text field's context menu.
T.MenuItem {
    id: root

    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: root.implicitContentHeight + root.topPadding + root.bottomPadding
    padding: 5
    leftPadding: 12
    rightPadding: 12
    font: Theme.body

    Accessible.name: root.text
    Keys.onReturnPressed: root.triggered()
    Keys.onEnterPressed: root.triggered()

    background: Rectangle {
        color: root.highlighted ? Theme.accentGround : "transparent"
        radius: Theme.corner
    }
    contentItem: Text {
        horizontalAlignment: Text.AlignLeft
        text: root.text
        textFormat: Text.PlainText
        font: root.font
        color: root.highlighted ? Theme.accentText : Theme.primary
        opacity: root.enabled ? 1 : 0.45
        Accessible.ignored: true
    }
}
