// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Phrase.h"

#include <QStringList>

namespace norvane {

QString Phrase::with(const QString &text, const QString &value)
{
    const QString placeholder =
        text.contains(QStringLiteral("%lld")) ? QStringLiteral("%lld") : QStringLiteral("%@");
    return text.split(placeholder).join(value);
}

} // namespace norvane
