# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Norvane on two screens side by side."""

import pytest
from support.desktop import fresh_folder
from support.shell import SIZE, Shell
from support.two_screens import TwoScreens
from support.waiting import wait_until


def inside(place, left):
    x, y, width, height = place
    return left <= x and x + width <= left + 1280 and 0 <= y and y + height <= 800


@pytest.mark.parametrize("position", ["top", "left", "right"])
def test_it_opens_whole_on_the_screen_of_the_icon(folder, position):
    with TwoScreens(fresh_folder(folder / position), panel=position) as desktop:
        with Shell(desktop) as shell:
            screen = desktop.LEFT_EDGES[desktop.screen_at(shell.find_icon()[0])]
            shell.press()
            x, y, width, height = shell.wait_open()
            shell.wait_keyboard()
            desktop.screenshot(folder / f"{position}.png")

            assert (width, height) == SIZE
            assert inside((x, y, width, height), screen)
            gap = {"top": y - 30, "left": x - screen - 30, "right": screen + 1280 - 30 - (x + width)}
            assert 0 <= gap[position] <= 10


@pytest.mark.parametrize("scale", ["1", "1.25"])
def test_an_unplugged_screen_gives_the_popover_back_whole(folder, scale):
    with TwoScreens(fresh_folder(folder / f"unplugged-{scale}"), panel="bottom") as desktop:
        with Shell(desktop, QT_SCALE_FACTOR=scale) as shell:
            screen = desktop.screen_at(shell.find_icon()[0])
            shell.press()
            assert inside(shell.wait_open(), desktop.LEFT_EDGES[screen])

            desktop.unplug(screen)

            # The screen that is left becomes the whole display.
            wait_until(lambda: inside(shell.popover(), 0), "the popover on the other screen")
            desktop.wait_until_still()
            desktop.screenshot(folder / f"unplugged-{scale}.png")
            assert shell.is_open()
