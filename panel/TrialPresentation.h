// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/record/Trial.h"
#include "panel/Urgency.h"

#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

class Calendar;

/// What the panel shows of a trial at one moment.
///
/// A name is any text: it may be megabytes long, hold line breaks, and run from right to left. Both
/// forms of it here are one line of at most `mostClusters` grapheme clusters (what a reader takes
/// for one character); a longer name ends in "…", and no cluster is cut in two.
struct TrialPresentation {
    Q_GADGET
    QML_VALUE_TYPE(trialPresentation)
    Q_PROPERTY(QString shownName MEMBER shownName)
    Q_PROPERTY(QString spokenName MEMBER spokenName)
    Q_PROPERTY(QString daysText MEMBER daysText)
    Q_PROPERTY(int urgency READ urgencyNumber)
    Q_PROPERTY(QString badgeSymbol MEMBER badgeSymbol)
    Q_PROPERTY(QString costText MEMBER costText)

public:
    static constexpr int mostClusters = 1000;

    [[nodiscard]] static TrialPresentation of(const Trial &trial, PointInTime now,
                                              const Calendar &calendar);

    /// For QML, which compares the enumerators as numbers.
    [[nodiscard]] int urgencyNumber() const noexcept { return static_cast<int>(urgency); }

    /// The name as a screen reader is to say it.
    [[nodiscard]] static QString spoken(const QString &name);

    /// What a screen reader says of the trial: "Acme, 5d left, $9.99".
    [[nodiscard]] QString sentence() const;

    /// The name to draw. It stands between U+2068 and U+2069, which keep a name from right to left
    /// from rearranging the words around it. Such marks inside the name are balanced, so that none
    /// takes effect outside it.
    QString shownName;
    /// For a screen reader: the same without the two marks, its own marks unchanged.
    QString spokenName;
    qint64 daysRemaining = 0; ///< Whole calendar days, negative once the end is a day past.
    QString daysText;         ///< The same in words: "5d left".
    urgencies::Urgency urgency = urgencies::Urgency::Over;
    QString badgeSymbol;
    QString costText; ///< "· $9.99"; empty where there is nothing to pay.
};

} // namespace norvane
