// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

import org.norvane.panel

// One trial: how urgent it is, its name, the days left, what it will cost, and a way to delete it.
// The keyboard reaches the row and, from there, its trash button.
Item {
    id: root

    required property trial trial
    required property trialPresentation presentation
    // What a screen reader says of the trial, and of its place in the list.
    required property string sentence
    required property string place
    // Whether the tab key stops here.
    required property bool stop
    // Whether a line separates it from the row below.
    required property bool ruled

    property bool showDeleteConfirm: false

    // The item that asked for the deletion; the focus returns there.
    property Item asker: trash

    readonly property bool showsFocus: root.activeFocus || trash.showsFocus
    // Between the badge and the trash button.
    readonly property real roomForText: content.width - badge.width - trash.width + 2 * trash.padding - 3 * content.spacing
    readonly property hue urgencyColor: {
        switch (root.presentation.urgency) {
        case Urgency.Over: return Theme.red
        case Urgency.Tomorrow: return Theme.orange
        case Urgency.Soon: return Theme.yellow
        default: return Theme.green
        }
    }

    signal delete_()
    // The row or its button got the focus.
    signal reached()

    // The list may already move the focus here when it handles the signal.
    function arrive(item: Item, reason: int) {
        root.reached()
        if (!item.activeFocus)
            item.forceActiveFocus(reason)
    }

    function ask(asker: Item) {
        root.asker = asker
        root.showDeleteConfirm = true
    }

    implicitHeight: content.implicitHeight + 8
    activeFocusOnTab: root.stop || root.activeFocus

    Accessible.role: Accessible.ListItem
    Accessible.name: root.sentence
    Accessible.description: root.place
    Accessible.focusable: true
    onActiveFocusChanged: if (root.activeFocus) root.arrive(root, Qt.OtherFocusReason)
    Keys.onPressed: event => {
        const inward = root.LayoutMirroring.enabled ? Qt.Key_Left : Qt.Key_Right
        const outward = root.LayoutMirroring.enabled ? Qt.Key_Right : Qt.Key_Left
        event.accepted = true
        if ((event.modifiers & ~Qt.KeypadModifier) !== Qt.NoModifier)
            event.accepted = false
        else if (event.key === Qt.Key_Delete)
            root.ask(trash.activeFocus ? trash : root)
        else if (event.key === inward)
            trash.forceActiveFocus(Qt.TabFocusReason)
        else if (event.key === outward)
            root.forceActiveFocus(Qt.TabFocusReason)
        else
            event.accepted = false
    }

    RowLayout {
        id: content

        anchors { fill: parent; leftMargin: Theme.padding; rightMargin: Theme.padding }
        spacing: 10

        UrgencyBadge {
            id: badge

            symbol: root.presentation.badgeSymbol
            hue: root.urgencyColor
        }
        ColumnLayout {
            spacing: 2

            Text {
                id: name

                horizontalAlignment: Text.AlignLeft
                text: root.presentation.shownName
                textFormat: Text.PlainText
                font: Theme.body
                color: Theme.primary
                elide: Text.ElideRight
                maximumLineCount: 1
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
                Layout.fillWidth: true
                // The same in every script: letters of other fonts are higher than those of this one.
                Layout.preferredHeight: Math.ceil(bodyLine.height)

                HoverHandler { id: nameUnderPointer }
                Hint {
                    shown: name.truncated && nameUnderPointer.hovered
                    words: name.text
                }
            }
            TrialDetails {
                daysText: root.presentation.daysText
                daysColor: root.urgencyColor.text
                costText: root.presentation.costText
                room: root.roomForText
            }
        }
        Item {}
        PlainButton {
            id: trash

            //: What a screen reader says of a row's trash button.
            text: qsTr("Delete")
            display: T.AbstractButton.IconOnly
            symbol: "trash"
            font: Theme.caption
            color: Theme.secondary
            focusPolicy: Qt.ClickFocus
            activeFocusOnTab: root.stop || trash.activeFocus
            Accessible.description: root.presentation.spokenName
            Layout.margins: -trash.padding

            onActiveFocusChanged: if (trash.activeFocus) root.arrive(trash, trash.focusReason)
            onClicked: root.ask(trash)
        }
    }

    FocusRing {
        anchors { fill: parent; margins: 1; leftMargin: 8; rightMargin: 8 }
        visible: LastInput.isKey && root.activeFocus
    }
    HoverHandler { id: pointer }
    Rectangle {
        z: -1
        anchors { fill: parent; leftMargin: 8; rightMargin: 8; bottomMargin: root.ruled ? 1 : 0 }
        visible: pointer.hovered
        radius: Theme.corner
        color: Theme.lit
    }
    Rectangle {
        z: -1
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        anchors { leftMargin: Theme.padding + badge.width + content.spacing; rightMargin: Theme.padding }
        visible: root.ruled
        height: 1
        color: Theme.separator
    }
    FontMetrics {
        id: bodyLine

        font: Theme.body
    }

    // Created when it is needed, and destroyed after the answer.
    Instantiator {
        active: root.showDeleteConfirm
        delegate: DeleteAlert {
            parent: root
            shownName: root.presentation.shownName
            spokenName: root.presentation.spokenName

            onConfirmed: root.delete_()
            onClosed: {
                root.showDeleteConfirm = false
                root.asker.forceActiveFocus(Qt.PopupFocusReason)
            }
        }
    }
}
