// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

#include <array>

namespace norvane {

/// One of the warnings that every trial gets before it ends.
struct Reminder {
    double leadTime; ///< Seconds before the end.
    QStringView identifierSuffix;
    QStringView title;
    QStringView text; ///< What follows the opening quote and the name in the body.

    /// All of them, in the order in which they are always handled.
    static const std::array<Reminder, 3> all;
};

} // namespace norvane
