// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

PanelTest {
    id: test

    name: "arrangement"

    // How far an item is from the four sides of another.
    function room(item, outer) {
        const start = item.mapToItem(outer, 0, 0), end = item.mapToItem(outer, item.width, item.height)
        return { left: start.x, right: outer.width - end.x, top: start.y, bottom: outer.height - end.y }
    }

    function isLeftOf(item, other) {
        return item.mapToItem(test, item.width, 0).x <= other.mapToItem(test, 0, 0).x
    }

    function across(left, right) {
        return right.mapToItem(test, 0, 0).x - left.mapToItem(test, left.width, 0).x
    }

    function down(upper, lower) {
        return lower.mapToItem(test, 0, 0).y - upper.mapToItem(test, 0, upper.height).y
    }

    function header() {
        const title = fixture.text(test, "Norvane")
        return { symbol: title.parent.children[0], title: title, count: fixture.text(test, "0 active"), all: title.parent.parent }
    }

    function form() {
        const caption = fixture.text(test, "Service name"), column = caption.parent
        return { caption: caption, column: column, all: column.parent.parent.parent,
                 children: Array.from(column.children).filter(child => child.visible && child.height > 0),
                 sign: fixture.text(test, "$"), cost: find("Monthly cost after trial"),
                 day: find("Trial ends", "Day"), time: find("Trial ends", "Time"),
                 cancel: find("Cancel"), track: find("Track Trial") }
    }

    function footer() {
        const add = fixture.text(test, "Add Trial"), quit = fixture.text(test, "Quit")
        return { add: add === null ? null : add.contentItem, quit: quit.contentItem, all: quit.parent.parent }
    }

    // Every row has what it is called, what it measures and what that is to be.
    function check(table) {
        for (const [what, is, should] of table)
            compare(is, should, what)
    }

    function test_theSpacesOfTheHeader() {
        open([])

        const part = header()
        check([["top of the panel", room(part.all, panel).top, 0],
               ["leading edge", room(part.symbol, part.all).left, 16],
               ["trailing edge", room(part.count, part.all).right, 16],
               ["top and bottom", part.all.height - Math.max(part.symbol.height, part.title.height), 20],
               ["symbol and name", across(part.symbol, part.title), 8],
               ["name and count", across(part.title, part.count), 8]])
    }

    function test_theSpacesOfTheForm() {
        open([])
        click("Add Trial")

        const part = form()
        check([["line above", down(header().all, part.all), 1],
               ["leading edge", room(part.column, part.all).left, 16],
               ["trailing edge", room(part.column, part.all).right, 16],
               ["top", room(part.column, part.all).top, 16],
               ["bottom", room(part.column, part.all).bottom, 16],
               ["elements", part.children.length, 7],
               ["between them", part.children.slice(1).map((child, before) => down(part.children[before], child)).join(),
                                "8,8,8,8,8,12"],
               ["sign and cost", across(part.sign, part.cost), 2],
               ["buttons, leading edge", room(part.cancel, part.column).left, 0],
               ["between the buttons", across(part.cancel, part.track), 10]])
    }

    function test_theSpacesOfTheFooter() {
        open([])

        const part = footer()
        check([["bottom of the panel", room(part.all, panel).bottom, 0],
               ["leading edge", room(part.add, part.all).left, 16],
               ["trailing edge", room(part.quit, part.all).right, 16],
               ["top", room(part.add, part.all).top, 8],
               ["bottom", room(part.add, part.all).bottom, 8]])
    }

    function test_mirroredTheHeaderBeginsAtTheRight() {
        fixture.setRightToLeft(true)
        open([])

        const part = header()
        compare(room(part.symbol, part.all).right, 16)
        compare(room(part.count, part.all).left, 16)
        verify(isLeftOf(part.title, part.symbol))
        compare(part.title.effectiveHorizontalAlignment, Text.AlignRight)
    }

    function test_mirroredTheFormBeginsAtTheRight() {
        fixture.setRightToLeft(true)
        open([])
        click("Add Trial")

        const part = form()
        compare(part.caption.effectiveHorizontalAlignment, Text.AlignRight)
        verify(isLeftOf(part.time, part.day))
        verify(isLeftOf(part.cost, part.sign))
        verify(isLeftOf(part.track, part.cancel))
        compare(room(part.cancel, part.column).right, 0)
    }

    function test_mirroredTheFooterBeginsAtTheRight() {
        fixture.setRightToLeft(true)
        open([])

        const part = footer()
        compare(room(part.add, part.all).right, 16)
        compare(room(part.quit, part.all).left, 16)
    }

    function test_theEmptyStateLeavesOutWhatDoesNotFitBesideTheForm_data() {
        return [{ tag: "13 pixels", pixels: 13, symbol: true, title: true, hint: true },
                { tag: "15 pixels", pixels: 15, symbol: false, title: true, hint: true },
                { tag: "20 pixels", pixels: 20, symbol: false, title: false, hint: false },
                { tag: "34 pixels", pixels: 34, symbol: false, title: false, hint: false }]
    }
    function test_theEmptyStateLeavesOutWhatDoesNotFitBesideTheForm(data) {
        fixture.setFontPixels(data.pixels)
        const panel = open([])
        const title = fixture.text(test, "No trials tracked"), hint = fixture.text(test, "Add a free trial to get started")
        const symbol = title.parent.children[0], all = title.parent.parent
        verify(symbol.visible && title.visible && hint.visible)

        panel.showForm()
        fixture.settle(test)

        compare([symbol.visible, title.visible, hint.visible], [data.symbol, data.title, data.hint])
        for (const item of [symbol, title, hint].filter(item => item.visible)) {
            verify(room(item, all).top >= 0)
            verify(room(item, all).bottom >= 0)
        }
        panel.cancel()
        fixture.settle(test)
        verify(symbol.visible && title.visible && hint.visible)
    }
}
