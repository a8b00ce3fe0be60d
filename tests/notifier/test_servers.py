# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""Real notification servers on a virtual desktop; screenshots go into the build folder."""

import os
import signal
import subprocess
import sys
import time
from contextlib import contextmanager
from pathlib import Path

import pytest
from gi.repository import Gio, GLib

from support.notification_server import NAME as SERVER
from support.notification_server import PATH as SERVER_PATH
from support.notifier import this_minute
from support.waiting import wait_until

SERVERS = {
    "dunst": ["dunst"],
    "xfce4-notifyd": [str(next(Path("/usr/lib").glob("*/xfce4/notifyd/xfce4-notifyd"), "xfce4-notifyd"))],
}
BACKGROUND = "#204060"
TITLE = "🚨 Trial Ending in 1 Hour"
BODY = '"<b>A&B</b> "x"" — cancel now to avoid being charged $9.50.'
BUS = "org.freedesktop.DBus"


@pytest.fixture
def desktop():
    """A virtual screen of one colour; its name."""
    reader, writer = os.pipe()
    screen = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writer), "-screen", "0", "800x300x24", "-nolisten", "tcp",
         "-noreset"],
        pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    with os.fdopen(reader) as number:
        display = f":{number.readline().strip()}"
    subprocess.run(["xsetroot", "-display", display, "-solid", BACKGROUND], check=True)
    yield display
    screen.kill()
    screen.wait()


class Screen:
    """What is on the virtual desktop, and which notification server puts it there."""

    def __init__(self, display, bus, environment, command):
        self.display = display
        self.connection = bus.connect()
        self.server = subprocess.Popen(command, env={**environment, "DISPLAY": display},
                                       stderr=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    def __enter__(self):
        wait_until(lambda: self._call(BUS, "/org/freedesktop/DBus", "NameHasOwner", "(s)", SERVER),
                   "the notification server")
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()

    def show(self, title, body, actions):
        """Has the server show these, the body as markup; its number of the notification."""
        hints = {"desktop-entry": GLib.Variant("s", "org.norvane.Norvane"),
                 "urgency": GLib.Variant("y", 1)}
        return self._call(SERVER, SERVER_PATH, "Notify", "(susssasa{sv}i)", "Norvane", 0,
                          "org.norvane.Norvane", title, body, actions, hints, -1)

    def close(self, number):
        self._call(SERVER, SERVER_PATH, "CloseNotification", "(u)", number)

    def picture(self, file):
        subprocess.run(["import", "-display", self.display, "-window", "root", str(file)],
                       check=True)
        return file

    def colours(self, file):
        """How many colours the screen shows, after a picture of it was taken."""
        count = subprocess.run(["identify", "-format", "%k", str(self.picture(file))], check=True,
                               capture_output=True, text=True)
        return int(count.stdout)

    def shows(self, reference, file):
        """Whether the screen looks exactly like an earlier picture."""
        return subprocess.run(["compare", "-metric", "AE", str(reference),
                               str(self.picture(file)), "null:"],
                              capture_output=True).returncode == 0

    def _call(self, name, path, method, signature, *arguments):
        answer = self.connection.call_sync(
            name, path, name, method, GLib.Variant(signature, arguments), None,
            Gio.DBusCallFlags.NONE, -1, None).unpack()
        return answer[0] if answer else None


@pytest.mark.parametrize("name", SERVERS)
def test_a_reminder_reads_exactly_as_it_was_given_on(name, desktop, bus, notifier, tmp_path):
    pictures = Path(os.environ["NORVANE_SCREENSHOTS"])
    pictures.mkdir(parents=True, exist_ok=True)
    picture = pictures / f"notification-{name}.png"
    reference = pictures / f"notification-{name}-reference.png"
    environment = {**notifier.environment, "HOME": str(tmp_path), "XDG_CONFIG_HOME": str(tmp_path),
                   "XDG_CACHE_HOME": str(tmp_path)}
    with Screen(desktop, bus, environment, SERVERS[name]) as screen:
        actions = ["default", ""] if name == "dunst" else []
        number = screen.show(TITLE, GLib.markup_escape_text(BODY), actions)
        # A picture may be taken in the middle of drawing; two that agree were not.
        wait_until(lambda: screen.colours(reference) > 50 and screen.shows(reference, picture),
                   "the whole of the reference")
        screen.close(number)
        wait_until(lambda: screen.colours(picture) == 1, "an empty screen")

        notifier.start()
        notifier.add("a-1h", this_minute(), title=TITLE, body=BODY)

        wait_until(lambda: screen.shows(reference, picture), "the same on the screen")


def test_a_click_on_a_reminder_opens_norvane_on_dunst(desktop, bus, notifier, tmp_path):
    log = tmp_path / "activations"
    program = Path(__file__).resolve().parents[1] / "support" / "activated_program.py"
    bus.install("org.norvane.Norvane", f"{sys.executable} {program} {bus.address} {log}")
    environment = {**notifier.environment, "HOME": str(tmp_path), "XDG_CONFIG_HOME": str(tmp_path),
                   "XDG_CACHE_HOME": str(tmp_path), "DISPLAY": desktop}
    with Screen(desktop, bus, environment, SERVERS["dunst"]) as screen:
        notifier.start()
        notifier.add("a-1h", this_minute(), title=TITLE, body=BODY)
        picture = tmp_path / "screen.png"
        wait_until(lambda: screen.colours(picture) > 50, "the reminder")

        subprocess.run(["dunstctl", "action"], env=environment, check=True)

        wait_until(log.exists, "the activation")
        assert log.read_text().startswith("{")


@contextmanager
def calls_with_notifications(bus, log):
    """Counts the calls that hand a notification to the server, from here on."""
    with open(log, "w") as output:
        monitor = subprocess.Popen(["dbus-monitor", "--address", bus.address, "member='Notify'"], stdout=output)
    wait_until(lambda: "NameAcquired" in log.read_text() or "NameLost" in log.read_text(), "the monitor")
    try:
        yield lambda: log.read_text().count("member=Notify")
    finally:
        monitor.kill()
        monitor.wait()


def test_xfces_server_that_hangs_for_a_minute_is_given_a_reminder_twice_at_most(desktop, bus, notifier, tmp_path):
    environment = {**notifier.environment, "HOME": str(tmp_path), "XDG_CONFIG_HOME": str(tmp_path),
                   "XDG_CACHE_HOME": str(tmp_path)}
    picture = tmp_path / "screen.png"
    with Screen(desktop, bus, environment, SERVERS["xfce4-notifyd"]) as screen, \
            calls_with_notifications(bus, tmp_path / "calls") as given:
        notifier.start()
        screen.server.send_signal(signal.SIGSTOP)
        notifier.add("a-1h", this_minute(), title=TITLE, body=BODY)
        time.sleep(60)  # Six times as long as a server may take to answer.
        screen.server.send_signal(signal.SIGCONT)

        wait_until(lambda: screen.colours(picture) > 50, "the reminder")
        notifier.add("b-1h", this_minute(), title="Later", body=BODY)  # Goes out after the answer to the first.
        wait_until(lambda: '"Later"' in (tmp_path / "calls").read_text(), "the later reminder")

        assert 2 <= given() <= 3
