// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace norvane {

/// Numbers that JSON can write and no double can hold, such as 1e999.
///
/// The JSON library gives up on these wherever they stand, also in a member that is only read
/// over, where any value goes.
class OversizedNumbers {
public:
    /// The text with null in the place of each, which no member of a trial accepts. Text that is
    /// not JSON stays not JSON.
    [[nodiscard]] static QByteArray replacedByNull(QByteArrayView json);
};

} // namespace norvane
