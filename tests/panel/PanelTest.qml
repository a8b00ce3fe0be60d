// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick
import QtTest

import org.norvane.panel
import org.norvane.tests

// A test that drives a panel of the popover's size by keys and clicks.
TestCase {
    id: testCase

    property ContentView panel: null

    readonly property PanelFixture fixture: PanelFixture {}
    readonly property Component panelComponent: Component {
        ContentView { width: 360; height: 420 }
    }

    // Shows a panel over these trials.
    function open(trials, locale = "en_US") {
        return testCase.openOn(fixture.start(trials, locale))
    }

    function openOn(content) {
        testCase.panel = testCase.createTemporaryObject(testCase.panelComponent, testCase, { content: content })
        verify(waitForRendering(testCase.panel))
        return testCase.panel
    }

    // The item that a screen reader knows by this name.
    function find(name, description = "") {
        return fixture.find(testCase, name, description)
    }

    function found(name, description = "") {
        tryVerify(() => testCase.find(name, description) !== null, 3000, "no item is named " + name)
        return testCase.find(name, description)
    }

    function click(name, description = "") {
        const item = testCase.found(name, description)
        fixture.settle(testCase)
        mouseClick(item)
        fixture.settle(testCase)
    }

    function focusItem() {
        return testCase.panel.Window.activeFocusItem
    }

    function focusName() {
        return fixture.nameOf(testCase.focusItem())
    }

    function type(text) {
        for (const letter of text)
            keyClick(letter)
    }

    function init() {
        failOnWarning(/.?/)
        fixture.setPalette("light")
        fixture.setFontPixels(13)
        fixture.setRightToLeft(false)
        fixture.translate("", "")
    }

    width: 360
    height: 420
    visible: true
    when: windowShown
}
