# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""Callers that ask for more than anybody needs, and what the others notice of it."""

import signal
import sqlite3
import time
from contextlib import closing

import pytest
from gi.repository import GLib

from support.notifier import FAR, error_name
from support.process import memory
from support.waiting import wait_until

KIB = 1024
MIB = 1024 * KIB
LIMIT = "org.freedesktop.DBus.Error.LimitsExceeded"
MOST_REQUESTS = 150_000


def test_a_list_over_32_mib_is_refused_and_nothing_is_lost(notifier):
    notifier.start()
    for i in range(260):
        notifier.add(f"{i}-1h", FAR, title="t" * 64 * KIB, body="b" * 64 * KIB)

    with pytest.raises(GLib.Error) as caught:
        notifier.pending()

    assert error_name(caught.value) == LIMIT
    notifier.remove(*(f"{i}-1h" for i in range(10)))
    assert len(notifier.identifiers()) == 250


def test_beyond_the_most_requests_a_new_one_is_refused_and_not_kept(notifier):
    notifier.start()
    assert notifier.pending() == []
    notifier.kill()
    with closing(sqlite3.connect(notifier.ledger)) as ledger:
        ledger.executemany(
            "INSERT INTO pending (identifier, title, body, sound, \"trigger\", due) "
            "VALUES (?, '', '', '', '2999-12-31T23:59', 32503679940)",
            ((f"{i}-1h",) for i in range(MOST_REQUESTS)))
        ledger.commit()
    notifier.start()

    with pytest.raises(GLib.Error) as caught:
        notifier.add("new-1h", FAR)

    assert error_name(caught.value) == LIMIT
    notifier.add("1-1h", FAR, title="replaced")  # No more than before.
    notifier.remove("2-1h")
    notifier.add("other-1h", FAR)
    listed = {request[0]: request[1] for request in notifier.pending()}
    assert len(listed) == MOST_REQUESTS
    assert "new-1h" not in listed and "other-1h" in listed and listed["1-1h"] == "replaced"


def test_an_identifier_of_60_mib_names_nothing_and_is_not_kept_in_memory(notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    notifier.remove("b-1h")
    time.sleep(1)  # Half a second after the last call it gives back what it does not need.
    before = memory(notifier.process.pid)["Rss"]

    notifier.remove("a-1h", "x" * 60 * MIB)

    assert notifier.pending() == []
    wait_until(lambda: memory(notifier.process.pid)["Rss"] < before + 20 * KIB,
               "the memory's return")


def test_most_of_the_memory_that_a_burst_of_calls_took_is_given_back(notifier):
    notifier.start()
    before = memory(notifier.process.pid)["Private"]

    notifier.process.send_signal(signal.SIGSTOP)
    for i in range(20_000):
        notifier.tell("AddRequest", GLib.Variant("(sssss)", (f"{i}-1h", "Title", "Body" * 20, "default", FAR)))
    notifier.connection.flush_sync(None)
    notifier.process.send_signal(signal.SIGCONT)  # Now all of them are there at the same time.
    notifier.authorize()

    most = memory(notifier.process.pid)["Private"]
    wait_until(lambda: memory(notifier.process.pid)["Private"] - before < (most - before) / 4,
               "the memory's return")


def test_a_removal_of_very_many_identifiers_lets_others_through(notifier, bus):
    notifier.start()
    notifier.add("a-1h", FAR)
    answers = []
    identifiers = GLib.Variant("(as)", ([f"{i}" for i in range(50_000)] + ["a-1h"],))
    other = notifier.caller()

    notifier.send("RemovePendingRequests", identifiers, answers.append)
    notifier.connection.flush_sync(None)
    other.authorize()  # Served once the removal has arrived as a whole.
    other.add("b-1h", FAR)
    notifier.iterate()

    assert answers == []
    wait_until(lambda: notifier.iterate() or answers == [None], "the removal's end", 120)
    assert other.identifiers() == ["b-1h"]


def test_calls_after_a_long_removal_take_effect_after_it(notifier):
    notifier.start()
    answers = []
    identifiers = GLib.Variant("(as)", ([f"{i}" for i in range(20_000)] + ["a-1h"],))

    notifier.send("RemovePendingRequests", identifiers, answers.append)
    notifier.add("a-1h", FAR)

    assert notifier.identifiers() == ["a-1h"]
