// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "time/SystemCalendarSource.h"

#include "time/MachineZone.h"

namespace norvane {

Calendar SystemCalendarSource::current() const
{
    return Calendar{machineZone()};
}

} // namespace norvane
