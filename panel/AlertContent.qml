// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

import org.norvane.panel

// The question, its explanation, and the two answers.
ColumnLayout {
    id: root

    required property string title
    required property string shownName
    required property string spokenName

    //: Explains the question whether to delete a trial. %@ is the name of the service; keep the straight quotes.
    readonly property string question: qsTr("Remove \"%@\" from Norvane?")
    readonly property real line: message.implicitHeight / message.lineCount

    signal confirmed()
    signal canceled()

    function focusCancel() {
        cancelButton.forceActiveFocus(Qt.PopupFocusReason)
    }

    function scrollBy(way: real) {
        const end = Math.max(0, scroll.contentHeight - scroll.height)
        scroll.contentY = Math.max(0, Math.min(scroll.contentY + way, end))
    }

    spacing: Theme.spacing

    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    Keys.onUpPressed: root.scrollBy(-root.line)
    Keys.onDownPressed: root.scrollBy(root.line)
    Keys.onPressed: event => {
        const pages = event.key === Qt.Key_PageUp ? -1 : event.key === Qt.Key_PageDown ? 1 : 0
        event.accepted = pages !== 0
        if (event.accepted)
            root.scrollBy(pages * Math.max(root.line, scroll.height - root.line))
    }

    Text {
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: root.title
        textFormat: Text.PlainText
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        font: Theme.headline
        color: Theme.primary
        Layout.fillWidth: true
    }
    // A long name scrolls, by the keys too; the buttons stay.
    Flickable {
        id: scroll

        implicitHeight: message.implicitHeight
        contentHeight: message.implicitHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: PanelScrollBar { id: bar }
        // Into the alert's padding, so that the scroll bar does not lie over the text.
        Layout.leftMargin: -bar.width
        Layout.rightMargin: -bar.width
        Layout.fillWidth: true
        Layout.fillHeight: true

        Text {
            id: message

            x: bar.width
            width: scroll.width - 2 * bar.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: Phrase.with(root.question, root.shownName)
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: Phrase.with(root.question, root.spokenName)
            font: Theme.body
            color: Theme.primary
        }
    }
    GridLayout {
        id: answers

        readonly property real widest: Math.max(deleteButton.implicitWidth, cancelButton.implicitWidth)

        columns: 2 * answers.widest + columnSpacing <= root.width ? 2 : 1
        columnSpacing: 10
        rowSpacing: 10
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 4

        FormButton {
            id: deleteButton

            //: Button that deletes the trial, below the question.
            text: qsTr("Delete")
            weight: FormButton.Destructive
            Layout.preferredWidth: answers.widest
            Layout.fillWidth: true
            onClicked: root.confirmed()
        }
        FormButton {
            id: cancelButton

            //: Button that keeps the trial, below the question whether to delete it.
            text: qsTr("Cancel")
            Layout.preferredWidth: answers.widest
            Layout.fillWidth: true
            onClicked: root.canceled()
        }
    }
}
