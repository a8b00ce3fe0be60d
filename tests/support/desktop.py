# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""A virtual desktop of its own: X server, session bus, window manager and a panel with a tray."""

import json
import os
import shutil
import signal
import subprocess
import time
from pathlib import Path

import dbus

from .waiting import wait_until

PANEL_CONFIGURATION = Path(__file__).with_name("xfce4-panel.xml")
ACCESSIBLE = Path(__file__).with_name("accessible.py")
POSITIONS = {"top": 6, "bottom": 8, "left": 5, "right": 1}  # As the panel numbers them.


class Desktop:
    """Everything lives below `folder`, the home of the desktop's user included.

    Use it in a with statement; what was started through it ends with it. The panel is at the top,
    bottom, left or right of the primary screen, or there is None.
    """

    def __init__(self, folder, size="1280x800", panel="top"):
        self.folder = Path(folder).resolve()
        self.size = size
        self.panel_position = panel
        self.home = self.folder / "home"
        self.processes = []
        self.environment = {
            name: value
            for name, value in os.environ.items()
            if not name.startswith(("XDG_", "DBUS_", "QT_", "LC_"))
            and name not in ("DISPLAY", "LANGUAGE", "WAYLAND_DISPLAY")
        }

    def __enter__(self):
        runtime = self.folder / "runtime"
        for path in (self.home, runtime):
            path.mkdir(parents=True, exist_ok=True)
        runtime.chmod(0o700)
        self.environment.update(
            HOME=str(self.home),
            XDG_RUNTIME_DIR=str(runtime),
            LANG="C.UTF-8",
            NO_AT_BRIDGE="1",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
            # Fonts, drivers and QML keep what they allocated until the process ends.
            ASAN_OPTIONS="detect_leaks=0",
        )
        try:
            self._start_display()
            self._start_bus()
            self._start_window_manager()
            if self.panel_position:
                self.start_panel()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            self.stop(process)
        self.processes.clear()

    def start(self, *command, **extra_environment):
        """Starts a program on this desktop; what it says goes to a file named after it."""
        name = Path(str(command[0])).name
        with open(self.folder / f"{name}.log", "ab") as log:
            process = subprocess.Popen(
                [str(word) for word in command],
                env=self.environment | extra_environment,
                stdin=subprocess.DEVNULL,
                stdout=log,
                stderr=log,
                start_new_session=True,
            )
        self.processes.append(process)
        return process

    def said(self, name):
        """What a program said, without what Qt 6.10 says of its own to at-spi 2.58, which asks for an address."""
        lines = (self.folder / f"{name}.log").read_text().splitlines(keepends=True)
        return "".join(line for line in lines if "GetApplicationBusAddress" not in line)

    def stop(self, process, with_signal=signal.SIGTERM):
        if process.poll() is None:
            process.send_signal(with_signal)
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        if process in self.processes:
            self.processes.remove(process)

    def run(self, *command):
        """Runs a short command here and returns what it printed."""
        return subprocess.run(
            [str(word) for word in command],
            env=self.environment,
            check=True,
            capture_output=True,
            text=True,
            timeout=30,
        ).stdout

    def bus(self):
        """A new connection to this desktop's session bus."""
        return dbus.bus.BusConnection(self.environment["DBUS_SESSION_BUS_ADDRESS"])

    def owns(self, name):
        connection = self.bus()
        try:
            return connection.name_has_owner(name)
        finally:
            connection.close()

    def status_items(self):
        """What is registered as a status item."""
        connection = self.bus()
        try:
            return connection.call_blocking(
                "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties",
                "Get", "ss", ("org.kde.StatusNotifierWatcher", "RegisteredStatusNotifierItems"),
            )
        finally:
            connection.close()

    def start_panel(self):
        panel = self.start("xfce4-panel", "--disable-wm-check")
        wait_until(lambda: self.owns("org.kde.StatusNotifierWatcher"), "the panel's tray")
        return panel

    def screenshot(self, path):
        Path(path).parent.mkdir(parents=True, exist_ok=True)
        self.run("import", "-window", "root", "-depth", "8", path)
        return Path(path)

    def wait_until_still(self):
        """Returns when two screenshots in a row show the same."""
        pictures = [self.folder / "still-a.png", self.folder / "still-b.png"]

        def still():
            self.screenshot(pictures[0])
            time.sleep(0.3)  # What is still has to be looked at twice.
            self.screenshot(pictures[1])
            return self.changed_area(*pictures) is None

        wait_until(still, "a desktop at rest")

    def changed_area(self, before, after):
        """Where two screenshots differ, as (x, y, width, height); nothing where they do not."""
        text = self.run(
            "convert", before, after, "-compose", "difference", "-composite", "-colorspace", "gray",
            "-threshold", "4%", "-format", "%@ %[fx:maxima]", "info:",
        )
        geometry, brightest = text.split()
        if float(brightest) == 0:
            return None
        size, x, y = geometry.split("+")
        width, height = size.split("x")
        return int(x), int(y), int(width), int(height)

    def handle_length(self, bar):
        """How many pixels long the handle of the scroll bar in this box is."""
        x, y, width, height = bar
        self.run("import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8", "+repage",
                 self.folder / "bar.png")
        edge, middle = (
            [line.split("#")[1][:6] for line in self.run("convert", self.folder / "bar.png", "-crop",
                                                         f"1x{height}+{column}+0", "txt:-").splitlines()[1:]]
            for column in (0, width // 2))
        return sum(one != other for one, other in zip(edge, middle))  # The handle leaves the edges free.

    def windows(self, title):
        """The visible windows with this title."""
        answer = subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"],
            env=self.environment, capture_output=True, text=True, timeout=10, check=False,
        )
        return answer.stdout.split()

    def accessible(self, program="Norvane"):
        """What a screen reader finds in the program: role, name, description, box and more, each."""
        answer = subprocess.run(
            ["/usr/bin/python3", ACCESSIBLE, "tree", program],
            env=self.environment, capture_output=True, text=True, timeout=30, check=False,
        )
        return json.loads(answer.stdout or "[]")

    def find(self, role, name, description=None, program="Norvane"):
        """The first accessible object on screen with this role and name; nothing when there is none."""
        for node in self.accessible(program):
            if (node["role"], node["name"]) == (role, name) and description in (None, node["description"]):
                return node
        return None

    def click_on(self, role, name, description=None):
        """Moves the real pointer to an object found by role and name, and clicks it."""
        node = wait_until(lambda: self.find(role, name, description), f"{role} {name!r} on screen")
        x, y, width, height = node["box"]
        self.click(x + width // 2, y + height // 2)

    def click(self, x, y, button=1):
        self.run("xdotool", "mousemove", x, y, "sleep", "0.1", "click", button)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "15", text)

    def key(self, *keys):
        self.run("xdotool", "key", "--delay", "20", *keys)

    def _start_display(self):
        self._start_server("Xvfb", "-screen", "0", f"{self.size}x24")

    def _start_server(self, *command):
        """Starts an X server and waits until it has its display."""
        read_end, write_end = os.pipe()
        # Without -noreset the server begins anew, and is away, when its last client goes.
        server = [*command, "-noreset", "-nolisten", "tcp", "-displayfd", str(write_end)]
        with open(self.folder / f"{Path(command[0]).name}.log", "ab") as log:
            self.processes.append(
                subprocess.Popen(server, pass_fds=[write_end], stdout=log, stderr=log, start_new_session=True)
            )
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.environment["DISPLAY"] = ":" + pipe.readline().strip()

    def _start_bus(self):
        panel_settings = self.home / ".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"
        panel_settings.parent.mkdir(parents=True, exist_ok=True)
        text = PANEL_CONFIGURATION.read_text()
        mode = 1 if self.panel_position in ("left", "right") else 0
        panel_settings.write_text(
            text.replace("@POSITION@", f"p={POSITIONS[self.panel_position or 'top']};x=0;y=0")
            .replace("@MODE@", str(mode))
        )
        process = subprocess.Popen(
            ["dbus-daemon", "--session", "--nofork", "--print-address"],
            env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, start_new_session=True,
        )
        self.processes.append(process)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = process.stdout.readline().strip()

    def _start_window_manager(self):
        self.start("xfwm4", "--compositor=off")
        wait_until(self._has_window_manager, "the window manager")

    def _has_window_manager(self):
        return "window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")


def fresh_folder(path):
    """An empty folder in place of whatever was there."""
    shutil.rmtree(path, ignore_errors=True)
    Path(path).mkdir(parents=True)
    return Path(path)


def overlap(one, other):
    """Whether two boxes have a pixel in common."""
    return all(one[axis] < other[axis] + other[axis + 2] and other[axis] < one[axis] + one[axis + 2] for axis in (0, 1))
