// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/record/Trial.h"
#include "platform/Platform.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <filesystem>

namespace norvane {

/// The one owner of the list of trials: loads it, saves it after every change, keeps its
/// reminders planned.
///
/// Lives on the main thread. The list keeps the order of the file, with additions at the end;
/// nothing sorts it. Failures of the file are silent: an unreadable one is an empty list, and is
/// overwritten at once; after a failed save the list in memory is ahead of the file until a later
/// save succeeds.
class TrialStore final : public QObject {
    Q_OBJECT

public:
    /// Reads the file and plans all reminders anew, which also rewrites the file. Stops the process
    /// when the user has no folder for application data at all.
    explicit TrialStore(Platform platform, QObject *parent = nullptr);

    /// The trials in display order.
    [[nodiscard]] const QList<Trial> &trials() const noexcept { return trials_; }
    /// How many trials have not ended yet; counted at each call.
    [[nodiscard]] int activeCount() const;

    /// Appends a new trial and plans its reminders. Nothing is checked: an empty name, any cost and
    /// a past end are kept as they are.
    Q_INVOKABLE void add(const QString &name, norvane::PointInTime endDate, double cost,
                         const QString &notes);
    /// Removes every trial with this one's `id`, and in the background withdraws the reminders that
    /// this value (not the one in the list) carries. What was delivered already stays on screen.
    Q_INVOKABLE void delete_(const norvane::Trial &trial);

signals:
    /// Comes before every change of the list; read the new list after the change.
    void objectWillChange();

private:
    void save() const;
    void scheduleAllNotifications();
    [[nodiscard]] QStringList scheduleNotifications(const Trial &trial) const;

    Platform platform_;
    QList<Trial> trials_;
    std::filesystem::path saveURL_; ///< The trials file; set once.
};

} // namespace norvane
