# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""The form and the list where the screen is too low for them, or the text too large."""

import json
import os
import sys
import time
from contextlib import contextmanager
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.desktop import Desktop, fresh_folder, overlap  # noqa: E402
from support.shell import Shell  # noqa: E402
from support.waiting import wait_until  # noqa: E402

BUILD = Path(os.environ["NORVANE_BUILD"])
REFERENCE = 978307200
DAY = ("spin button", "Trial ends", "Day")
KDE = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}  # Has a setting for the size of text alone.
LARGE_TEXT = "[General]\nfont=Noto Sans,24,-1,5,50,0,0,0,0,0\n"
UP, DOWN = "4", "5"  # The wheel, as buttons.


@pytest.fixture(scope="module")
def desktop():
    with Desktop(fresh_folder(BUILD / "desktop/large-text"), panel=None) as started:
        settings = started.home / ".config/kdeglobals"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text(LARGE_TEXT)
        started.environment.update(KDE)
        yield started


@pytest.fixture(scope="module")
def low_desktop():
    """One that has room for little more than the panel's header and footer."""
    with Desktop(fresh_folder(BUILD / "desktop/low"), size="800x130", panel=None) as started:
        yield started


def trials_file(desktop):
    return desktop.home / ".local/share/Norvane/trials.json"


@contextmanager
def shown(desktop, trials=(), **environment):
    """The open panel with these trials."""
    file = trials_file(desktop)
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(json.dumps(trials))
    with Shell(desktop, BUILD / "app/norvane", **environment) as shell:
        desktop.run(shell.program)  # The second one asks the first to show its panel.
        shell.wait_keyboard()
        yield shell


@contextmanager
def form(desktop, **environment):
    """The form of a program without trials, with a name in it."""
    with shown(desktop, **environment) as shell:
        desktop.click_on("push button", "Add Trial")
        wait_until(lambda: (desktop.find("text", "Service name") or {}).get("focused"), "the form")
        desktop.type("Acme Cloud")
        yield shell


def top(desktop, *node):
    return desktop.find(*node)["box"][1]


def point_at(desktop, *node):
    x, y, width, height = desktop.find(*node)["box"]
    desktop.run("xdotool", "mousemove", x + width // 2, y + height // 2)


def turn_wheel(desktop, notches, button=DOWN):
    desktop.run("xdotool", "click", "--repeat", notches, "--delay", "20", button)


def tracked(desktop):
    """The one trial in the file, once it is there."""
    (trial,) = wait_until(lambda: json.loads(trials_file(desktop).read_text()), "the trial in the file")
    return trial


def test_at_large_text_the_wheel_over_a_date_scrolls_the_form_and_leaves_the_date_alone(desktop):
    with form(desktop):
        before = top(desktop, *DAY)
        point_at(desktop, *DAY)

        turn_wheel(desktop, 1)
        wait_until(lambda: top(desktop, *DAY) < before - 10, "the form to have moved up")
        desktop.screenshot(desktop.folder / "scrolled.png")
        turn_wheel(desktop, 3, UP)
        wait_until(lambda: top(desktop, *DAY) == before, "the form to be back")
        desktop.key("ctrl+Return")

        assert abs(tracked(desktop)["endDate"] + REFERENCE - (time.time() + 7 * 86400)) < 120


@pytest.mark.parametrize("size", ["large text", "low screen"])
def test_the_forms_scroll_bar_has_a_long_handle_and_lies_beside_the_fields(request, size):
    desktop = request.getfixturevalue("desktop" if size == "large text" else "low_desktop")
    with form(desktop):
        desktop.wait_until_still()
        desktop.screenshot(desktop.folder / "bar.png")
        (bar,) = (node["box"] for node in desktop.accessible() if node["role"] == "scroll bar")
        fields = [node["box"] for node in desktop.accessible()
                  if node["role"] in ("text", "spin button", "push button")]
        assert 24 <= desktop.handle_length(bar) < bar[3]
        assert fields and not any(overlap(field, bar) for field in fields)


def test_on_a_low_screen_the_wheel_brings_the_forms_last_button_to_the_mouse(low_desktop):
    with form(low_desktop) as shell:
        low_desktop.screenshot(low_desktop.folder / "form.png")
        _, y, _, height = shell.popover()
        assert y >= 0 and y + height <= 130, "all of the popover is on the screen"
        assert not low_desktop.find("push button", "Track Trial"), "otherwise there is nothing to scroll"

        point_at(low_desktop, "text", "Service name")
        turn_wheel(low_desktop, 15)
        low_desktop.wait_until_still()
        low_desktop.screenshot(low_desktop.folder / "scrolled.png")
        low_desktop.click_on("push button", "Track Trial")

        assert tracked(low_desktop)["name"] == "Acme Cloud"


def test_on_a_low_screen_the_wheel_brings_the_lists_last_trial_to_the_mouse(low_desktop):
    trials = [{"id": f"BA96CA62-A106-480E-9C02-{number:012X}", "name": f"Acme {number}", "endDate": 4e9, "cost": 0,
               "notes": "", "createdAt": 0, "notificationIds": []} for number in range(9)]
    with shown(low_desktop, trials):
        assert not low_desktop.find("push button", "Delete", "Acme 8")
        point_at(low_desktop, "list", "Trials")
        turn_wheel(low_desktop, 15)
        low_desktop.wait_until_still()
        low_desktop.screenshot(low_desktop.folder / "list.png")

        low_desktop.click_on("push button", "Delete", "Acme 8")
        wait_until(lambda: low_desktop.find("dialog", "Delete Trial?"), "the question")
