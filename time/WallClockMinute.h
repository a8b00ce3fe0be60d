// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace norvane {

/// A minute as a wall clock shows it: no zone, no seconds. The year is 1 to 9999.
struct WallClockMinute {
    int year = 1;
    int month = 1; ///< 1 to 12.
    int day = 1;
    int hour = 0;
    int minute = 0;

    /// `yyyy-MM-ddTHH:mm`, in ASCII digits.
    [[nodiscard]] QString text() const;

    friend bool operator==(const WallClockMinute &, const WallClockMinute &) = default;
};

} // namespace norvane
