# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Norvane where something is missing, started twice, or asked to end."""

import os
import shutil
import signal
import subprocess
import sys
from pathlib import Path

import pytest
from support.desktop import Desktop, fresh_folder
from support.shell import PROGRAM, Shell
from support.waiting import wait_until

CENTER = Path(__file__).resolve().parent.parent / "support/recording_center.py"
NOBODY = 65534


@pytest.fixture(scope="module")
def desktop(folder):
    with Desktop(folder) as started:
        yield started


def run(desktop, command, drop=(), **extra):
    """Runs a command to its end with the desktop's environment, less some, plus some."""
    environment = {name: value for name, value in desktop.environment.items() if name not in drop} | extra
    return subprocess.run(command, env=environment, capture_output=True, text=True, timeout=30, check=False,
                          stdin=subprocess.DEVNULL)


def trials_file(desktop):
    return desktop.home / ".local/share/Norvane/trials.json"


def test_the_icons_menu_speaks_the_language_of_the_panel(desktop):
    with Shell(desktop, LANG="de_DE.UTF-8") as shell:
        shell.find_icon()
        (item,) = desktop.status_items()
        connection = desktop.bus()
        label = connection.call_blocking(str(item).split("/")[0], "/MenuBar", "com.canonical.dbusmenu", "GetProperty",
                                         "is", (1, "label"))
        connection.close()

        assert label == "Norvane öffnen"


@pytest.mark.parametrize("number", [signal.SIGTERM, signal.SIGINT, signal.SIGHUP])
def test_a_signal_ends_it_cleanly(desktop, number):
    with Shell(desktop) as shell:
        shell.find_icon()
        shell.process.send_signal(number)

        assert shell.process.wait(10) == 0
        assert shell.output() == ""


def test_what_was_handed_to_the_centre_arrives_although_it_ends_at_once(folder):
    with Desktop(folder / "recorded", panel=None) as desktop:
        calls = desktop.folder / "calls.jsonl"
        calls.touch()
        desktop.start(sys.executable, CENTER, calls)
        wait_until(lambda: desktop.owns("org.norvane.NotificationCenter"), "the notification centre")
        with Shell(desktop) as shell:
            shell.process.terminate()
            assert shell.process.wait(10) == 0

        wait_until(lambda: "RequestAuthorization" in calls.read_text(), "the request for permission")


def test_started_again_it_opens_the_one_that_runs(desktop):
    with Shell(desktop) as shell:
        shell.find_icon()
        before = trials_file(desktop).stat().st_mtime_ns

        second = run(desktop, [PROGRAM])

        assert (second.returncode, second.stdout + second.stderr) == (0, "")
        shell.wait_keyboard()
        assert trials_file(desktop).stat().st_mtime_ns == before, "the second one left the file alone"
        assert shell.process.poll() is None


def test_started_while_the_former_one_is_ending_there_is_one(desktop):
    for _ in range(3):
        with Shell(desktop) as former:
            former.process.terminate()
            latter = desktop.start(PROGRAM)
            assert former.process.wait(10) == 0
            wait_until(lambda: desktop.owns("org.norvane.Norvane"), "the latter on the bus")
            assert latter.poll() is None
            desktop.stop(latter)


def test_two_starts_at_the_same_moment_leave_one(desktop):
    for _ in range(3):
        both = [desktop.start(PROGRAM), desktop.start(PROGRAM)]
        wait_until(lambda: any(one.poll() is not None for one in both), "the end of one of the two")
        wait_until(lambda: desktop.windows("Norvane"), "the popover of the other")
        assert sorted(one.poll() is None for one in both) == [False, True]
        for one in both:
            desktop.stop(one)
        assert [one.returncode for one in both] == [0, 0]


def test_a_start_at_a_terminal_without_any_tray_opens_it(folder):
    with Desktop(folder / "no-tray", panel=None) as desktop:
        leader, follower = os.openpty()
        process = subprocess.Popen([PROGRAM], env=desktop.environment, stdin=follower, start_new_session=True)
        wait_until(lambda: desktop.windows("Norvane"), "the popover")
        process.terminate()
        assert process.wait(10) == 0
        os.close(leader)
        os.close(follower)


def test_without_any_tray_a_second_start_opens_it(folder):
    with Desktop(folder / "no-tray-again", panel=None) as desktop, Shell(desktop) as shell:
        assert not shell.is_open()
        run(desktop, [PROGRAM])
        shell.wait_keyboard()
        desktop.screenshot(folder / "no-tray.png")


def test_without_a_bus_it_runs_until_asked_to_end(desktop, folder):
    trials_file(desktop).unlink(missing_ok=True)
    environment = desktop.environment | {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={folder}/none"}
    process = subprocess.Popen([PROGRAM], env=environment, stdin=subprocess.DEVNULL,
                               stderr=subprocess.PIPE, text=True)
    wait_until(trials_file(desktop).exists, "the trials file")
    process.terminate()
    assert process.wait(10) == 0
    assert process.stderr.read() == ""


def test_a_bus_that_goes_away_does_not_take_it_along(folder):
    with Desktop(folder / "bus-gone", panel=None) as desktop, Shell(desktop) as shell:
        bus = next(process for process in desktop.processes if process.args[0] == "dbus-daemon")
        desktop.stop(bus)
        shell.process.terminate()
        assert shell.process.wait(10) == 0


def test_without_a_display_it_says_so_and_ends(desktop):
    answer = run(desktop, [PROGRAM], drop=("DISPLAY",))

    assert answer.returncode == 1
    assert answer.stderr == "norvane: there is no display to show anything on\n"


def test_a_display_that_goes_away_ends_it(folder):
    with Desktop(folder / "display-gone", panel=None) as desktop, Shell(desktop) as shell:
        display = next(process for process in desktop.processes if process.args[0] == "Xvfb")
        desktop.stop(display)
        assert shell.process.wait(10) == 1, "an end in order, by no signal"


def test_without_any_data_folder_it_stops(desktop):
    """A user that nobody knows, without a home."""
    answer = run(desktop, ["setpriv", "--reuid=54321", "--regid=54321", "--clear-groups", PROGRAM],
                 drop=("HOME", "XDG_DATA_HOME", "DBUS_SESSION_BUS_ADDRESS"))

    assert answer.returncode == -signal.SIGABRT


def test_a_home_that_cannot_be_written_is_no_obstacle(desktop, folder):
    home, runtime = folder / "locked-home", folder / "runtime-of-nobody"
    for path, mode in (home, 0o555), (runtime, 0o700):
        path.mkdir(mode=mode)
    os.chown(runtime, NOBODY, NOBODY)
    environment = desktop.environment | {
        "HOME": str(home), "XDG_RUNTIME_DIR": str(runtime), "DBUS_SESSION_BUS_ADDRESS": f"unix:path={folder}/none"}
    process = subprocess.Popen(
        ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", PROGRAM],
        env=environment, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    wait_until(lambda: any("SigCgt" in line and int(line.split()[1], 16) & (1 << (signal.SIGTERM - 1))
                           for line in Path(f"/proc/{process.pid}/status").read_text().splitlines()),
               "a Norvane that minds signals")
    process.terminate()
    assert process.wait(10) == 0
    assert process.stderr.read() == ""
    assert not list(home.iterdir())


def test_without_a_notification_centre_everything_else_works(folder):
    """None on the bus, and none beside the program to start."""
    alone = Path(shutil.copy(PROGRAM, folder / "norvane"))
    with Desktop(folder / "no-centre") as desktop, Shell(desktop, alone) as shell:
        shell.find_icon()
        shell.press()
        shell.wait_keyboard()
        assert not desktop.owns("org.norvane.NotificationCenter")
        (line,) = shell.output().splitlines()
        assert line.startswith("norvane: the notification centre does not start (")


def test_a_panel_that_cannot_be_loaded_is_one_plain_line_and_an_end(desktop, folder):
    alone = Path(shutil.copy(PROGRAM, fresh_folder(folder / "no-modules")))
    (alone.parent / "qt.conf").write_text("[Paths]\nQmlImports=none\n")
    plugins = subprocess.run(["qtpaths6", "--query", "QT_INSTALL_PLUGINS"],
                             capture_output=True, text=True, check=True).stdout.strip()

    answer = run(desktop, [alone], QT_PLUGIN_PATH=plugins)

    assert answer.returncode == 1
    (line,) = answer.stderr.splitlines()
    assert line.startswith("norvane: the panel cannot be loaded: module ") and line.endswith("is not installed")


def test_on_a_screen_lower_than_the_popover_it_is_as_high_as_the_work_area(folder):
    with Desktop(folder / "low", size="800x360", panel="bottom") as desktop, Shell(desktop) as shell:
        shell.find_icon()
        shell.press()
        _, y, width, height = shell.wait_open()
        shell.wait_keyboard()
        desktop.click_on("push button", "Add Trial")
        desktop.wait_until_still()
        desktop.screenshot(folder / "low.png")

        assert (y, width) == (0, 360) and 320 <= height <= 330, "from the top to the panel"
