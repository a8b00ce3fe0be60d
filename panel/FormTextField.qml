// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// A line of text to type into, with a rounded border.
T.TextField {
    id: root

    implicitWidth: 120
    implicitHeight: Math.max(root.contentHeight, placeholder.implicitHeight) + root.topPadding + root.bottomPadding
    padding: 5
    leftPadding: 7
    rightPadding: 7
    font: Theme.body
    color: Theme.fieldText
    selectionColor: Theme.highlight
    selectedTextColor: Theme.highlightedText
    placeholderTextColor: Theme.fieldHint
    selectByMouse: true
    hoverEnabled: true
    horizontalAlignment: TextInput.AlignLeft
    verticalAlignment: TextInput.AlignVCenter

    Accessible.role: Accessible.EditableText

    background: Rectangle {
        color: Theme.field
        radius: Theme.corner
        border {
            color: root.activeFocus ? Theme.accent : root.hovered ? Theme.primary : Theme.outline
            width: LastInput.isKey && root.activeFocus ? 2 : 1
        }
    }

    Text {
        id: placeholder

        anchors { fill: parent; leftMargin: root.leftPadding; rightMargin: root.rightPadding }
        visible: root.length === 0 && root.preeditText === ""
        horizontalAlignment: Text.AlignLeft
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        text: root.placeholderText
        textFormat: Text.PlainText
        font: root.font
        color: root.placeholderTextColor
        Accessible.ignored: true
    }
}
