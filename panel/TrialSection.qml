// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// The tracked trials, or what stands in their place while there are none.
Item {
    id: root

    required property TrialListModel trials

    signal delete_(trial: trial)
    // The last row went, and the keyboard was here.
    signal emptied()

    implicitHeight: empty.visible ? empty.implicitHeight : 0

    EmptyState {
        id: empty

        anchors.fill: root
        visible: !list.visible
    }
    TrialList {
        id: list

        anchors.fill: root
        visible: list.count > 0
        trials: root.trials

        onDelete_: trial => root.delete_(trial)
        onEmptied: root.emptied()
    }
}
