// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "time/WallClockMinute.h"

namespace norvane {

QString WallClockMinute::text() const
{
    return QString::asprintf("%04d-%02d-%02dT%02d:%02d", year, month, day, hour, minute);
}

} // namespace norvane
