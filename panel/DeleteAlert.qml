// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

// Asks whether a trial is really to be removed, in front of a panel that waits for the answer.
T.Dialog {
    id: root

    required property string shownName
    required property string spokenName

    signal confirmed()

    anchors.centerIn: T.Overlay.overlay
    width: Math.min(Math.max(290, 22 * Theme.body.pixelSize), parent.Window.width - 2 * root.margins)
    implicitHeight: root.implicitContentHeight + 2 * root.padding
    margins: Theme.padding
    padding: Theme.padding
    modal: true
    focus: true
    visible: true
    closePolicy: T.Popup.CloseOnEscape
    //: Title of the question whether to delete a trial.
    title: qsTr("Delete Trial?")

    T.Overlay.modal: Rectangle {
        color: "#73000000"
        radius: Theme.windowCorner
    }
    background: Rectangle {
        color: Theme.background
        radius: 12
        border { color: Theme.outline; width: 1 }
    }
    contentItem: AlertContent {
        title: root.title
        shownName: root.shownName
        spokenName: root.spokenName

        Component.onCompleted: focusCancel()
        onConfirmed: {
            root.confirmed()
            root.close()
        }
        onCanceled: root.close()
    }
}
