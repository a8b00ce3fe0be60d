// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

import org.norvane.panel

PanelTest {
    id: test

    name: "panel"

    SignalSpy { id: quits; signalName: "quit" }
    Component { id: footerComponent; PanelFooter { width: 360; showingAdd: false } }

    function test_withoutTrialsThereIsTheEmptyStateAndBothButtons() {
        const panel = open([])

        verify(find("0 active"))
        verify(find("No trials tracked"))
        verify(find("Add a free trial to get started"))
        const add = find("Add Trial"), quit = find("Quit")
        verify(add.mapToItem(panel, 0, 0).x < 20)
        verify(quit.mapToItem(panel, quit.width, 0).x > 340)
    }

    function test_theNumberOfActiveTrialsChoosesThePluralOfALanguageThatHasSome() {
        fixture.translate("%lld active", "plural of %n: %lld")
        open([{ name: "Acme", hours: 50, cost: 0 }, { name: "Radio", hours: 50, cost: 0 }])

        verify(find("plural of 2: 2"))
    }

    function test_endedTrialsAreListedButNotActive() {
        open([{ name: "Acme", hours: -50, cost: 0 }])

        verify(find("0 active"))
        verify(find("Acme, -2d left"))
        verify(!find("No trials tracked"))
    }

    function test_deletingTheLastTrialBringsTheEmptyState() {
        open([{ name: "Acme", hours: 50, cost: 0 }])

        click("Delete", "Acme")
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        compare(focusName(), "Delete")
        keyClick(Qt.Key_Return)

        found("No trials tracked")
        verify(find("0 active"))
        keyClick(Qt.Key_PageUp)
        keyClick(Qt.Key_Up)
        compare(focusName(), "Add Trial")
    }

    function test_whileTheFormIsShownTheFooterHoldsOnlyQuit() {
        const panel = open([])

        click("Add Trial")
        verify(!find("Add Trial"))
        const quit = find("Quit")
        tryVerify(() => quit.mapToItem(panel, quit.width, 0).x > 340)

        click("Cancel")
        verify(find("Add Trial"))
    }

    function test_addTrialProposesTheSameTimeInSevenDaysFromThatPress() {
        const panel = open([])
        fixture.moveClock(3 * 86400 + 7)

        click("Add Trial")

        compare(fixture.secondsFromStart(panel.newEndDate), 10 * 86400 + 7)
    }

    function test_addTrialKeepsWhatStandsInTheOtherFields() {
        const panel = open([])
        panel.newName = "kept"
        panel.newCost = "1"
        panel.newNotes = "notes"

        click("Add Trial")

        compare([panel.newName, panel.newCost, panel.newNotes], ["kept", "1", "notes"])
    }

    function test_anAddedTrialIsTheLastRow() {
        open([{ name: "Zebra", hours: 50, cost: 0 }, { name: "Acme", hours: 90, cost: 0 }])

        click("Add Trial")
        type("middle")
        keyClick(Qt.Key_Return, Qt.ControlModifier)

        found("3 active")
        compare(fixture.names(), ["Zebra", "Acme", "middle"])
        verify(found("middle, 7d left").mapToItem(test, 0, 0).y > find("Acme, 3d left").mapToItem(test, 0, 0).y)
    }

    function test_ofTwoTrialsWithOneNameTheOtherStays() {
        open([{ name: "Acme", hours: 50, cost: 1 }, { name: "Acme", hours: 90, cost: 2 }])

        const isFirst = find("Delete", "Acme").mapToItem(test, 0, 0).y < 90
        click("Delete", "Acme")
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        keyClick(Qt.Key_Enter)

        tryVerify(() => fixture.names().length === 1)
        found("1 active")
        compare(fixture.cost(0), isFirst ? 2 : 1)
    }

    function test_theCountAndTheDaysStayUntilThePanelIsRebuilt() {
        const panel = open([{ name: "Acme", hours: 30, cost: 0 }])
        fixture.moveClock(40 * 3600)
        wait(0)
        verify(find("1 active"))
        verify(find("Acme, 1d left"))

        click("Add Trial") // The panel's own state changed.

        found("0 active")
        found("Acme, 0d left")
    }

    function test_aPanelThatComesOnScreenShowsTheCurrentDays() {
        const panel = open([{ name: "Acme", hours: 30, cost: 0 }])
        fixture.moveClock(40 * 3600)

        panel.content.rebuild()

        verify(find("0 active"))
        verify(find("Acme, 0d left"))
    }

    function test_noTimerRunsWhileThePanelRests() {
        const panel = open([{ name: "Acme", hours: 30, cost: 0 }])
        const content = panel.content
        const objects = [panel, content, content.store, content.trials, content.calendar]
        const timers = () => objects.map(object => fixture.running(object).join()).join("")
        compare(timers(), "")

        click("Add Trial")
        find("Cancel").forceActiveFocus(Qt.TabFocusReason) // Where no cursor blinks.

        compare(timers(), "")
    }

    function test_quitIsAskedForOnce() {
        const footer = createTemporaryObject(footerComponent, test)
        quits.target = footer
        quits.clear()

        mouseClick(fixture.text(test, "Quit"))

        compare(quits.count, 1)
    }

    function test_theSectionsStandInTheirOrderAcrossTheWholeWidth() {
        const panel = open([{ name: "Acme", hours: 30, cost: 0 }])
        click("Add Trial")

        const names = ["1 active", "Service name", "Trial ends", "Monthly cost after trial", "Track Trial", "Acme, 1d left", "Quit"]
        const tops = () => names.map(name => find(name).mapToItem(panel, 0, 0).y)

        tryVerify(() => tops().join() === tops().sort((a, b) => a - b).join())
        compare(find("Acme, 1d left").width, 360)
    }
}
