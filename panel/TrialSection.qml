// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// The list of tracked trials, or the empty state while there are none.
Item {
    id: root

    required property TrialListModel trials

    signal delete_(trial: trial)
    // Emitted when the last row was removed while the list had the keyboard focus.
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
