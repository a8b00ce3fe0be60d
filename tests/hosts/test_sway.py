# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Norvane in waybar on sway: a host of status items, on Wayland with XWayland and without.

Sway places windows itself, so here the popover has to be whole and focused, wherever it is.
"""

import json

import pytest
from support.desktop import fresh_folder
from support.shell import PROGRAM, SIZE
from support.sway import Sway
from support.waiting import wait_until


@pytest.fixture(params=["xwayland", "wayland"])
def desktop(folder, request):
    with Sway(fresh_folder(folder / request.param), xwayland=request.param == "xwayland") as started:
        yield started


def start(desktop):
    process = desktop.start(PROGRAM)
    wait_until(lambda: desktop.owns("org.norvane.Norvane"), "Norvane on the bus")
    return process


def icon(desktop, before):
    def area():
        after = desktop.screenshot(desktop.folder / "with-icon.png")
        found = desktop.changed_area(before, after)
        return found if found and all(8 <= length <= 48 for length in found[2:]) else None

    return wait_until(area, "the icon")


def press(desktop, place):
    desktop.click(place[0] + place[2] // 2, place[1] + place[3] // 2)


def popover(desktop):
    return next(iter(desktop.windows("Norvane")), None)


def is_form(desktop, before):
    """What changed on the screen is as large as the form, not just a ring around a button."""
    area = desktop.changed_area(before, desktop.screenshot(desktop.folder / "form.png"))
    return area and area[3] > 120


def names(desktop):
    file = desktop.home / ".local/share/Norvane/trials.json"
    return [trial["name"] for trial in json.loads(file.read_text(encoding="utf-8") or "[]")]


def test_a_click_opens_it_with_the_keyboard_and_the_next_one_closes_it(desktop, folder):
    desktop.wait_until_still()
    before = desktop.screenshot(desktop.folder / "before.png")
    process = start(desktop)
    place = icon(desktop, before)

    press(desktop, place)
    window = wait_until(lambda: popover(desktop), "the popover")
    wait_until(lambda: popover(desktop)["focused"], "the keyboard at the popover")
    desktop.wait_until_still()
    desktop.screenshot(folder / f"{desktop.folder.name}.png")

    rect = window["rect"]
    assert (rect["width"], rect["height"]) == SIZE
    assert rect["x"] >= 0 and rect["y"] >= 0 and rect["x"] + rect["width"] <= 1280 and rect["y"] + rect["height"] <= 800
    assert window["shell"] == ("xwayland" if desktop.xwayland else "xdg_shell")
    identity = window["window_properties"]["class"] if desktop.xwayland else window["app_id"]
    assert identity == ("Norvane" if desktop.xwayland else "org.norvane.Norvane")

    # The keyboard is at Add Trial. The form is opened by keys alone, typed into, and sent off.
    panel = desktop.screenshot(desktop.folder / "panel.png")
    desktop.key("Return")
    wait_until(lambda: is_form(desktop, panel), "the form")
    desktop.type("Half a year")
    desktop.key("ctrl+Return")
    wait_until(lambda: "Half a year" in names(desktop), "the trial of this name")

    press(desktop, place)
    wait_until(lambda: popover(desktop) is None, "the popover's end")
    desktop.stop(process)
    assert process.returncode == 0


def test_started_before_the_bar_and_through_its_restarts_it_has_its_icon(desktop):
    desktop.wait_until_still()
    before = desktop.screenshot(desktop.folder / "before.png")
    bar = next(process for process in desktop.processes if "waybar" in process.args)
    desktop.stop(bar)
    wait_until(lambda: not desktop.owns("org.kde.StatusNotifierWatcher"), "the bar's end")
    process = start(desktop)
    for _ in range(3):
        bar = desktop.start_panel()
        place = icon(desktop, before)
        desktop.stop(bar)
        wait_until(lambda: not desktop.owns("org.kde.StatusNotifierWatcher"), "the bar's end")
    desktop.start_panel()
    icon(desktop, before)
    press(desktop, place)
    wait_until(lambda: popover(desktop), "the popover")
    desktop.stop(process)
