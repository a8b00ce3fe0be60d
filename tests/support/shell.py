# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Norvane on a virtual desktop of X11, as seen and pressed from outside."""

import os
import subprocess
from pathlib import Path

from .waiting import wait_until

PROGRAM = Path(os.environ.get("NORVANE_BUILD", "build/dev")) / "app/norvane"
SIZE = (360, 420)


class Shell:
    """One run of the program; ends with the with statement, and says what it printed."""

    def __init__(self, desktop, program=PROGRAM, **environment):
        self.desktop = desktop
        self.program = program
        self.environment = environment
        self.process = None
        self.icon = None

    def __enter__(self):
        desktop = self.desktop
        (desktop.folder / f"{self.program.name}.log").unlink(missing_ok=True)
        desktop.run("xdotool", "mousemove", 500, 400)
        desktop.wait_until_still()  # What was here before, also another icon, may still be going.
        self.before = desktop.screenshot(desktop.folder / "without-icon.png")
        self.process = desktop.start(self.program, **self.environment)
        wait_until(lambda: desktop.owns("org.norvane.Norvane"), "Norvane on the bus")
        return self

    def __exit__(self, *_):
        self.desktop.stop(self.process)

    def output(self):
        return self.desktop.said(self.program.name)

    def find_icon(self, what="the icon"):
        """Where the icon is: what differs from before, as soon as that has the size of an icon."""

        def area():
            self.desktop.screenshot(self.desktop.folder / "with-icon.png")
            found = self.desktop.changed_area(self.before, self.desktop.folder / "with-icon.png")
            return found if found and all(8 <= length <= 48 for length in found[2:]) else None

        self.icon = wait_until(area, what)
        return self.icon

    def press(self):
        x, y, width, height = self.icon
        self.desktop.click(x + width // 2, y + height // 2)

    def windows(self):
        """The popover, if it is open; the icon in an old tray is another process' window."""
        answer = subprocess.run(
            ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name", "^Norvane$"],
            env=self.desktop.environment, capture_output=True, text=True, timeout=10, check=False,
        )
        return answer.stdout.split()

    def is_open(self):
        return bool(self.windows())

    def wait_open(self):
        wait_until(self.is_open, "the popover")
        return self.popover()

    def wait_closed(self):
        wait_until(lambda: not self.is_open(), "the popover's end")

    def popover(self):
        """Where the popover is: x, y, width, height in pixels of the display."""
        (window,) = self.windows()
        lines = self.desktop.run("xdotool", "getwindowgeometry", "--shell", window).split()
        values = dict(line.split("=") for line in lines)
        return tuple(int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))

    def has_keyboard(self):
        windows = self.windows()
        return bool(windows) and self.desktop.run("xdotool", "getwindowfocus").split() == windows

    def wait_keyboard(self):
        wait_until(self.has_keyboard, "the keyboard at the popover")
