// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/TrialPresentation.h"

#include "model/record/Cost.h"
#include "time/Calendar.h"

namespace norvane {

namespace {

QString symbolFor(urgencies::Urgency urgency)
{
    switch (urgency) {
    case urgencies::Urgency::Over:
        return QStringLiteral("xmark");
    case urgencies::Urgency::Tomorrow:
        return QStringLiteral("exclamationmark.2");
    case urgencies::Urgency::Soon:
        return QStringLiteral("bell");
    case urgencies::Urgency::Relaxed:
        return QStringLiteral("checkmark");
    }
    Q_UNREACHABLE();
}

} // namespace

TrialPresentation TrialPresentation::of(const Trial &trial, PointInTime now,
                                        const Calendar &calendar)
{
    const qint64 days = calendar.wholeDays(now, trial.endDate).value_or(0);
    const urgencies::Urgency urgency = urgencies::of(days);
    return {.daysRemaining = days,
            .days = QString::number(days),
            .urgency = urgency,
            .badgeSymbol = symbolFor(urgency),
            .costText = trial.cost > 0 ? u"· $" + Cost::text(trial.cost) : QString{}};
}

} // namespace norvane
