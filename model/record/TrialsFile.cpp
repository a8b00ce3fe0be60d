// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/TrialsFile.h"

#include "model/record/CLocale.h"
#include "model/record/TrialsReader.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

namespace norvane {

namespace {

using Json = nlohmann::ordered_json;

/// Up to here every whole double is also exact as a 64-bit integer.
constexpr double largestExactInteger = 9'007'199'254'740'992.0;

/// A whole number as an integer, which is written without a fraction; -0 has no integer form.
Json number(double value)
{
    const bool negativeZero = value == 0 && std::signbit(value);
    if (!negativeZero && std::abs(value) <= largestExactInteger && std::trunc(value) == value) {
        return static_cast<qint64>(value);
    }
    return value;
}

Json texts(const QStringList &list)
{
    Json array = Json::array();
    for (const QString &text : list) {
        array.push_back(text.toStdString());
    }
    return array;
}

std::string object(const Trial &trial)
{
    // Member by member: a list of them in braces would copy each value, which takes most of the
    // time that saving a long list needs.
    Json members = Json::object();
    members.emplace("id", trial.idText().toStdString());
    members.emplace("name", trial.name.toStdString());
    members.emplace("endDate", number(trial.endDate.secondsSinceReference()));
    members.emplace("cost", number(trial.cost));
    members.emplace("notes", trial.notes.toStdString());
    members.emplace("createdAt", number(trial.createdAt.secondsSinceReference()));
    members.emplace("notificationIds", texts(trial.notificationIds));
    return members.dump();
}

bool isWritable(const Trial &trial)
{
    return std::isfinite(trial.cost) && std::isfinite(trial.endDate.secondsSinceReference()) &&
           std::isfinite(trial.createdAt.secondsSinceReference());
}

/// Whether the whole text is a number by JSON's grammar that is too large for a double.
bool isTooLarge(std::string_view number)
{
    TrialsReader reader;
    return !Json::sax_parse(number, &reader) && reader.tooLargeNumber() == number;
}

/// The position just behind the closing quote of the string that opens at `start`.
std::size_t endOfString(std::string_view json, std::size_t start)
{
    constexpr std::string_view quoteOrBackslash = "\"\\";
    std::size_t index = json.find_first_of(quoteOrBackslash, start + 1);
    while (index != std::string_view::npos && json[index] == '\\') {
        index = json.find_first_of(quoteOrBackslash, index + 2);
    }
    return index == std::string_view::npos ? json.size() : index + 1;
}

/// The text with null in the place of each number that is too large for a double, such as 1e999.
///
/// The JSON library gives up on such a number even in a member that is ignored, where it does no
/// harm. No member of a trial accepts null, so everywhere else the file is still refused. Text that
/// is not JSON is not JSON afterwards either.
QByteArray withoutTooLargeNumbers(std::string_view json)
{
    constexpr std::string_view digits = "0123456789";
    QByteArray result;
    result.reserve(static_cast<qsizetype>(json.size()));
    for (std::size_t index = 0; index < json.size();) {
        std::size_t end = index + 1;
        bool tooLarge = false;
        if (json[index] == '"') {
            end = endOfString(json, index);
        } else if (json[index] == '-' || digits.find(json[index]) != std::string_view::npos) {
            end = std::min(json.find_first_not_of("+-.0123456789eE", index), json.size());
            tooLarge = isTooLarge(json.substr(index, end - index));
        }
        result.append(tooLarge ? QByteArrayView{"null"}
                               : QByteArrayView{json.substr(index, end - index)});
        index = end;
    }
    return result;
}

} // namespace

std::optional<QByteArray> TrialsFile::encode(const QList<Trial> &trials)
{
    if (!std::ranges::all_of(trials, isWritable)) {
        return std::nullopt;
    }
    // One after the other: a document of all of them would need many times the memory.
    QByteArray text = QByteArrayLiteral("[");
    for (const Trial &trial : trials) {
        if (text.size() > 1) {
            text.append(',');
        }
        text.append(object(trial));
    }
    // A solidus can only stand inside a text, where this is its escaped form.
    return text.append(']').replace('/', "\\/");
}

std::optional<QList<Trial>> TrialsFile::decode(QByteArrayView bytes)
{
    // The library takes a NUL for the end of its input.
    if (bytes.contains('\0')) {
        return std::nullopt;
    }
    const CLocale locale;
    TrialsReader reader;
    if (Json::sax_parse(bytes.begin(), bytes.end(), &reader)) {
        return reader.takeTrials();
    }
    if (reader.tooLargeNumber().empty()) {
        return std::nullopt;
    }
    const QByteArray json =
        withoutTooLargeNumbers({bytes.data(), static_cast<std::size_t>(bytes.size())});
    TrialsReader secondReader;
    if (Json::sax_parse(json.begin(), json.end(), &secondReader)) {
        return secondReader.takeTrials();
    }
    return std::nullopt;
}

} // namespace norvane
