// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

import org.norvane.panel

// The product's name and how many trials are still running.
Item {
    id: root

    required property int activeCount

    // The header's texts as one sentence.
    readonly property string words: product.text + ", " + count.text

    implicitHeight: row.implicitHeight + 20

    RowLayout {
        id: row

        anchors { fill: parent; leftMargin: Theme.padding; rightMargin: Theme.padding }
        spacing: Theme.spacing

        Symbol {
            name: "clock.badge.exclamationmark"
            color: Theme.orange.symbol
            size: Theme.symbolSize(Theme.title3)
        }
        Text {
            id: product

            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            //: The name of the program. It is the same in every language.
            text: qsTr("Norvane")
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            font: Theme.headline
            color: Theme.primary
            Layout.fillWidth: true
        }
        Text {
            id: count

            //: How many trials have not ended yet. %lld is their number.
            text: Phrase.with(qsTr("%lld active", "", root.activeCount), root.activeCount.toString())
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            font: Theme.caption
            color: Theme.secondary
        }
    }
}
