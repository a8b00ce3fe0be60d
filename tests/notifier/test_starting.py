# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""What the notification centre does with its first calls, and what may not hold up its start."""

import os
import signal
import socket

from gi.repository import GLib

from support.notifier import FAR, NAME, minutes_ago
from support.process import busy_machine
from support.waiting import wait_until

STARTS = 100
BURST = 300


def request(identifier):
    return GLib.Variant("(sssss)", (identifier, "Title", "Body", "default", FAR))


def test_a_burst_of_calls_to_a_starting_centre_takes_effect_in_the_order_sent(bus, notifier):
    bus.install(NAME, f"/usr/bin/env XDG_STATE_HOME={notifier.folder.parent} {notifier.program}")
    burst = [request(f"{i}-1h") for i in range(BURST)]
    incomplete = []
    with busy_machine():
        for _ in range(STARTS):
            notifier.tell("RemoveAllPendingRequests", None)  # Starts it.
            for one in burst:
                notifier.tell("AddRequest", one)
            count = len(notifier.identifiers())
            if count != BURST:
                incomplete.append(count)
            os.kill(notifier.owner_process(), signal.SIGKILL)
            wait_until(lambda: not notifier.has_owner(), "its end")

    assert incomplete == []


def test_a_system_bus_that_never_speaks_does_not_hold_up_a_reminder(notifier, server, tmp_path):
    with socket.socket(socket.AF_UNIX) as silent:
        silent.bind(str(tmp_path / "system-bus"))
        silent.listen()  # Whoever connects waits for an answer for ever.
        notifier.environment["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={tmp_path}/system-bus"
        notifier.start()

        notifier.tell("AddRequest", GLib.Variant("(sssss)", (
            "a-1h", "missed", "Body", "default", minutes_ago(30))))

        assert server.wait_for(1)[0].title == "missed"
