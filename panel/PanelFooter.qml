// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts

// The buttons that are always visible.
Item {
    id: root

    required property bool showingAdd

    signal add()
    signal quit()

    function focusAdd() {
        addButton.forceActiveFocus(Qt.OtherFocusReason)
    }

    implicitHeight: row.implicitHeight + 16

    RowLayout {
        id: row

        anchors { fill: parent; leftMargin: Theme.padding; rightMargin: Theme.padding }
        spacing: Theme.spacing

        PlainButton {
            id: addButton

            visible: !root.showingAdd
            //: Button that opens the form for a new trial.
            text: qsTr("Add Trial")
            symbol: "plus.circle.fill"
            Layout.margins: -addButton.padding
            Layout.fillWidth: true
            Layout.maximumWidth: addButton.implicitWidth
            onClicked: root.add()
        }
        Item { Layout.fillWidth: true }
        PlainButton {
            id: quitButton

            //: Button that ends the program.
            text: qsTr("Quit")
            color: Theme.secondary
            Layout.margins: -quitButton.padding
            onClicked: root.quit()
        }
    }
}
