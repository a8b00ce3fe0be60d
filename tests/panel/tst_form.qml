// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

PanelTest {
    id: test

    name: "form"

    SignalSpy { id: rebuilds; signalName: "rebuilt" }

    function test_theNameFieldHasTheFocusWhenTheFormOpens() {
        open([])

        click("Add Trial")

        compare(focusName(), "Service name")
    }

    function test_withoutANameNothingCanBeTracked() {
        open([])
        click("Add Trial")

        verify(!find("Track Trial").enabled)
        keyClick(Qt.Key_Return, Qt.ControlModifier)
        compare(fixture.names(), [])

        type("A")
        verify(find("Track Trial").enabled)
        keyClick(Qt.Key_Backspace)
        verify(!find("Track Trial").enabled)
    }

    function test_aNameOfBlanksIsANameAndStaysAsItIs() {
        open([])
        click("Add Trial")

        type("  ")
        keyClick(Qt.Key_Return, Qt.ControlModifier)

        compare(fixture.names(), ["  "])
    }

    function test_theCostIsReadAsInTheCLocale_data() {
        return [{ tag: "a point", typed: "9.99", cost: 9.99 }, { tag: "a comma", typed: "9,99", cost: 0 },
                { tag: "a sign", typed: "$5", cost: 0 }, { tag: "letters", typed: "abc", cost: 0 },
                { tag: "nothing", typed: "", cost: 0 }, { tag: "negative", typed: "-3", cost: -3 },
                { tag: "a blank behind", typed: "5 ", cost: 0 }]
    }
    function test_theCostIsReadAsInTheCLocale(data) {
        open([], "de_DE")
        click("Add Trial")
        type("Acme")
        find("Monthly cost after trial").forceActiveFocus()

        type(data.typed)
        keyClick(Qt.Key_Return, Qt.ControlModifier)

        compare(fixture.names(), ["Acme"])
        compare(fixture.cost(0), data.cost)
    }

    function paste(text) {
        fixture.setClipboard(text)
        keyClick(Qt.Key_V, Qt.ControlModifier)
    }

    function test_theBreaksAtTheEndsOfAPastedTextGoAndThoseInsideAreBlanks_data() {
        return [{ tag: "behind it", pasted: "15.49\n", text: "15.49" },
                { tag: "before it", pasted: "\r\n15.49", text: "15.49" },
                { tag: "inside it", pasted: "a\nb\r\nc\td", text: "a b c d" },
                { tag: "of Unicode", pasted: "\u2028a\u2029b\u0085", text: "a b" },
                { tag: "tabs around it", pasted: "\t15.49\t", text: "15.49" },
                { tag: "nothing else", pasted: "\n\n", text: "" },
                { tag: "none", pasted: " 15.49 ", text: " 15.49 " }]
    }
    function test_theBreaksAtTheEndsOfAPastedTextGoAndThoseInsideAreBlanks(data) {
        const panel = open([])
        click("Add Trial")

        paste(data.pasted)
        find("Monthly cost after trial").forceActiveFocus()
        paste(data.pasted)

        compare([panel.newName, find("Service name").text], [data.text, data.text])
        compare([panel.newCost, find("Monthly cost after trial").text], [data.text, data.text])
    }

    function test_aPastedLineIsPutWhereTheCursorIsAndUndoTakesItBack() {
        const panel = open([])
        click("Add Trial")
        type("one two three")
        const field = find("Service name")
        field.select(4, 7)

        paste("\nt\nw\n")

        compare(panel.newName, "one t w three")
        compare(field.cursorPosition, 7)
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        compare(panel.newName, "one two three")
    }

    function test_onePressOnTrackTrialIsOneRebuild() {
        const panel = open([])
        click("Add Trial")
        type("Acme")
        wait(0)
        rebuilds.target = panel.content
        rebuilds.clear()

        keyClick(Qt.Key_Return, Qt.ControlModifier)

        found("Acme, 7d left")
        compare(rebuilds.count, 1)
    }

    function test_aPastedCostWithALineBreakIsStoredAsItIsShown() {
        open([])
        click("Add Trial")
        paste("Netflix\n")
        find("Monthly cost after trial").forceActiveFocus()
        paste("15.49\n")

        keyClick(Qt.Key_Return, Qt.ControlModifier)

        compare(fixture.names(), ["Netflix"])
        compare(fixture.cost(0), 15.49)
    }

    function test_controlEscapeCancelsAndKeepsThePickedDate() {
        const panel = open([])
        click("Add Trial")
        type("Acme")
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Up)

        keyClick(Qt.Key_Escape, Qt.ControlModifier)

        verify(!panel.showingAdd)
        compare([panel.newName, panel.newCost, panel.newNotes], ["", "", ""])
        compare(fixture.secondsFromStart(panel.newEndDate), 8 * 86400)
        compare(fixture.names(), [])
        click("Add Trial")
        compare(fixture.secondsFromStart(panel.newEndDate), 7 * 86400)
    }

    function test_afterATrialIsAddedTheFormIsClosedAndTheNextOneIsFresh() {
        const panel = open([])
        click("Add Trial")
        type("Acme")
        find("Monthly cost after trial").forceActiveFocus()
        type("3.50")
        fixture.moveClock(100)

        click("Track Trial")

        verify(!panel.showingAdd)
        verify(!find("Service name"))
        compare(fixture.secondsFromStart(panel.newEndDate), 7 * 86400 + 100)
        click("Add Trial")
        compare(find("Service name").text, "")
        compare(find("Monthly cost after trial").text, "")
        compare(fixture.secondsFromStart(panel.newEndDate), 7 * 86400 + 100)
    }

    function test_theEndDateOfUntouchedFieldsKeepsItsSeconds() {
        open([])
        click("Add Trial")
        type("Acme")

        keyClick(Qt.Key_Return, Qt.ControlModifier)

        compare(fixture.end(0), 7 * 86400)
    }

    function test_aDateThatIsPastIsAccepted() {
        open([])
        click("Add Trial")
        type("Acme")
        keyClick(Qt.Key_Tab)
        type("1/1/2020")
        keyClick(Qt.Key_Return, Qt.ControlModifier)

        verify(fixture.end(0) < 0)
    }

    function test_theNotesArePassedAsTheyStand() {
        const panel = open([])
        panel.newNotes = "a note"
        click("Add Trial")
        type("Acme")

        keyClick(Qt.Key_Return, Qt.ControlModifier)

        compare(fixture.notes(0), "a note")
        compare(panel.newNotes, "")
    }

    function test_whatWasTypedStaysWhileThePopoverIsClosed() {
        const panel = open([])
        click("Add Trial")
        type("Acme")

        panel.visible = false
        panel.visible = true
        panel.content.rebuild()

        compare(find("Service name").text, "Acme")
    }

    function test_tabVisitsTheFieldsAndButtonsInTheirOrder() {
        open([{ name: "Acme", hours: 50, cost: 0 }])
        click("Add Trial")
        type("x")

        const visited = []
        for (let step = 0; step < 10; ++step) {
            visited.push(focusName())
            keyClick(Qt.Key_Tab)
        }

        compare(visited, ["Service name", "Trial ends", "Choose a day", "Trial ends", "Monthly cost after trial",
                          "Cancel", "Track Trial", "Acme, 2d left", "Delete", "Quit"])
    }

    function test_afterTheFormTheFocusIsOnAddTrial() {
        open([])
        click("Add Trial")
        keyClick(Qt.Key_Escape, Qt.ControlModifier)

        compare(focusName(), "Add Trial")
        keyClick(Qt.Key_Return)
        compare(focusName(), "Service name")
    }

    function test_returnPressesTheFocusedButtonOnce() {
        open([])
        click("Add Trial")
        type("Acme")
        find("Track Trial").forceActiveFocus()

        keyClick(Qt.Key_Return)

        compare(fixture.names(), ["Acme"])
    }

    function test_withLargeTextTheFormScrollsAndHeaderAndFooterStay() {
        fixture.setFontPixels(34)
        const panel = open([])
        click("Add Trial")

        const quit = find("Quit"), count = find("0 active")
        verify(quit.mapToItem(panel, 0, quit.height).y <= 420)
        verify(count.mapToItem(panel, 0, 0).y >= 0)
        find("Cancel").forceActiveFocus(Qt.TabFocusReason)
        tryVerify(() => {
            const cancel = find("Cancel")
            return cancel.mapToItem(panel, 0, 0).y > 0 && cancel.mapToItem(panel, 0, cancel.height).y <= quit.mapToItem(panel, 0, 0).y
        })
    }

    function test_theFormsShortcutsDoNothingWhileItIsClosed() {
        const panel = open([])
        panel.newName = "Acme"

        keyClick(Qt.Key_Return, Qt.ControlModifier)
        keyClick(Qt.Key_Escape, Qt.ControlModifier)

        compare(fixture.names(), [])
        compare(panel.newName, "Acme")
    }
}
