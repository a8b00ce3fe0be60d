# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Norvane in trayer: an X11 system tray, on a desktop without a host of status items."""

import os
import signal
import subprocess
from pathlib import Path

import pytest
from support.desktop import ACCESSIBLE, Desktop
from support.shell import SIZE, Shell
from support.waiting import wait_until

BUILD = Path(os.environ["NORVANE_BUILD"])
TRAYER = (
    "trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height", "30",
    "--SetDockType", "true", "--SetPartialStrut", "true", "--transparent", "false", "--tint", "0xffffff",
)


@pytest.fixture
def desktop(folder):
    with Desktop(folder, panel=None) as started:
        yield started


def icon_processes(shell):
    answer = subprocess.run(
        ["pgrep", "-P", str(shell.process.pid), "-f", "norvane-legacy-tray"],
        capture_output=True, text=True, check=False,
    )
    return answer.stdout.split()


def icon(desktop, shell, leftmost=1000):
    """Where the icon's window is, once there is exactly one, of a sensible size."""

    def found():
        own = icon_processes(shell)
        if len(own) != 1:
            return None
        answer = subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--pid", own[0]],
            env=desktop.environment, capture_output=True, text=True, check=False,
        )
        windows = answer.stdout.split()
        if len(windows) != 1:
            return None
        lines = desktop.run("xdotool", "getwindowgeometry", "--shell", windows[0]).split()
        values = dict(line.split("=") for line in lines)
        place = tuple(int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))
        return place if 16 <= place[2] <= 40 and place[1] < 70 and place[0] > leftmost else None

    shell.icon = wait_until(found, "one icon in the tray")
    return shell.icon


def test_a_screen_reader_finds_one_norvane(desktop):
    desktop.start(*TRAYER)
    with Shell(desktop) as shell:
        icon(desktop, shell)
        shell.press()
        shell.wait_open()
        wait_until(lambda: desktop.accessible(), "Norvane in the accessible tree")

        assert desktop.run("/usr/bin/python3", ACCESSIBLE, "programs").split().count("Norvane") == 1


def test_the_targets_that_the_run_script_builds_bring_the_icons_program():
    run = (Path(__file__).resolve().parents[2] / "scripts/run").read_text()
    (targets,) = [line.split()[2:] for line in run.splitlines() if line.startswith("scripts/build ")]

    parts = subprocess.run(["ninja", "-C", BUILD, "-t", "inputs", *targets],
                           capture_output=True, text=True, check=True).stdout.split()

    assert {"libexec/norvane/norvane-legacy-tray", "libexec/norvane-notifier"} <= set(parts) | set(targets)


def test_its_icon_is_legible_on_a_white_tray(desktop, folder):
    desktop.start(*TRAYER)
    with Shell(desktop) as shell:
        x, y, width, height = icon(desktop, shell)
        desktop.wait_until_still()
        picture = desktop.screenshot(folder / "icon.png")

        crop = f"{width}x{height}+{x}+{y}"
        colours = desktop.run("convert", picture, "-crop", crop, "-format", "%[fx:minima] %[fx:maxima]", "info:")
        darkest, lightest = map(float, colours.split())
        assert darkest < 0.6 and lightest > 0.8, "a grey drawing on white, with no black square"


def test_it_opens_when_the_button_goes_down_and_closes_at_the_next(desktop, folder):
    desktop.start(*TRAYER)
    with Shell(desktop) as shell:
        x, y, width, height = icon(desktop, shell)
        desktop.run("xdotool", "mousemove", x + width // 2, y + height // 2, "mousedown", "1")
        shell.wait_open()
        desktop.run("xdotool", "mouseup", "1")
        shell.wait_keyboard()
        desktop.wait_until_still()
        desktop.screenshot(folder / "opened.png")

        left, top, *size = shell.popover()
        assert tuple(size) == SIZE
        assert 30 <= top <= 40
        assert left == min(x + width // 2 - SIZE[0] // 2, 1280 - 4 - SIZE[0]), "as far from the edge as from the panel"
        shell.press()
        shell.wait_closed()


@pytest.mark.parametrize("scaling", [{}, {"QT_SCALE_FACTOR": "1.25"}, {"QT_SCREEN_SCALE_FACTORS": "2"}],
                         ids=["1", "1.25", "2"])
def test_it_opens_centred_below_an_icon_in_mid_screen(desktop, scaling):
    desktop.start(*(word if word != "right" else "center" for word in TRAYER))
    with Shell(desktop, **scaling) as shell:
        x, y, width, height = icon(desktop, shell, leftmost=500)
        shell.press()
        left, top, popover_width, _ = shell.wait_open()

        assert abs(left + popover_width / 2 - (x + width / 2)) <= 2
        assert 30 <= top <= 40


def test_it_stays_inside_a_work_area_that_only_the_window_manager_knows(desktop):
    desktop.start(*TRAYER)
    with Shell(desktop) as shell:
        icon(desktop, shell)
        desktop.run("xprop", "-root", "-f", "_NET_WORKAREA", "32c", "-set", "_NET_WORKAREA", "0, 60, 1280, 740")
        shell.press()

        assert shell.wait_open()[1] == 64


def test_an_icon_whose_process_died_comes_back(desktop):
    desktop.start(*TRAYER)
    with Shell(desktop) as shell:
        icon(desktop, shell)
        (own,) = icon_processes(shell)
        os.kill(int(own), signal.SIGKILL)
        wait_until(lambda: icon_processes(shell) not in ([], [own]), "another process for the icon")

        icon(desktop, shell)


def test_two_quick_presses_open_and_close(desktop):
    desktop.start(*TRAYER)
    with Shell(desktop) as shell:
        x, y, width, height = icon(desktop, shell)
        desktop.run("xdotool", "mousemove", x + width // 2, y + height // 2)
        desktop.run("xdotool", "click", "1")
        shell.wait_open()
        desktop.run("xdotool", "click", "1")
        shell.wait_closed()


def test_a_tray_that_restarts_still_shows_one_icon(desktop):
    with Shell(desktop) as shell:  # Started before there is any tray.
        for _ in range(3):
            tray = desktop.start(*TRAYER)
            icon(desktop, shell)
            desktop.stop(tray)
            wait_until(lambda: not icon_processes(shell), "the end of the icon")


def test_a_host_of_status_items_takes_over_and_gives_back(desktop):
    former = desktop.start(*TRAYER)
    with Shell(desktop) as shell:
        icon(desktop, shell)

        panel = desktop.start_panel()
        wait_until(lambda: not icon_processes(shell), "the end of the icon in the old tray")
        wait_until(lambda: len(desktop.status_items()) == 1, "the icon in the panel")
        desktop.stop(panel)
        desktop.stop(former)  # Whose tray the panel had taken over, too.
        desktop.start(*TRAYER)

        icon(desktop, shell)


def test_the_icon_ends_with_norvane(desktop):
    desktop.start(*TRAYER)
    with Shell(desktop) as shell:
        icon(desktop, shell)
        (own,) = icon_processes(shell)
        shell.process.kill()

        wait_until(lambda: subprocess.run(["ps", "-p", own], capture_output=True, check=False).returncode != 0,
                   "the end of the icon's process")
