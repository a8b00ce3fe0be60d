// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// What stands in the list's place while there are no trials.
Item {
    id: root

    implicitHeight: column.implicitHeight + 2 * 30
    clip: true

    // In the middle of whatever room there is; beside a tall form that is less than it would like.
    Column {
        id: column

        anchors.centerIn: root
        width: root.width
        spacing: 8

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "shield.checkered"
            color: Theme.secondary
            size: Theme.symbolSize(Theme.largeTitle)
        }
        Text {
            width: column.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: qsTr("No trials tracked")
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            font: Theme.body
            color: Theme.secondary
        }
        Text {
            width: column.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: qsTr("Add a free trial to get started")
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            font: Theme.caption
            color: Theme.secondary
        }
    }
}
