# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""Clocks, zones, and what fell due while nobody was there."""

import os
import sqlite3
import time
from contextlib import closing
from datetime import datetime, timedelta, timezone

from support.notifier import FAR, NAME, minute, minutes_ago, this_minute
from support.process import wake_ups
from support.waiting import wait_until


def leave_pending(notifier, requests):
    """Has requests of these triggers pending, with nobody running to notice their minutes."""
    notifier.start()
    for identifier in requests:
        notifier.add(identifier, FAR, title=identifier)
    notifier.kill()
    with closing(sqlite3.connect(notifier.ledger)) as ledger:
        for identifier, trigger in requests.items():
            ledger.execute("UPDATE pending SET \"trigger\" = ? WHERE identifier = ?",
                           (trigger, identifier))
        ledger.commit()


def delivered(notifier):
    """How many reminders it remembers to have delivered."""
    with closing(sqlite3.connect(f"file:{notifier.ledger}?mode=ro", uri=True)) as ledger:
        return ledger.execute("SELECT count(*) FROM delivered").fetchone()[0]


def test_of_several_missed_for_one_trial_only_the_latest_comes(notifier, server):
    leave_pending(notifier, {"a-3d": minutes_ago(300), "a-24h": minutes_ago(200),
                             "a-1h": minutes_ago(30), "b-c-3d": minutes_ago(250),
                             "b-d-3d": minutes_ago(240)})

    notifier.start()

    server.wait_for(3)
    notifier.add("z-1h", this_minute(), title="end")
    wait_until(lambda: "end" in server.titles, "the last one")
    assert server.titles == ["b-c-3d", "b-d-3d", "a-1h", "end"]


def test_what_is_no_longer_worth_showing_is_dropped_for_good(notifier, server):
    leave_pending(notifier, {"a-1h": minutes_ago(61), "b-24h": minutes_ago(24 * 60 + 1),
                             "c-3d": minutes_ago(72 * 60 + 1)})
    notifier.start()
    assert notifier.pending() == []

    notifier.restart()
    notifier.add("z-1h", this_minute(), title="end")

    server.wait_for(1)
    assert server.titles == ["end"]


def test_what_was_missed_is_saved_from_the_first_call(bus, notifier, server):
    leave_pending(notifier, {"a-1h": minutes_ago(30)})
    bus.install(NAME, f"/usr/bin/env XDG_STATE_HOME={notifier.folder.parent} "
                      f"{notifier.program} --linger 1")

    notifier.remove_all()  # Starts it.

    assert server.wait_for(1)[0].title == "a-1h"
    server.close_notification(1)
    wait_until(lambda: not notifier.has_owner(), "its end")


def test_a_traveller_is_reminded_by_the_clock_on_the_wall(notifier, server, tmp_path):
    link = tmp_path / "zone" / "localtime"
    link.parent.mkdir()
    link.symlink_to("/usr/share/zoneinfo/UTC")
    notifier.environment["TZ"] = f":{link}"
    notifier.start()
    wait_until(lambda: datetime.now().second < 55, "the next minute", 6)
    three_hours_east = minute(datetime.now(timezone.utc) + timedelta(hours=3))
    notifier.add("a-1h", three_hours_east)
    assert notifier.identifiers() == ["a-1h"]

    replacement = link.with_name("new")
    replacement.symlink_to("/usr/share/zoneinfo/Etc/GMT-3")  # POSIX counts to the west.
    os.replace(replacement, link)

    server.wait_for(1)
    assert notifier.pending() == []


def test_the_last_minute_of_the_calendar_waits(notifier):
    notifier.start()

    notifier.add("a-1h", "9999-12-31T23:59")

    notifier.restart()
    assert notifier.identifiers() == ["a-1h"]


def test_the_first_minute_of_the_calendar_is_long_past(notifier):
    notifier.start()

    notifier.add("a-1h", "0001-01-01T00:00")

    assert notifier.pending() == []


def test_other_files_beside_the_zones_link_do_not_wake_it(notifier, tmp_path):
    link = tmp_path / "zone" / "localtime"
    link.parent.mkdir()
    link.symlink_to("/usr/share/zoneinfo/UTC")
    notifier.environment["TZ"] = f":{link}"
    notifier.start()
    notifier.add("a-1h", FAR)
    time.sleep(2)  # It tidies up half a second after the last call.
    before = wake_ups(notifier.process.pid)

    for i in range(20):
        (link.parent / f"other-{i}").write_text("changed")
    time.sleep(1)  # What is looked for is that nothing happens, which only time can show.

    assert wake_ups(notifier.process.pid) == before


def test_what_was_delivered_by_a_clock_that_was_ahead_comes_once_by_the_right_one(notifier, server):
    trigger = this_minute()
    notifier.start()
    notifier.add("a-1h", trigger, title="first")
    server.wait_for(1)
    wait_until(lambda: delivered(notifier) == 1, "the note of it")
    notifier.kill()
    with closing(sqlite3.connect(notifier.ledger)) as ledger:
        ledger.execute("UPDATE delivered SET at = at + 86400")  # As if the clock had been a day ahead.
        ledger.commit()
    notifier.start()

    for title in ("second", "third"):
        notifier.add("a-1h", trigger, title=title)
    notifier.add("b-1h", trigger, title="end")

    wait_until(lambda: "end" in server.titles, "the last one")
    assert server.titles == ["first", "second", "end"]
