// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>
#include <QTranslator>

namespace norvane {

/// The panel's texts in the user's language, and the direction that its lines run in.
///
/// In force while it lives. Where there is no translation the texts stand as written in the code.
class Translation {
public:
    explicit Translation(const QLocale &locale);

private:
    QTranslator translator_;
};

} // namespace norvane
