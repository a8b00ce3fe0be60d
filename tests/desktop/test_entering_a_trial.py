# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""What is pasted, typed and scrolled in the form, with a real clipboard, keyboard and wheel."""

import json
import os
import re
import subprocess
import sys
from datetime import datetime, timedelta, timezone
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.desktop import Desktop, fresh_folder  # noqa: E402
from support.shell import Shell  # noqa: E402
from support.waiting import wait_until  # noqa: E402

BUILD = Path(os.environ["NORVANE_BUILD"])
REFERENCE = datetime(2001, 1, 1, tzinfo=timezone.utc)
DAY, TIME = ("spin button", "Trial ends", "Day"), ("spin button", "Trial ends", "Time")


@pytest.fixture(scope="module")
def desktop():
    with Desktop(fresh_folder(BUILD / "desktop/entering")) as started:
        started.environment["TZ"] = "UTC"
        yield started


@pytest.fixture
def form(desktop):
    """The form of a program without trials, with the keyboard in its name field."""
    file = desktop.home / ".local/share/Norvane/trials.json"
    file.unlink(missing_ok=True)
    with Shell(desktop, BUILD / "app/norvane") as shell:
        desktop.run(shell.program)  # The second one asks the first to show its panel.
        shell.wait_keyboard()
        desktop.click_on("push button", "Add Trial")
        wait_focus(desktop, "text", "Service name")
        yield file


def wait_focus(desktop, *node):
    wait_until(lambda: (desktop.find(*node) or {}).get("focused"), f"the keyboard in {node}")


def trials(file):
    return json.loads(file.read_text())


def track(desktop, file):
    """Submits the form with the keyboard; the one trial that is in the file then."""
    desktop.key("ctrl+Return")
    (trial,) = wait_until(lambda: trials(file), "the trial in the file")
    return trial


def end_of(trial):
    return REFERENCE + timedelta(seconds=trial["endDate"])


def days_ahead(days):
    return (datetime.now(timezone.utc) + timedelta(days=days)).date()


def clipboard(desktop):
    """What stands in the clipboard; nothing while it has no owner."""
    answer = subprocess.run(["xclip", "-selection", "clipboard", "-o"], env=desktop.environment,
                            capture_output=True, text=True, timeout=30, check=False)
    return answer.stdout if answer.returncode == 0 else None


def copy(desktop, text):
    source = desktop.folder / "clipboard.txt"
    source.write_bytes(text.encode())
    owner = desktop.start("xclip", "-quiet", "-selection", "clipboard", source)
    wait_until(lambda: clipboard(desktop) == text, "the text in the clipboard")
    return owner


def paste(desktop, text):
    owner = copy(desktop, text)
    desktop.key("ctrl+v")
    return owner


def month_of(desktop):
    """The month and year above the open calendar."""
    (month,) = {node["name"] for node in desktop.accessible() if re.fullmatch(r"[A-Z]\w+ \d{4}", node["name"])}
    return month


def type_day(desktop, text):
    desktop.key("Tab")
    wait_focus(desktop, *DAY)
    desktop.type(text)


def test_a_name_and_a_cost_pasted_with_line_breaks_are_stored_as_they_are_shown(desktop, form):
    paste(desktop, "\nNetflix\nPremium\n")
    desktop.key("Tab", "Tab", "Tab", "Tab")
    wait_focus(desktop, "text", "Monthly cost after trial")
    paste(desktop, "15.49\n")

    trial = track(desktop, form)

    assert (trial["name"], trial["cost"]) == ("Netflix Premium", 15.49)


def test_the_wheel_over_a_date_without_the_keyboard_leaves_it_alone(desktop, form):
    desktop.type("Acme Cloud")
    x, y, width, height = desktop.find(*DAY)["box"]
    desktop.run("xdotool", "mousemove", x + width // 2, y + height // 2, "click", "--repeat", "3", "5")

    trial = track(desktop, form)

    assert abs((end_of(trial) - datetime.now(timezone.utc)).total_seconds() - 7 * 86400) < 120


def test_the_wheel_over_the_date_that_has_the_keyboard_steps_it(desktop, form):
    desktop.type("Acme Cloud")
    desktop.key("Tab")
    wait_focus(desktop, *DAY)
    x, _, _, height = desktop.find(*DAY)["box"]
    y = desktop.find(*DAY)["box"][1]
    desktop.run("xdotool", "mousemove", x + 9, y + height // 2, "click", "--repeat", "3", "4")

    trial = track(desktop, form)

    assert end_of(trial).date() == days_ahead(10)


@pytest.mark.parametrize("pattern", ["%Y-%m-%d", "%d%m%Y", "%d.%m.%Y", "%d %b %y"])
def test_a_typed_date_is_the_one_that_is_tracked(desktop, form, pattern):
    expected = days_ahead(100)
    desktop.type("Acme Cloud")
    type_day(desktop, expected.strftime(pattern))

    trial = track(desktop, form)

    assert end_of(trial).date() == expected


@pytest.mark.parametrize("submit", ["keys", "mouse"])
def test_a_text_that_is_no_date_is_not_tracked_until_the_old_date_was_seen(desktop, form, submit):
    def send():
        if submit == "keys":
            desktop.key("ctrl+Return")
        else:
            desktop.click_on("push button", "Track Trial")

    desktop.type("Acme Cloud")
    type_day(desktop, "soon")
    send()
    desktop.wait_until_still()
    desktop.screenshot(desktop.folder / f"refused-by-{submit}.png")

    assert trials(form) == []
    wait_focus(desktop, *DAY)
    send()
    (trial,) = wait_until(lambda: trials(form), "the trial in the file")
    assert end_of(trial).date() == days_ahead(7)


def test_control_return_takes_the_day_of_the_open_calendar_and_the_next_one_tracks(desktop, form):
    desktop.type("Acme Cloud")
    desktop.key("Tab", "Tab", "Return")
    wait_until(lambda: desktop.find("dialog", "Choose a day"), "the calendar")
    desktop.key("Right")
    desktop.screenshot(desktop.folder / "calendar.png")

    desktop.key("ctrl+Return")
    wait_until(lambda: not desktop.find("dialog", "Choose a day"), "the calendar's end")
    assert trials(form) == []

    trial = track(desktop, form)
    assert end_of(trial).date() == days_ahead(8)


def test_the_wheel_over_the_open_calendar_turns_its_months(desktop, form):
    desktop.type("Acme Cloud")
    desktop.click_on("push button", "Choose a day")
    x, y, width, height = wait_until(lambda: desktop.find("dialog", "Choose a day"), "the calendar")["box"]
    this_month = month_of(desktop)

    desktop.run("xdotool", "mousemove", x + width // 2, y + height // 2, "click", "5")
    wait_until(lambda: month_of(desktop) != this_month, "another month")
    desktop.run("xdotool", "click", "4")
    wait_until(lambda: month_of(desktop) == this_month, "the former month again")
    desktop.key("Escape")

    assert end_of(track(desktop, form)).date() == days_ahead(7)


def choose(desktop, entry, way):
    """Opens the context menu of the name field and chooses this entry, with the mouse or the keyboard alone."""
    if way == "mouse":
        x, y, width, height = desktop.find("text", "Service name")["box"]
        desktop.run("xdotool", "mousemove", x + width - 9, y + height // 2, "click", "3")
    else:
        desktop.key("Menu")
    wait_until(lambda: (desktop.find("menu item", entry) or {}).get("enabled"), f"the entry {entry}")
    if way == "mouse":
        desktop.click_on("menu item", entry)
    else:
        while not desktop.find("menu item", entry)["focused"]:
            desktop.key("Down")
        desktop.key("Return")
    wait_until(lambda: not desktop.find("menu item", entry), "the end of the menu")


@pytest.mark.parametrize("way", ["mouse", "keyboard"])
def test_the_context_menu_selects_copies_deletes_undoes_and_cuts(desktop, form, way):
    def wait_name(text):
        wait_until(lambda: desktop.find("text", "Service name")["text"] == text, f"{text!r} in the field")

    desktop.type("Acme Cloud")
    choose(desktop, "Select All", way)
    choose(desktop, "Copy", way)
    wait_until(lambda: clipboard(desktop) == "Acme Cloud", "the name in the clipboard")
    choose(desktop, "Delete", way)
    wait_name("")
    choose(desktop, "Undo", way)
    wait_name("Acme Cloud")
    desktop.key("End")
    desktop.type(" Premium")
    desktop.key("ctrl+a")
    choose(desktop, "Cut", way)
    wait_until(lambda: clipboard(desktop) == "Acme Cloud Premium", "the longer name in the clipboard")
    wait_name("")


def test_the_menu_key_opens_the_context_menu_for_the_keyboard(desktop, form):
    desktop.type("Acme Cloud")
    copy(desktop, " Premium")
    desktop.key("Menu")
    wait_until(lambda: (desktop.find("menu item", "Paste") or {}).get("enabled"), "the menu")

    while not desktop.find("menu item", "Paste")["focused"]:
        desktop.key("Down")
    desktop.key("Return")
    wait_until(lambda: not desktop.find("menu item", "Paste"), "the end of the menu")

    assert track(desktop, form)["name"] == "Acme Cloud Premium"


def test_the_context_menu_pastes_with_the_mouse_alone(desktop, form):
    x, y, width, height = desktop.find("text", "Monthly cost after trial")["box"]
    desktop.type("Acme Cloud")
    copy(desktop, "9.50\n")

    desktop.run("xdotool", "mousemove", x + width // 2, y + height // 2, "click", "3")
    wait_until(lambda: (desktop.find("menu item", "Paste") or {}).get("enabled"), "the menu")
    desktop.screenshot(desktop.folder / "menu.png")
    desktop.click_on("menu item", "Paste")

    assert track(desktop, form)["cost"] == 9.5
