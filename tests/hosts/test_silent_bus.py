# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Norvane on a session bus that accepts a connection and then says nothing, or not for now."""

import json
import os
import signal
import subprocess
import sys
import time
from pathlib import Path

import pytest
from support.desktop import Desktop
from support.shell import PROGRAM, Shell
from support.silent_bus import ClosingBus, SilentBus
from support.waiting import wait_until

CENTER = Path(__file__).resolve().parent.parent / "support/recording_center.py"


@pytest.mark.parametrize("authenticates", [False, True], ids=["says nothing", "lets in and says nothing"])
def test_the_window_comes_in_time_and_a_signal_ends_it(tmp_path, authenticates):
    with Desktop(tmp_path, panel=None) as desktop:
        SilentBus(tmp_path / "silent", authenticates)
        environment = desktop.environment | {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={tmp_path}/silent"}
        leader, follower = os.openpty()  # At a terminal, without a tray: it opens its window by itself.
        begin = time.monotonic()
        process = subprocess.Popen([PROGRAM], env=environment, stdin=follower, start_new_session=True)
        wait_until(lambda: desktop.windows("Norvane"), "the window")
        seconds = time.monotonic() - begin
        process.terminate()
        assert process.wait(5) == 0
        os.close(leader)
        os.close(follower)

    # A second for the bus, one for the folder at most, and two in which a tray could take the icon.
    assert seconds < 6


def test_a_bus_that_turns_it_away_is_left_alone(tmp_path):
    with Desktop(tmp_path, panel=None) as desktop:
        bus = ClosingBus(tmp_path / "closing")
        desktop.start("trayer", "--edge", "top", "--widthtype", "request", "--height", "30")
        norvane = desktop.start(PROGRAM, DBUS_SESSION_BUS_ADDRESS=f"unix:path={tmp_path}/closing")
        wait_until(lambda: desktop.windows("Norvane"), "the icon")

        assert bus.connections < 50
        desktop.stop(norvane)
        assert norvane.returncode == 0


def test_the_icon_of_an_old_tray_comes_in_time(tmp_path):
    with Desktop(tmp_path, panel=None) as desktop:
        SilentBus(tmp_path / "silent", False)
        desktop.start("trayer", "--edge", "top", "--widthtype", "request", "--height", "30")
        begin = time.monotonic()
        norvane = desktop.start(PROGRAM, DBUS_SESSION_BUS_ADDRESS=f"unix:path={tmp_path}/silent")
        wait_until(lambda: desktop.windows("Norvane"), "the icon")

        assert time.monotonic() - begin < 5
        desktop.stop(norvane)
        assert norvane.returncode == 0


def test_what_the_bus_answers_later_is_taken_up(tmp_path):
    with Desktop(tmp_path) as desktop:
        calls = tmp_path / "calls.jsonl"
        calls.touch()
        desktop.start(sys.executable, CENTER, calls)
        wait_until(lambda: desktop.owns("org.norvane.NotificationCenter"), "the notification centre")
        bus = next(process for process in desktop.processes if process.args[0] == "dbus-daemon")
        trials = desktop.home / ".local/share/Norvane/trials.json"

        bus.send_signal(signal.SIGSTOP)
        norvane = desktop.start(PROGRAM)
        wait_until(trials.exists, "a Norvane that has begun without the bus")
        bus.send_signal(signal.SIGCONT)

        wait_until(lambda: desktop.owns("org.norvane.Norvane"), "its name")
        wait_until(lambda: len(desktop.status_items()) == 1, "its icon")
        wait_until(lambda: "RequestAuthorization" in calls.read_text(), "its call")
        methods = [json.loads(line)[0] for line in calls.read_text().splitlines()]
        assert methods == ["RemoveAllPendingRequests", "RequestAuthorization"]
        desktop.run(PROGRAM)
        wait_until(lambda: desktop.windows("Norvane"), "the popover, at the second start")
        desktop.stop(norvane)
        assert norvane.returncode == 0


def test_while_the_bus_is_silent_the_folder_decides(tmp_path):
    with Desktop(tmp_path, panel=None) as desktop, Shell(desktop):
        wait_until((desktop.home / ".local/share/Norvane/trials.json").exists, "the first one")
        SilentBus(tmp_path / "silent", False)

        second = subprocess.run(
            [PROGRAM], env=desktop.environment | {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={tmp_path}/silent"},
            capture_output=True, text=True, timeout=30, check=False, stdin=subprocess.DEVNULL)

        assert second.returncode == 1
        assert second.stderr == "norvane: Norvane is already running in another session of this user.\n"
