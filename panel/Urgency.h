// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane::urgencies {
Q_NAMESPACE
QML_NAMED_ELEMENT(Urgency)

/// How close the end of a trial is, which is what a row is coloured by.
enum class Urgency {
    Over,     ///< Less than a whole day is left, or it has ended.
    Tomorrow, ///< One whole day is left.
    Soon,     ///< Two or three.
    Relaxed,  ///< Four or more.
};
Q_ENUM_NS(Urgency)

/// The urgency of a number of whole days.
[[nodiscard]] constexpr Urgency of(qint64 daysRemaining) noexcept
{
    if (daysRemaining < 1) {
        return Urgency::Over;
    }
    if (daysRemaining == 1) {
        return Urgency::Tomorrow;
    }
    return daysRemaining <= 3 ? Urgency::Soon : Urgency::Relaxed;
}

} // namespace norvane::urgencies
