// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// One part of a moment, the day or the time of day: typed, or stepped with arrow keys and wheel.
// What is typed counts once it is finished; what is no day or time gives way to what was there.
FormTextField {
    id: root

    required property UserCalendar calendar
    required property int part
    required property pointInTime moment
    required property pointInTime timeOfDay

    readonly property string shown: root.calendar.text(root.moment, root.part)

    signal edited(moment: pointInTime)

    function commit() {
        if (root.text !== root.shown)
            root.edited(root.calendar.typed(root.moment, root.part, root.text, root.timeOfDay))
        root.text = Qt.binding(() => root.shown) // Also where nothing came of it.
    }

    function step(position: int, steps: int) {
        root.commit()
        const field = root.calendar.fieldAt(root.moment, root.part, position)
        root.edited(root.calendar.stepped(root.moment, field, steps, root.timeOfDay))
        const section = root.calendar.section(root.moment, root.part, field)
        if (root.activeFocus)
            root.select(section.start, section.end)
    }

    function stepAtCursor(steps: int) {
        const allSelected = root.selectedText.length === root.length
        root.step(allSelected ? -1 : root.cursorPosition, steps)
    }

    implicitWidth: Math.ceil(metrics.advanceWidth) + root.leftPadding + root.rightPadding + 4
    text: root.shown

    onActiveFocusChanged: if (root.activeFocus && root.focusReason !== Qt.MouseFocusReason) root.selectAll()
    onEditingFinished: root.commit()
    Keys.onUpPressed: root.stepAtCursor(1)
    Keys.onDownPressed: root.stepAtCursor(-1)

    TextMetrics {
        id: metrics

        font: root.font
        text: root.calendar.widest(root.part)
    }
    WheelHandler {
        // In eighths of a degree. A notch has 15 degrees; a touchpad sends it in pieces.
        property int angle: 0

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => {
            const notch = 120
            angle += event.angleDelta.y
            const steps = Math.trunc(angle / notch)
            angle -= steps * notch
            if (steps !== 0)
                root.step(root.positionAt(event.x, event.y), steps)
        }
    }
}
