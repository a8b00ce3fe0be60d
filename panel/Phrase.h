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
    /// Both are mere data: nothing else in either has a meaning. A text without a placeholder
    /// stays as it is.
    [[nodiscard]] Q_INVOKABLE static QString with(const QString &text, const QString &value);
};

} // namespace norvane
