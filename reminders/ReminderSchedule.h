// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/record/Trial.h"
#include "time/Calendar.h"

#include <QStringList>

namespace norvane {

class Clock;
class NotificationCenter;

/// Plans the reminders of trials with the notification centre.
///
/// Keeps nothing and changes no trial: the identifiers it returns are the caller's to store. They
/// are made of the trial's `id`, so planning the same trial again replaces its requests.
class ReminderSchedule {
public:
    /// Borrows the clock and the centre. Keeps the clock's zone as it is now, so make a schedule
    /// when there is something to plan, and do not keep it.
    ReminderSchedule(const Clock &clock, NotificationCenter &center);

    /// Hands over one request for each reminder whose time is still ahead, and returns their
    /// identifiers in the order 3 days, 24 hours, 1 hour. A time that no calendar can hold keeps
    /// its identifier but sends nothing.
    [[nodiscard]] QStringList plan(const Trial &trial) const;

private:
    const Clock &clock_;
    Calendar calendar_;
    NotificationCenter &center_;
};

} // namespace norvane
