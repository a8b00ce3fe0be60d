// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Translation.h"

#include <QGuiApplication>

#include <algorithm>

namespace norvane {

namespace {

/// English is the language of the texts in the code.
bool isEnglish(const QString &language)
{
    return QLocale{language}.language() == QLocale::English;
}

} // namespace

Translation::Translation(const QLocale &locale) : Translation{locale.uiLanguages()} {}

Translation::Translation(const QStringList &languages)
{
    const auto shown = std::ranges::find_if(languages, [this](const QString &language) {
        return isEnglish(language) || load(language);
    });
    if (!translator_.isEmpty()) {
        QCoreApplication::installTranslator(&translator_);
    }
    // After the translator, whose installation lets Qt choose a direction of its own.
    const QString language = shown != languages.end() ? *shown : languages.value(0);
    QGuiApplication::setLayoutDirection(QLocale{language}.textDirection());
}

bool Translation::load(const QString &language)
{
    return translator_.load(u"norvane_" + language, QStringLiteral(":/norvane/translations"),
                            QStringLiteral("-"));
}

} // namespace norvane
