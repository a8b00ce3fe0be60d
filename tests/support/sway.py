# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""A virtual Wayland desktop: sway, and waybar with a tray, for an ordinary user.

The compositor's screen is a window that fills a display of Xvfb, so that it has a real pointer and
keyboard; programs on the desktop know nothing of that display.
"""

import json
import os
import re
import subprocess
from pathlib import Path

from .desktop import Desktop
from .waiting import wait_until

ORDINARY_USER = 65534
WAYBAR = {"layer": "top", "position": "top", "height": 30, "modules-right": ["tray"], "tray": {"icon-size": 22}}


class Sway(Desktop):
    """A desktop of Wayland with XWayland, or without it. Everything on it runs as an ordinary user."""

    def __init__(self, folder, xwayland=True):
        super().__init__(folder, panel="top")
        self.xwayland = xwayland

    def start(self, *command, **extra_environment):
        return super().start(*self._as_user(), *command, **extra_environment)

    def run(self, *command):
        return super().run(*self._as_user(), *command)

    def sway(self, *words):
        return self.run("swaymsg", "-r", *words)

    def windows(self, title):
        """The windows with this title, as sway describes them."""

        def walk(node):
            if node.get("name") == title and node.get("pid"):
                yield node
            for child in node.get("nodes", []) + node.get("floating_nodes", []):
                yield from walk(child)

        return list(walk(json.loads(self.sway("-t", "get_tree"))))

    def screenshot(self, path):
        Path(path).parent.mkdir(parents=True, exist_ok=True)
        self._outside("import", "-window", "root", "-depth", "8", path)
        return Path(path)

    def click(self, x, y, button=1):
        self._outside("xdotool", "mousemove", x, y, "sleep", "0.1", "click", button)

    def type(self, text):
        self._outside("xdotool", "type", "--delay", "15", text)

    def key(self, *keys):
        self._outside("xdotool", "key", "--delay", "20", *keys)

    def _outside(self, *command):
        """Runs a command at the display behind the desktop."""
        environment = self.environment | {"DISPLAY": self.display}
        subprocess.run([str(word) for word in command], env=environment, check=True, timeout=30, capture_output=True)

    def start_panel(self):
        waybar = self.start("waybar", "-c", self.home / "waybar.json", "-s", self.home / "waybar.css")
        wait_until(lambda: self.owns("org.kde.StatusNotifierWatcher"), "the bar's tray")
        return waybar

    @staticmethod
    def _as_user():
        if os.geteuid() != 0:
            return ()
        return ("setpriv", f"--reuid={ORDINARY_USER}", f"--regid={ORDINARY_USER}", "--clear-groups")

    def _start_display(self):
        super()._start_display()
        self.display = self.environment.pop("DISPLAY")

    def bus(self):
        raise AssertionError("the bus admits its own user only")

    def owns(self, name):
        answer = subprocess.run(
            [*self._as_user(), "dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
             "org.freedesktop.DBus.NameHasOwner", f"string:{name}"],
            env=self.environment, capture_output=True, text=True, timeout=10, check=False,
        )
        return "boolean true" in answer.stdout

    def _start_bus(self):
        (self.home / "waybar.json").write_text(json.dumps(WAYBAR))
        (self.home / "waybar.css").write_text("window { background: #303030; }")
        configuration = self.home / "sway.conf"
        configuration.write_text(
            f"xwayland {'force' if self.xwayland else 'disable'}\n"
            "output X11-1 resolution 1280x800 bg #204060 solid_color\n"
            "default_border none\nfocus_follows_mouse no\n"
            f"exec env > {self.home}/session.env\n"
        )
        runtime = self.folder / "runtime"
        if os.geteuid() == 0:
            for path in (self.home, runtime, *self.home.rglob("*")):
                os.chown(path, ORDINARY_USER, ORDINARY_USER)
        process = subprocess.Popen(
            [*self._as_user(), "dbus-daemon", "--session", "--nofork", "--print-address",
             f"--address=unix:path={runtime}/bus"],
            env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, start_new_session=True,
        )
        self.processes.append(process)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = process.stdout.readline().strip()
        super().start(
            *self._as_user(), "sway", "-c", configuration,
            DISPLAY=self.display, WLR_BACKENDS="x11", WLR_RENDERER="pixman",
        )
        session = wait_until(self._session, "the compositor's session")
        self.environment.update(session)
        self.environment["XDG_SESSION_TYPE"] = "wayland"

    def _session(self):
        file = self.home / "session.env"
        text = file.read_text() if file.exists() else ""
        found = dict(re.findall(r"^(WAYLAND_DISPLAY|DISPLAY|SWAYSOCK)=(.*)$", text, re.MULTILINE))
        if not self.xwayland:
            found.pop("DISPLAY", None)  # Its own.
        wanted = {"WAYLAND_DISPLAY", "SWAYSOCK"} | ({"DISPLAY"} if self.xwayland else set())
        return found if wanted <= set(found) else None

    def _start_window_manager(self):
        """The compositor is one."""
