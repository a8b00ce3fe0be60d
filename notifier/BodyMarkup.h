// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace norvane {

/// Escapes a plain text for a server that reads the body as markup, so that exactly this text is
/// shown.
///
/// Control characters that XML cannot hold become U+FFFD: one of them would make the server's
/// parser give up the whole text.
[[nodiscard]] QString asMarkup(const QString &text);

} // namespace norvane
