// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/FormatLocale.h"

namespace norvane {

QLocale formatLocale()
{
    for (const char *const variable : {"LC_ALL", "LC_TIME", "LANG"}) { // The first that is set.
        if (const QString name = qEnvironmentVariable(variable); !name.isEmpty()) {
            return QLocale{name};
        }
    }
    return QLocale{};
}

} // namespace norvane
