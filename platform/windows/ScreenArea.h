// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>

namespace norvane {

/// A screen and what its panels leave of it, in one and the same kind of pixels.
struct ScreenArea {
    QRect whole;
    QRect work; ///< Inside `whole`.

    bool operator==(const ScreenArea &) const = default;
};

} // namespace norvane
