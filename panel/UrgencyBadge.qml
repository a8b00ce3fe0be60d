// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// How urgent a trial is, as a symbol on a round patch of its colour.
Rectangle {
    id: root

    required property string symbol
    required property hue hue

    implicitWidth: 32
    implicitHeight: 32
    radius: 16
    color: root.hue.patch

    Symbol {
        anchors.centerIn: parent
        name: root.symbol
        color: root.hue.symbolOnPatch
        size: Math.min(Theme.symbolSize(Theme.caption), 20)
    }
}
