// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/desktop/SystemCalendarSource.h"

#include "platform/desktop/MachineZone.h"

namespace norvane {

Calendar SystemCalendarSource::current() const
{
    return Calendar{machineZone()};
}

} // namespace norvane
