// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace norvane {

/// The body as a server that reads markup must be given it, so that it shows the very text.
///
/// Control characters that XML cannot hold become U+FFFD: one of them would make the server's
/// parser give up the whole text.
[[nodiscard]] QString asMarkup(const QString &text);

} // namespace norvane
