# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""A stream of calls to a notification centre that is killed again and again, and its accounts."""

import random
import signal
import time
from dataclasses import dataclass, field
from datetime import datetime
from itertools import pairwise

from gi.repository import GLib

from .notification_server import NotificationServer
from .notifier import FAR, Notifier, minute
from .waiting import wait_until


@dataclass
class Accounts:
    """What was asked for, what was acknowledged, and what came of it."""

    added: set[str] = field(default_factory=set)  # Far requests acknowledged as pending.
    removing: set[str] = field(default_factory=set)  # Removals sent.
    removed: set[str] = field(default_factory=set)  # Removals acknowledged.
    due: set[str] = field(default_factory=set)  # Acknowledged for the running minute.
    kills: int = 0

    def lost(self, pending: set[str], shown: set[str]) -> set[str]:
        """Acknowledged requests that are neither there nor came."""
        return (self.added - self.removing - pending) | (self.due - shown)

    def returned(self, pending: set[str]) -> set[str]:
        """Requests that are pending although their removal was acknowledged."""
        return self.removed & pending

    @staticmethod
    def doubled(server: NotificationServer) -> tuple[set[str], set[str]]:
        """Titles shown more than once: by the process after a killed one, which cannot know of the
        last that was shown; and without such a reason."""
        after_kill, without_cause, seen = set(), set(), set()
        for last, one in pairwise([None, *server.shown]):
            if one.title in seen:
                was_last = last.title == one.title and last.sender != one.sender
                (after_kill if was_last else without_cause).add(one.title)
            seen.add(one.title)
        return after_kill, without_cause


def run(notifier: Notifier, server: NotificationServer, kills: int, requests: int,
        seed: int) -> Accounts:
    """Sends so many requests, a third of them due at once and some removed again, while the
    process is killed so many times; leaves it running, with everything delivered."""
    chance = random.Random(seed)
    accounts = Accounts()
    names = [f"{number}-1h" for number in range(requests)]
    kill_before = sorted(chance.sample(range(requests), kills))

    def add(name):
        due = chance.random() < 1 / 3
        trigger = minute(datetime.now()) if due else FAR
        account = accounts.due if due else accounts.added
        notifier.send("AddRequest", GLib.Variant("(sssss)", (name, name, "Body", "default", trigger)),
                      lambda error: error or account.add(name))

    def remove(name):
        accounts.removing.add(name)
        notifier.send("RemovePendingRequests", GLib.Variant("(as)", ([name],)),
                      lambda error: error or accounts.removed.add(name))

    notifier.start()
    for number, name in enumerate(names):
        if kill_before and number == kill_before[0]:
            kill_before.pop(0)
            deadline = time.monotonic() + chance.uniform(0, 0.03)
            while time.monotonic() < deadline:
                notifier.iterate()
            accounts.kills += 1
            notifier.kill(signal.SIGKILL)
            notifier.start()
        add(name)
        notifier.iterate()
        earlier = names[chance.randrange(number + 1)]
        removable = earlier in accounts.added and earlier not in accounts.removing
        if removable and chance.random() < 0.2:
            remove(earlier)
        if number % 20 == 0:
            time.sleep(chance.uniform(0, 0.01))  # Gaps, so that bursts differ in length.
    notifier.add("last", FAR)  # Answered after everything before it.
    notifier.iterate()
    # The outbox is empty once a request that is due now has been shown after all others.
    notifier.add("end-1h", minute(datetime.now()), title="end")
    wait_until(lambda: "end" in server.titles, "the last one", 120)
    return accounts
