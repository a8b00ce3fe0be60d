// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

// The thin line between two sections of the panel.
Rectangle {
    implicitHeight: 1
    color: Theme.separator
    Layout.fillWidth: true
}
