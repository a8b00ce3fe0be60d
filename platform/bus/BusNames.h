// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace norvane::busNames {

/// The application; also its desktop file and the name a running Norvane owns.
inline const QString application = QStringLiteral("org.norvane.Norvane");
inline const QString applicationPath = QStringLiteral("/org/norvane/Norvane");

inline const QString notificationCenter = QStringLiteral("org.norvane.NotificationCenter");
inline const QString notificationCenterPath = QStringLiteral("/org/norvane/NotificationCenter");

/// The error of a call whose change could not be made durable.
inline const QString storageError = QStringLiteral("org.norvane.NotificationCenter1.Error.Storage");

/// The longest text that the notification centre takes, in bytes of UTF-8.
inline constexpr qsizetype longestText = 65'536;

} // namespace norvane::busNames
