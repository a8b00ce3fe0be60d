// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// The tracked trials, one row each, in the order in which they were added. The tab key stops at one
// row and at its trash button; from there the arrow keys walk the rows.
ListView {
    id: root

    required property TrialListModel trials

    signal delete_(trial: trial)
    // Emitted when the last row was removed while the list had the focus.
    signal emptied()

    function goTo(row: int) {
        if (root.count === 0)
            return
        root.currentIndex = Math.max(0, Math.min(row, root.count - 1))
        if (root.currentIndex === 0)
            root.contentY = root.originY - root.topMargin
        else if (root.currentIndex === root.count - 1)
            root.showEnd()
        else
            root.positionViewAtIndex(root.currentIndex, ListView.Contain)
        root.focusCurrent()
    }

    // Scrolls to the very end; positionViewAtEnd() leaves out the margin below the last row.
    function showEnd() {
        root.positionViewAtEnd()
        root.contentY = Math.max(-root.topMargin, root.contentHeight + root.bottomMargin - root.height) + root.originY
    }

    function focusCurrent() {
        if (root.currentItem !== null)
            root.currentItem.forceActiveFocus(Qt.TabFocusReason)
    }

    function pageRows(): int {
        return root.currentItem === null ? 0 : Math.max(1, Math.floor(root.height / root.currentItem.height) - 1)
    }

    model: root.trials
    clip: true
    topMargin: 4
    bottomMargin: 4
    cacheBuffer: 0
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    T.ScrollBar.vertical: PanelScrollBar {}

    Accessible.role: Accessible.List
    //: What a screen reader says of the list.
    Accessible.name: qsTr("Trials")
    //: What a screen reader says of the list after its name. %lld is the number of trials in it.
    Accessible.description: Phrase.with(qsTr("%lld in total", "", root.count), root.count.toString())
    Keys.onUpPressed: root.goTo(root.currentIndex - 1)
    Keys.onDownPressed: root.goTo(root.currentIndex + 1)
    Keys.onPressed: event => {
        event.accepted = true
        switch (event.key) {
        case Qt.Key_Home: return root.goTo(0)
        case Qt.Key_End: return root.goTo(root.count - 1)
        case Qt.Key_PageUp: return root.goTo(root.currentIndex - root.pageRows())
        case Qt.Key_PageDown: return root.goTo(root.currentIndex + root.pageRows())
        default: event.accepted = false
        }
    }

    delegate: TrialRow {
        id: row

        required property int index

        width: root.width
        ruled: row.index < root.count - 1
        stop: row.index === root.currentIndex && root.height > 0

        onDelete_: root.delete_(row.trial)
        onReached: root.currentIndex = row.index
        // Scrolls only when the focus is to be seen, that is after a key: a row must not move while
        // the mouse is pressed on it.
        onShowsFocusChanged: if (row.showsFocus) root.positionViewAtIndex(row.index, ListView.Contain)
    }

    Connections {
        target: root.trials

        function onRowsInserted() { root.showEnd() }
        function onRowsRemoved() {
            if (root.activeFocus && root.trials.rowCount() === 0)
                root.emptied()
            else if (root.activeFocus)
                root.focusCurrent()
        }
    }
}
