// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import QtTest

PanelTest {
    id: test

    name: "alert"

    function ask(name = "Netflix") {
        const panel = open([{ name: name, hours: 50, cost: 0 }, { name: "Acme", hours: 50, cost: 0 }])
        click("Delete", name)
        found("Delete Trial?")
        return panel
    }

    function deleteButton() { return fixture.text(test, "Delete") }

    function test_itAsksWithTheNameBetweenStraightQuotes() {
        ask()

        verify(find("Remove \"Netflix\" from Norvane?"))
    }

    function test_deleteStandsBeforeCancelWhichHasTheFocus() {
        ask()

        verify(deleteButton().mapToItem(test, 0, 0).x < find("Cancel").mapToItem(test, 0, 0).x)
        compare(focusName(), "Cancel")
        verify(!Qt.colorEqual(deleteButton().color, find("Cancel").color))
    }

    function test_returnOnCancelAndEscapeBothKeepTheTrial_data() {
        return [{ tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter }, { tag: "Escape", key: Qt.Key_Escape }]
    }
    function test_returnOnCancelAndEscapeBothKeepTheTrial(data) {
        ask()

        keyClick(data.key)

        verify(!find("Delete Trial?"))
        compare(fixture.names(), ["Netflix", "Acme"])
        compare([focusName(), fixture.descriptionOf(focusItem())], ["Delete", "Netflix"])
    }

    function test_theTabKeyStaysBetweenTheTwoButtons() {
        ask()

        const visited = []
        for (let step = 0; step < 4; ++step) {
            visited.push(focusName())
            keyClick(Qt.Key_Tab)
        }

        compare(visited, ["Cancel", "Delete", "Cancel", "Delete"])
    }

    function test_everythingBehindItIsBlocked() {
        const panel = ask()

        mouseClick(panel, 40, 400) // Add Trial.
        verify(!panel.showingAdd)
        mouseClick(panel, 335, 110) // The other row's trash.
        verify(find("Remove \"Netflix\" from Norvane?"))
        verify(!find("Remove \"Acme\" from Norvane?"))
    }

    function test_theFormsShortcutsDoNothingWhileTheAlertIsOpen() {
        const panel = open([{ name: "Netflix", hours: 50, cost: 0 }])
        click("Add Trial")
        type("Acme")
        click("Delete", "Netflix")
        found("Delete Trial?")

        keyClick(Qt.Key_Return, Qt.ControlModifier)
        keyClick(Qt.Key_Escape, Qt.ControlModifier)

        compare(fixture.names(), ["Netflix"])
        compare(panel.newName, "Acme")
    }

    function test_afterADeletionTheFocusIsOnTheNextRow() {
        ask()
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Return)

        tryVerify(() => fixture.names().length === 1)
        tryVerify(() => focusName().startsWith("Acme, "))
    }

    function test_aVeryLongNameLeavesTheButtonsInSight_data() {
        return [{ tag: "words", name: "long name ".repeat(100), pixels: 13 },
                { tag: "one word", name: "x".repeat(1000), pixels: 13 },
                { tag: "large text", name: "long name ".repeat(100), pixels: 30 }]
    }
    function test_aVeryLongNameLeavesTheButtonsInSight(data) {
        fixture.setFontPixels(data.pixels)
        const panel = ask(data.name)

        for (const button of [deleteButton(), find("Cancel")]) {
            verify(button.mapToItem(panel, button.width, button.height).y <= 404)
            verify(button.mapToItem(panel, 0, 0).y >= 16)
            verify(button.mapToItem(panel, button.width, button.height).x <= 344)
        }
    }

    function test_theKeysScrollALongMessage() {
        const name = "long name ".repeat(100)
        ask(name)
        const message = fixture.text(test, "Remove \"" + name + "\" from Norvane?")
        const top = () => message.mapToItem(test, 0, 0).y
        const start = top(), view = message.parent.parent.height

        keyClick(Qt.Key_Up)
        compare(top(), start)
        keyClick(Qt.Key_Down)
        compare(top(), start - message.implicitHeight / message.lineCount)
        keyClick(Qt.Key_Up)
        compare(top(), start)
        keyClick(Qt.Key_PageDown)
        verify(top() < start - view / 2 && top() > start - view)
        for (let page = 0; page < 20; ++page)
            keyClick(Qt.Key_PageDown)
        compare(top(), start + view - message.height)
        keyClick(Qt.Key_PageUp)
        verify(top() > start + view - message.height)
        compare(focusName(), "Cancel")
    }

    function test_theScrollBarHasALongHandleAndLiesBesideTheText_data() {
        return [{ tag: "left to right", mirrored: false }, { tag: "right to left", mirrored: true }]
    }
    function test_theScrollBarHasALongHandleAndLiesBesideTheText(data) {
        fixture.setRightToLeft(data.mirrored)
        const name = "long name ".repeat(90)
        ask(name)
        const message = fixture.text(test, "Remove \"" + name + "\" from Norvane?")
        const bar = message.parent.parent.T.ScrollBar.vertical

        verify(bar.visible)
        verify(bar.contentItem.height >= 24)
        const left = item => item.mapToItem(test, 0, 0).x, right = item => item.mapToItem(test, item.width, 0).x
        verify(left(bar) >= right(message) || right(bar) <= left(message))
    }

    function test_theKeysLeaveAShortMessageWhereItIs() {
        ask()
        const message = fixture.text(test, "Remove \"Netflix\" from Norvane?")
        const start = message.mapToItem(test, 0, 0).y

        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_PageDown)

        compare(message.mapToItem(test, 0, 0).y, start)
    }

    function test_mirroredCancelStandsBeforeDelete() {
        fixture.setRightToLeft(true)
        ask()

        verify(find("Cancel").mapToItem(test, 0, 0).x < deleteButton().mapToItem(test, 0, 0).x)
    }

    function test_aNameWithPlaceholdersInItIsShownAsItIs() {
        ask("%@ %lld %1 $&")

        verify(find("Remove \"%@ %lld %1 $&\" from Norvane?"))
    }
}
