// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <chrono>

namespace norvane {

/// A request whose minute has come, on its way to the screen.
struct OutboxEntry {
    NotificationRequest request;
    std::chrono::sys_seconds due; ///< When its minute began.
};

} // namespace norvane
