# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""The notification centre killed at random moments under a stream of calls and deliveries."""

from support.kill_run import run

SEED = 20260401


def test_no_kill_loses_an_acknowledged_request_or_doubles_one_without_cause(notifier, server):
    accounts = run(notifier, server, kills=20, requests=3000, seed=SEED)

    pending = set(notifier.identifiers())
    after_kill, without_cause = accounts.doubled(server)
    assert accounts.kills == 20
    assert len(accounts.due) > 300 and len(accounts.added) > 600 and len(accounts.removed) > 60
    assert not accounts.lost(pending, set(server.titles))
    assert not accounts.returned(pending)
    assert not without_cause
    assert len(after_kill) <= 20
