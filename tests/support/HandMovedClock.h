// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

namespace norvane {

/// A clock that stands still until a test moves it, and that counts how often it is read.
class HandMovedClock final : public Clock {
public:
    explicit HandMovedClock(PointInTime start) : now_{start} {}

    [[nodiscard]] PointInTime now() const override
    {
        ++reads_;
        const PointInTime answer = now_;
        now_ = now_.advanced(secondsPerRead_);
        return answer;
    }

    void set(PointInTime now) { now_ = now; }
    /// Lets the clock run: it moves on by this much after each time it is read.
    void moveAtEachRead(double seconds) { secondsPerRead_ = seconds; }
    [[nodiscard]] int reads() const noexcept { return reads_; }

private:
    mutable PointInTime now_;
    mutable int reads_ = 0;
    double secondsPerRead_ = 0;
};

} // namespace norvane
