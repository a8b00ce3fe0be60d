// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/desktop/SystemCalendarSource.h"

namespace norvane {

Calendar SystemCalendarSource::current() const
{
    return Calendar{QTimeZone::systemTimeZone()};
}

} // namespace norvane
