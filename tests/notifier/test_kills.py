# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""The notification centre killed at random moments under a stream of calls and deliveries."""

import pytest
from gi.repository import GLib
from support.kill_run import run
from support.notifier import FAR
from support.waiting import wait_until

SEED = 20260401


def test_no_kill_loses_an_acknowledged_request_or_doubles_one_without_cause(notifier, server):
    accounts = run(notifier, server, kills=20, requests=3000, seed=SEED)

    pending = set(notifier.identifiers())
    after_kill, without_cause = accounts.doubled(server)
    assert accounts.kills == 20
    # How many there are of each depends on how fast the machine is; there must be enough to mean something.
    assert len(accounts.due) > 50 and len(accounts.added) > 100 and len(accounts.removed) > 10
    assert not accounts.lost(pending, set(server.titles))
    assert not accounts.returned(pending)
    assert not without_cause
    assert len(after_kill) <= 20


@pytest.mark.parametrize(
    ("method", "arguments"),
    [("RequestAuthorization", GLib.Variant("(u)", (7,))),
     ("AddRequest", GLib.Variant("(sssss)", ("", "refused", "", "", FAR))),
     ("RemovePendingRequests", GLib.Variant("(as)", ([],))),
     ("PendingRequests", None)])
def test_the_answer_to_any_call_confirms_the_calls_before_it(notifier, method, arguments):
    notifier.start()
    answers = []
    notifier.tell("AddRequest", GLib.Variant("(sssss)", ("a-1h", "Title", "Body", "", FAR)))
    notifier.send(method, arguments, answers.append)
    wait_until(lambda: notifier.iterate() or answers, "the answer")

    notifier.restart()

    assert notifier.identifiers() == ["a-1h"]
