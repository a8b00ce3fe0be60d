// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// A line of text to type into, with a rounded border and a context menu.
//
// A line has no breaks: those inside a pasted text become blanks, those at its ends go. This covers
// every way in which the user can bring text here, and undo takes the paste back in one step.
T.TextField {
    id: root

    // Line breaks, and tabs with them, as a regular expression.
    readonly property string breaks: "[\\t-\\r\\x1c-\\x1f\\x85\\u2028\\u2029]"
    readonly property bool menuOpen: menu.active
    property bool straightening: false
    // For screen readers: the value as an integer if the field can be stepped; otherwise undefined.
    property var value

    // The user changed the text, to this, which has no line breaks.
    signal lineEdited(text: string)

    function hasBreak(text: string): bool {
        return new RegExp(root.breaks).test(text)
    }

    function withoutBreaks(text: string): string {
        const atTheEnds = new RegExp("^" + root.breaks + "+|" + root.breaks + "+$", "g")
        return text.replace(atTheEnds, "").replace(new RegExp("\\r\\n|" + root.breaks, "g"), " ")
    }

    // Undoes the last insertion, which ends at the cursor, and inserts it again without line breaks,
    // so that one undo removes it.
    function straighten() {
        const edited = root.text
        const cursor = root.cursorPosition
        root.undo()
        const before = root.text
        const end = before.length - (edited.length - cursor)
        let start = 0
        while (start < end && before[start] === edited[start])
            ++start
        root.remove(start, end)
        root.insert(start, root.withoutBreaks(edited.slice(start, cursor)))
    }

    function openMenu(x: real, y: real) {
        root.forceActiveFocus(Qt.PopupFocusReason)
        menu.active = true
        const opened = menu.object as TextMenu
        opened.popup(root, x, y)
    }

    implicitWidth: 120
    implicitHeight: Math.max(root.contentHeight, placeholder.implicitHeight) + root.topPadding + root.bottomPadding
    padding: 5
    leftPadding: 7
    rightPadding: 7
    font: Theme.body
    color: Theme.fieldText
    selectionColor: Theme.accentGround
    selectedTextColor: Theme.accentText
    placeholderTextColor: Theme.fieldHint
    selectByMouse: true
    hoverEnabled: true
    horizontalAlignment: TextInput.AlignLeft
    verticalAlignment: TextInput.AlignVCenter

    Accessible.role: Accessible.EditableText
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
        if (event.accepted)
            root.openMenu(root.cursorRectangle.x, root.height)
    }
    onTextEdited: {
        if (root.straightening)
            return
        root.straightening = true
        if (root.hasBreak(root.text))
            root.straighten()
        root.straightening = false
        root.lineEdited(root.text)
    }

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

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.RightButton
        cursorShape: Qt.IBeamCursor
        onPressed: event => root.openMenu(event.x, event.y)
    }
    // Made when it is opened.
    Instantiator {
        id: menu

        active: false
        delegate: TextMenu {
            field: root

            onClosed: {
                root.forceActiveFocus(Qt.PopupFocusReason)
                menu.active = false
            }
        }
    }
}
