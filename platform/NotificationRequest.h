// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/WallClockMinute.h"

#include <QString>

namespace norvane {

/// One notification to be shown later, once, when the wall clock reaches a minute.
struct NotificationRequest {
    /// The desktop's own sound for news.
    static inline const QString defaultSound = QStringLiteral("default");

    QString identifier;
    QString title;
    QString body;  ///< Plain text, whatever it holds.
    QString sound; ///< Anything but defaultSound is silent.
    WallClockMinute trigger;

    friend bool operator==(const NotificationRequest &, const NotificationRequest &) = default;
};

} // namespace norvane
