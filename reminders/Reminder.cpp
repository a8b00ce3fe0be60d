// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "reminders/Reminder.h"

namespace norvane {

constinit const std::array<Reminder, 3> Reminder::all{{
    {.leadTime = 3 * 86'400,
     .identifierSuffix = u"-3d",
     .title = u"📅 Trial Ending in 3 Days",
     .text = u"\" trial ends in 3 days. Decide before you're charged"},
    {.leadTime = 86'400,
     .identifierSuffix = u"-24h",
     .title = u"⏰ Trial Ending Tomorrow",
     .text = u"\" trial ends tomorrow. Cancel before you're charged"},
    {.leadTime = 3'600,
     .identifierSuffix = u"-1h",
     .title = u"🚨 Trial Ending in 1 Hour",
     .text = u"\" — cancel now to avoid being charged"},
}};

} // namespace norvane
