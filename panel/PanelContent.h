// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/store/TrialStore.h"
#include "panel/TrialListModel.h"
#include "panel/UserCalendar.h"
#include "platform/Platform.h"

#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

/// What the panel works on: the program's one store, and what of it is shown.
///
/// Everything shown that depends on the list or on the time is computed in a rebuild and stays as
/// it is until the next. Changes of the store and of what is entered ask for one; however many
/// a turn of the event loop brings, one rebuild follows them.
class PanelContent : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made at launch")
    Q_PROPERTY(norvane::TrialStore *store READ store CONSTANT FINAL)
    Q_PROPERTY(norvane::TrialListModel *trials READ trials CONSTANT FINAL)
    Q_PROPERTY(norvane::UserCalendar *calendar READ calendar CONSTANT FINAL)
    Q_PROPERTY(int activeCount READ activeCount NOTIFY rebuilt FINAL)

public:
    /// Makes the store, which loads the trials and plans their reminders. Borrows the platform;
    /// the locale is the one in which days and times are written.
    PanelContent(const Platform &platform, const QLocale &locale);

    [[nodiscard]] TrialStore *store() noexcept { return &store_; }
    [[nodiscard]] TrialListModel *trials() noexcept { return &trials_; }
    [[nodiscard]] UserCalendar *calendar() noexcept { return &calendar_; }
    /// The store's count as of the last rebuild.
    [[nodiscard]] int activeCount() const noexcept { return activeCount_; }

    /// Recomputes everything shown from the store and the current time.
    Q_INVOKABLE void rebuild();
    /// The same, once in the next turn of the event loop, however often it is asked for until then.
    Q_INVOKABLE void rebuildSoon();

    /// The end date that the form proposes: seven days from now.
    [[nodiscard]] Q_INVOKABLE norvane::PointInTime weekFromNow() const;
    /// A name as a screen reader is to say it.
    [[nodiscard]] Q_INVOKABLE static QString spoken(const QString &name);
    /// The cost that a text typed into the form stands for; 0 where it is no number.
    [[nodiscard]] Q_INVOKABLE static double cost(const QString &text);

signals:
    void rebuilt();

private:
    const Clock &clock_;
    TrialStore store_;
    TrialListModel trials_;
    UserCalendar calendar_;
    int activeCount_;
    bool storeChanged_ = false; ///< Since the rows were last taken over.
    bool rebuildPending_ = false;
};

} // namespace norvane
