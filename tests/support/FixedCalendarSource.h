// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/CalendarSource.h"

#include <QByteArray>

namespace norvane {

/// The calendar of the time zone that a test chose, whatever the machine's.
class FixedCalendarSource final : public CalendarSource {
public:
    explicit FixedCalendarSource(const QByteArray &zone = QByteArrayLiteral("UTC"))
        : calendar_{QTimeZone{zone}}
    {
    }

    [[nodiscard]] Calendar current() const override { return calendar_; }

    void set(const QByteArray &zone) { calendar_ = Calendar{QTimeZone{zone}}; }

private:
    Calendar calendar_;
};

} // namespace norvane
