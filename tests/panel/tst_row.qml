// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

import org.norvane.panel

PanelTest {
    id: test

    name: "row"

    SignalSpy { id: deletions; signalName: "delete_" }

    function badgeOf(row) { return Array.from(row.children).find(child => child.hasOwnProperty("hue")) }

    function test_theTimeLeftGivesTextColourAndSymbol_data() {
        return [{ tag: "3d left", hours: 73, hue: "yellow", symbol: "bell" },
                { tag: "1d left", hours: 36, hue: "orange", symbol: "exclamationmark.2" },
                { tag: "0d left", hours: 20, hue: "red", symbol: "xmark" },
                { tag: "4d left", hours: 96, hue: "green", symbol: "checkmark" },
                { tag: "-3d left", hours: -72, hue: "red", symbol: "xmark" }]
    }
    function test_theTimeLeftGivesTextColourAndSymbol(data) {
        open([{ name: "Acme", hours: data.hours, cost: 0 }])

        const row = found("Acme, " + data.tag)
        compare(fixture.text(test, data.tag).color.toString(), Theme[data.hue].text.toString())
        const badge = badgeOf(row)
        compare(badge.symbol, data.symbol)
        compare([badge.width, badge.height], [32, 32])
        compare(badge.hue.patch.toString(), Theme[data.hue].patch.toString())
    }

    function test_theCostIsShownOnlyWhereThereIsOne() {
        open([{ name: "Acme", hours: 50, cost: 9.5 }, { name: "Free", hours: 50, cost: 0 }])

        verify(fixture.text(test, "· $9.50"))
        verify(found("Acme, 2d left, $9.50"))
        verify(found("Free, 2d left"))
    }

    function test_aVeryLongNameIsCutToOneLineAndPushesNothingOut_data() {
        const rows = []
        for (const pixels of [13, 26, 34, 48])
            for (const mirrored of [false, true])
                rows.push({ tag: pixels + (mirrored ? " mirrored" : ""), pixels: pixels, mirrored: mirrored })
        return rows
    }
    function test_aVeryLongNameIsCutToOneLineAndPushesNothingOut(data) {
        fixture.setFontPixels(data.pixels)
        fixture.setRightToLeft(data.mirrored)
        const name = "A long name ".repeat(50)
        const panel = open([{ name: name, hours: 500, cost: 123456.5 }])

        const label = fixture.text(test, name), days = fixture.text(test, "20d left")
        const trash = found("Delete", name)
        verify(label.truncated)
        compare(label.lineCount, 1)
        verify(!days.truncated && days.width >= days.implicitWidth)
        for (const item of [label, days, trash]) {
            verify(item.mapToItem(panel, 0, 0).x >= 0)
            verify(item.mapToItem(panel, item.width, 0).x <= 360)
        }
        const trashIsLeft = trash.mapToItem(panel, 0, 0).x < label.mapToItem(panel, 0, 0).x
        compare(trashIsLeft, data.mirrored)
    }

    function test_aFarDayIsWrittenSmallerWhereTheLineIsTooShort() {
        fixture.setFontPixels(40)
        const panel = open([{ name: "Acme", hours: 1e12, cost: 1e300 }])

        const days = fixture.text(test, "41666666666d left"), trash = found("Delete", "Acme")
        verify(days.contentWidth <= days.width)
        verify(trash.mapToItem(panel, trash.width, 0).x <= 360)
    }

    function test_aNameIsPlainTextOnOneLine_data() {
        return [{ tag: "<img src=x>" }, { tag: "<b>bold</b> &amp;" }, { tag: "two\nlines", shown: "two lines" }, { tag: "%lld %1 %@" }]
    }
    function test_aNameIsPlainTextOnOneLine(data) {
        open([{ name: data.tag, hours: 50, cost: 0 }])

        const shown = data.shown ?? data.tag
        const label = fixture.text(test, shown)
        compare(label.textFormat, Text.PlainText)
        compare(label.lineCount, 1)
        verify(found(shown + ", 2d left"))
    }

    function test_theRowsSpacingIsFixed() {
        const panel = open([{ name: "Acme", hours: 50, cost: 9.5 }])

        const row = found("Acme, 2d left, $9.50")
        const badge = badgeOf(row)
        const label = fixture.text(test, "Acme"), days = fixture.text(test, "2d left"), cost = fixture.text(test, "· $9.50")
        const x = item => item.mapToItem(row, 0, 0).x, y = item => item.mapToItem(row, 0, 0).y
        compare(x(badge), 16)
        compare(x(label) - (x(badge) + badge.width), 10)
        compare(y(days) - (y(label) + label.height), 2)
        compare(x(cost) - (x(days) + days.width), 6)
        compare(y(label), 4)
        compare(row.width, 360)
    }

    function test_cancelLeavesTheTrialAndDeleteTakesItOutOnce() {
        open([{ name: "Acme", hours: 50, cost: 0 }])
        const row = found("Acme, 2d left")
        deletions.target = row
        deletions.clear()

        click("Delete", "Acme")
        verify(row.showDeleteConfirm)
        click("Cancel")
        verify(!row.showDeleteConfirm)
        compare(deletions.count, 0)
        compare(fixture.names(), ["Acme"])

        click("Delete", "Acme")
        mouseClick(fixture.text(test, "Delete"))
        compare(deletions.count, 1)
        compare(fixture.names(), [])
    }

    function test_aTranslationThatLacksOrDoublesThePlaceholderIsHarmless_data() {
        return [{ tag: "lacks", text: "bald", shown: "bald" }, { tag: "doubles", text: "%lld/%lld", shown: "2/2" },
                { tag: "directives", text: "%s%lld%d", shown: "%s2%d" }]
    }
    function test_aTranslationThatLacksOrDoublesThePlaceholderIsHarmless(data) {
        fixture.translate("%lldd left", data.text)

        open([{ name: "Acme", hours: 50, cost: 0 }])

        verify(found("Acme, " + data.shown))
        fixture.translate("", "")
    }
}
