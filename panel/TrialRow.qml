// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
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

    // The name and the line below it.
    readonly property real linesHeight: Theme.bodyLine + 2 + Theme.captionLine
    readonly property bool showsFocus: root.activeFocus || trash.showsFocus
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

    implicitHeight: Math.max(badge.height, root.linesHeight) + 8
    activeFocusOnTab: root.stop || root.activeFocus

    Accessible.role: Accessible.ListItem
    Accessible.name: root.sentence
    Accessible.description: root.place
    Accessible.focusable: true
    onShowDeleteConfirmChanged: if (root.showDeleteConfirm) confirmation.createObject(root)
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

    // Lit under the pointer; with a ring while the row has the focus.
    FocusRing {
        id: ring

        readonly property bool needed: LastInput.isKey && root.activeFocus

        anchors { fill: parent; margins: 1; leftMargin: 8; rightMargin: 8 }
        visible: ring.needed || pointer.hovered
        color: pointer.hovered ? Theme.lit : "transparent"
        border.width: ring.needed ? 2 : 0
    }
    Rectangle {
        anchors { left: name.left; right: parent.right; bottom: parent.bottom; rightMargin: Theme.padding }
        visible: root.ruled
        height: 1
        color: Theme.separator
    }
    UrgencyBadge {
        id: badge

        anchors { left: parent.left; leftMargin: Theme.padding; verticalCenter: parent.verticalCenter }
        symbol: root.presentation.badgeSymbol
        hue: root.urgencyColor
    }
    Text {
        id: name

        anchors { left: badge.right; leftMargin: 10; right: trash.left; rightMargin: 20 - trash.padding }
        y: Math.round((root.height - root.linesHeight) / 2)
        // The same in every script: letters of other fonts are higher than those of this one.
        height: Theme.bodyLine
        horizontalAlignment: Text.AlignLeft
        text: root.presentation.shownName
        textFormat: Text.PlainText
        font: Theme.body
        color: Theme.primary
        elide: Text.ElideRight
        maximumLineCount: 1
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true

        Hint {
            shown: name.truncated && pointer.hovered && name.contains(root.mapToItem(name, pointer.point.position))
            words: name.text
        }
    }
    TrialDetails {
        anchors { left: name.left; right: name.right; top: name.bottom; topMargin: 2 }
        daysText: root.presentation.daysText
        daysColor: root.urgencyColor.text
        costText: root.presentation.costText
    }
    PlainButton {
        id: trash

        anchors { right: parent.right; rightMargin: Theme.padding - trash.padding; verticalCenter: parent.verticalCenter }
        //: What a screen reader says of a row's trash button.
        text: qsTr("Delete")
        display: T.AbstractButton.IconOnly
        symbol: "trash"
        font: Theme.caption
        color: Theme.secondary
        focusPolicy: Qt.ClickFocus
        activeFocusOnTab: root.stop || trash.activeFocus
        Accessible.description: root.presentation.spokenName

        onActiveFocusChanged: if (trash.activeFocus) root.arrive(trash, trash.focusReason)
        onClicked: root.ask(trash)
    }
    HoverHandler { id: pointer }

    // Created when it is needed, and destroyed after the answer.
    Component {
        id: confirmation

        DeleteAlert {
            id: alert

            parent: root
            shownName: root.presentation.shownName
            spokenName: root.presentation.spokenName

            onConfirmed: root.delete_()
            onClosed: {
                root.showDeleteConfirm = false
                root.asker.forceActiveFocus(Qt.PopupFocusReason)
                alert.destroy()
            }
        }
    }
}
