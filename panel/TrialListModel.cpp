// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/TrialListModel.h"

#include "model/store/TrialStore.h"
#include "panel/Phrase.h"
#include "panel/TrialPresentation.h"
#include "platform/Clock.h"

#include <QCoreApplication>
#include <QSet>

namespace norvane {

namespace {

QList<Trial> firstOfEachId(const QList<Trial> &trials)
{
    // Shares the store's list unless there is something to leave out.
    QList<Trial> firsts = trials;
    // Keyed by bytes, whose hash is seeded: otherwise a file with many ids of the same hash would
    // make this slow.
    QSet<QByteArray> seen;
    seen.reserve(trials.size());
    firsts.removeIf([&seen](const Trial &trial) {
        const qsizetype before = seen.size();
        seen.insert(trial.id.toRfc4122());
        return seen.size() == before;
    });
    return firsts;
}

} // namespace

TrialListModel::TrialListModel(const TrialStore &store, const Platform &platform)
    : store_{store},
      clock_{platform.clock},
      rows_{firstOfEachId(store.trials())},
      asOf_{clock_.now()},
      calendar_{clock_.calendar()}
{
}

void TrialListModel::redraw()
{
    asOf_ = clock_.now();
    calendar_ = clock_.calendar();
    if (!rows_.isEmpty()) {
        emit dataChanged(index(0), index(static_cast<int>(rows_.size()) - 1));
    }
}

void TrialListModel::takeOverTrials()
{
    const QList<Trial> wanted = firstOfEachId(store_.trials());
    dropMissing(wanted);
    // The remaining rows are in the store's order, since the store only removes and appends.
    const auto kept = static_cast<int>(rows_.size());
    const auto count = static_cast<int>(wanted.size());
    if (count > kept) {
        beginInsertRows({}, kept, count - 1);
        rows_ = wanted;
        endInsertRows();
    } else {
        rows_ = wanted;
    }
}

void TrialListModel::dropMissing(const QList<Trial> &wanted)
{
    auto next = wanted.cbegin();
    for (int row = 0; row < static_cast<int>(rows_.size());) {
        if (next != wanted.cend() && next->id == rows_.at(row).id) {
            ++next;
            ++row;
        } else {
            beginRemoveRows({}, row, row);
            rows_.removeAt(row);
            endRemoveRows();
        }
    }
}

int TrialListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant TrialListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const Trial &trial = rows_.at(index.row());
    switch (role) {
    case TrialRole:
        return QVariant::fromValue(trial);
    case PresentationRole:
        return QVariant::fromValue(TrialPresentation::of(trial, asOf_, calendar_));
    case SentenceRole:
        return TrialPresentation::of(trial, asOf_, calendar_).sentence();
    case PlaceRole:
        return place(index.row());
    default:
        return {};
    }
}

QString TrialListModel::place(int row) const
{
    //: The place of a trial in the list, as in "3 of 12": %@ is the place, %lld the size of the
    //: list.
    const QString ofAll = Phrase::with(QCoreApplication::translate("TrialRow", "%@ of %lld"),
                                       QString::number(rows_.size()));
    return Phrase::with(ofAll, QString::number(row + 1));
}

QHash<int, QByteArray> TrialListModel::roleNames() const
{
    return {{TrialRole, "trial"},
            {PresentationRole, "presentation"},
            {SentenceRole, "sentence"},
            {PlaceRole, "place"}};
}

} // namespace norvane
