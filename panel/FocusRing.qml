// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// The line around what has the keyboard.
Rectangle {
    color: "transparent"
    radius: Theme.corner
    border { color: Theme.accent; width: 2 }
}
