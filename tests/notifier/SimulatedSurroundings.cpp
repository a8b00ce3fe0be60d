// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

// What happens around the centres in the simulated world: Norvane's plan, the notification servers,
// time; and the comparison with the model.

#include "model/record/Trial.h"
#include "reminders/ReminderSchedule.h"
#include "tests/notifier/SimulatedWorld.h"

#include <QUuid>

#include <iterator>
#include <utility>

namespace norvane::simulation {

Key keyOf(const NotificationRequest &request)
{
    const WallClockMinute &at = request.trigger;
    const std::chrono::sys_days day = std::chrono::year{at.year} /
                                      std::chrono::month{static_cast<unsigned>(at.month)} /
                                      std::chrono::day{static_cast<unsigned>(at.day)};
    return {request.identifier,
            qint64{day.time_since_epoch().count()} * 1'440 + qint64{at.hour} * 60 + at.minute};
}

/// Norvane starts.
void SimulatedWorld::plan(Centre &centre)
{
    centre.client.removeAllPendingNotificationRequests();
    for (const QString &id : centre.trials) {
        planTrial(centre, id);
    }
}

void SimulatedWorld::planTrial(Centre &centre, const QString &id)
{
    Trial trial;
    trial.id = QUuid::fromString(id);
    trial.endDate = PointInTime::fromUnixSeconds(static_cast<double>(ends_[id]));
    std::size_t call = centre.client.calls.size();
    const QStringList planned = ReminderSchedule{clock_, centre.client}.plan(trial);
    QStringList expected;
    for (const auto &[lead, hours] : {std::pair{"-3d", 72}, {"-24h", 24}, {"-1h", 1}}) {
        const qint64 fires = ends_[id] - qint64{hours} * 3'600;
        if (fires > clock_.seconds && call < centre.client.calls.size()) {
            expected << id + QLatin1StringView{lead};
            const Key asked = keyOf(std::get<AddRequest>(centre.client.calls[call++]).request);
            expect(asked == Key{expected.last(), (fires + clock_.east) / 60},
                   "a reminder is asked for at its minute");
        }
    }
    expect(planned == expected && call == centre.client.calls.size(),
           "the reminders that lie ahead are planned, and no others");
}

/// Calls without an answer are sent again, less the requests that were withdrawn since.
void WorldClient::takeBack()
{
    QStringList withdrawn;
    bool isAllWithdrawn = false;
    std::deque<Change> kept;
    for (; !calls.empty(); calls.pop_back()) {
        const Change &call = calls.back();
        const auto *const addition = std::get_if<AddRequest>(&call);
        if (addition != nullptr &&
            (isAllWithdrawn || withdrawn.contains(addition->request.identifier))) {
            continue;
        }
        if (const auto *const some = std::get_if<RemoveRequests>(&call)) {
            withdrawn += some->identifiers;
        }
        isAllWithdrawn = isAllWithdrawn || std::holds_alternative<RemoveAllRequests>(call);
        kept.push_front(call);
    }
    calls = std::move(kept);
}

void SimulatedWorld::addTrial(Centre &centre)
{
    const QString id = QStringLiteral("%1").arg(ends_.size(), 8, 10, QLatin1Char{'0'}) +
                       QStringLiteral("-0000-4000-8000-000000000000");
    centre.trials << id;
    ends_[id] = clock_.seconds + qint64{3'600} * upTo(96); // Several end at the same time.
    planTrial(centre, id);
}

void SimulatedWorld::withdrawTrial(Centre &centre)
{
    if (centre.trials.isEmpty()) {
        return;
    }
    const QString id = centre.trials.takeAt(upTo(static_cast<int>(centre.trials.size()) - 1));
    centre.client.removePendingNotificationRequests({id + u"-3d", id + u"-24h", id + u"-1h"});
}

// Servers.

void SimulatedWorld::answer(Centre &centre)
{
    const std::optional<NotificationRequest> given = std::exchange(centre.server.offered, {});
    if (!given) {
        return;
    }
    // Some trials are refused by most servers, some make them crash, some make them hang.
    const int trial = given->identifier.first(8).toInt();
    const bool isUnlucky = !oneIn(4);
    const int fate = isUnlucky && trial % 4 == 1   ? 0
                     : isUnlucky && trial % 7 == 3 ? 1
                     : isUnlucky && trial % 5 == 2 ? 2
                                                   : upTo(9);
    using enum NotificationServer::Failure;
    switch (fate) {
    case 0:
        centre.model.refused();
        emit centre.server.failed(Refused);
        break;
    case 1:
        show(centre, keyOf(*given));
        mayComeAgain_.insert(keyOf(*given));
        centre.server.unanswered.clear();
        centre.model.serverWent();
        emit centre.server.disappeared();
        centre.model.diedOfIt();
        emit centre.server.failed(Died);
        break;
    case 2:
        mayComeAgain_.insert(keyOf(*given));
        centre.server.unanswered.push_back(*given);
        centre.model.notAnswered();
        emit centre.server.failed(Unanswered);
        break;
    case 3:
        centre.model.serverGone();
        emit centre.server.failed(Unavailable);
        break;
    case 4:
        show(centre, keyOf(*given));
        mayComeAgain_.insert(keyOf(*given));
        kill(centre); // Before it heard the answer.
        break;
    default:
        show(centre, keyOf(*given));
        centre.model.taken(keyOf(*given));
        emit centre.server.shown(*given);
    }
}

void SimulatedWorld::answerLate(Centre &centre)
{
    auto &unanswered = centre.server.unanswered;
    if (unanswered.empty()) {
        return;
    }
    const NotificationRequest late = unanswered.front();
    unanswered.erase(unanswered.begin());
    if (centre.server.offered && keyOf(*centre.server.offered) == keyOf(late)) {
        centre.server.offered.reset();
    }
    show(centre, keyOf(late));
    centre.model.taken(keyOf(late));
    emit centre.server.shown(late);
}

void SimulatedWorld::changeServer(Centre &centre)
{
    centre.server.unanswered.clear();
    centre.model.serverWent();
    emit centre.server.disappeared();
    centre.model.serverCame();
    emit centre.server.appeared();
}

// Time.

void SimulatedWorld::pass(qint64 seconds)
{
    clock_.seconds += seconds;
    for (Centre &centre : centres_) {
        centre.model.setTime(clock_.seconds);
        if (centre.isRunning() && centre.alarm.moment &&
            centre.alarm.moment->time_since_epoch().count() <= clock_.seconds) {
            emit centre.alarm.fired();
            centre.model.minuteCame();
        }
    }
}

void SimulatedWorld::setClock()
{
    clock_.seconds += 60 * (upTo(4'320) - 2'160) + upTo(59);
    excuseAll();
    for (Centre &centre : centres_) {
        centre.model.setTime(clock_.seconds);
        if (centre.isRunning()) {
            emit centre.alarm.clockSet();
            centre.model.lookAnew();
        }
    }
}

void SimulatedWorld::travel()
{
    clock_.east = qint64{1'800} * (upTo(40) - 20);
    excuseAll(); // The same identifier is asked for another minute.
    emit zone_.changed();
    for (Centre &centre : centres_) {
        centre.model.setOffset(clock_.east);
        if (centre.isRunning()) {
            centre.model.lookAnew();
        }
    }
}

// What must hold.

/// Each bus has its own screen, as far as is looked at here.
void SimulatedWorld::show(const Centre &centre, const Key &key)
{
    expect(shown_.insert({&centre, key}).second || mayComeAgain_.contains(key),
           "nothing is shown twice");
}

void SimulatedWorld::excuseAll()
{
    for (const auto &[centre, key] : shown_) {
        mayComeAgain_.insert(key);
    }
}

void SimulatedWorld::expect(bool isTrue, const char *what)
{
    if (!isTrue) {
        wrong_ << QStringLiteral("not so: ") + QString::fromLatin1(what);
    }
}

void SimulatedWorld::compare(Centre &centre)
{
    const ReminderModel::Memory &memory = centre.model.memory;
    std::set<Key> pending;
    std::vector<Key> waiting;
    const std::optional<std::vector<NotificationRequest>> requests = centre.ledger->pending();
    expect(requests.has_value(), "what is pending can be read");
    for (const NotificationRequest &request :
         requests.value_or(std::vector<NotificationRequest>{})) {
        pending.insert(keyOf(request));
    }
    std::ignore = centre.ledger->firstInOutbox([&](const OutboxEntry &entry) {
        waiting.push_back(keyOf(entry.request));
        return false;
    });
    std::set<Key> modelPending;
    std::optional<qint64> earliest;
    for (const ReminderModel::Entry &entry : memory.pending) {
        if (!entry.lapsed) {
            modelPending.insert(entry.key);
            earliest = std::min(entry.due, earliest.value_or(entry.due));
        }
    }
    std::vector<Key> modelWaiting;
    std::ranges::transform(memory.outbox, std::back_inserter(modelWaiting),
                           &ReminderModel::Entry::key);
    const auto &offered = centre.server.offered;
    expect(pending == modelPending, "what is pending is what should be");
    expect(waiting == modelWaiting, "what waits for the server is what should, in order");
    expect(centre.ledger->count() == std::ssize(memory.pending) + std::ssize(memory.outbox),
           "what lapsed is kept, and nothing else");
    expect(centre.alarm.moment == (earliest
                                       ? std::chrono::sys_seconds{std::chrono::seconds{*earliest}}
                                       : std::chrono::sys_seconds::max()),
           "it wakes up for the earliest");
    expect((offered ? std::optional{keyOf(*offered)} : std::nullopt) == centre.model.offered,
           "the server has the one whose turn it is");
}

} // namespace norvane::simulation
