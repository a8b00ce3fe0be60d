// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>

#include <compare>

namespace norvane {

/// A moment, independent of any time zone: seconds, with fractions, since 2001-01-01 00:00:00 UTC.
///
/// Any double is a legal value. Turning one into a date is the business of Calendar, which knows
/// which moments a calendar can hold.
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
