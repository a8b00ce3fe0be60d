// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/tray/IconPixmap.h"

namespace norvane {

/// What a host shows while the pointer rests on the icon. Hosts may parse its texts as markup, so
/// they must not contain anything that a user typed.
struct ToolTip {
    QString iconName;
    IconPixmapList iconPixmap;
    QString title;
    QString text;
};

QDBusArgument &operator<<(QDBusArgument &argument, const ToolTip &toolTip);
const QDBusArgument &operator>>(const QDBusArgument &argument, ToolTip &toolTip);

} // namespace norvane

Q_DECLARE_METATYPE(norvane::ToolTip)
