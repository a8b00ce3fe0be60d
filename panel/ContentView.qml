// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

import org.norvane.panel

// The whole panel: header, the form while a trial is being added, list or empty state, footer.
Rectangle {
    id: root

    required property PanelContent content

    readonly property TrialStore store: root.content.store
    property bool showingAdd: false
    property string newName: ""
    property pointInTime newEndDate: root.content.weekFromNow()
    property string newCost: ""
    property string newNotes: ""

    function showForm() {
        root.showingAdd = true
        root.newEndDate = root.content.weekFromNow()
    }

    function emptyForm() {
        root.newName = ""
        root.newCost = ""
        root.newNotes = ""
    }

    function cancel() {
        root.showingAdd = false
        root.emptyForm()
        footer.focusAdd()
    }

    function track() {
        if (root.newName === "")
            return
        root.store.add(root.newName, root.newEndDate, root.content.cost(root.newCost), root.newNotes)
        //: What a screen reader says once a trial was added. %@ is its name.
        root.announce(Phrase.with(qsTr("%@ added"), root.content.spoken(root.newName)))
        root.emptyForm()
        root.newEndDate = root.content.weekFromNow()
        root.showingAdd = false
        footer.focusAdd()
    }

    function takeFocus() {
        if (root.showingAdd)
            (form.itemAt(0) as AddTrialForm).focusName()
        else
            footer.focusAdd()
    }

    // An alert in front of the panel keeps the keyboard focus, and so does a field of the form.
    function takeFocusOnShowing() {
        if (T.Overlay.overlay !== null && T.Overlay.overlay.visible)
            return
        if (root.showingAdd)
            form.itemAt(0).forceActiveFocus(Qt.ActiveWindowFocusReason)
        else
            footer.focusAdd()
    }

    // Lets a screen reader speak the text, after it has spoken the item that got the focus.
    function announce(text: string) {
        announcement.visible = false
        announcement.text = text
        Qt.callLater(() => announcement.visible = true) // qmllint disable
    }

    implicitWidth: 360
    color: Theme.background

    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    onShowingAddChanged: root.content.rebuildSoon()
    onNewNameChanged: root.content.rebuildSoon()
    onNewEndDateChanged: root.content.rebuildSoon()
    onNewCostChanged: root.content.rebuildSoon()
    onNewNotesChanged: root.content.rebuildSoon()

    Connections {
        id: shell

        property bool newlyShown: false

        target: root.Window.window

        function onVisibleChanged() {
            shell.newlyShown = root.Window.window.visible
        }
        // A screen reader passes over what gets the focus in a window that is not active yet.
        function onActiveChanged() {
            if (!shell.newlyShown || !root.Window.window.active)
                return
            shell.newlyShown = false
            root.takeFocusOnShowing()
            root.announce(header.words)
        }
    }
    // Invisible; a screen reader speaks it when it appears.
    Item {
        id: announcement

        property string text: ""

        anchors.fill: parent
        visible: false

        Accessible.role: Accessible.Notification
        Accessible.name: announcement.text
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        PanelHeader {
            id: header

            activeCount: root.content.activeCount
            Layout.fillWidth: true
        }
        Separator {}
        // Exists only while it is shown.
        Repeater {
            id: form

            model: root.showingAdd ? 1 : 0
            delegate: AddTrialForm {
                calendar: root.content.calendar
                newName: root.newName
                newEndDate: root.newEndDate
                newCost: root.newCost
                // Header and footer with their lines always stay visible.
                Layout.preferredHeight: Math.min(implicitHeight, root.height - header.height - footer.height - 3)
                Layout.fillWidth: true

                onNewNameEdited: text => root.newName = text
                onNewEndDateEdited: moment => root.newEndDate = moment
                onNewCostEdited: text => root.newCost = text
                onCancel: root.cancel()
                onTrack: root.track()
            }
        }
        Separator { visible: root.showingAdd }
        TrialSection {
            trials: root.content.trials
            Layout.fillWidth: true
            Layout.fillHeight: true

            onDelete_: trial => {
                root.store.delete_(trial)
                //: What a screen reader says once a trial was deleted. %@ is its name.
                root.announce(Phrase.with(qsTr("%@ deleted"), root.content.spoken(trial.name)))
            }
            onEmptied: root.takeFocus()
        }
        Separator {}
        PanelFooter {
            id: footer

            showingAdd: root.showingAdd
            Layout.fillWidth: true

            onAdd: root.showForm()
            onQuit: Qt.quit()
        }
    }
}
