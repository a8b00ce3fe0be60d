# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Whatever the session bus drops or refuses, the reminders of every other trial are planned."""

import json
import os
import shutil
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.bus import PrivateBus  # noqa: E402
from support.norvane import BUILD, Norvane, write  # noqa: E402
from support.notifier import Notifier  # noqa: E402
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


def test_on_a_new_bus_it_sends_what_the_old_one_did_not_take(tmp_path):
    trials = [trial(number, "Acme") for number in range(3)]
    file = write(tmp_path / "home", json.dumps(trials))
    with PrivateBus(tmp_path / "bus") as first:
        first.install("org.norvane.NotificationCenter", "/bin/sleep 60")  # Never takes the name.
        address = first.address.split(",")[0]  # Without the identity of that very bus.
        norvane = Norvane(tmp_path / "home", DBUS_SESSION_BUS_ADDRESS=address)
        norvane.__enter__()
        wait_until(lambda: "-24h" in file.read_text(), "the plan in the file")
    shutil.rmtree(tmp_path / "bus")

    with PrivateBus(tmp_path / "bus") as second, Notifier(second, tmp_path / "state") as notifier:
        assert second.address.split(",")[0] == address
        notifier.start()
        wait_planned(notifier, *trials)
        norvane.__exit__()


def test_a_name_that_no_message_can_hold_costs_no_other_trial_its_reminders(tmp_path):
    usual, huge, last = trial(0, "Acme"), trial(1, "x" * (2 << 20)), trial(2, "Acme")
    write(tmp_path / "home", json.dumps([usual, huge, last]))
    with PrivateBus(tmp_path / "bus", longest_message=1 << 20) as bus, Notifier(bus, tmp_path / "state") as notifier:
        notifier.start()
        with Norvane(tmp_path / "home", DBUS_SESSION_BUS_ADDRESS=bus.address):
            wait_planned(notifier, usual, last)
