// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/notifier/SimulatedWorld.h"

#include <QDir>
#include <QFile>

namespace norvane::simulation {

namespace {

using namespace std::chrono_literals;

void apply(ReminderModel &model, const std::vector<Change> &changes)
{
    model.beginBurst();
    for (const Change &change : changes) {
        if (const auto *const addition = std::get_if<AddRequest>(&change)) {
            model.add(keyOf(addition->request));
        } else if (const auto *const some = std::get_if<RemoveRequests>(&change)) {
            model.remove(some->identifiers);
        } else {
            model.removeAll();
        }
    }
    model.endBurst();
}

} // namespace

SimulatedWorld::SimulatedWorld(unsigned seed) : chance_{seed}, hasPauses_{seed % 2 == 1}
{
    clock_.seconds = 1'800'000'000;
    for (Centre &centre : centres_) {
        for (int i = 0; i < 3; ++i) {
            addTrial(centre);
        }
    }
}

SimulatedWorld::~SimulatedWorld()
{
    for (Centre &centre : centres_) {
        kill(centre);
    }
}

QString SimulatedWorld::step()
{
    using Action = void (SimulatedWorld::*)(Centre &);
    struct Choice {
        const char *name;
        int weight;
        Action action;
    };
    static constexpr std::array<Choice, 12> choices{{
        {"calls", 30, &SimulatedWorld::passCalls},
        {"answer", 30, &SimulatedWorld::answer},
        {"late answer", 5, &SimulatedWorld::answerLate},
        {"other server", 8, &SimulatedWorld::changeServer},
        {"plan", 4, &SimulatedWorld::plan},
        {"new trial", 8, &SimulatedWorld::addTrial},
        {"withdrawn trial", 3, &SimulatedWorld::withdrawTrial},
        {"killed", 3, &SimulatedWorld::kill},
        {"ended", 3, &SimulatedWorld::end},
        {"back to disk", 3, &SimulatedWorld::goBackToDisk},
        {"file lost", 1, &SimulatedWorld::loseFile},
        {"time", 40, nullptr},
    }};
    Centre &centre = centres_[oneIn(5) ? 1 : 0];
    if (!centre.isRunning() && (&centre == centres_.data() || oneIn(4))) {
        history_ << QStringLiteral("start");
        if (oneIn(8)) {
            spoilFile();
        }
        start(centre);
    } else {
        int left = upTo(137);
        const Choice *choice = choices.data();
        for (; left >= choice->weight; ++choice) {
            left -= choice->weight;
        }
        history_ << QString::fromLatin1(choice->name);
        if (choice->action == nullptr) {
            const int kind = upTo(9);
            kind == 0   ? setClock()
            : kind == 1 ? travel()
                        : pass(kind < 6 ? upTo(180) : upTo(kind < 9 ? 7'200 : 200'000));
        } else if (centre.isRunning() || choice->action == &SimulatedWorld::addTrial) {
            (this->*choice->action)(centre);
        }
    }
    for (Centre &one : centres_) {
        if (one.isRunning()) {
            lookAtDisk(one);
            if (&one == &centre || oneIn(5)) { // Looking takes longer than most that can happen.
                compare(one);
            }
        }
    }
    return wrong_.join(QStringLiteral("; "));
}

// Processes.

void SimulatedWorld::start(Centre &centre)
{
    centre.ledger = std::make_unique<Ledger>(folder_);
    expect(centre.ledger->open(0ms), "the ledger opens");
    centre.scheduler = std::make_unique<Scheduler>(*centre.ledger, centre.alarm, zone_, clock_);
    centre.courier =
        std::make_unique<Courier>(*centre.ledger, centre.server, clock_,
                                  hasPauses_ ? Courier::Pauses{1h, 1h} : Courier::Pauses{0ms, 0ms});
    QObject::connect(centre.scheduler.get(), &Scheduler::outboxChanged, centre.courier.get(),
                     [this, &centre] {
                         clock_.looksUntilDeath = 0; // The transaction is over.
                         fullDisk_.reset();
                         centre.courier->deliver();
                     });
    centre.model = ReminderModel{hasPauses_};
    centre.isFileLost = false;
    centre.heldAll = false;
    centre.wasOnDisk = centre.ledger->isOnDisk();
    expect(centre.wasOnDisk == (holder_ == nullptr), "only one has the file");
    if (centre.wasOnDisk) {
        holder_ = &centre;
        centre.model.memory = file_;
    } else {
        excuseAll(); // It cannot know what the other one has shown.
    }
    centre.model.setTime(clock_.seconds);
    centre.model.setOffset(clock_.east);
    centre.scheduler->start();
    centre.model.lookAnew();
}

void SimulatedWorld::kill(Centre &centre)
{
    if (!centre.isRunning()) {
        return;
    }
    if (!centre.wasOnDisk || centre.isFileLost) {
        excuseAll();
    }
    centre.courier.reset();
    centre.scheduler.reset();
    centre.ledger.reset();
    centre.server.offered.reset();
    centre.server.unanswered.clear();
    if (holder_ == &centre) {
        holder_ = nullptr;
    }
    centre.client.takeBack();
}

void SimulatedWorld::end(Centre &centre)
{
    centre.courier->hold();
    goBackToDisk(centre);
    centre.ledger->checkFile();
    lookAtDisk(centre);
    if (!centre.wasOnDisk) {
        const bool isFile = QFile::exists(fileName());
        const bool isDone = centre.ledger->handOver();
        expect(isDone == isFile, "what is held in memory is handed over");
        if (isDone) {
            handOn(centre);
        }
    }
    kill(centre);
}

/// To the file, and to the centre that uses it.
void SimulatedWorld::handOn(Centre &centre)
{
    ReminderModel::merge(file_, centre.model.memory);
    centre.wasOnDisk = true; // Nothing is lost with this process.
    Centre &heir = other(centre);
    if (!heir.isRunning()) {
        return;
    }
    heir.heldAll = false;
    if (heir.wasOnDisk) {
        heir.model.memory = file_;
    }
    heir.scheduler->start();
    heir.model.lookAnew();
}

// The disk.

void SimulatedWorld::goBackToDisk(Centre &centre)
{
    if (centre.wasOnDisk) {
        return;
    }
    const bool isFree = holder_ == nullptr || holder_ == &centre;
    centre.scheduler->goBackToDisk();
    expect(centre.ledger->isOnDisk() == isFree, "it goes back to the disk when it can");
    if (!isFree) {
        centre.heldAll = false;
        return;
    }
    holder_ = &centre;
    centre.wasOnDisk = true;
    if (!centre.heldAll) {
        ReminderModel::merge(file_, centre.model.memory);
        centre.model.memory = file_;
    }
    centre.model.lookAnew();
    lookAtDisk(centre);
}

/// The file holds what the centre knows, unless it has just left the disk.
void SimulatedWorld::lookAtDisk(Centre &centre)
{
    const bool isOnDisk = centre.ledger->isOnDisk();
    if (centre.isFileLost && QFile::exists(fileName())) {
        centre.isFileLost = false; // It noticed; or another centre was quicker.
        holder_ = holder_ == nullptr ? &centre : holder_;
        centre.heldAll = false;
    } else if (centre.wasOnDisk && !isOnDisk) {
        centre.heldAll = true;
    }
    centre.wasOnDisk = isOnDisk;
    if (isOnDisk && !centre.isFileLost) {
        file_ = centre.model.memory;
    }
}

void SimulatedWorld::loseFile(Centre &centre)
{
    if (!centre.wasOnDisk || other(centre).isRunning()) {
        return;
    }
    if (oneIn(2)) {
        QFile::remove(fileName());
    } else {
        QDir{folder_}.removeRecursively();
    }
    centre.isFileLost = true;
    file_ = {};
    // The centre notices before anything else happens.
    centre.ledger->checkFile();
    expect(centre.ledger->isOnDisk(), "a lost file is written anew");
}

/// Only while nobody runs.
void SimulatedWorld::spoilFile()
{
    if (centres_[0].isRunning() || centres_[1].isRunning()) {
        return;
    }
    QDir{}.mkpath(folder_);
    QFile::remove(fileName() + u"-wal"); // Otherwise all of it may be found there.
    QFile file{fileName()};
    expect(file.open(QFile::WriteOnly), "the file can be spoilt");
    file.write("no database at all");
    file_ = {};
    excuseAll();
}

// Calls.

void SimulatedWorld::passCalls(Centre &centre)
{
    auto &calls = centre.client.calls;
    const std::vector<Change> burst(calls.begin(),
                                    calls.begin() + upTo(static_cast<int>(calls.size())));
    const int fate = upTo(9);
    goBackToDisk(centre);
    bool isKilled = fate == 0;
    try {
        fullDisk_.emplace(fate == 1);
        clock_.looksUntilDeath = isKilled && centre.wasOnDisk ? 1 + upTo(4) : 0;
        const std::vector<Scheduler::Outcome> outcomes = centre.scheduler->apply(burst);
        clock_.looksUntilDeath = 0;
        apply(centre.model, burst);
        for (const Scheduler::Outcome outcome : outcomes) {
            expect((outcome == Scheduler::Outcome::Durable) == centre.ledger->isOnDisk(),
                   "the answer says whether it is on the disk");
        }
    } catch (const Killed &) {
        fullDisk_.reset();
        kill(centre);
        return;
    }
    lookAtDisk(centre);
    expect(centre.wasOnDisk || fate == 1 || (holder_ != nullptr && holder_ != &centre),
           "it is on the disk when it can");
    if (isKilled) {
        kill(centre); // Before it could answer.
    } else {
        calls.erase(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(burst.size()));
    }
}

} // namespace norvane::simulation
