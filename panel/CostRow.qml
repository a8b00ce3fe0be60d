// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

// The currency sign and, behind it, the field for the monthly cost.
RowLayout {
    id: root

    required property string cost

    signal edited(text: string)

    spacing: 2

    Text {
        //: Currency sign before the field for the cost. It is the same in every language.
        text: qsTr("$")
        textFormat: Text.PlainText
        font: Theme.body
        color: Theme.secondary
        Accessible.ignored: true
    }
    FormTextField {
        id: field

        text: root.cost
        //: Shown in the empty field for the cost. The decimal mark is always a point.
        placeholderText: qsTr("0.00")
        //: What a screen reader says of the field for the cost; the same as its caption.
        Accessible.name: qsTr("Monthly cost after trial")
        Layout.fillWidth: true

        onLineEdited: text => root.edited(text)
    }
}
