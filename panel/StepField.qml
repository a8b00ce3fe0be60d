// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

import org.norvane.panel

// One part of a moment, the day or the time of day: typed, or stepped with the arrow keys and, while
// it has the focus, the wheel. What is typed counts once the field is left, by Return and when the
// form is submitted; a text that is no day or time is then replaced by the old value.
FormTextField {
    id: root

    required property UserCalendar calendar
    required property int part
    required property pointInTime moment
    required property pointInTime timeOfDay

    readonly property string shown: root.calendar.text(root.moment, root.part)

    signal edited(moment: pointInTime)

    // Applies the typed text, or restores the old value; returns whether the text was understood.
    function commit(): bool {
        const changed = root.text !== root.shown
        const understood = !changed || root.calendar.understands(root.moment, root.part, root.text)
        if (changed)
            root.edited(root.calendar.typed(root.moment, root.part, root.text, root.timeOfDay))
        root.text = Qt.binding(() => root.shown)
        return understood
    }

    // Like commit(), but if the text was not understood, also focuses the field and selects the
    // restored value.
    function submit(): bool {
        const understood = root.commit()
        if (!understood) {
            root.forceActiveFocus(Qt.OtherFocusReason)
            root.selectAll()
        }
        return understood
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
    value: root.calendar.valueOf(root.moment, root.part)
    onActiveFocusChanged: {
        // With Qt 6.10 a context menu that closes gives the focus back for another reason than a popup.
        const isReturn = root.menuOpen || root.focusReason === Qt.PopupFocusReason
        if (root.activeFocus && !isReturn && root.focusReason !== Qt.MouseFocusReason)
            root.selectAll()
    }
    onEditingFinished: if (!root.menuOpen) root.commit()
    Keys.onUpPressed: root.stepAtCursor(1)
    Keys.onDownPressed: root.stepAtCursor(-1)

    TextMetrics {
        id: metrics

        font: root.font
        text: root.calendar.widest(root.part)
    }
    WheelSteps {
        enabled: root.activeFocus // Elsewhere the wheel scrolls the form.
        onStepped: (steps, x, y) => root.step(root.positionAt(x, y), steps)
    }
}
