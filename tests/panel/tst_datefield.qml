// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

PanelTest {
    id: test

    name: "date field"

    function openForm(locale = "en_US") {
        const panel = open([], locale)
        panel.showForm()
        waitForRendering(panel)
        return panel
    }

    function day() { return found("Trial ends", "Day") }
    function time() { return found("Trial ends", "Time") }

    // Later versions of Qt write a narrow blank before "PM".
    function shown(field) { return field.text.replace(/\u202f/g, " ") }

    // Seconds from the fixture's start, a quarter of a minute after 9:30, to a wall clock's moment.
    function at(text) { return fixture.secondsFromStart(fixture.berlin(text)) }
    function chosen() { return fixture.secondsFromStart(panel.newEndDate) }

    function test_bothPartsAreShownInTheLocalesFormat() {
        openForm()
        compare([day().text, shown(time())], ["1/15/2025", "9:30 AM"])
        openForm("de_DE")
        compare([day().text, time().text], ["15.01.2025", "09:30"])
    }

    function test_theArrowKeysStepTheFieldAtTheCursor() {
        openForm()
        day().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Up)
        compare(day().text, "1/16/2025")
        compare(day().selectedText, "16")
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Down)
        compare(day().text, "1/14/2025")
        day().cursorPosition = 0
        keyClick(Qt.Key_Up)
        compare(day().text, "2/14/2025")

        time().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Up)
        compare(shown(time()), "10:30 AM")
        time().cursorPosition = 4
        keyClick(Qt.Key_Down)
        compare(shown(time()), "10:29 AM")
        time().cursorPosition = 8
        keyClick(Qt.Key_Up)
        compare(shown(time()), "10:29 PM")
        compare(chosen(), at("2025-02-14T22:29:15"))
    }

    function test_theWheelStepsTheFieldBelowThePointerWhileItHasTheFocus() {
        openForm("de_DE")
        const field = day()
        field.forceActiveFocus(Qt.TabFocusReason)

        mouseWheel(field, field.leftPadding + 4, field.height / 2, 0, 120)
        compare(field.text, "16.01.2025")
        mouseWheel(field, field.leftPadding + 4, field.height / 2, 0, -240)
        compare(field.text, "14.01.2025")
        mouseWheel(field, field.leftPadding + 30, field.height / 2, 0, 60)
        compare(field.text, "14.01.2025")
        mouseWheel(field, field.leftPadding + 30, field.height / 2, 0, 60)
        compare(field.text, "14.02.2025")
    }

    function test_withoutTheFocusTheWheelScrollsTheForm() {
        fixture.setFontPixels(34)
        openForm("de_DE")
        const top = day().mapToItem(panel, 0, 0).y

        mouseWheel(day(), 10, 10, 0, -120)

        compare(day().text, "15.01.2025")
        tryVerify(() => day().mapToItem(panel, 0, 0).y < top)
    }

    function test_theWheelOverTheCalendarTurnsItsMonths() {
        openForm()
        openCalendar()
        const grid = focusItem().parent

        mouseWheel(grid, 20, 20, 0, -120)
        found("February 2025")
        mouseWheel(grid, 20, 20, 0, 240)
        found("December 2024")

        compare(chosen(), 7 * 86400)
    }

    function test_aTypedDayCountsWhenTheFieldIsLeft() {
        openForm()
        day().forceActiveFocus(Qt.TabFocusReason)
        type("12/24/26")
        compare(chosen(), 7 * 86400)

        keyClick(Qt.Key_Tab)

        compare(day().text, "12/24/2026")
        compare(chosen(), at("2026-12-24T09:30:15"))
    }

    function test_aTypedTimeCountsWithReturn() {
        openForm()
        time().forceActiveFocus(Qt.TabFocusReason)
        type("6:45p")

        keyClick(Qt.Key_Return)

        compare(shown(time()), "6:45 PM")
        compare(chosen(), at("2025-01-15T18:45:15"))
    }

    function test_aTypedDateCountsWithTheTrackShortcut() {
        openForm()
        type("Acme")
        day().forceActiveFocus(Qt.TabFocusReason)
        type("2/1/2025")

        keyClick(Qt.Key_Return, Qt.ControlModifier)

        compare(fixture.end(0), at("2025-02-01T09:30:15"))
    }

    function test_whatIsNoDateGivesWayToWhatWasThere_data() {
        return [{ tag: "half a date", typed: "2/3/202" }, { tag: "no such day", typed: "2/30/2025" },
                { tag: "words", typed: "soon" }, { tag: "nothing", typed: "" }]
    }
    function test_whatIsNoDateGivesWayToWhatWasThere(data) {
        openForm()
        day().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Delete)
        type(data.typed)

        keyClick(Qt.Key_Tab)

        compare(day().text, "1/15/2025")
        compare(chosen(), 7 * 86400)
    }

    function submitWithKeys() { keyClick(Qt.Key_Return, Qt.ControlModifier) }
    function submitWithMouse() { click("Track Trial") }

    function test_aFormWithATextThatIsNoDateIsNotSubmitted_data() {
        return [{ tag: "day, by keys", field: day, old: "1/15/2025", submit: submitWithKeys },
                { tag: "day, by mouse", field: day, old: "1/15/2025", submit: submitWithMouse },
                { tag: "time, by keys", field: time, old: "9:30 AM", submit: submitWithKeys },
                { tag: "time, by mouse", field: time, old: "9:30 AM", submit: submitWithMouse }]
    }
    function test_aFormWithATextThatIsNoDateIsNotSubmitted(data) {
        const panel = openForm()
        type("Acme")
        data.field().forceActiveFocus(Qt.TabFocusReason)
        type("soon")

        data.submit()

        compare(fixture.names(), [])
        verify(panel.showingAdd)
        compare(shown(data.field()), data.old)
        compare(data.field().selectedText, data.field().text)
        compare(focusItem(), data.field())
        data.submit() // Now everything that will be stored has been seen.
        compare(fixture.names(), ["Acme"])
        compare(fixture.end(0), 7 * 86400)
    }

    function test_aPressOnTrackTrialTakesATypedDate() {
        openForm()
        type("Acme")
        day().forceActiveFocus(Qt.TabFocusReason)
        type("2/1/2025")

        click("Track Trial")

        compare(fixture.end(0), at("2025-02-01T09:30:15"))
    }

    function test_steppingFinishesWhatWasTyped() {
        openForm()
        day().forceActiveFocus(Qt.TabFocusReason)
        type("3/4")

        keyClick(Qt.Key_Up)

        compare(day().text, "3/5/2025")
    }

    function test_aDayWithoutTheChosenTimeLeavesTheTimeOfOtherDays() {
        const panel = openForm("de_DE")
        panel.newEndDate = fixture.berlin("2025-03-29T02:30:15")
        day().forceActiveFocus(Qt.TabFocusReason)

        keyClick(Qt.Key_Up)
        compare([day().text, time().text], ["30.03.2025", "03:30"])
        keyClick(Qt.Key_Up)
        compare([day().text, time().text], ["31.03.2025", "02:30"])
        compare(chosen(), at("2025-03-31T02:30:15"))
        keyClick(Qt.Key_Down)
        day().selectAll()
        type("01.04.2025")
        keyClick(Qt.Key_Return)
        compare([day().text, time().text], ["01.04.2025", "02:30"])
    }

    function openCalendar() {
        found("Choose a day").forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Return)
        found("January 2025")
    }

    function test_theCalendarOpensOnTheChosenDayAndMarksToday() {
        openForm()
        openCalendar()

        compare(focusName(), "Wednesday, January 15, 2025, selected")
        verify(found("Wednesday, January 15, 2025, selected").selected)
        verify(found("Wednesday, January 8, 2025, today").today)
    }

    function test_theCalendarsWeekBeginsAsInTheLocale_data() {
        return [{ tag: "en_US", first: "Sunday, December 29, 2024" }, { tag: "en_GB", first: "Monday, 30 December 2024" }]
    }
    function test_theCalendarsWeekBeginsAsInTheLocale(data) {
        openForm(data.tag)
        openCalendar()

        compare(found(data.first).mapToItem(found("January 2025"), 0, 0).x, 0)
    }

    function test_keysWalkTheCalendarAndReturnPicks() {
        const panel = openForm()
        openCalendar()

        keyClick(Qt.Key_Right)
        compare(focusName(), "Thursday, January 16, 2025")
        keyClick(Qt.Key_Down)
        compare(focusName(), "Thursday, January 23, 2025")
        keyClick(Qt.Key_Left)
        keyClick(Qt.Key_Up)
        compare(focusName(), "Wednesday, January 15, 2025, selected")
        keyClick(Qt.Key_PageDown)
        compare(focusName(), "Saturday, February 15, 2025")
        keyClick(Qt.Key_PageUp)
        keyClick(Qt.Key_PageUp)
        compare(focusName(), "Sunday, December 15, 2024")
        compare(chosen(), 7 * 86400)

        keyClick(Qt.Key_Return)
        compare(chosen(), at("2024-12-15T09:30:15"))
        compare(focusName(), "Choose a day")
    }

    function test_escapeLeavesTheCalendarAndTheDate() {
        openForm()
        openCalendar()
        keyClick(Qt.Key_Down)

        keyClick(Qt.Key_Escape)

        verify(!find("January 2025"))
        compare(chosen(), 7 * 86400)
        compare(focusName(), "Choose a day")
    }

    function test_aPressPicksADayAndTheButtonsTurnThePage() {
        openForm()
        openCalendar()
        click("Next month")
        found("February 2025")
        click("Previous month")
        found("January 2025")

        click("Friday, January 31, 2025")

        compare(day().text, "1/31/2025")
        verify(!find("January 2025"))
    }

    function test_returnTurnsThePageWhileItsButtonHasTheFocus() {
        openForm()
        openCalendar()
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        compare(focusName(), "Next month")

        keyClick(Qt.Key_Return)

        found("February 2025")
    }

    function test_controlReturnPicksInTheCalendarAndTheNextOneTracks_data() {
        return [{ tag: "from a day", tabs: 0 }, { tag: "from a button", tabs: 1 }]
    }
    function test_controlReturnPicksInTheCalendarAndTheNextOneTracks(data) {
        const panel = openForm()
        type("Acme")
        openCalendar()
        keyClick(Qt.Key_Right)
        for (let tab = 0; tab < data.tabs; ++tab)
            keyClick(Qt.Key_Tab)

        keyClick(Qt.Key_Return, Qt.ControlModifier)

        verify(!find("January 2025"))
        compare(fixture.names(), [])
        compare(day().text, "1/16/2025")
        keyClick(Qt.Key_Return, Qt.ControlModifier)
        compare(fixture.names(), ["Acme"])
        compare(fixture.end(0), 8 * 86400)
    }

    function test_controlEscapeLeavesTheFormWhileTheCalendarIsOpen() {
        const panel = openForm()
        openCalendar()

        keyClick(Qt.Key_Escape, Qt.ControlModifier)

        verify(panel.showingAdd)
    }

    function test_theMonthIsMadeWhenItIsOpenedAndGoesWhenItIsClosed() {
        openForm()
        compare(fixture.countOf(test.Window.contentItem, "DayCell"), 0)

        openCalendar()
        compare(fixture.countOf(test.Window.contentItem, "DayCell"), 42)
        keyClick(Qt.Key_Escape)

        tryVerify(() => fixture.countOf(test.Window.contentItem, "DayCell") === 0)
    }

    function test_mirroredTheArrowsPointTheWayTheDaysRun() {
        fixture.setRightToLeft(true)
        openForm()
        openCalendar()

        keyClick(Qt.Key_Left)

        compare(focusName(), "Thursday, January 16, 2025")
        verify(found("Thursday, January 16, 2025").mapToItem(test, 0, 0).x < found("Wednesday, January 15, 2025, selected").mapToItem(test, 0, 0).x)
    }

    function test_theFieldAndItsCalendarFitAtEveryTextSize_data() {
        return [10, 13, 20, 26, 34, 48].map(pixels => ({ tag: pixels + " pixels", pixels: pixels }))
    }
    function test_theFieldAndItsCalendarFitAtEveryTextSize(data) {
        fixture.setFontPixels(data.pixels)
        const panel = openForm("ar_EG")
        const right = item => item.mapToItem(panel, item.width, 0).x

        verify(right(day()) <= 344.5)
        verify(right(time()) <= 344.5)
        verify(right(found("Choose a day")) <= 344.5)
        panel.newEndDate = fixture.berlin("2025-01-15T12:00:00")
        found("Choose a day").forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Return)
        const grid = test.focusItem().parent
        verify(right(grid) <= 352 && grid.mapToItem(panel, 0, 0).x >= 8)
        verify(grid.mapToItem(panel, 0, grid.height).y <= 412 && grid.mapToItem(panel, 0, 0).y >= 8)
    }
}
