// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/LateRule.h"

#include <QString>

namespace norvane {

QStringView trialOf(QStringView identifier)
{
    const qsizetype hyphen = identifier.lastIndexOf(u'-');
    return hyphen < 0 ? identifier : identifier.first(hyphen);
}

std::chrono::seconds worthShowingFor(QStringView identifier)
{
    if (identifier.endsWith(QLatin1StringView{"-1h"})) {
        return std::chrono::hours{1};
    }
    if (identifier.endsWith(QLatin1StringView{"-3d"})) {
        return std::chrono::days{3};
    }
    return std::chrono::days{1};
}

bool isMissed(std::chrono::sys_seconds due, std::chrono::sys_seconds now)
{
    return due + std::chrono::minutes{1} <= now;
}

} // namespace norvane
