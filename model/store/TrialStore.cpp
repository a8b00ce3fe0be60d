// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/store/TrialStore.h"

#include "model/record/TrialsFile.h"
#include "platform/BackgroundTasks.h"
#include "platform/Clock.h"
#include "platform/Folders.h"
#include "platform/NotificationCenter.h"
#include "reminders/ReminderSchedule.h"
#include "time/CalendarSource.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <cstdlib>

namespace norvane {

namespace {

/// Not a pipe or a device: opening or reading one of these may never end.
bool isOrdinary(const QFile &file)
{
    const QFileInfo info{file};
    return info.isFile() || !info.exists();
}

} // namespace

TrialStore::TrialStore(const Platform &platform, QObject *parent)
    : QObject{parent},
      platform_{platform}
{
    const QStringList folders = platform_.folders.applicationSupportFolders();
    if (folders.isEmpty()) {
        std::abort();
    }
    const QDir folder{folders.first() + QStringLiteral("/Norvane")};
    folder.mkpath(QStringLiteral(".")); // Without it, reading and writing fail, silently too.
    saveURL_ = folder.filePath(QStringLiteral("trials.json"));
    load();
    scheduleAllNotifications();
}

int TrialStore::activeCount() const
{
    const auto isActive = [this](const Trial &trial) {
        return !(trial.endDate < platform_.clock.now());
    };
    return static_cast<int>(std::ranges::count_if(trials_, isActive));
}

void TrialStore::add(const QString &name, PointInTime endDate, double cost, const QString &notes)
{
    Trial trial = Trial::make(name, endDate, cost, notes, platform_.clock.now());
    trial.notificationIds = scheduleNotifications(trial);
    emit objectWillChange();
    trials_.append(trial);
    save();
}

void TrialStore::delete_(const Trial &trial)
{
    platform_.backgroundTasks.detach(
        [&center = platform_.notificationCenter, identifiers = trial.notificationIds] {
            center.removePendingNotificationRequests(identifiers);
        });
    emit objectWillChange();
    // By value: the argument may be an element of the list.
    trials_.removeIf([id = trial.id](const Trial &other) { return other.id == id; });
    save();
}

void TrialStore::load()
{
    QFile file{saveURL_};
    if (!isOrdinary(file) || !file.open(QIODevice::ReadOnly)) {
        return;
    }
    if (const auto trials = TrialsFile::decode(file.readAll())) {
        emit objectWillChange();
        trials_ = *trials;
    }
}

void TrialStore::save() const
{
    const auto bytes = TrialsFile::encode(trials_);
    if (!bytes) {
        return; // The file keeps what it had until the trial that cannot be written is gone.
    }
    // In place and in one write: the file stays the same file for links and watchers.
    QFile file{saveURL_};
    if (isOrdinary(file) &&
        file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        file.write(*bytes);
    }
}

void TrialStore::scheduleAllNotifications()
{
    platform_.notificationCenter.removeAllPendingNotificationRequests();
    const QList<Trial> snapshot = trials_;
    // By their bytes, whose hash is seeded: a file can hold any number of ids that hash alike.
    QHash<QByteArray, qsizetype> firstWithId;
    firstWithId.reserve(snapshot.size());
    for (qsizetype index = snapshot.size() - 1; index >= 0; --index) {
        firstWithId.insert(snapshot.at(index).id.toRfc4122(), index);
    }
    for (const Trial &trial : snapshot) {
        if (trial.endDate < platform_.clock.now()) {
            continue; // Ended: its stale identifiers stay.
        }
        const QStringList identifiers = scheduleNotifications(trial);
        emit objectWillChange();
        trials_[firstWithId.value(trial.id.toRfc4122())].notificationIds = identifiers;
    }
    save();
}

QStringList TrialStore::scheduleNotifications(const Trial &trial) const
{
    return ReminderSchedule{platform_.clock, platform_.calendars.current(),
                            platform_.notificationCenter}
        .plan(trial);
}

} // namespace norvane
