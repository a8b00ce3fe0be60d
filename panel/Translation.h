// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>
#include <QStringList>
#include <QTranslator>

namespace norvane {

/// The panel's texts in the user's language, and the direction that its lines run in.
///
/// In force while it lives. Of the user's languages the first one counts that the texts are written
/// in or translated into. Where there is none, the texts stand as written in the code, which is in
/// English, and the lines run as in the first of the languages.
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
