// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

PanelTest {
    id: test

    name: "list"

    function list() { return find("Trials") }

    function test_thereAreRowsOnlyForWhatIsVisible() {
        openOn(fixture.startWithMany(10000))

        compare(list().count, 10000)
        verify(fixture.countOf(list(), "TrialRow") < 20)
    }

    function test_aScrollBarShowsWhenThereIsMore() {
        openOn(fixture.startWithMany(4))
        compare(fixture.countOf(list(), "PanelScrollBar"), 1)
        const bar = () => Array.from(list().children).find(child => child.hasOwnProperty("policy"))
        verify(!bar().visible)

        openOn(fixture.startWithMany(40))
        verify(bar().visible)
    }

    function test_deletingKeepsTheScrollPosition() {
        openOn(fixture.startWithMany(1000))
        list().contentY = 4000
        waitForRendering(list())
        const name = fixture.nameOf(list().itemAt(10, 4100)).split(",")[0]

        click("Delete", name)
        mouseClick(fixture.text(test, "Delete"))

        tryCompare(list(), "count", 999)
        compare(list().contentY, 4000)
        compare(fixture.names().includes(name), false)
    }

    function test_anAddedRowIsBroughtIntoView() {
        openOn(fixture.startWithMany(1000))
        click("Add Trial")
        type("the new one")

        keyClick(Qt.Key_Return, Qt.ControlModifier)

        const row = found("the new one, 7d left")
        tryVerify(() => row.mapToItem(list(), 0, row.height).y <= list().height + 0.5)
        verify(list().atYEnd)
    }

    function test_theListBeginsAtItsTop() {
        openOn(fixture.startWithMany(1000))

        compare(list().contentY, -list().topMargin)
    }

    function test_arrowsPagesHomeAndEndWalkTheRows() {
        openOn(fixture.startWithMany(1000))
        keyClick(Qt.Key_Tab)
        const at = () => focusName().split(",")[0]
        compare(at(), "Trial 0")

        keyClick(Qt.Key_Down)
        compare(at(), "Trial 1")
        keyClick(Qt.Key_End)
        compare(at(), "Trial 999")
        verify(list().atYEnd)
        keyClick(Qt.Key_Up)
        compare(at(), "Trial 998")
        keyClick(Qt.Key_PageUp)
        verify(at() !== "Trial 998")
        keyClick(Qt.Key_Home)
        compare(at(), "Trial 0")
        compare(list().contentY, -list().topMargin)
        keyClick(Qt.Key_Up)
        compare(at(), "Trial 0")
    }

    function test_aPressOnTheTrashOfAHalfHiddenRowAsks() {
        openOn(fixture.startWithMany(1000))
        list().contentY = 20
        fixture.settle(test)
        const trash = find("Delete", "Trial 0")
        const where = trash.mapToItem(test, trash.width / 2, trash.height - 4)

        mousePress(test, where.x, where.y)
        compare(list().contentY, 20)
        mouseMove(test, where.x + 1, where.y)
        mouseRelease(test, where.x + 1, where.y)

        found("Delete Trial?")
    }

    function test_theTabKeyStopsAtOneRowAndItsTrash() {
        openOn(fixture.startWithMany(1000))

        keyClick(Qt.Key_Tab)
        compare(focusName(), "Trial 0, 2d left, $5.00")
        keyClick(Qt.Key_Tab)
        compare([focusName(), fixture.descriptionOf(focusItem())], ["Delete", "Trial 0"])
        keyClick(Qt.Key_Tab)

        compare(focusName(), "Add Trial")
    }
}
