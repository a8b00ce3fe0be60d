# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""The tour with the installed package on a virtual desktop, and a reminder after Norvane has quit.

With NORVANE_ROOT the package is the one installed below that folder, which nothing else was installed in
but what it depends on; the desktop around it, and this test, stay outside.
"""

import json
import os
import subprocess
import sys
import time
from datetime import datetime, timedelta, timezone
from pathlib import Path

from gi.repository import Gio

TREE = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(TREE / "tests"), str(TREE / "scripts")]

import tour  # noqa: E402
from support.desktop import Desktop  # noqa: E402
from support.notification_server import NotificationServer  # noqa: E402
from support.waiting import wait_until  # noqa: E402

ROOT = os.environ.get("NORVANE_ROOT")
REFERENCE = datetime(2001, 1, 1, tzinfo=timezone.utc)


def installed(folder, program):
    """A command that runs an installed program, below NORVANE_ROOT if there is one."""
    if not ROOT:
        return Path(program)
    command = folder / "installed" / Path(program).name
    command.parent.mkdir(exist_ok=True)
    command.write_text(f'#!/bin/sh\nexec chroot "{ROOT}" "{program}" "$@"\n')
    command.chmod(0o755)
    return command


class BusOfThePackage(Desktop):
    """Its session bus starts what the package installed."""

    def _start_bus(self):
        with open(self.folder / "bus.log", "ab") as log:
            process = subprocess.Popen(
                [installed(self.folder, "/usr/bin/dbus-daemon"), "--session", "--nofork", "--print-address"],
                env=self.environment, stdout=subprocess.PIPE, stderr=log, text=True, start_new_session=True)
        self.processes.append(process)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = process.stdout.readline().strip()
        self.address = self.environment["DBUS_SESSION_BUS_ADDRESS"]

    def connect(self):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        return Gio.DBusConnection.new_for_address_sync(self.address, flags, None, None)


def test_the_tour_on_a_desktop(tmp_path):
    with Desktop(tmp_path) as desktop:
        desktop.environment["TZ"] = "UTC"
        desktop.start("/usr/bin/python3", TREE / "tests/support/recording_center.py", tmp_path / "calls.jsonl")
        wait_until(lambda: desktop.owns("org.norvane.NotificationCenter"), "the recording notification centre")
        desktop.wait_until_still()
        tour.Tour(desktop, installed(tmp_path, "/usr/bin/norvane"), tmp_path / "pictures").walk()


def test_a_reminder_comes_through_the_bus_with_norvane_gone(tmp_path):
    with BusOfThePackage(tmp_path, panel=None) as desktop, NotificationServer(desktop) as server:
        desktop.environment["TZ"] = "UTC"
        now = datetime.now(timezone.utc)
        minute = now.replace(second=0, microsecond=0) + timedelta(minutes=1 if now.second < 40 else 2)
        file = desktop.home / ".local/share/Norvane/trials.json"
        file.parent.mkdir(parents=True)
        end = (minute + timedelta(hours=1) - REFERENCE).total_seconds()
        file.write_text(json.dumps([{
            "id": "BA96CA62-A106-480E-9C02-EEBDC393F97E", "name": "Acme Cloud", "endDate": end, "cost": 9.5,
            "notes": "", "createdAt": end - 86400, "notificationIds": []}]))

        norvane = desktop.start(installed(tmp_path, "/usr/bin/norvane"))
        wait_until(lambda: "-1h" in file.read_text(), "the planned reminder")
        wait_until(lambda: desktop.owns("org.norvane.NotificationCenter"), "the notifier")
        desktop.stop(norvane)
        assert norvane.returncode is not None
        assert time.time() < minute.timestamp(), "Norvane took longer than the minute"

        (shown,) = server.wait_for(1, minute.timestamp() - time.time() + 20)

    assert shown.title == "🚨 Trial Ending in 1 Hour"
    assert "Acme Cloud" in shown.body
