# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Measures the shell against a bare Qt program with an empty window, both in the same run.

    shell_figures.py BUILD_FOLDER

Two times: from the start of the process until its icon is registered, and from the press until the
first frame is on the screen. Then what a key press costs after 10,000 openings.
"""

import os
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib
from Xlib import X
from Xlib.display import Display

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests"))

from support.desktop import Desktop  # noqa: E402

ROUNDS = 15
POINTER = (640, 100)
INSIDE = (640, 400)  # Covered by either window.
WATCHER = "org.kde.StatusNotifierWatcher"


class Watcher(dbus.service.Object):
    """Notes when an item registers, and which."""

    def __init__(self, bus):
        super().__init__(bus, "/StatusNotifierWatcher")
        self.registered = None

    @dbus.service.method(WATCHER, in_signature="s")
    def RegisterStatusNotifierItem(self, service):
        self.registered = self.registered or (time.monotonic(), service)


def turn_until(condition, seconds=20):
    context = GLib.MainContext.default()
    deadline = time.monotonic() + seconds
    while not condition():
        context.iteration(False)
        if time.monotonic() > deadline:
            raise AssertionError("nothing came in time")


def pixel(root):
    return root.get_image(*INSIDE, 1, 1, X.ZPixmap, 0xFFFFFFFF).data[:3]


def one_round(desktop, program, bus, watcher, root):
    """Milliseconds to the registration and from the press to the first frame."""
    watcher.registered = None
    empty = pixel(root)
    start = time.monotonic()
    process = desktop.start(program)
    turn_until(lambda: watcher.registered)
    moment, service = watcher.registered
    # The program settles before it is pressed, as it does before a person presses it.
    turn_until(lambda: time.monotonic() > moment + 0.5)
    pressed = time.monotonic()
    bus.call_async(service, "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate", "ii", (0, 0), None, None)
    bus.flush()
    while pixel(root) == empty:
        if time.monotonic() > pressed + 20:
            raise AssertionError("no frame came")
    shown = time.monotonic()
    desktop.stop(process)
    turn_until(lambda: pixel(root) == empty)
    return (moment - start) * 1000, (shown - pressed) * 1000


def main(build):
    programs = {"bare": build / "benchmarks/bare_tray_program", "Norvane": build / "app/norvane"}
    figures = {name: [] for name in programs}
    DBusGMainLoop(set_as_default=True)
    with tempfile.TemporaryDirectory() as folder, Desktop(folder, panel=None) as desktop:
        bus = desktop.bus()
        watcher = Watcher(bus)
        bus.request_name(WATCHER)
        root = Display(desktop.environment["DISPLAY"]).screen().root
        desktop.run("xdotool", "mousemove", *POINTER)
        for program in programs.values():  # Once for the disk cache.
            one_round(desktop, program, bus, watcher, root)
        for _ in range(ROUNDS):
            for name, program in programs.items():
                figures[name].append(one_round(desktop, program, bus, watcher, root))
    for column, what in enumerate(("start to icon registered", "press to first frame")):
        medians = {name: statistics.median(row[column] for row in rows) for name, rows in figures.items()}
        ratio = medians["Norvane"] / medians["bare"]
        print(f"{what}: Norvane {medians['Norvane']:.1f} ms, bare {medians['bare']:.1f} ms, ratio {ratio:.2f}")
    environment = os.environ | {"QT_QPA_PLATFORM": "offscreen"}
    keys = subprocess.run([build / "benchmarks/key_cost"], env=environment, check=True, capture_output=True, text=True)
    print(keys.stdout, end="")


if __name__ == "__main__":
    main(Path(sys.argv[1]))
