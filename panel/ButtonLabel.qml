// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

import org.norvane.panel

// A button's label: a symbol, a text, or a symbol followed by a text.
RowLayout {
    id: root

    required property string text
    required property string symbol
    required property font font
    required property color color

    spacing: 6

    Symbol {
        visible: root.symbol !== ""
        name: root.symbol
        color: root.color
        size: Theme.symbolSize(root.font)
        Layout.alignment: Qt.AlignCenter
    }
    Text {
        visible: root.text !== ""
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideRight
        text: root.text
        textFormat: Text.PlainText
        font: root.font
        color: root.color
        Accessible.ignored: true
        Layout.fillWidth: true
    }
}
