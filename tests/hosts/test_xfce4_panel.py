# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Norvane in xfce4-panel: a host of status items, on X11."""

import json

import pytest
from support.desktop import Desktop, fresh_folder
from support.shell import SIZE, Shell
from support.waiting import wait_until


@pytest.fixture(scope="module")
def desktop(folder):
    with Desktop(folder, size="1280x900") as started:
        yield started


@pytest.fixture
def shell(desktop):
    with Shell(desktop) as started:
        started.find_icon()
        yield started


@pytest.fixture
def other(desktop):
    """Another program's window, which has the keyboard."""
    window = desktop.start("xev", "-name", "Other", "-geometry", "300x200+100+300")
    wait_until(lambda: "Other" in focused_name(desktop), "the other window's keyboard")
    yield window
    desktop.stop(window)


def focused_name(desktop):
    return desktop.run("xdotool", "getwindowfocus", "getwindowname")


def open_form(desktop):
    desktop.click_on("push button", "Add Trial")
    wait_until(lambda: (desktop.find("text", "Service name") or {}).get("focused"), "the form with its name field")


def names(desktop):
    """The trials in the file."""
    text = (desktop.home / ".local/share/Norvane/trials.json").read_text(encoding="utf-8")
    return [trial["name"] for trial in json.loads(text or "[]")]


def centre(icon):
    return icon[0] + icon[2] / 2, icon[1] + icon[3] / 2


def test_a_click_opens_it_below_the_icon_and_the_next_one_closes_it(desktop, shell, folder):
    shell.press()
    x, y, width, height = shell.wait_open()
    shell.wait_keyboard()
    desktop.screenshot(folder / "opened.png")

    assert (width, height) == SIZE
    assert 30 <= y <= 40
    assert x + width == 1280 - 4, "the icon is at the end of the panel, so it is as far right as it can be"
    shell.press()
    shell.wait_closed()


def test_typing_goes_into_the_form_at_once_although_another_window_was_active(desktop, shell, other):
    shell.press()
    shell.wait_keyboard()
    open_form(desktop)
    desktop.click(250, 400)  # Now the other window has the keyboard, and the form is still there.
    wait_until(lambda: "Other" in focused_name(desktop), "the other window's keyboard")
    shell.press()
    shell.wait_closed()

    shell.press()
    shell.wait_keyboard()
    desktop.type("Half a year")

    desktop.key("ctrl+Return")
    wait_until(lambda: "Half a year" in names(desktop), "the trial of this name")


def test_a_click_elsewhere_leaves_it_open(desktop, shell, other):
    shell.press()
    shell.wait_keyboard()

    desktop.click(250, 400)

    wait_until(lambda: "Other" in focused_name(desktop), "the other window's keyboard")
    assert shell.is_open()


def test_escape_closes_it_and_typing_is_kept(desktop, shell):
    shell.press()
    shell.wait_keyboard()
    open_form(desktop)
    desktop.type("Half")

    desktop.key("Escape")
    shell.wait_closed()
    shell.press()
    shell.wait_keyboard()
    desktop.type("way")

    desktop.key("ctrl+Return")
    wait_until(lambda: "Halfway" in names(desktop), "the trial with both halves of its name")


def test_closed_by_the_window_manager_it_opens_again(desktop, shell):
    shell.press()
    shell.wait_keyboard()

    desktop.key("alt+F4")
    shell.wait_closed()
    shell.press()

    shell.wait_keyboard()


def test_it_is_in_no_list_of_windows_and_above_the_others(desktop, shell):
    shell.press()
    shell.wait_open()

    state = desktop.run("xprop", "-id", desktop.windows("Norvane")[0], "_NET_WM_STATE")

    for hint in ("SKIP_TASKBAR", "SKIP_PAGER", "ABOVE"):
        assert f"_NET_WM_STATE_{hint}" in state


def test_the_right_button_shows_a_menu_that_opens_it(desktop, shell, folder):
    x, y = centre(shell.icon)
    desktop.run("xdotool", "mousemove", x, y, "sleep", "0.2", "click", "3")
    desktop.wait_until_still()
    desktop.screenshot(folder / "menu.png")
    assert not shell.is_open()

    desktop.click(x - 50, y + 33)  # The one entry, right below the panel.

    shell.wait_open()


def test_a_panel_that_restarts_ten_times_still_shows_one_icon(desktop, shell):
    for time in range(10):
        wait_until(lambda: panels(desktop), "the panel")
        panel = panels(desktop)[0]
        desktop.stop(panel)
        wait_until(lambda: not desktop.owns("org.kde.StatusNotifierWatcher"), "the panel's end")
        desktop.start_panel()
        shell.find_icon(f"the icon after restart {time + 1}")
        assert len(desktop.status_items()) == 1

    shell.press()
    shell.wait_keyboard()


def panels(desktop):
    return [process for process in desktop.processes if process.args[0] == "xfce4-panel"]


def test_started_before_the_panel_it_gets_its_icon(desktop, folder):
    with Shell(desktop) as usual:
        without_icon = usual.before.rename(folder / "panel-without-icon.png")
    desktop.stop(panels(desktop)[0])
    wait_until(lambda: not desktop.owns("org.kde.StatusNotifierWatcher"), "the panel's end")

    with Shell(desktop) as shell:
        shell.before = without_icon
        desktop.start_panel()
        shell.find_icon()
        shell.press()
        shell.wait_keyboard()


def test_nothing_is_printed(desktop):
    with Shell(desktop) as shell:
        shell.find_icon()
        shell.press()
        shell.wait_keyboard()
        desktop.key("Escape")
        shell.wait_closed()

    assert shell.process.returncode == 0
    assert shell.output() == ""


@pytest.mark.parametrize("position", ["bottom", "left", "right"])
def test_it_stands_beside_a_panel_at_any_edge(folder, position):
    with Desktop(fresh_folder(folder / position), panel=position) as desktop, Shell(desktop) as shell:
        shell.find_icon()
        shell.press()
        x, y, width, height = shell.wait_open()
        shell.wait_keyboard()
        desktop.screenshot(folder / f"{position}.png")

        assert (width, height) == SIZE
        gaps = {"bottom": 800 - 30 - (y + height), "left": x - 30, "right": 1280 - 30 - (x + width)}
        assert 0 <= gaps[position] <= 10
        assert x >= 0 and y >= 0 and x + width <= 1280 and y + height <= 800


def test_at_a_corner_it_keeps_the_same_distance_from_both_edges(desktop, shell):
    shell.find_icon()
    shell.press()
    x, y, width, _ = shell.wait_open()

    area = desktop.run("xprop", "-root", "-notype", "_NET_WORKAREA").split("=")[1].split(",")
    left, top, room, _ = (int(number) for number in area[:4])
    assert (left + room - (x + width), y - top) == (4, 4)


@pytest.mark.parametrize("scale", ["1.25", "2"])
def test_it_stands_below_the_icon_at_any_scale(desktop, folder, scale):
    with Shell(desktop, QT_SCALE_FACTOR=scale) as shell:
        shell.find_icon()
        shell.press()
        x, y, width, height = shell.wait_open()
        shell.wait_keyboard()
        desktop.wait_until_still()
        desktop.screenshot(folder / f"scale-{scale}.png")

        assert (width, height) == tuple(length * float(scale) for length in SIZE)
        assert 30 <= y <= 30 + 10 * float(scale)
        assert x + width == 1280 - 4 * float(scale)
        shell.press()
        shell.wait_closed()
