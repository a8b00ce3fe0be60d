// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace norvane {

/// How an amount of money is written and read: as in the C locale, whatever the desktop's.
class Cost {
public:
    /// Exactly two decimals after a point, no grouping, rounded as printf rounds: 9.5 is "9.50".
    [[nodiscard]] static QString text(double cost);

    /// The number that the whole text is for strtod: digits with a point, a sign, an exponent, also
    /// hexadecimal, "inf" and "nan". Anything else, a blank or a comma anywhere included, is 0.
    [[nodiscard]] static double fromText(const QString &text);
};

} // namespace norvane
