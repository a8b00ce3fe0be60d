// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

// A vertical scroll bar that is visible only while there is more content than fits and the bar is
// more than four times as long as it is wide.
T.ScrollBar {
    id: root

    implicitWidth: 10
    padding: 2
    minimumSize: Math.min(1, 24 / root.availableHeight) // The handle is at least 24 pixels long.
    visible: root.size < 1 && root.height > 4 * root.width
    Accessible.role: Accessible.ScrollBar

    contentItem: Rectangle {
        implicitWidth: 6
        radius: 3
        color: root.pressed ? Theme.primary : Theme.outline
    }
}
