// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

import QtQuick

// Makes whole steps of what a wheel or touchpad sends: one for each notch of a wheel, of which a
// touchpad sends small parts.
WheelHandler {
    id: root

    // What is not yet a step, in eighths of a degree.
    property int angle: 0

    // Positive steps are those away from the user; the place is the pointer's.
    signal stepped(steps: int, x: real, y: real)

    acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad

    onEnabledChanged: root.angle = 0
    onWheel: event => {
        const notch = 120
        root.angle += event.angleDelta.y
        const steps = Math.trunc(root.angle / notch)
        root.angle -= steps * notch
        if (steps !== 0)
            root.stepped(steps, event.x, event.y)
    }
}
