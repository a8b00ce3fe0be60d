# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""From the form to the screen, in real time: takes up to two minutes, as long as a minute is away."""

import json
import os
import sys
import time
from datetime import datetime, timedelta, timezone
from pathlib import Path

from gi.repository import Gio

TESTS = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TESTS))

from support.desktop import Desktop  # noqa: E402
from support.notification_server import NotificationServer  # noqa: E402
from support.shell import Shell  # noqa: E402
from support.waiting import wait_until  # noqa: E402

BUILD = Path(os.environ["NORVANE_BUILD"])


class SessionBus:
    """The desktop's session bus, as the notification server wants it."""

    def __init__(self, desktop):
        self.address = desktop.environment["DBUS_SESSION_BUS_ADDRESS"]

    def connect(self):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        return Gio.DBusConnection.new_for_address_sync(self.address, flags, None, None)


def a_minute_soon():
    """The start of a minute that leaves time enough to fill in the form."""
    start = datetime.now(timezone.utc).replace(second=0, microsecond=0)
    minute = start + timedelta(minutes=1)
    return minute if minute.timestamp() - time.time() > 40 else minute + timedelta(minutes=1)


def test_a_reminder_comes_within_a_second_of_its_minute_with_norvane_already_quit(tmp_path):
    with Desktop(tmp_path) as desktop, NotificationServer(SessionBus(desktop)) as server:
        desktop.environment["TZ"] = "UTC"
        desktop.wait_until_still()
        with Shell(desktop, BUILD / "app/norvane") as shell:
            shell.find_icon()
            shell.press()
            shell.wait_open()
            minute = a_minute_soon()
            end = minute + timedelta(hours=1)
            desktop.click_on("push button", "Add Trial")
            wait_until(lambda: (desktop.find("text", "Service name") or {}).get("focused"), "the form")
            desktop.type("Acme Cloud")
            days_back = (minute + timedelta(days=7)).date() - end.date()
            desktop.key("Tab", *["Down"] * days_back.days)
            desktop.key("Tab", "Tab")
            desktop.type(f"{end:%H:%M}")
            desktop.key("Tab")
            desktop.click_on("push button", "Track Trial")
            file = desktop.home / ".local/share/Norvane/trials.json"
            (trial,) = wait_until(lambda: json.loads(file.read_text()), "the trial in the file")
            assert [name[-3:] for name in trial["notificationIds"]] == ["-1h"], trial
            desktop.click_on("push button", "Quit")
            assert shell.process.wait(10) == 0
        assert time.time() < minute.timestamp(), "the form took longer than the minute"

        (shown,) = server.wait_for(1, minute.timestamp() - time.time() + 10)

    assert shown.title == "🚨 Trial Ending in 1 Hour"
    assert shown.body == '"Acme Cloud" — cancel now to avoid being charged.'
    assert 0 <= shown.time - minute.timestamp() < 1
