// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// What a mouse alone, or the menu key, can do with the text of a field. It exists only while it is open.
T.Menu {
    id: root

    required property T.TextField field

    readonly property bool hasSelection: root.field.selectedText !== ""

    implicitWidth: root.implicitContentWidth + 2 * root.padding
    implicitHeight: root.implicitContentHeight + 2 * root.padding
    margins: 4
    padding: 4
    modal: true
    dim: false

    background: Rectangle {
        color: Theme.background
        radius: Theme.corner + root.padding
        border { color: Theme.outline; width: 1 }
    }
    contentItem: ListView {
        // The widest entry makes the width, and all of them exist from the start.
        implicitWidth: {
            let widest = 0
            for (let index = 0; index < root.count; ++index)
                widest = Math.max(widest, root.itemAt(index).implicitWidth)
            return widest
        }
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        keyNavigationEnabled: false
        clip: true
        boundsBehavior: Flickable.StopAtBounds
    }

    TextMenuItem {
        //: Entry of a text field's context menu.
        text: qsTr("Undo")
        enabled: root.field.canUndo
        onTriggered: root.field.undo()
    }
    TextMenuItem {
        //: Entry of a text field's context menu.
        text: qsTr("Cut")
        enabled: root.hasSelection
        onTriggered: root.field.cut()
    }
    TextMenuItem {
        //: Entry of a text field's context menu.
        text: qsTr("Copy")
        enabled: root.hasSelection
        onTriggered: root.field.copy()
    }
    TextMenuItem {
        //: Entry of a text field's context menu.
        text: qsTr("Paste")
        enabled: root.field.canPaste
        onTriggered: root.field.paste()
    }
    TextMenuItem {
        //: Entry of a text field's context menu: deletes the selected text.
        text: qsTr("Delete")
        enabled: root.hasSelection
        onTriggered: {
            const start = root.field.selectionStart, end = root.field.selectionEnd
            // Undo takes everything back that was typed since the cursor moved, so it has to move.
            root.field.cursorPosition = start
            root.field.remove(start, end)
        }
    }
    TextMenuItem {
        //: Entry of a text field's context menu: selects the whole text.
        text: qsTr("Select All")
        enabled: root.field.selectedText.length < root.field.length
        onTriggered: root.field.selectAll()
    }
}
