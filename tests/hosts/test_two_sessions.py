# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""A user with two sessions, that is, with two session buses and one folder of trials."""

import signal
import subprocess

import pytest
from support.bus import PrivateBus
from support.desktop import Desktop
from support.notification_server import NotificationServer
from support.shell import PROGRAM, Shell
from support.waiting import wait_until

SENTENCE = "Norvane is already running in another session of this user."


@pytest.fixture(scope="module")
def desktop(folder):
    with Desktop(folder) as started:
        yield started


@pytest.fixture
def other_bus(tmp_path, desktop):
    with PrivateBus(tmp_path / "bus", desktop.environment) as bus:
        yield bus


def start(desktop, address):
    return subprocess.run([PROGRAM], env=desktop.environment | {"DBUS_SESSION_BUS_ADDRESS": address},
                          capture_output=True, text=True, timeout=30, check=False, stdin=subprocess.DEVNULL)


def trials_file(desktop):
    return desktop.home / ".local/share/Norvane/trials.json"


def test_the_second_says_so_on_its_own_desktop_and_ends(desktop, other_bus):
    with Shell(desktop) as shell, NotificationServer(other_bus) as server:
        shell.find_icon()
        before = trials_file(desktop).stat().st_mtime_ns

        second = start(desktop, other_bus.address)

        assert (second.returncode, second.stdout, second.stderr) == (1, "", f"norvane: {SENTENCE}\n")
        (shown,) = server.wait_for(1)
        assert (shown.application, shown.body) == ("Norvane", SENTENCE)
        assert trials_file(desktop).stat().st_mtime_ns == before
        assert not shell.is_open() and shell.process.poll() is None


def test_the_second_does_not_touch_the_notification_centre(desktop, other_bus):
    with Shell(desktop):
        wait_until(trials_file(desktop).exists, "the trials file")
        other_bus.install("org.norvane.NotificationCenter", f"/bin/sh -c ': > {desktop.folder}/touched'")

        assert start(desktop, other_bus.address).returncode == 1

        assert not (desktop.folder / "touched").exists()


def test_without_a_bus_the_second_says_so_too(desktop):
    with Shell(desktop):
        wait_until(trials_file(desktop).exists, "the trials file")

        second = start(desktop, f"unix:path={desktop.folder}/none")

        assert (second.returncode, second.stderr) == (1, f"norvane: {SENTENCE}\n")


def test_one_that_was_killed_is_not_in_the_way(desktop, other_bus):
    with Shell(desktop) as shell:
        wait_until(trials_file(desktop).exists, "the trials file")
        shell.process.kill()
        shell.process.wait()

    trials_file(desktop).unlink()
    next_one = desktop.start(PROGRAM, DBUS_SESSION_BUS_ADDRESS=other_bus.address)

    wait_until(trials_file(desktop).exists, "the trials file of the next one")
    assert next_one.poll() is None
    desktop.stop(next_one, signal.SIGTERM)
    assert next_one.returncode == 0
