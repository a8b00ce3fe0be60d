// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// What the panel's buttons have in common: their label, and how keyboard and screen reader reach
// them. With the icon only, the text is not drawn: a screen reader says it, and the buttons made from
// this one show it as a hint.
T.AbstractButton {
    id: root

    property string symbol: ""
    property color color: Theme.primary

    readonly property bool showsFocus: LastInput.isKey && root.activeFocus

    // What is in front blocks what is behind it, for a screen reader too.
    function isReachable(): bool {
        const front = T.Overlay.overlay
        let item = root as Item
        while (item !== null && item !== front)
            item = item.parent
        return root.enabled && (item === front || !front.visible)
    }

    implicitWidth: root.implicitContentWidth + root.leftPadding + root.rightPadding
    implicitHeight: root.implicitContentHeight + root.topPadding + root.bottomPadding
    font: Theme.body
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.onPressAction: if (root.isReachable()) root.clicked()
    Keys.onPressed: event => {
        const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
        event.accepted = isReturn && (event.modifiers & ~Qt.KeypadModifier) === Qt.NoModifier
        if (event.accepted && !event.isAutoRepeat)
            root.clicked()
    }

    contentItem: ButtonLabel {
        text: root.display === T.AbstractButton.IconOnly ? "" : root.text
        symbol: root.symbol
        font: root.font
        color: root.color
    }
}
