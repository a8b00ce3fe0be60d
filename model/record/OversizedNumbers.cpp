// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/OversizedNumbers.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace norvane {

namespace {

constexpr std::string_view digits = "0123456789";

/// Passes over any digits at the front; false when there are none.
bool passDigits(std::string_view &text)
{
    const std::size_t count = std::min(text.find_first_not_of(digits), text.size());
    text.remove_prefix(count);
    return count > 0;
}

bool passOne(std::string_view &text, std::string_view choice)
{
    const bool matches = !text.empty() && choice.find(text.front()) != std::string_view::npos;
    text.remove_prefix(matches ? 1 : 0);
    return matches;
}

/// Whether the whole text is a number by JSON's grammar.
bool isNumber(std::string_view text)
{
    passOne(text, "-");
    if (!passOne(text, "0") && !passDigits(text)) {
        return false;
    }
    if (passOne(text, ".") && !passDigits(text)) {
        return false;
    }
    if (passOne(text, "eE")) {
        passOne(text, "+-");
        if (!passDigits(text)) {
            return false;
        }
    }
    return text.empty();
}

bool isInfinite(std::string_view number)
{
    // Of Qt's conversions, only the locale's tell too large from too small.
    const QByteArrayView text{number};
    return std::isinf(QLocale::c().toDouble(QString::fromLatin1(text)));
}

/// Just behind the closing quote of the text that opens here.
std::size_t endOfText(std::string_view json, std::size_t start)
{
    std::size_t index = start + 1;
    while (index < json.size() && json[index] != '"') {
        index += json[index] == '\\' ? 2 : 1;
    }
    return std::min(index + 1, json.size());
}

} // namespace

QByteArray OversizedNumbers::replacedByNull(QByteArrayView json)
{
    const std::string_view text{json.data(), static_cast<std::size_t>(json.size())};
    QByteArray result;
    result.reserve(json.size());
    for (std::size_t index = 0; index < text.size();) {
        std::size_t end = index + 1;
        bool oversized = false;
        if (text[index] == '"') {
            end = endOfText(text, index);
        } else if (text[index] == '-' || digits.find(text[index]) != std::string_view::npos) {
            end = std::min(text.find_first_not_of("+-.0123456789eE", index), text.size());
            const std::string_view number = text.substr(index, end - index);
            oversized = isNumber(number) && isInfinite(number);
        }
        result.append(oversized ? QByteArrayView{"null"}
                                : QByteArrayView{text.substr(index, end - index)});
        index = end;
    }
    return result;
}

} // namespace norvane
