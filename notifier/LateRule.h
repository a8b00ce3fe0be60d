// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <chrono>

namespace norvane {

/// What the reminders of one trial have in common: the identifier up to its last hyphen, or all of
/// it when there is none.
[[nodiscard]] QStringView trialOf(QStringView identifier);

/// The identifiers of one trial's reminders, as a range that an index can look up. The range may
/// hold others as well, which include() tells apart.
struct TrialRange {
    QString trial;
    QString after = trial + u'-';
    QString before = trial + u'.'; ///< The full stop is the next character after the hyphen.

    explicit TrialRange(QStringView identifier) : trial{trialOf(identifier).toString()} {}
    [[nodiscard]] bool include(QStringView identifier) const
    {
        return trialOf(identifier) == trial;
    }
};

/// How long after its minute a reminder is still worth showing: its own lead, so that nothing
/// announces an end that is past. An hour for `-1h`, a day for `-24h`, three days for `-3d`, and a
/// day for every other identifier.
[[nodiscard]] std::chrono::seconds worthShowingFor(QStringView identifier);

/// Whether the reminder's minute was over before it could come.
[[nodiscard]] bool isMissed(std::chrono::sys_seconds due, std::chrono::sys_seconds now);

} // namespace norvane
