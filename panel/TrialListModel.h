// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/record/Trial.h"
#include "platform/Platform.h"
#include "time/Calendar.h"
#include "time/PointInTime.h"

#include <QAbstractListModel>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

class Clock;
class TrialStore;

/// The rows of the list: the store's trials in the store's order, one row for each `id`.
///
/// Changes only in a rebuild, and there row by row, so that a view keeps its scroll position. Until
/// the next rebuild every row shows what was true at the last one, even if the view reads it later.
/// If several trials share an `id`, their one row shows the first.
class TrialListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by PanelContent")

public:
    enum Role {
        TrialRole = Qt::UserRole, ///< Trial
        PresentationRole,         ///< TrialPresentation, as of the last rebuild
        // For a screen reader:
        SentenceRole = Qt::AccessibleTextRole,     ///< The name, the days left and the cost.
        PlaceRole = Qt::AccessibleDescriptionRole, ///< "3 of 12".
    };

    /// Borrows the store and the platform's clock.
    TrialListModel(const TrialStore &store, const Platform &platform);

    /// Updates every row for the current time.
    void redraw();
    /// Takes over the store's current list; call redraw() afterwards.
    void takeOverTrials();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void dropMissing(const QList<Trial> &wanted);
    [[nodiscard]] QString place(int row) const;

    const TrialStore &store_;
    const Clock &clock_;
    QList<Trial> rows_;
    PointInTime asOf_;
    Calendar calendar_; ///< The user's, as of that moment.
};

} // namespace norvane
