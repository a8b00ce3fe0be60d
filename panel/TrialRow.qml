// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

import org.norvane.panel

// One trial: how urgent it is, its name, the days left, what it will cost, and a way to delete it.
FocusScope {
    id: root

    required property trial trial
    required property trialPresentation presentation
    // Whether the tab key stops here.
    required property bool stop

    property bool showDeleteConfirm: false

    readonly property bool showsFocus: trash.showsFocus
    // Between the badge and the trash button.
    readonly property real roomForText: content.width - badge.width - trash.width + 2 * trash.padding - 3 * content.spacing
    readonly property string daysText: Phrase.with(qsTr("%lldd left"), root.presentation.days)
    readonly property hue urgencyColor: {
        switch (root.presentation.urgency) {
        case Urgency.Over: return Theme.red
        case Urgency.Tomorrow: return Theme.orange
        case Urgency.Soon: return Theme.yellow
        default: return Theme.green
        }
    }

    signal delete_()

    function sentence(): string {
        const words = root.trial.name + ", " + root.daysText
        return root.presentation.costText === "" ? words : words + " " + root.presentation.costText
    }

    implicitHeight: content.implicitHeight + 8

    Accessible.role: Accessible.ListItem
    Accessible.name: root.sentence()

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
                horizontalAlignment: Text.AlignLeft
                text: root.trial.name
                textFormat: Text.PlainText
                font: Theme.body
                color: Theme.primary
                elide: Text.ElideRight
                maximumLineCount: 1
                Accessible.ignored: true
                Layout.fillWidth: true
            }
            TrialDetails {
                daysText: root.daysText
                daysColor: root.urgencyColor.text
                costText: root.presentation.costText
                room: root.roomForText
            }
        }
        Item {}
        PlainButton {
            id: trash

            text: qsTr("Delete")
            display: T.AbstractButton.IconOnly
            symbol: "trash"
            font: Theme.caption
            color: Theme.secondary
            focus: true
            focusPolicy: Qt.ClickFocus
            activeFocusOnTab: root.stop || trash.activeFocus
            Accessible.description: root.trial.name
            Layout.margins: -trash.padding

            onClicked: root.showDeleteConfirm = true
        }
    }

    // Made when it is needed, and gone with the answer.
    Instantiator {
        active: root.showDeleteConfirm
        delegate: DeleteAlert {
            parent: root
            name: root.trial.name

            onConfirmed: root.delete_()
            onClosed: {
                root.showDeleteConfirm = false
                trash.forceActiveFocus(Qt.PopupFocusReason)
            }
        }
    }
}
