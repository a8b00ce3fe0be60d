// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <QList>
#include <QSet>
#include <QString>

#include <bit>

namespace norvane {

/// The reference cases of one file in tests/data, and a row name of its own for each.
class ReferenceCases {
public:
    /// Ends the test program when there is no such file, or no case in it.
    explicit ReferenceCases(const QString &fileName)
    {
        QFile file{QStringLiteral(NORVANE_TEST_DATA "/") + fileName};
        if (file.open(QIODevice::ReadOnly)) {
            const QJsonArray array = QJsonDocument::fromJson(file.readAll()).array();
            cases_ = {array.begin(), array.end()};
        }
        if (cases_.isEmpty()) {
            qFatal("%s holds no cases", qUtf8Printable(file.fileName()));
        }
    }

    [[nodiscard]] const QList<QJsonValue> &all() const noexcept { return cases_; }

    /// The text, with a number behind it when an earlier row has it already.
    [[nodiscard]] QByteArray rowName(const QString &text)
    {
        QString name = text;
        for (int count = 2; names_.contains(name); ++count) {
            name = text + QStringLiteral(" (%1)").arg(count);
        }
        names_.insert(name);
        return name.toUtf8();
    }

    /// A double from its 64 bits in hexadecimal digits.
    [[nodiscard]] static double fromBits(const QString &digits)
    {
        return std::bit_cast<double>(digits.toULongLong(nullptr, 16));
    }

    /// The 64 bits of a double in hexadecimal digits; unlike ==, tells 0 from -0.
    [[nodiscard]] static QString bitsOf(double value)
    {
        return QStringLiteral("%1").arg(std::bit_cast<quint64>(value), 16, 16, QLatin1Char{'0'});
    }

private:
    QList<QJsonValue> cases_;
    QSet<QString> names_;
};

} // namespace norvane
