// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import QtTest

import org.norvane.panel

// The contrast of texts, symbols and outlines to their surroundings, measured on the picture.
PanelTest {
    id: test

    name: "contrast"

    readonly property var trials: [{ name: "Acme", hours: 500, cost: 9.5 }, { name: "Netflix", hours: 60, cost: 5 },
                                   { name: "Canva", hours: 36, cost: 5 }, { name: "Hulu", hours: 2, cost: 5 }]

    function looks() {
        return [{ tag: "light", look: "light", accent: "#3584e4" },
                { tag: "dark", look: "dark", accent: "#202020" },
                { tag: "light with a light accent", look: "light", accent: "#ffd400" },
                { tag: "light with more contrast", look: "light with more contrast", accent: "#3584e4" },
                { tag: "dark with more contrast", look: "dark with more contrast", accent: "#ffd400" }]
    }

    // Large enough for every letter to have pixels that it covers whole.
    function show(data, trials) {
        fixture.setPalette(data.look)
        fixture.setAccent(data.accent)
        fixture.setFontPixels(20)
        return open(trials)
    }

    // The required ratios, on an ordinary desktop and on one that wants more contrast.
    readonly property real textRatio: Contrast.more ? 7 : 4.5
    readonly property real outlineRatio: Contrast.more ? 7 : 3
    readonly property real symbolRatio: Contrast.more ? 4.5 : 3

    function compareTexts(item) {
        compare(fixture.faintOnes(item, test.textRatio - 0.05, test.symbolRatio - 0.05), [])
    }

    // Checks the contrast of the item's left edge to what is beside it.
    function compareOutline(item) {
        compareLine(item, 0.5, -1.5)
    }

    // Checks the contrast between two x positions in the item, halfway down.
    function compareLine(item, line, ground) {
        const color = x => fixture.pixel(item, x, item.height / 2)
        const ratio = Contrast.ratio(color(line), color(ground))
        verify(ratio >= test.outlineRatio - 0.05, fixture.nameOf(item) + ": " + ratio + " of " + color(line) + " to " + color(ground))
    }

    // The box that an alert or the calendar is drawn on.
    function box(below) {
        for (let index = 0; index < below.children.length; ++index) {
            const item = below.children[index]
            const found = item.visible && item.radius >= 10 && item.width > 200 ? item : test.box(item)
            if (found !== null)
                return found
        }
        return null
    }

    function test_everyTextOfTheListCanBeRead_data() { return looks() }
    function test_everyTextOfTheListCanBeRead(data) {
        compareTexts(show(data, test.trials))
    }

    function test_everyTextCanBeReadWhereThereAreNoTrials_data() { return looks() }
    function test_everyTextCanBeReadWhereThereAreNoTrials(data) {
        compareTexts(show(data, []))
    }

    function test_everyTextOfARowUnderThePointerCanBeRead_data() { return looks() }
    function test_everyTextOfARowUnderThePointerCanBeRead(data) {
        const panel = show(data, test.trials)
        mouseMove(fixture.text(test, "Netflix"))
        tryVerify(() => fixture.pixel(fixture.text(test, "Netflix"), -5, 2).toString() === Theme.lit.toString())
        compareTexts(panel)
        mouseMove(test, 1, 1)
    }

    function test_everyTextAndOutlineOfTheFormHasEnoughContrast_data() { return looks() }
    function test_everyTextAndOutlineOfTheFormHasEnoughContrast(data) {
        const panel = show(data, [])
        click("Add Trial")
        compareTexts(panel)
        type("Acme")
        compareTexts(panel)
        for (const [name, description] of [["Service name", ""], ["Trial ends", "Day"], ["Choose a day", ""],
                                           ["Trial ends", "Time"], ["Monthly cost after trial", ""],
                                           ["Cancel", ""], ["Track Trial", ""]])
            compareOutline(find(name, description))
        mouseMove(find("Track Trial"))
        compareTexts(find("Track Trial"))
        mousePress(find("Track Trial"))
        compareTexts(find("Track Trial"))
        mouseMove(test, 1, 1)
        mouseRelease(test, 1, 1)
    }

    function test_everyTextAndOutlineOfTheCalendarHasEnoughContrast_data() { return looks() }
    function test_everyTextAndOutlineOfTheCalendarHasEnoughContrast(data) {
        const panel = show(data, [])
        click("Add Trial")
        click("Choose a day")
        compareTexts(panel.T.Overlay.overlay)
        compareLine(box(panel.T.Overlay.overlay), 0.5, 3)
    }

    function test_everyTextAndOutlineOfTheAlertHasEnoughContrast_data() { return looks() }
    function test_everyTextAndOutlineOfTheAlertHasEnoughContrast(data) {
        const panel = show(data, test.trials)
        click("Delete", "Acme")
        compareTexts(panel.T.Overlay.overlay)
        compareLine(box(panel.T.Overlay.overlay), 0.5, 3)
        for (const name of ["Delete", "Cancel"])
            compareOutline(find(name))
        mouseMove(find("Delete"))
        compareTexts(find("Delete"))
    }

    function test_theFocusRingHasEnoughContrast_data() { return looks() }
    function test_theFocusRingHasEnoughContrast(data) {
        show(data, test.trials)
        keyClick(Qt.Key_Tab)
        const row = focusItem()
        compare(fixture.roleOf(row), "ListItem")
        compareLine(row, 9, 12)
        keyClick(Qt.Key_Delete)
        tryVerify(() => focusName() === "Cancel")
        compareLine(focusItem(), -2, -5)
        keyClick(Qt.Key_Escape)
        tryVerify(() => row.activeFocus)
        keyClick(Qt.Key_Tab)
        keyClick(Qt.Key_Tab)
        compare(focusName(), "Add Trial")
        compareLine(focusItem(), 1, -2)
    }

    function test_theHintCanBeRead_data() { return looks() }
    function test_theHintCanBeRead(data) {
        show(data, test.trials)
        mouseMove(find("Delete", "Acme"))
        tryVerify(() => fixture.text(test, "Delete").maximumLineCount === 4)
        const bubble = fixture.text(test, "Delete").parent
        compareTexts(bubble)
        compareLine(bubble, 0.5, 3)
        mouseMove(test, 1, 1)
    }

    function test_theMenuOfATextCanBeRead_data() { return looks() }
    function test_theMenuOfATextCanBeRead(data) {
        const panel = show(data, [])
        click("Add Trial")
        type("Acme")
        mouseClick(find("Service name"), 60, 10, Qt.RightButton)
        found("Select All")
        keyClick(Qt.Key_Down)
        compareTexts(panel.T.Overlay.overlay)
    }
}
