// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <QtGlobal>

#include <chrono>

namespace norvane {

/// A request whose minute has come, on its way to the screen.
struct OutboxEntry {
    qint64 number = 0; ///< Grows in the order of delivery; never given twice.
    NotificationRequest request;
    std::chrono::sys_seconds due; ///< When its minute began.
};

} // namespace norvane
