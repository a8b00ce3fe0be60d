// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

// What the field below it is for.
Text {
    horizontalAlignment: Text.AlignLeft
    wrapMode: Text.Wrap
    textFormat: Text.PlainText
    font: Theme.caption
    color: Theme.secondary
    Layout.fillWidth: true

    Accessible.ignored: true // The field has the same accessible name.
}
