// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// Shown instead of the list while there are no trials, centred in the available room. Below a tall
// form that may be too little; then the symbol is hidden first, and the hint next.
Item {
    id: root

    readonly property real heightOfTexts: title.implicitHeight + column.spacing + hint.implicitHeight
    readonly property real heightOfAll: symbol.height + column.spacing + root.heightOfTexts

    implicitHeight: root.heightOfAll + 2 * 30

    Column {
        id: column

        anchors.centerIn: root
        width: root.width
        spacing: 8

        Symbol {
            id: symbol

            anchors.horizontalCenter: parent.horizontalCenter
            visible: root.height >= root.heightOfAll
            name: "shield.checkered"
            color: Theme.secondary
            size: Theme.symbolSize(Theme.largeTitle)
        }
        Text {
            id: title

            width: column.width
            visible: root.height >= title.implicitHeight
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            //: Stands in the place of the list while it is empty.
            text: qsTr("No trials tracked")
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            font: Theme.body
            color: Theme.secondary
        }
        Text {
            id: hint

            width: column.width
            visible: root.height >= root.heightOfTexts
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            //: Stands below "No trials tracked".
            text: qsTr("Add a free trial to get started")
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            font: Theme.caption
            color: Theme.secondary
        }
    }
}
