// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/tray/IconPixmap.h"

namespace norvane {

/// What a host shows while the pointer rests on the icon. Hosts may read its texts as markup, so
/// nothing that a user typed belongs here.
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
