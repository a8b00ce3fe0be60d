// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Translation.h"

#include <QGuiApplication>

namespace norvane {

Translation::Translation(const QLocale &locale)
{
    if (translator_.load(locale, QStringLiteral("norvane"), QStringLiteral("_"),
                         QStringLiteral(":/norvane/translations"))) {
        QCoreApplication::installTranslator(&translator_);
    }
    // After the translator, whose installation lets Qt choose a direction of its own.
    QGuiApplication::setLayoutDirection(locale.textDirection());
}

} // namespace norvane
