// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Courier.h"
#include "notifier/Ledger.h"
#include "notifier/Scheduler.h"
#include "platform/Clock.h"
#include "platform/NotificationCenter.h"
#include "tests/notifier/FakeSurroundings.h"
#include "tests/notifier/ReminderModel.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <array>
#include <deque>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <vector>

namespace norvane::simulation {

[[nodiscard]] Key keyOf(const NotificationRequest &request);

/// Thrown out of a transaction: the process is killed there.
struct Killed {};

/// The time of all programs in the world. May kill the one that looks at it.
class WorldClock final : public Clock {
public:
    qint64 seconds = 0;
    qint64 east = 0;
    mutable int looksUntilDeath = 0; ///< 0: nobody dies.

    [[nodiscard]] PointInTime now() const override
    {
        if (looksUntilDeath > 0 && --looksUntilDeath == 0) {
            throw Killed{};
        }
        return PointInTime::fromUnixSeconds(static_cast<double>(seconds));
    }
    [[nodiscard]] Zone zone() const override { return QTimeZone{static_cast<int>(east)}; }
};

class WorldZone final : public LocalZone {
    Q_OBJECT

public:
    explicit WorldZone(const WorldClock &clock) : clock_{clock} {}
    [[nodiscard]] Zone zone() const override { return clock_.zone(); }

private:
    const WorldClock &clock_;
};

/// A notification server. Its answers are signals that the world sends.
class WorldServer final : public NotificationServer {
    Q_OBJECT

public:
    std::optional<NotificationRequest> offered; ///< What show() was given and nothing said about.
    std::vector<NotificationRequest>
        unanswered; ///< Given and given up, to the server that is there.

    void show(const NotificationRequest &request) override { offered = request; }
    [[nodiscard]] bool isShowing() const override { return false; }
    void setOnHold(bool /*on*/) override {}
};

/// Norvane's calls to one centre, kept until they are confirmed.
class WorldClient final : public NotificationCenter {
public:
    std::deque<Change> calls;

    /// After the death of the centre.
    void takeBack();

    void requestAuthorization(Options /*options*/) override {}
    void addNotificationRequest(const NotificationRequest &request) override
    {
        calls.emplace_back(AddRequest{request});
    }
    void removePendingNotificationRequests(const QStringList &identifiers) override
    {
        calls.emplace_back(RemoveRequests{identifiers});
    }
    void removeAllPendingNotificationRequests() override
    {
        calls.emplace_back(RemoveAllRequests{});
    }
};

/// Two session buses of one user with a notification centre on each, Norvane's plan, servers, a
/// disk and a clock, all of which go wrong; beside it the model of what each centre should do. Each
/// step compares the two.
class SimulatedWorld {
public:
    explicit SimulatedWorld(unsigned seed);
    ~SimulatedWorld();

    /// Does one thing, chosen at random. What was found wrong, or nothing.
    [[nodiscard]] QString step();
    /// The last steps, a word or two for each.
    [[nodiscard]] QString history() const
    {
        return history_.last(std::min<qsizetype>(40, history_.size())).join(QStringLiteral(", "));
    }

private:
    struct Centre {
        QStringList trials; ///< Their ids.
        WorldServer server;
        WorldClient client;
        FakeAlarm alarm;
        std::unique_ptr<Ledger> ledger; ///< Nothing while it does not run.
        std::unique_ptr<Scheduler> scheduler;
        std::unique_ptr<Courier> courier;
        ReminderModel model;
        bool heldAll = false;    ///< In memory, with all that was and is in the file.
        bool isFileLost = false; ///< Removed, and not written anew yet.
        bool wasOnDisk = false;

        [[nodiscard]] bool isRunning() const { return ledger != nullptr; }
    };

    [[nodiscard]] int upTo(int most) { return std::uniform_int_distribution{0, most}(chance_); }
    [[nodiscard]] bool oneIn(int many) { return upTo(many - 1) == 0; }
    [[nodiscard]] Centre &other(const Centre &centre)
    {
        return centres_[&centre == centres_.data() ? 1 : 0];
    }
    [[nodiscard]] QString fileName() const { return folder_ + u"/pending.sqlite"; }

    // What can happen.
    void start(Centre &centre);
    void kill(Centre &centre);
    void end(Centre &centre);
    void goBackToDisk(Centre &centre);
    void passCalls(Centre &centre);
    void answer(Centre &centre);
    void answerLate(Centre &centre);
    void changeServer(Centre &centre);
    void plan(Centre &centre);
    void planTrial(Centre &centre, const QString &id);
    void addTrial(Centre &centre);
    void withdrawTrial(Centre &centre);
    void loseFile(Centre &centre);
    void spoilFile();
    void pass(qint64 seconds);
    void setClock();
    void travel();

    void handOn(Centre &centre);
    void show(const Centre &centre, const Key &key);
    void excuseAll();
    void lookAtDisk(Centre &centre);
    void expect(bool isTrue, const char *what);
    void compare(Centre &centre);

    std::mt19937 chance_;
    const bool hasPauses_;
    /// In memory, where there is such a folder: it is written to very often.
    QTemporaryDir root_{(QFileInfo{QStringLiteral("/dev/shm")}.isWritable()
                             ? QStringLiteral("/dev/shm")
                             : QDir::tempPath()) +
                        u"/norvane-simulation"};
    QString folder_{root_.filePath(QStringLiteral("state"))};
    WorldClock clock_;
    WorldZone zone_{clock_};
    ReminderModel::Memory file_;       ///< What the file ought to hold.
    std::optional<FullDisk> fullDisk_; ///< During a transaction that finds no space.
    std::array<Centre, 2> centres_;
    Centre *holder_ = nullptr;       ///< Who has the lock on the folder.
    std::map<QString, qint64> ends_; ///< Of the trials.
    std::set<std::pair<const Centre *, Key>> shown_;
    std::set<Key> mayComeAgain_; ///< For a reason that nothing can be done about.
    QStringList history_;
    QStringList wrong_;
};

} // namespace norvane::simulation
