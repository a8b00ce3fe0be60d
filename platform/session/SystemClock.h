// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

namespace norvane {

/// The machine's wall clock, in the machine's zone.
class SystemClock final : public Clock {
public:
    [[nodiscard]] PointInTime now() const override;
    [[nodiscard]] Zone zone() const override;
};

} // namespace norvane
