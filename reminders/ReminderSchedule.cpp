// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "reminders/ReminderSchedule.h"

#include "model/record/Cost.h"
#include "platform/Clock.h"
#include "platform/NotificationCenter.h"
#include "reminders/Reminder.h"

namespace norvane {

namespace {

QString bodyOf(const Reminder &reminder, const Trial &trial)
{
    QString body = u'"' + trial.name + reminder.text;
    if (trial.cost > 0) {
        body += u" $" + Cost::text(trial.cost);
    }
    return body + u'.';
}

} // namespace

ReminderSchedule::ReminderSchedule(const Clock &clock, NotificationCenter &center)
    : clock_{clock},
      calendar_{clock.calendar()},
      center_{center}
{
}

QStringList ReminderSchedule::plan(const Trial &trial) const
{
    QStringList identifiers;
    for (const Reminder &reminder : Reminder::all) {
        const PointInTime fireDate = trial.endDate.advanced(-reminder.leadTime);
        if (!(fireDate > clock_.now())) {
            continue;
        }
        const QString identifier = trial.idText() + reminder.identifierSuffix;
        if (const auto minute = calendar_.minuteOf(fireDate)) {
            center_.addNotificationRequest({.identifier = identifier,
                                            .title = reminder.title.toString(),
                                            .body = bodyOf(reminder, trial),
                                            .sound = NotificationRequest::defaultSound,
                                            .trigger = *minute});
        }
        identifiers.append(identifier);
    }
    return identifiers;
}

} // namespace norvane
