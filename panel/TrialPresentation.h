// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/record/Trial.h"
#include "panel/Urgency.h"

#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

class Calendar;

/// What a row shows of its trial beyond the name; true at the moment it was made for.
struct TrialPresentation {
    Q_GADGET
    QML_VALUE_TYPE(trialPresentation)
    Q_PROPERTY(QString daysText MEMBER daysText)
    Q_PROPERTY(int urgency READ urgencyNumber)
    Q_PROPERTY(QString badgeSymbol MEMBER badgeSymbol)
    Q_PROPERTY(QString costText MEMBER costText)

public:
    [[nodiscard]] static TrialPresentation of(const Trial &trial, PointInTime now,
                                              const Calendar &calendar);

    /// For QML, which compares the enumerators as numbers.
    [[nodiscard]] int urgencyNumber() const noexcept { return static_cast<int>(urgency); }

    /// What a screen reader says of the trial of this name: "Acme, 5d left, $9.99".
    [[nodiscard]] QString sentence(const QString &name) const;

    qint64 daysRemaining = 0; ///< Whole calendar days, negative once the end is a day past.
    QString daysText;         ///< The same in words: "5d left".
    urgencies::Urgency urgency = urgencies::Urgency::Over;
    QString badgeSymbol;
    QString costText; ///< "· $9.99"; empty where there is nothing to pay.
};

} // namespace norvane
