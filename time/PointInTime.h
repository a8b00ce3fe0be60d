// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>

#include <chrono>
#include <cmath>
#include <compare>

namespace norvane {

/// A moment, independent of any time zone: seconds, with fractions, since 2001-01-01 00:00:00 UTC.
///
/// Any double is a legal value. Only Calendar turns one into a date, since it knows which moments a
/// calendar can hold.
class PointInTime {
    Q_GADGET
    Q_PROPERTY(double secondsSinceReference READ secondsSinceReference CONSTANT)

public:
    /// 2001-01-01 00:00:00 UTC in seconds since the Unix epoch.
    static constexpr int referenceInUnixSeconds = 978'307'200;

    constexpr PointInTime() noexcept = default;
    constexpr explicit PointInTime(double secondsSinceReference) noexcept
        : secondsSinceReference_{secondsSinceReference}
    {
    }

    [[nodiscard]] static constexpr PointInTime fromUnixSeconds(double seconds) noexcept
    {
        return PointInTime{seconds - referenceInUnixSeconds};
    }

    [[nodiscard]] constexpr double secondsSinceReference() const noexcept
    {
        return secondsSinceReference_;
    }
    /// The second in which the moment falls, which must be one that a clock can show.
    ///
    /// Rounded down before the epochs are aligned: adding a large number to a small one would round
    /// the last instant before a minute up into that minute.
    [[nodiscard]] std::chrono::sys_seconds wholeSecond() const
    {
        return std::chrono::sys_seconds{std::chrono::seconds{
            static_cast<qint64>(std::floor(secondsSinceReference_)) + referenceInUnixSeconds}};
    }
    /// The moment this many seconds later; earlier when negative.
    [[nodiscard]] constexpr PointInTime advanced(double seconds) const noexcept
    {
        return PointInTime{secondsSinceReference_ + seconds};
    }

    friend constexpr auto operator<=>(PointInTime, PointInTime) noexcept = default;

private:
    double secondsSinceReference_ = 0;
};

} // namespace norvane
