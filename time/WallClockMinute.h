// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace norvane {

/// A minute as a wall clock shows it: no zone, no seconds. The year is 1 to 9999.
struct WallClockMinute {
    int year = 1;
    int month = 1; ///< 1 to 12.
    int day = 1;
    int hour = 0;
    int minute = 0;

    /// The minute that the text names, in the form of text() and with nothing around it; nothing
    /// when it has another form or there is no such date or time.
    [[nodiscard]] static std::optional<WallClockMinute> fromText(QStringView text);
    /// `yyyy-MM-ddTHH:mm`, in ASCII digits.
    [[nodiscard]] QString text() const;

    /// Whether the calendar has this date, in the years 1 to 9999, and a day this time.
    [[nodiscard]] bool isValid() const;

    friend bool operator==(const WallClockMinute &, const WallClockMinute &) = default;
};

} // namespace norvane
