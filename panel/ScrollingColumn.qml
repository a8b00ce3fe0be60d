// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

import org.norvane.panel

// A padded column of items. It scrolls where there is not enough room for it, and always brings the
// item that has the keyboard focus into view.
FocusScope {
    id: root

    default property alias items: column.data

    function reveal(item: Item) {
        const top = item.mapToItem(column, 0, 0).y
        const bottom = top + item.height + 2 * Theme.padding
        if (top < scroll.contentY)
            scroll.contentY = Math.max(0, top)
        else if (bottom > scroll.contentY + scroll.height)
            scroll.contentY = Math.min(bottom, scroll.contentHeight) - scroll.height
    }

    implicitHeight: column.implicitHeight + 2 * Theme.padding

    Flickable {
        id: scroll

        anchors.fill: root
        contentHeight: root.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: PanelScrollBar {}

        ColumnLayout {
            id: column

            x: Theme.padding
            y: Theme.padding
            width: root.width - 2 * Theme.padding
            spacing: 8
        }
    }
    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem
            if (item !== null && root.activeFocus)
                root.reveal(item)
        }
    }
}
