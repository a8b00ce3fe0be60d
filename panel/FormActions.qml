// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

// The two ways out of the form.
Flow {
    id: root

    required property bool canTrack

    signal cancel()
    signal track()

    spacing: 10

    FormButton {
        text: qsTr("Cancel")
        onClicked: root.cancel()
    }
    FormButton {
        text: qsTr("Track Trial")
        weight: FormButton.Main
        enabled: root.canTrack
        onClicked: root.track()
    }
}
