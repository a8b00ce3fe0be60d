// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

import org.norvane.panel

PanelTest {
    id: test

    name: "looks"

    function backgrounds() {
        return [{ tag: "light" }, { tag: "dark" }, { tag: "#efefef" }, { tag: "#808080" }, { tag: "#ffe4b5" }]
    }

    function test_textCanBeReadOnEveryPalette_data() { return backgrounds() }
    function test_textCanBeReadOnEveryPalette(data) {
        fixture.setPalette(data.tag)

        for (const color of [Theme.primary, Theme.secondary, Theme.red.text, Theme.orange.text, Theme.yellow.text, Theme.green.text])
            verify(Contrast.ratio(color, Theme.background) >= 4.5, color)
    }

    function test_symbolsAndFramesHaveEnoughContrastOnEveryPalette_data() { return backgrounds() }
    function test_symbolsAndFramesHaveEnoughContrastOnEveryPalette(data) {
        fixture.setPalette(data.tag)

        for (const hue of [Theme.red, Theme.orange, Theme.yellow, Theme.green]) {
            verify(Contrast.ratio(hue.symbol, Theme.background) >= 3)
            verify(Contrast.ratio(hue.symbolOnPatch, hue.patch) >= 3)
        }
        verify(Contrast.ratio(Theme.accent, Theme.background) >= 3)
        verify(Contrast.ratio(Theme.outline, Theme.field) >= 3)
    }

    function test_aSwitchBetweenLightAndDarkIsFollowedAtOnce() {
        const panel = open([{ name: "Acme", hours: 73, cost: 0 }])
        const days = fixture.text(test, "3d left")
        const light = [panel.color, days.color].join()
        verify(panel.color.hslLightness > 0.5)

        fixture.setPalette("dark")

        tryVerify(() => panel.color.hslLightness < 0.5)
        verify([panel.color, days.color].join() !== light)
    }

    function test_aLargerDesktopFontIsFollowedAtOnce() {
        const panel = open([{ name: "Acme", hours: 73, cost: 0 }])
        const name = fixture.text(test, "Acme")
        const height = name.height

        fixture.setFontPixels(26)

        tryVerify(() => name.height > 1.5 * height)
    }

    function test_textStylesAreTheOnesOfTheirPlaces() {
        open([])

        compare(fixture.text(test, "Norvane").font, Theme.headline)
        compare(fixture.text(test, "0 active").font, Theme.caption)
        compare(fixture.text(test, "No trials tracked").font, Theme.body)
        compare(fixture.text(test, "Add a free trial to get started").font, Theme.caption)
        verify(Theme.largeTitle.pixelSize > Theme.title3.pixelSize)
        verify(Theme.title3.pixelSize > Theme.body.pixelSize)
        verify(Theme.body.pixelSize > Theme.caption.pixelSize)
    }

    function test_symbolsAreWholePixelsOfTheScreenAtEveryScale() {
        for (let pixels = 6; pixels <= 72; ++pixels)
            for (const scale of [1, 1.25, 1.5, 2])
                compare(Theme.symbolSize(Qt.font({ pixelSize: pixels })) * scale % 1, 0, pixels + " at " + scale)

        const panel = open([{ name: "Acme", hours: 73, cost: 0 }])
        for (const pixels of [13, 15, 40]) {
            fixture.setFontPixels(pixels)
            for (const side of fixture.symbolSizes(panel))
                compare(side % 4, 0, side + " at a font of " + pixels)
        }
        verify(fixture.symbolSizes(panel).length >= 4)
    }

    function test_everyControlHasItsRoleAndName() {
        open([{ name: "Acme", hours: 73, cost: 0 }])
        click("Add Trial")

        compare(fixture.roleOf(find("Trials")), "List")
        compare(fixture.roleOf(find("Acme, 3d left")), "ListItem")
        compare(fixture.roleOf(find("Delete", "Acme")), "Button")
        compare(fixture.roleOf(find("Service name")), "EditableText")
        compare(fixture.roleOf(find("Trial ends", "Day")), "SpinBox")
        compare(fixture.roleOf(find("Trial ends", "Time")), "SpinBox")
        compare(fixture.roleOf(find("Monthly cost after trial")), "EditableText")
        for (const button of ["Choose a day", "Cancel", "Track Trial", "Quit"])
            compare(fixture.roleOf(find(button)), "Button")
    }

    function test_theFocusIsShownOnlyWhileTheKeyboardIsUsed() {
        open([])

        keyClick(Qt.Key_Tab)
        const button = find("Add Trial")
        verify(button.activeFocus && button.background.visible)
        mouseClick(test, 180, 100)
        verify(button.activeFocus && !button.background.visible)
        keyClick(Qt.Key_Shift)
        verify(!button.background.visible)
        keyClick(Qt.Key_Down)
        verify(button.background.visible)
    }

    function test_aButtonWithoutTextShowsAHintUnderARestingPointer() {
        open([{ name: "Acme", hours: 73, cost: 0 }])
        const hint = () => fixture.text(test, "Delete")

        mouseMove(find("Delete", "Acme"))
        tryVerify(() => hint().maximumLineCount === 4)
        compare(hint().textFormat, Text.PlainText)
        mouseMove(test, 180, 300)
        tryVerify(() => hint().maximumLineCount === undefined)
    }

    function test_theHintOfACutNameHasAtMostFourLines() {
        const name = "<b>A long name</b> ".repeat(50)
        open([{ name: name, hours: 73, cost: 0 }])

        mouseMove(fixture.text(test, name))
        tryVerify(() => fixture.text(test, name).lineCount === 4)
        const hint = fixture.text(test, name)
        compare(hint.textFormat, Text.PlainText)
        const place = hint.parent.mapToItem(test, 0, 0)
        verify(place.x >= 0 && place.x + hint.parent.width <= 360)
        verify(place.y >= 0 && place.y + hint.parent.height <= 420)
        mouseMove(test, 180, 400)
    }

    function test_aNameThatFitsHasNoHint() {
        open([{ name: "Acme", hours: 73, cost: 0 }])
        const name = fixture.text(test, "Acme")

        mouseMove(name)
        wait(800) // Longer than a hint takes to come.
        compare(fixture.text(test, "Acme"), name)
        mouseMove(test, 180, 400)
    }

    function test_rowsAreEquallyHighInEveryScript() {
        const names = ["Acme", "خدمة البث", "日本語", "ภาษาไทย", "Ǻǻ"]
        open(names.map(name => ({ name: name, hours: 73, cost: 5 })))

        for (const name of names)
            compare(found(name + ", 3d left, $5.00").height, found("Acme, 3d left, $5.00").height, name)
    }

    function test_bothButtonsOfTheAlertAreEquallyWide() {
        fixture.translate("Cancel", "Nicht entfernen")
        open([{ name: "Acme", hours: 73, cost: 0 }])
        click("Delete", "Acme")

        compare(found("Delete", "").width, found("Nicht entfernen").width)
        fixture.translate("", "")
    }

    function test_alertAndCalendarOpenWithoutAnimation_data() {
        return [{ tag: "alert", ways: [["Delete", "Acme"]] }, { tag: "calendar", ways: [["Add Trial"], ["Choose a day"]] }]
    }
    function test_alertAndCalendarOpenWithoutAnimation(data) {
        open([{ name: "Acme", hours: 73, cost: 0 }])
        for (const [name, description] of data.ways)
            click(name, description)
        const atOnce = grabImage(test.Window.contentItem)
        wait(300) // Longer than a fade would take.
        verify(grabImage(test.Window.contentItem).equals(atOnce))
    }

    function test_trackTrialIsInTheAccentColourOnceItCanBePressed() {
        open([])
        fixture.setAccent("#7a1fa2")
        click("Add Trial")
        const ground = () => fixture.pixel(find("Track Trial"), 6, 6).toString()

        compare(ground(), Theme.background.toString())
        type("A")
        tryCompare({ get ground() { return ground() } }, "ground", "#7a1fa2")
    }

    function test_theCalendarHasRoomForFingersAndLeavesItsFieldInSight() {
        open([])
        click("Add Trial")
        const field = find("Trial ends", "Day")
        click("Choose a day")

        const title = fixture.text(test, "January 2025")
        verify(title.mapToItem(test, 0, 0).y > field.mapToItem(test, 0, field.height).y)
        const cell = fixture.text(test, "22").parent
        verify(cell.width >= 28 && cell.height >= 28)
    }

    function test_aButtonFocusedByKeyHasARingAndAPressedOneHasNone() {
        open([])

        keyClick(Qt.Key_Tab)
        compare(focusName(), "Add Trial")
        verify(find("Add Trial").background.visible)
        mousePress(find("Quit"))
        verify(!find("Quit").background.visible)
        mouseMove(test, 180, 100)
        mouseRelease(test, 180, 100)
    }

    function test_textsOfTheHeaderAreTranslatedAsKeys() {
        fixture.translate("%lld active", "%lld laufen")

        open([{ name: "Acme", hours: 73, cost: 0 }])

        verify(find("1 laufen"))
        fixture.translate("", "")
    }
}
