// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Appearance.h"

namespace norvane {

/// A desktop as light or dark as a test wants it.
class ChosenAppearance final : public Appearance {
public:
    explicit ChosenAppearance(ColorScheme scheme) : scheme_{scheme} {}

    [[nodiscard]] ColorScheme colorScheme() const override { return scheme_; }
    void choose(ColorScheme scheme)
    {
        scheme_ = scheme;
        emit colorSchemeChanged();
    }

private:
    ColorScheme scheme_;
};

} // namespace norvane
