// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/PointInTime.h"

#include <chrono>
#include <cmath>

namespace norvane {

/// The second that is running at the moment, which must be one that a clock can show.
///
/// Floored before the epochs are aligned: adding large to small would round the last instant before
/// a minute into it.
[[nodiscard]] inline std::chrono::sys_seconds wholeSecond(PointInTime moment)
{
    return std::chrono::sys_seconds{
        std::chrono::seconds{static_cast<qint64>(std::floor(moment.secondsSinceReference())) +
                             PointInTime::referenceInUnixSeconds}};
}

} // namespace norvane
