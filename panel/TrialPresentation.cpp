// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/TrialPresentation.h"

#include "model/record/Cost.h"
#include "panel/Phrase.h"
#include "time/Calendar.h"

#include <QCoreApplication>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace norvane {

namespace {

/// Separates days and cost on the screen; not used for a screen reader, which would speak the dot.
constexpr QStringView separator = u"· $";

QString symbolFor(urgencies::Urgency urgency)
{
    switch (urgency) {
    case urgencies::Urgency::Over:
        return QStringLiteral("xmark");
    case urgencies::Urgency::Tomorrow:
        return QStringLiteral("exclamationmark.2");
    case urgencies::Urgency::Soon:
        return QStringLiteral("bell");
    case urgencies::Urgency::Relaxed:
        return QStringLiteral("checkmark");
    }
    Q_UNREACHABLE();
}

constexpr QChar firstStrongIsolate{0x2068};
constexpr QChar popIsolate{0x2069};

bool breaksLine(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= u'\t' && code <= u'\r') || (code >= 0x1c && code <= 0x1f) || code == 0x85 ||
           code == 0x2028 || code == 0x2029;
}

/// The first clusters of a text; all of it where it has no more than `mostClusters`.
///
/// Looks at the start of the text alone, however long the text is. A cluster can be of any length
/// too (a letter with a million accents), hence the second limit: the room for the text is so many
/// code units, and a cluster that goes beyond it is left out.
QString shortened(const QString &text)
{
    constexpr int most = TrialPresentation::mostClusters;
    constexpr qsizetype room = qsizetype{32} * most;
    if (text.size() <= most) {
        return text; // A cluster has at least one code unit.
    }
    QTextBoundaryFinder finder{QTextBoundaryFinder::Grapheme, text.left(room)};
    qsizetype end = 0; // Of all clusters but the last, whose place the ellipsis takes.
    for (int clusters = 1; clusters <= most; ++clusters) {
        const qsizetype next = finder.toNextBoundary();
        if (next == text.size()) {
            return text;
        }
        if (clusters == most || next < 0 || next == room) {
            break;
        }
        end = next;
    }
    return text.left(end) + u'…';
}

/// The text on one line: a blank for each line break and tab.
QString onOneLine(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    std::ranges::replace_if(text, breaksLine, u' ');
    return text;
}

/// The text between marks that isolate it from the direction of the text around it.
QString isolated(const QString &text)
{
    QString result{firstStrongIsolate};
    int open = 0;
    for (const QChar character : text) {
        if (character == popIsolate) {
            if (open == 0) {
                continue; // It would end the isolation before the text does.
            }
            --open;
        } else if (character.unicode() >= 0x2066 && character <= firstStrongIsolate) {
            ++open;
        }
        result += character;
    }
    return result + QString{open + 1, popIsolate};
}

} // namespace

TrialPresentation TrialPresentation::of(const Trial &trial, PointInTime now,
                                        const Calendar &calendar)
{
    const qint64 days = calendar.wholeDays(now, trial.endDate).value_or(0);
    const urgencies::Urgency urgency = urgencies::of(days);
    const QString name = spoken(trial.name);
    const int number = Phrase::pluralNumber(days);
    //: How many days a trial has left, as short as can be; %lld is their number, also a negative
    //: one.
    const QString left = QCoreApplication::translate("TrialRow", "%lldd left", nullptr, number);
    return {.shownName = isolated(name),
            .spokenName = name,
            .daysRemaining = days,
            .daysText = Phrase::with(left, QString::number(days)),
            .urgency = urgency,
            .badgeSymbol = symbolFor(urgency),
            .costText = trial.cost > 0 ? separator.toString() + Cost::text(trial.cost) : QString{}};
}

QString TrialPresentation::spoken(const QString &name)
{
    return onOneLine(shortened(name));
}

QString TrialPresentation::sentence() const
{
    const QString words = spokenName + u", " + daysText;
    return costText.isEmpty() ? words : words + u", $" + costText.sliced(separator.size());
}

} // namespace norvane
