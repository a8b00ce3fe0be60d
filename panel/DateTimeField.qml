// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import org.norvane.panel

// A moment, as a day and a time of day in the user's own format, with a month to pick the day from.
Flow {
    id: root

    required property UserCalendar calendar
    required property pointInTime moment
    required property string name

    // A day that skips an hour does not cost the days after it that hour.
    property pointInTime timeOfDay: root.moment

    signal edited(moment: pointInTime)

    function commit() {
        day.commit()
        time.commit()
    }

    function takeDay(moment: pointInTime) {
        root.timeOfDay = root.timeOfDay // No longer bound: the time stays what was asked for last.
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
            Accessible.description: qsTr("Day")

            onEdited: moment => root.takeDay(moment)
        }
        FormButton {
            id: open

            height: day.height
            leftPadding: 7
            rightPadding: 7
            display: T.AbstractButton.IconOnly
            symbol: "calendar"
            text: qsTr("Choose a day")
            Accessible.description: root.name

            onClicked: {
                root.commit()
                month.show(root.calendar.dayOf(root.moment))
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
        Accessible.description: qsTr("Time")

        onEdited: moment => root.takeTime(moment)
    }
    MonthCalendar {
        id: month

        parent: open
        x: open.mirrored ? open.width - month.width : 0
        y: open.height + 4
        calendar: root.calendar

        onPicked: picked => root.takeDay(root.calendar.onDay(root.moment, picked, root.timeOfDay))
        onClosed: open.forceActiveFocus(Qt.PopupFocusReason)
    }
}
