// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>
#include <QStringList>
#include <QTranslator>

namespace norvane {

/// The panel's texts in the user's language, and the direction that its lines run in.
///
/// The texts apply as long as the object exists; the direction stays. The first of the user's
/// languages that is English or has a translation is used. If there is none, the texts are English
/// and the direction is that of the user's first language.
class Translation {
public:
    /// In the languages that the locale wants for its texts.
    explicit Translation(const QLocale &locale);
    /// In one of these, named as in QLocale::uiLanguages(), the most wanted first.
    explicit Translation(const QStringList &languages);

private:
    [[nodiscard]] bool load(const QString &language);

    QTranslator translator_;
};

} // namespace norvane
