// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/Cost.h"

#include "model/record/CLocale.h"

#include <QByteArray>

#include <array>
#include <cctype>
#include <charconv>
#include <cstdlib>

namespace norvane {

QString Cost::text(double cost)
{
    // The longest double has 309 digits before the point.
    std::array<char, 320> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), cost,
                                       std::chars_format::fixed, 2);
    return QString::fromLatin1(buffer.data(), written.ptr - buffer.data());
}

double Cost::fromText(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    // strtod would pass over leading white space.
    if (bytes.isEmpty() || std::isspace(static_cast<unsigned char>(bytes.front())) != 0) {
        return 0;
    }
    const CLocale locale;
    char *end = nullptr;
    const double number = std::strtod(bytes.constData(), &end);
    return end == bytes.constData() + bytes.size() ? number : 0;
}

} // namespace norvane
