// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>

namespace norvane {

/// The locale in which the user wants days and times written; desktops let one choose it apart
/// from the language of the texts.
[[nodiscard]] QLocale formatLocale();

} // namespace norvane
