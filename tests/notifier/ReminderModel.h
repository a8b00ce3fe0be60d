// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace norvane::simulation {

/// What is known of one reminder by identifier and minute. Minutes are counted on the wall, from
/// the first one of 1970 there.
using Key = std::pair<QString, qint64>;

/// What a notification centre ought to remember, and which reminder it ought to give to the server
/// next: the rules once more, in the plainest way, with nothing of the program's own code. All
/// times but minutes are seconds since 1970 UTC.
class ReminderModel {
public:
    struct Entry {
        Key key;
        qint64 due = 0;
        std::optional<qint64> lapsed;

        [[nodiscard]] QString trial() const { return key.first.section(u'-', 0, -2); }
        [[nodiscard]] qint64 end() const
        {
            const QString lead = key.first.section(u'-', -1);
            return due + qint64{3'600} * (lead == u"1h" ? 1 : lead == u"3d" ? 72 : 24);
        }
        [[nodiscard]] bool isMissed(qint64 now) const { return due + 60 <= now; }
    };
    /// What outlives the process.
    struct Memory {
        std::vector<Entry> pending; ///< Lapsed ones as well, in the order in which they came.
        std::vector<Entry> outbox;
        std::map<Key, qint64> delivered; ///< And when.
    };

    Memory memory;
    std::optional<Key> offered; ///< What the server has and has not answered.

    /// Without pauses a failed attempt is repeated at once; with endless ones when a server comes.
    explicit ReminderModel(bool hasPauses = false) : hasPauses_{hasPauses} {}

    void setTime(qint64 now) { now_ = now; }
    void setOffset(qint64 east) { east_ = east; }

    // Calls. A burst of them is begun and ended.
    void beginBurst() { moveDue(); }
    void add(const Key &key)
    {
        std::erase_if(memory.pending, [&](const Entry &e) { return e.key.first == key.first; });
        memory.pending.push_back({key, key.second * 60 - east_, {}});
    }
    void remove(const QStringList &identifiers)
    {
        moveDue();
        const auto isNamed = [&](const Entry &e) { return identifiers.contains(e.key.first); };
        std::erase_if(memory.pending, isNamed);
        std::erase_if(memory.outbox, isNamed);
    }
    void removeAll()
    {
        moveDue();
        memory.pending.clear();
    }
    void endBurst()
    {
        moveDue();
        deliver();
    }

    // Time.
    void minuteCame()
    {
        forgetOld();
        moveDue();
        deliver();
    }
    /// After a start, or when clock or zone changed.
    void lookAnew()
    {
        forgetOld();
        for (Entry &e : memory.pending) {
            e.due = e.key.second * 60 - east_;
            if (e.lapsed && (e.due > now_ || *e.lapsed > now_)) {
                e.lapsed.reset();
            }
        }
        std::erase_if(memory.delivered, [&](const auto &one) { return one.second > now_ + 60; });
        moveDue();
        deliver();
    }

    // The server.
    void taken(const Key &key)
    {
        erase(memory.outbox, key);
        memory.delivered[key] = now_;
        troubles_.erase(key);
        isServerGone_ = false;
        if (offered == key) {
            offered.reset();
        }
        deliver();
    }
    void refused() { fail(&Trouble::refusals); }
    void diedOfIt() { fail(&Trouble::deaths); }
    void notAnswered() { fail(&Trouble::unanswered); }
    void serverGone()
    {
        isServerGone_ = true;
        offered.reset();
        deliver();
    }
    void serverCame()
    {
        if (offered) {
            return;
        }
        isServerGone_ = false;
        for (auto &[key, trouble] : troubles_) {
            trouble.refusals = 0;
            if (trouble.deaths < 2) {
                trouble.last = 0;
            }
        }
        deliver();
    }
    /// The next server was given nothing of what this one left unanswered.
    void serverWent()
    {
        ++failures_;
        for (auto &[key, trouble] : troubles_) {
            if (std::exchange(trouble.unanswered, 0) >= 3) {
                trouble.last = failures_;
            }
        }
        deliver();
    }
    void deliver()
    {
        while (!offered && !memory.outbox.empty()) {
            const Entry next = nextInOutbox();
            if (next.end() <= now_) {
                letGo(next);
                troubles_.erase(next.key);
            } else if (troubles_[next.key].unanswered >= 3 ||
                       (hasPauses_ && (isServerGone_ || troubles_[next.key].last > 0))) {
                return; // This server may have shown it three times, or it is too early.
            } else {
                offered = next.key;
            }
        }
        if (!offered) {
            troubles_.clear();
        }
    }

    /// Adds what another centre held in memory. Where both know something of a reminder, what
    /// `from` knows counts.
    static void merge(Memory &into, const Memory &from)
    {
        for (const Entry &e : from.outbox) {
            erase(into.outbox, e.key);
        }
        for (const Entry &e : from.pending) {
            std::erase_if(into.pending, [&](const Entry &o) { return o.key.first == e.key.first; });
            into.pending.push_back(e);
        }
        into.outbox.insert(into.outbox.end(), from.outbox.begin(), from.outbox.end());
        for (const auto &[key, at] : from.delivered) {
            into.delivered[key] = at;
        }
        std::erase_if(into.outbox, [&](const Entry &e) { return into.delivered.contains(e.key); });
    }

private:
    struct Trouble {
        int refusals = 0;
        int deaths = 0;
        int unanswered = 0;
        int last = 0; ///< A number that grows with each failure of any.

        [[nodiscard]] bool isSetBack() const
        {
            return refusals >= 3 || deaths >= 2 || unanswered >= 3;
        }
    };

    static void erase(std::vector<Entry> &entries, const Key &key)
    {
        std::erase_if(entries, [&](const Entry &e) { return e.key == key; });
    }

    void fail(int Trouble::*count)
    {
        Trouble &trouble = troubles_[*offered];
        ++(trouble.*count);
        trouble.last = ++failures_;
        offered.reset();
        deliver();
    }

    /// The first that is not set back, otherwise the one whose last attempt is the longest ago; one
    /// that this server never answered only after all others.
    [[nodiscard]] Entry nextInOutbox()
    {
        const auto rank = [&](const Entry &e) {
            const Trouble trouble = troubles_[e.key];
            return !trouble.isSetBack()      ? -1
                   : trouble.unanswered >= 3 ? failures_ + 1
                                             : trouble.last;
        };
        return *std::ranges::min_element(memory.outbox, {}, rank);
    }

    void letGo(const Entry &waiting)
    {
        const bool isAskedForAnew = std::ranges::any_of(
            memory.pending, [&](const Entry &e) { return e.key.first == waiting.key.first; });
        if (!isAskedForAnew) {
            memory.pending.push_back({waiting.key, waiting.due, now_});
        }
        erase(memory.outbox, waiting.key);
    }

    void forgetOld()
    {
        const qint64 aWeekAgo = now_ - qint64{7} * 86'400;
        std::erase_if(memory.delivered, [&](const auto &one) { return one.second < aWeekAgo; });
        std::erase_if(memory.pending,
                      [&](const Entry &e) { return e.lapsed && *e.lapsed < aWeekAgo; });
    }

    void moveDue()
    {
        std::vector<Entry> due;
        std::ranges::copy_if(memory.pending, std::back_inserter(due),
                             [&](const Entry &e) { return !e.lapsed && e.due <= now_; });
        std::ranges::stable_sort(due, {}, &Entry::due);
        for (auto e = due.begin(); e != due.end(); ++e) {
            const auto isLaterOfTrial = [&](const Key &other) {
                return Entry{other, 0, {}}.trial() == e->trial() && other.second > e->key.second;
            };
            const bool isFollowed = std::any_of(
                e + 1, due.end(), [&](const Entry &o) { return o.trial() == e->trial(); });
            const bool laterCame =
                std::ranges::any_of(memory.outbox, isLaterOfTrial, &Entry::key) ||
                std::ranges::any_of(memory.delivered, isLaterOfTrial,
                                    [](const auto &one) { return one.first; });
            const bool came = memory.delivered.contains(e->key) ||
                              std::ranges::count(memory.outbox, e->key, &Entry::key) > 0;
            if (!came && e->isMissed(now_) && (isFollowed || e->end() <= now_ || laterCame)) {
                std::ranges::find(memory.pending, e->key, &Entry::key)->lapsed = now_;
                continue;
            }
            if (!came) {
                for (const Entry &waiting : std::vector{memory.outbox}) {
                    if (waiting.trial() == e->trial() && waiting.key.second < e->key.second &&
                        waiting.isMissed(now_)) {
                        letGo(waiting);
                    }
                }
                memory.outbox.push_back({e->key, e->due, {}});
            }
            erase(memory.pending, e->key);
        }
    }

    bool hasPauses_;
    bool isServerGone_ = false;
    qint64 now_ = 0;
    qint64 east_ = 0;
    int failures_ = 0;
    std::map<Key, Trouble> troubles_;
};

} // namespace norvane::simulation
