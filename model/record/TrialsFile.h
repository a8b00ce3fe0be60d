// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/record/Trial.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <optional>

namespace norvane {

/// The format of the trials file: one compact JSON array with an object for each trial.
///
/// Pure functions over bytes; they touch no disk. Points in time are seconds since 2001-01-01
/// 00:00:00 UTC.
class TrialsFile {
public:
    /// The bytes of the file. Nothing at all when any number is NaN or infinite: JSON has no form
    /// for these, and a substitute would not read back.
    [[nodiscard]] static std::optional<QByteArray> encode(const QList<Trial> &trials);

    /// The trials in file order, or nothing when anything anywhere is not as it must be. There is
    /// no partial list.
    [[nodiscard]] static std::optional<QList<Trial>> decode(QByteArrayView bytes);
};

} // namespace norvane
