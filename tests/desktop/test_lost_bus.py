# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Whatever the session bus drops or refuses, the reminders of every other trial are planned."""

import json
import os
import shutil
import socket
import sys
import time
from contextlib import contextmanager
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.bus import PrivateBus  # noqa: E402
from support.norvane import BUILD, Norvane, write  # noqa: E402
from support.notifier import Notifier  # noqa: E402
from support.silent_bus import SilentBus  # noqa: E402
from support.waiting import wait_until  # noqa: E402

os.environ["NORVANE_NOTIFIER"] = str(BUILD / "libexec/norvane-notifier")
REFERENCE = 978307200


def trial(number, name):
    return {"id": f"BA96CA62-A106-480E-9C02-{number:012X}", "name": name, "cost": 0, "notes": "", "createdAt": 0,
            "endDate": int(time.time()) + 30 * 86400 - REFERENCE, "notificationIds": []}


def reminders(*trials):
    return {one["id"] + suffix for one in trials for suffix in ("-3d", "-24h", "-1h")}


def wait_planned(notifier, *trials):
    wait_until(lambda: set(notifier.identifiers()) == reminders(*trials), "the reminders of all trials", 30)


@contextmanager
def norvane_that_lost_its_bus(folder, trials):
    """Norvane with requests that it could not send before the bus went away; and the path of the bus's socket."""
    write(folder / "home", json.dumps(trials))
    asked = folder / "asked"
    with PrivateBus(folder / "bus") as bus:
        # Never takes the name.
        bus.install("org.norvane.NotificationCenter", f"/bin/sh -c ': > {asked}; exec sleep 60'")
        address = bus.address.split(",")[0]  # Without the identity of that very bus.
        norvane = Norvane(folder / "home", DBUS_SESSION_BUS_ADDRESS=address)
        norvane.__enter__()
        wait_until(asked.exists, "the start of the centre")
    shutil.rmtree(folder / "bus")
    try:
        yield address.removeprefix("unix:path=")
    finally:
        norvane.__exit__()


def test_on_a_new_bus_it_sends_what_the_old_one_did_not_take(tmp_path):
    trials = [trial(number, "Acme") for number in range(3)]
    with (norvane_that_lost_its_bus(tmp_path, trials) as path,
          PrivateBus(tmp_path / "bus") as bus, Notifier(bus, tmp_path / "state") as notifier):
        assert bus.address.split(",")[0] == f"unix:path={path}"
        notifier.start()
        wait_planned(notifier, *trials)


def attempts(path, count):
    """When this many connections to a socket are made, one after the other; each is closed at once."""
    times = []
    with socket.socket(socket.AF_UNIX) as listener:
        listener.bind(path)
        listener.listen()
        listener.settimeout(60)
        while len(times) < count:
            connection, _ = listener.accept()
            times.append(time.monotonic())
            connection.close()
    return times


def test_while_the_bus_is_away_it_tries_once_at_a_time_with_a_growing_pause(tmp_path):
    with norvane_that_lost_its_bus(tmp_path, [trial(0, "Acme")]) as path:
        Path(path).parent.mkdir()
        first, second, third = attempts(path, 3)

    # Two seconds and four, where the first attempt is the first one to find the socket.
    assert 1.5 < second - first
    assert 3 < third - second


@pytest.mark.parametrize("authenticates", [False, True], ids=["says nothing", "lets in and says nothing"])
def test_a_silent_bus_in_the_place_of_the_lost_one_does_not_hold_up_the_end(tmp_path, authenticates):
    with norvane_that_lost_its_bus(tmp_path, [trial(0, "Acme")]) as path:
        Path(path).parent.mkdir()
        bus = SilentBus(path, authenticates)
        assert bus.was_asked.wait(60)
        end = time.monotonic()

    assert time.monotonic() - end < 5


def test_a_name_that_no_message_can_hold_costs_no_other_trial_its_reminders(tmp_path):
    usual, huge, last = trial(0, "Acme"), trial(1, "x" * (2 << 20)), trial(2, "Acme")
    write(tmp_path / "home", json.dumps([usual, huge, last]))
    with PrivateBus(tmp_path / "bus", longest_message=1 << 20) as bus, Notifier(bus, tmp_path / "state") as notifier:
        notifier.start()
        with Norvane(tmp_path / "home", DBUS_SESSION_BUS_ADDRESS=bus.address):
            wait_planned(notifier, usual, last)
