// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

// The context menu of a text field.
PanelTest {
    id: test

    name: "textmenu"

    function openMenu(field) {
        mouseClick(field, field.width - 8, field.height / 2, Qt.RightButton)
        found("Select All")
        return field
    }

    function test_theContextMenuEditsTheTextWithTheMouseAlone() {
        const panel = open([])
        click("Add Trial")
        const field = found("Service name")
        fixture.setClipboard("Netflix\n")

        openMenu(field)
        click("Paste")
        compare(panel.newName, "Netflix")
        openMenu(field)
        click("Select All")
        compare(field.selectedText, "Netflix")
        openMenu(field)
        click("Copy")
        openMenu(field)
        click("Delete")
        compare(panel.newName, "")
        openMenu(field)
        click("Undo")
        compare(panel.newName, "Netflix")
        field.selectAll()
        openMenu(field)
        click("Cut")
        compare(panel.newName, "")
        compare(focusItem(), field)
    }

    function test_undoTakesBackTheDeletionButNotWhatWasTypedBefore() {
        const panel = open([])
        click("Add Trial")
        const field = found("Service name")
        type("Netflix")

        openMenu(field)
        click("Select All")
        openMenu(field)
        click("Delete")
        compare(panel.newName, "")
        openMenu(field)
        click("Undo")

        compare(panel.newName, "Netflix")
    }

    function test_theMenuKeyOpensTheContextMenuForTheKeyboard_data() {
        return [{ tag: "menu key", key: Qt.Key_Menu, modifiers: Qt.NoModifier },
                { tag: "Shift+F10", key: Qt.Key_F10, modifiers: Qt.ShiftModifier }]
    }
    function test_theMenuKeyOpensTheContextMenuForTheKeyboard(data) {
        const panel = open([])
        click("Add Trial")
        type("ab")

        keyClick(data.key, data.modifiers)
        found("Select All")
        keyClick(Qt.Key_Down)
        compare(focusName(), "Undo")
        keyClick(Qt.Key_Return)

        tryVerify(() => !find("Select All"))
        compare(panel.newName, "")
        compare(focusName(), "Service name")
    }

    function test_theContextMenuOffersWhatCanBeDone() {
        open([])
        click("Add Trial")
        fixture.setClipboard("Netflix")
        const field = find("Service name")

        openMenu(field)

        const offered = ["Undo", "Cut", "Copy", "Paste", "Delete", "Select All"].map(name => found(name).enabled)
        compare(offered, [false, false, false, true, false, false])
        keyClick(Qt.Key_Escape)
        tryVerify(() => !find("Select All"))
        compare(focusItem(), field)
    }

    function test_aHalfTypedDateIsNotFinishedByTheContextMenu() {
        open([])
        click("Add Trial")
        const field = find("Trial ends", "Day")
        field.forceActiveFocus(Qt.TabFocusReason)
        type("2/3/20")

        openMenu(field)
        compare(field.text, "2/3/20")
        keyClick(Qt.Key_Escape)

        tryVerify(() => !find("Select All"))
        compare(field.text, "2/3/20")
        type("25")
        keyClick(Qt.Key_Tab)
        compare(field.text, "2/3/2025")
    }
}
