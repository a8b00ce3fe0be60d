// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

// The buttons that end the form: one cancels it, one tracks the trial.
Flow {
    id: root

    required property bool canTrack

    signal cancel()
    signal track()

    spacing: 10

    FormButton {
        //: Button that closes the form without adding a trial.
        text: qsTr("Cancel")
        onClicked: root.cancel()
    }
    FormButton {
        //: Button that adds the trial which was entered in the form.
        text: qsTr("Track Trial")
        weight: FormButton.Main
        enabled: root.canTrack
        focusPolicy: Qt.TabFocus // A press leaves the field that is being typed into its focus.
        onClicked: root.track()
    }
}
