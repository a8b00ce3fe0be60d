// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

#include <chrono>

namespace norvane {

/// What the reminders of one trial have in common: the identifier up to its last hyphen, or all of
/// it when there is none.
[[nodiscard]] QStringView trialOf(QStringView identifier);

/// How long after its minute a reminder is still worth showing: its own lead, so that nothing
/// announces an end that is past. An hour for `-1h`, a day for `-24h`, three days for `-3d`, and a
/// day for every other identifier.
[[nodiscard]] std::chrono::seconds worthShowingFor(QStringView identifier);

/// Whether the reminder's minute was over before it could come.
[[nodiscard]] bool isMissed(std::chrono::sys_seconds due, std::chrono::sys_seconds now);

} // namespace norvane
