// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// A moment, as a day and a time of day in the user's own format, with a month to pick the day from.
Flow {
    id: root

    required property UserCalendar calendar
    required property pointInTime moment
    required property string name

    // A moment with the time of day that the user chose. The field's moment can differ: on a day that
    // skips 2:30 it is 3:30, but the following days must get 2:30 again.
    property pointInTime timeOfDay: root.moment

    signal edited(moment: pointInTime)

    // Applies the typed texts, the day first; returns whether both were understood. The first field
    // whose text was not understood gets its old value back and the focus.
    function commit(): bool {
        return day.submit() && time.submit()
    }

    function takeDay(moment: pointInTime) {
        root.timeOfDay = root.timeOfDay // Ends the binding to the moment, which changes now.
        root.edited(moment)
    }

    function takeTime(moment: pointInTime) {
        root.timeOfDay = moment
        root.edited(moment)
    }

    spacing: Theme.spacing

    Row {
        spacing: 4

        StepField {
            id: day

            width: Math.min(day.implicitWidth, root.width - open.width - parent.spacing)
            calendar: root.calendar
            part: UserCalendar.Day
            moment: root.moment
            timeOfDay: root.timeOfDay
            Accessible.name: root.name
            // The placeholder is also what a screen reader says of the field after its name.
            //: Which of the two fields for the end of the trial this is: the one for the date.
            placeholderText: qsTr("Day")
            Accessible.description: day.placeholderText

            onEdited: moment => root.takeDay(moment)
        }
        FormButton {
            id: open

            height: day.height
            leftPadding: 7
            rightPadding: 7
            display: T.AbstractButton.IconOnly
            symbol: "calendar"
            //: What a screen reader says of the button that opens the calendar.
            text: qsTr("Choose a day")
            Accessible.description: root.name

            onClicked: {
                root.commit()
                month.active = true
            }
        }
    }
    StepField {
        id: time

        width: Math.min(time.implicitWidth, root.width)
        calendar: root.calendar
        part: UserCalendar.TimeOfDay
        moment: root.moment
        timeOfDay: root.timeOfDay
        Accessible.name: root.name
        //: Which of the two fields for the end of the trial this is: the one for the time of day.
        placeholderText: qsTr("Time")
        Accessible.description: time.placeholderText

        onEdited: moment => root.takeTime(moment)
    }
    // Made when it is opened.
    Instantiator {
        id: month

        active: false
        delegate: MonthCalendar {
            parent: open
            x: open.mirrored ? open.width - width : 0
            y: open.height + 4
            calendar: root.calendar
            selected: root.calendar.dayOf(root.moment)

            onPicked: day => root.takeDay(root.calendar.onDay(root.moment, day, root.timeOfDay))
            onClosed: {
                open.forceActiveFocus(Qt.PopupFocusReason)
                month.active = false
            }
        }
    }
}
