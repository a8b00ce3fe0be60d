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

int Phrase::pluralNumber(qint64 count) noexcept
{
    constexpr qint64 million = 1'000'000;
    const qint64 lastDigits = count % million < 0 ? -(count % million) : count % million;
    return static_cast<int>(count / million == 0 ? lastDigits : million + lastDigits);
}

} // namespace norvane
