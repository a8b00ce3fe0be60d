// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

namespace norvane {

/// A clock in the zone that a test chose. It stands still until the test moves it, and counts how
/// often it is read.
class HandMovedClock final : public Clock {
public:
    explicit HandMovedClock(PointInTime start, const QByteArray &zone = QByteArrayLiteral("UTC"))
        : now_{start},
          zone_{QTimeZone{zone}}
    {
    }

    [[nodiscard]] PointInTime now() const override
    {
        ++reads_;
        const PointInTime answer = now_;
        now_ = now_.advanced(secondsPerRead_);
        return answer;
    }

    [[nodiscard]] Zone zone() const override { return zone_; }

    void set(PointInTime now) { now_ = now; }
    void setZone(const QByteArray &name) { zone_ = QTimeZone{name}; }
    /// Lets the clock run: it moves on by this much after each time it is read.
    void moveAtEachRead(double seconds) { secondsPerRead_ = seconds; }
    [[nodiscard]] int reads() const noexcept { return reads_; }

private:
    mutable PointInTime now_;
    Zone zone_;
    mutable int reads_ = 0;
    double secondsPerRead_ = 0;
};

} // namespace norvane
