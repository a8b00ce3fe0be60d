// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import QtTest

import org.norvane.panel

// How well everything can be told from what is around it, measured on the picture.
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

    function compareTexts(item) {
        compare(fixture.faintTexts(item, Theme.textRatio - 0.05), [])
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

    function test_everyTextAndOutlineOfTheFormCanBeTold_data() { return looks() }
    function test_everyTextAndOutlineOfTheFormCanBeTold(data) {
        const panel = show(data, [])
        click("Add Trial")
        compareTexts(panel)
        type("Acme")
        compareTexts(panel)
        for (const name of ["Service name", "Monthly cost after trial", "Cancel", "Track Trial"])
            verify(fixture.edgeContrast(find(name)) >= Theme.outlineRatio - 0.05, name)
        mouseMove(find("Track Trial"))
        compareTexts(find("Track Trial"))
        mousePress(find("Track Trial"))
        compareTexts(find("Track Trial"))
        mouseMove(test, 1, 1)
        mouseRelease(test, 1, 1)
    }

    function test_everyTextOfTheCalendarCanBeRead_data() { return looks() }
    function test_everyTextOfTheCalendarCanBeRead(data) {
        const panel = show(data, [])
        click("Add Trial")
        click("Choose a day")
        compareTexts(panel.T.Overlay.overlay)
    }

    function test_everyTextAndOutlineOfTheAlertCanBeTold_data() { return looks() }
    function test_everyTextAndOutlineOfTheAlertCanBeTold(data) {
        const panel = show(data, test.trials)
        click("Delete", "Acme")
        compareTexts(panel.T.Overlay.overlay)
        for (const name of ["Delete", "Cancel"])
            verify(fixture.edgeContrast(find(name)) >= Theme.outlineRatio - 0.05, name)
        mouseMove(find("Delete"))
        compareTexts(find("Delete"))
    }
}
