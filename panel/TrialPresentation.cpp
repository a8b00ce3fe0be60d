// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/TrialPresentation.h"

#include "model/record/Cost.h"
#include "panel/Phrase.h"
#include "time/Calendar.h"

#include <QCoreApplication>

namespace norvane {

namespace {

/// Stands between days and cost where they are seen; a screen reader would speak the dot.
constexpr QStringView separator = u"· $";

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
            .daysText = Phrase::with(QCoreApplication::translate("TrialRow", "%lldd left"),
                                     QString::number(days)),
            .urgency = urgency,
            .badgeSymbol = symbolFor(urgency),
            .costText = trial.cost > 0 ? separator.toString() + Cost::text(trial.cost) : QString{}};
}

QString TrialPresentation::sentence(const QString &name) const
{
    const QString words = name + u", " + daysText;
    return costText.isEmpty() ? words : words + u", $" + costText.sliced(separator.size());
}

} // namespace norvane
