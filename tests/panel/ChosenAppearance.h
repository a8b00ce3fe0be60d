// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Appearance.h"

namespace norvane {

/// The appearance that a test chooses in place of the user.
class ChosenAppearance final : public Appearance {
public:
    explicit ChosenAppearance(const Preferences &preferences) : preferences_{preferences} {}
    explicit ChosenAppearance(ColorScheme scheme) : preferences_{.colorScheme = scheme} {}

    [[nodiscard]] Preferences preferences() const override { return preferences_; }
    void choose(const Preferences &preferences)
    {
        preferences_ = preferences;
        emit changed();
    }
    void choose(ColorScheme scheme) { choose(Preferences{.colorScheme = scheme}); }

private:
    Preferences preferences_;
};

} // namespace norvane
