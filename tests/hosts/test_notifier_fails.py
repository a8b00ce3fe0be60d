# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Norvane with a notifier that dies, is slow to start, or does not start."""

import json
import os
import random
import shutil
import signal
import time
from pathlib import Path

import pytest
from support.desktop import Desktop, fresh_folder
from support.process import busy_machine
from support.shell import PROGRAM, Shell
from support.waiting import wait_until

BUILD = Path(os.environ["NORVANE_BUILD"])
NOTIFIER = BUILD / "libexec/norvane-notifier"
NAME, PATH = "org.norvane.NotificationCenter", "/org/norvane/NotificationCenter"


class DesktopWithService(Desktop):
    """A desktop whose bus starts the notification centre by this command, or by nothing."""

    def __init__(self, folder, command=None):
        super().__init__(fresh_folder(folder), panel=None)
        self.command = command

    def _start_bus(self):
        services = self.folder / "share/dbus-1/services"
        services.mkdir(parents=True)
        if self.command:
            script = self.folder / "start-notifier"
            script.write_text(f"#!/bin/sh\n{self.command}\n")
            script.chmod(0o755)
            (services / f"{NAME}.service").write_text(f"[D-BUS Service]\nName={NAME}\nExec={script}\n")
        self.environment["XDG_DATA_DIRS"] = f"{self.folder}/share:/usr/share"
        super()._start_bus()

    def notifier(self):
        """The process of the notification centre; 0 when there is none."""
        connection = self.bus()
        try:
            return int(connection.call_blocking("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                                "GetConnectionUnixProcessID", "s", (NAME,)))
        except Exception:  # Its bindings have no better name for it.
            return 0
        finally:
            connection.close()

    def pending(self):
        connection = self.bus()
        try:
            return [str(request[0]) for request in connection.call_blocking(
                NAME, PATH, "org.norvane.NotificationCenter1", "PendingRequests", "", ())]
        finally:
            connection.close()

    def fill(self, count):
        """Writes a trials file with this many trials that end in the far future."""
        far = time.time() - 978_307_200 + 300 * 86_400
        folder = self.home / ".local/share/Norvane"
        folder.mkdir(parents=True)
        (folder / "trials.json").write_text(json.dumps([
            {"id": f"00000000-0000-4000-8000-{number:012}", "name": f"Trial {number}", "endDate": far, "cost": 1,
             "notes": "", "createdAt": far, "notificationIds": []} for number in range(count)]))


@pytest.fixture
def desktop_with_service(folder):
    started = []

    def start(name, command=None):
        started.append(DesktopWithService(folder / name, command).__enter__())
        return started[0]

    yield start
    for desktop in started:
        pid = desktop.notifier()
        desktop.__exit__()
        if pid:
            os.kill(pid, signal.SIGKILL)


def test_killed_at_any_moment_of_a_plan_it_has_the_whole_plan_afterwards(desktop_with_service):
    desktop = desktop_with_service("killed", f"exec {NOTIFIER}")
    desktop.fill(300)
    seed = random.randrange(1_000_000)
    print("seed", seed)
    moments = random.Random(seed)
    for _ in range(8):
        with Shell(desktop):
            pid = wait_until(desktop.notifier, "the notifier")
            time.sleep(moments.uniform(0, 0.2))  # The moment is what is tested.
            os.kill(pid, signal.SIGKILL)
            wait_until(lambda pid=pid: desktop.notifier() != pid, "the end of the notifier")
            wait_until(lambda: len(desktop.pending()) == 900, "the whole plan")
        os.kill(desktop.notifier(), signal.SIGKILL)
        wait_until(lambda: not desktop.notifier(), "its end")
        shutil.rmtree(desktop.home / ".local/state/norvane")  # So that the next plan starts from nothing.


def test_a_notifier_that_norvane_starts_has_the_whole_plan_each_time(desktop_with_service):
    desktop = desktop_with_service("starts", f"exec {NOTIFIER}")
    desktop.fill(300)
    with busy_machine():
        for _ in range(25):
            with Shell(desktop):
                pid = wait_until(desktop.notifier, "the notifier")
                wait_until(lambda: len(desktop.pending()) == 900, "the whole plan", 30)
                os.kill(pid, signal.SIGKILL)  # The next start finds what is in its file.


def test_quit_while_the_notifier_starts_loses_nothing_and_shows_nothing(desktop_with_service):
    desktop = desktop_with_service("slow", f"sleep 2; exec {NOTIFIER}")
    desktop.fill(300)
    with Shell(desktop) as shell:
        wait_until(lambda: shell.output() or (desktop.home / ".local/share/Norvane/trials.json").exists(), "it")
        desktop.run(PROGRAM)
        shell.wait_open()
        shell.process.terminate()
        shell.wait_closed()
        still_there = shell.process.poll() is None
        assert shell.process.wait(6) == 0

    assert still_there, "the window was gone before the process"
    assert len(desktop.pending()) == 900


def test_a_notifier_that_the_bus_cannot_start_is_started_by_norvane(desktop_with_service):
    desktop = desktop_with_service("broken", "exit 3")
    desktop.fill(2)
    with Shell(desktop) as shell:
        wait_until(desktop.notifier, "the notifier")
        wait_until(lambda: len(desktop.pending()) == 6, "the plan")

        (line,) = shell.output().splitlines()
        assert line.startswith("norvane: the session bus cannot start the notification centre (")
        assert line.endswith("), so Norvane starts it")


def test_the_notifier_is_found_from_wherever_both_are_installed(desktop_with_service, folder):
    prefix = fresh_folder(folder / "prefix")
    for program in ("bin/norvane", "libexec/norvane-notifier"):
        (prefix / program).parent.mkdir()
    program = Path(shutil.copy(PROGRAM, prefix / "bin/norvane"))
    shutil.copy(NOTIFIER, prefix / "libexec/norvane-notifier")
    desktop = desktop_with_service("prefix-desktop")
    with Shell(desktop, program):
        pid = wait_until(desktop.notifier, "the notifier")

        assert Path(f"/proc/{pid}/exe").resolve() == prefix / "libexec/norvane-notifier"
