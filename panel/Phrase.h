// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

/// Puts values into texts that translators wrote.
class Phrase : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit Phrase(QObject *parent = nullptr) : QObject{parent} {}

    /// The text with the value in place of "%lld" or "%@", wherever that stands.
    ///
    /// Nothing else in the text or in the value is interpreted. A text without a placeholder stays
    /// unchanged.
    [[nodiscard]] Q_INVOKABLE static QString with(const QString &text, const QString &value);

    /// The number to ask for a plural form with: the count without its sign, or one with the same
    /// plural where that is too large for the translator.
    ///
    /// A language's rules look at the count itself while it is small, and else at its last digits.
    [[nodiscard]] static int pluralNumber(qint64 count) noexcept;
};

} // namespace norvane
