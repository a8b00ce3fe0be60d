// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

// The monthly cost as typed, after its currency sign.
RowLayout {
    id: root

    required property string cost

    signal edited(text: string)

    spacing: 2

    Text {
        text: qsTr("$")
        textFormat: Text.PlainText
        font: Theme.body
        color: Theme.secondary
        Accessible.ignored: true
    }
    FormTextField {
        id: field

        text: root.cost
        placeholderText: qsTr("0.00")
        Accessible.name: qsTr("Monthly cost after trial")
        Layout.fillWidth: true

        onTextEdited: root.edited(field.text)
    }
}
