// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/store/TrialStore.h"

#include "model/record/TrialsFile.h"
#include "platform/BackgroundTasks.h"
#include "platform/Clock.h"
#include "platform/Folders.h"
#include "platform/NotificationCenter.h"
#include "reminders/ReminderSchedule.h"

#include <QFile>
#include <QHash>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <system_error>
#include <tuple>
#include <utility>

#include <fcntl.h>

namespace norvane {

namespace {

/// Opens a file by its path in bytes, which QFile cannot where they are not UTF-8. Fails on a pipe
/// or a device: opening or reading one of these could block forever.
bool open(QFile &file, const std::filesystem::path &path, int flags, QIODevice::OpenMode mode)
{
    std::error_code ignored;
    const std::filesystem::file_type type = std::filesystem::status(path, ignored).type();
    if (type != std::filesystem::file_type::regular &&
        type != std::filesystem::file_type::not_found) {
        return false;
    }
    constexpr mode_t lessUmask = 0666;
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, lessUmask);
    return descriptor >= 0 && file.open(descriptor, mode, QFileDevice::AutoCloseHandle);
}

/// The trials in the file; nothing when anything is in the way, also when the memory does not
/// suffice for what the file holds.
std::optional<QList<Trial>> trialsIn(const std::filesystem::path &path)
{
    try {
        QFile file;
        return open(file, path, O_RDONLY, QIODevice::ReadOnly) ? TrialsFile::decode(file.readAll())
                                                               : std::nullopt;
    } catch (const std::bad_alloc &) {
        return std::nullopt;
    }
}

} // namespace

TrialStore::TrialStore(Platform platform, QObject *parent)
    : QObject{parent},
      platform_{std::move(platform)}
{
    if (platform_.dataFolder.empty()) {
        std::abort();
    }
    const std::filesystem::path folder = platform_.dataFolder / "Norvane";
    std::ignore = makePrivateFolder(folder); // Without it, reading and writing fail, silently too.
    saveURL_ = folder / "trials.json";
    if (const auto trials = trialsIn(saveURL_)) {
        emit objectWillChange();
        trials_ = *trials;
    }
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

void TrialStore::save() const
{
    const auto bytes = TrialsFile::encode(trials_);
    if (!bytes) {
        return; // The file keeps what it had until the trial that cannot be written is gone.
    }
    // In place and in one write: the file stays the same file for links and watchers. A failure is
    // silent, and the next save writes everything anew.
    QFile file;
    if (open(file, saveURL_, O_WRONLY | O_CREAT | O_TRUNC,
             QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        file.write(*bytes);
    }
}

void TrialStore::scheduleAllNotifications()
{
    platform_.notificationCenter.removeAllPendingNotificationRequests();
    const QList<Trial> snapshot = trials_;
    // Keyed by the id's bytes, whose hash is seeded. Which QUuids hash alike can be predicted, so a
    // crafted file could put all ids into one bucket.
    QHash<QByteArray, qsizetype> firstWithId;
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
    return ReminderSchedule{platform_.clock, platform_.notificationCenter}.plan(trial);
}

} // namespace norvane
