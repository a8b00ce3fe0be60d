// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/TrialsFile.h"

#include "model/record/OversizedNumbers.h"
#include "model/record/TrialsReader.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace norvane {

namespace {

using Json = nlohmann::ordered_json;

/// Up to here every whole double is also exact as a 64-bit integer.
constexpr double largestExactInteger = 9'007'199'254'740'992.0;

/// Whole numbers without a fraction, as people write them; -0 has no integer form.
Json number(double value)
{
    const bool negativeZero = value == 0 && std::signbit(value);
    if (!negativeZero && std::abs(value) < largestExactInteger && std::trunc(value) == value) {
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

QByteArray object(const Trial &trial)
{
    const Json members{{"id", trial.idText().toStdString()},
                       {"name", trial.name.toStdString()},
                       {"endDate", number(trial.endDate.secondsSinceReference())},
                       {"cost", number(trial.cost)},
                       {"notes", trial.notes.toStdString()},
                       {"createdAt", number(trial.createdAt.secondsSinceReference())},
                       {"notificationIds", texts(trial.notificationIds)}};
    // A solidus can only stand inside a text, where this is its escaped form.
    return QByteArray::fromStdString(members.dump()).replace('/', "\\/");
}

bool isWritable(const Trial &trial)
{
    return std::isfinite(trial.cost) && std::isfinite(trial.endDate.secondsSinceReference()) &&
           std::isfinite(trial.createdAt.secondsSinceReference());
}

} // namespace

std::optional<QByteArray> TrialsFile::encode(const QList<Trial> &trials)
{
    if (!std::ranges::all_of(trials, isWritable)) {
        return std::nullopt;
    }
    // One after the other: all of them as one document would weigh many times the text.
    QByteArray text = QByteArrayLiteral("[");
    for (const Trial &trial : trials) {
        if (text.size() > 1) {
            text.append(',');
        }
        text.append(object(trial));
    }
    return text.append(']');
}

std::optional<QList<Trial>> TrialsFile::decode(QByteArrayView bytes)
{
    // The library takes a NUL for the end of its input.
    if (bytes.contains('\0')) {
        return std::nullopt;
    }
    TrialsReader reader;
    if (Json::sax_parse(bytes.begin(), bytes.end(), &reader)) {
        return reader.takeTrials();
    }
    if (!reader.metOversizedNumber()) {
        return std::nullopt;
    }
    // It may stand in a member that is only read over: once more without it.
    const QByteArray json = OversizedNumbers::replacedByNull(bytes);
    TrialsReader secondReader;
    if (Json::sax_parse(json.begin(), json.end(), &secondReader)) {
        return secondReader.takeTrials();
    }
    return std::nullopt;
}

} // namespace norvane
