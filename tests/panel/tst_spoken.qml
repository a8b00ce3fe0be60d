// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

PanelTest {
    id: test

    name: "spoken"

    function spoken(names) {
        return names.map((name, row) => name + ", 2d left, $5.00; " + (row + 1) + " of " + names.length)
    }

    function rows() { return fixture.children(find("Trials")) }

    function deleteRow(name) {
        click("Delete", name)
        mouseClick(fixture.text(test, "Delete"))
    }

    function test_theTreeIsTheListInItsOrderAfterAddingAndDeleting() {
        openOn(fixture.startWithMany(12))
        const names = fixture.names()
        compare(rows(), spoken(names))

        deleteRow("Trial 0")
        tryVerify(() => rows().length === 11)
        compare(rows(), spoken(fixture.names()))
        deleteRow("Trial 4")
        tryVerify(() => rows().length === 10)
        compare(rows(), spoken(fixture.names()))
        find("Trials").positionViewAtEnd()
        deleteRow("Trial 11")
        tryVerify(() => rows().length === 9)
        compare(rows(), spoken(fixture.names()))

        click("Add Trial")
        type("new")
        keyClick(Qt.Key_Return, Qt.ControlModifier)
        tryVerify(() => rows().length === 10)
        compare(rows()[9], "new, 7d left; 10 of 10")
        compare(rows().slice(0, 9).map(row => row.split(",")[0]), names.filter(name => !["Trial 0", "Trial 4", "Trial 11"].includes(name)))
    }

    function test_scrollingThereAndBackLeavesTheTreeAsItIs() {
        openOn(fixture.startWithMany(40))
        const names = fixture.names()

        for (const y of [700, 100, 1100, 0, 400]) {
            find("Trials").contentY = y
            fixture.settle(test)
            compare(rows(), spoken(names))
        }
    }

    function test_theTreeOfTenThousandTrialsIsWholeAndInOrder() {
        openOn(fixture.startWithMany(10000))
        find("Trials").positionViewAtIndex(5000, ListView.Beginning)
        fixture.settle(test)

        compare(rows(), spoken(fixture.names()))
        compare(fixture.descriptionOf(find("Trials")), "10000 in total")
    }

    function test_theRowHasTheFocusAndIsNeverSelected() {
        openOn(fixture.startWithMany(3))

        keyClick(Qt.Key_Tab)

        compare(fixture.roleOf(focusItem()), "ListItem")
        compare(fixture.statesOf(focusItem()), ["focusable", "focused"])
        compare(fixture.statesOf(find("Trials")), [])
        keyClick(Qt.Key_Down)
        compare(focusName(), "Trial 1, 2d left, $5.00")
        compare(fixture.statesOf(find("Trial 0, 2d left, $5.00")), ["focusable"])
    }

    function test_theArrowTowardsTheTrashReachesItAndTheOtherGoesBack_data() {
        return [{ tag: "left to right", mirrored: false, there: Qt.Key_Right, back: Qt.Key_Left },
                { tag: "right to left", mirrored: true, there: Qt.Key_Left, back: Qt.Key_Right }]
    }
    function test_theArrowTowardsTheTrashReachesItAndTheOtherGoesBack(data) {
        fixture.setRightToLeft(data.mirrored)
        openOn(fixture.startWithMany(3))
        keyClick(Qt.Key_Tab)

        keyClick(data.there)
        compare([focusName(), fixture.descriptionOf(focusItem())], ["Delete", "Trial 0"])
        keyClick(data.back)
        compare(focusName(), "Trial 0, 2d left, $5.00")
        keyClick(data.there)
        keyClick(Qt.Key_Down)
        compare(focusName(), "Trial 1, 2d left, $5.00")
    }

    function test_onlyTheDeleteKeyOfARowAsks() {
        openOn(fixture.startWithMany(3))
        keyClick(Qt.Key_Tab)

        for (const key of [Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter])
            keyClick(key)
        keyClick(Qt.Key_Delete, Qt.ControlModifier)
        compare(find("Delete Trial?"), null)

        keyClick(Qt.Key_Delete)
        found("Delete Trial?")
        keyClick(Qt.Key_Escape)
        tryVerify(() => focusName() === "Trial 0, 2d left, $5.00")
        compare(fixture.names().length, 3)
    }

    function test_theTrashOfAnotherRowTakesTheFocusWhenItIsPressed() {
        openOn(fixture.startWithMany(3))
        keyClick(Qt.Key_Tab)

        click("Delete", "Trial 2")
        keyClick(Qt.Key_Escape)

        tryVerify(() => focusName() === "Delete")
        compare(fixture.descriptionOf(focusItem()), "Trial 2")
        keyClick(Qt.Key_Up)
        compare(focusName(), "Trial 1, 2d left, $5.00")
    }

    function test_trackTrialIsDisabledUntilThereIsAName() {
        open([])
        click("Add Trial")

        verify(fixture.statesOf(find("Track Trial")).includes("disabled"))
        type("x")
        verify(!fixture.statesOf(find("Track Trial")).includes("disabled"))
    }

    function test_addingAndDeletingAreAnnounced() {
        openOn(fixture.startWithMany(2))

        deleteRow("Trial 1")
        compare(fixture.roleOf(found("Trial 1 deleted")), "Notification")
        click("Add Trial")
        type("Canva Pro")
        keyClick(Qt.Key_Return, Qt.ControlModifier)
        compare(fixture.roleOf(found("Canva Pro added")), "Notification")
        compare(find("Trial 1 deleted"), null)
    }
}
