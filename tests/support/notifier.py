# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""The shipped notification centre as a process, and its operations as a client calls them."""

import os
import signal
import subprocess
from datetime import datetime, timedelta
from pathlib import Path

from gi.repository import Gio, GLib

from .bus import PrivateBus
from .waiting import wait_until

NAME = "org.norvane.NotificationCenter"
PATH = "/org/norvane/NotificationCenter"
INTERFACE = "org.norvane.NotificationCenter1"

STORAGE_ERROR = f"{INTERFACE}.Error.Storage"

FAR = "2999-12-31T23:59"


def minute(moment: datetime) -> str:
    return moment.strftime("%Y-%m-%dT%H:%M")


def this_minute() -> str:
    """The minute that is running, as a trigger, with at least some seconds of it left."""
    wait_until(lambda: datetime.now().second < 55, "the next minute", 6)
    return minute(datetime.now())


def minutes_ago(minutes: float) -> str:
    return minute(datetime.now() - timedelta(minutes=minutes))


class Notifier:
    """One state folder, and the process that works on it; use it as a context manager."""

    def __init__(self, bus: PrivateBus, folder: Path):
        self.bus = bus
        self.folder = folder / "norvane"
        self.environment = {
            **os.environ,
            "DBUS_SESSION_BUS_ADDRESS": bus.address,
            "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nonexistent",
            "XDG_STATE_HOME": str(folder),
        }
        self.program = os.environ["NORVANE_NOTIFIER"]
        self.process = None
        self.connection = bus.connect()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process:
            self.kill()

    @property
    def ledger(self) -> Path:
        return self.folder / "pending.sqlite"

    def caller(self):
        """Another caller of the same centre, with a connection of its own."""
        return Notifier(self.bus, self.folder.parent)

    def start(self, *arguments: str, command: tuple[str, ...] = ()):
        """Starts it and waits until it has its name."""
        self.process = subprocess.Popen(
            [*command, self.program, *arguments], env=self.environment, stderr=subprocess.PIPE,
            text=True, restore_signals=False)
        wait_until(lambda: self.has_owner() or self.process.poll() is not None, "the notifier", 20)
        assert self.process.poll() is None, self.process.stderr.read()
        return self

    def kill(self, how: signal.Signals = signal.SIGKILL):
        self.process.send_signal(how)
        self.process.wait()
        self.process.stderr.close()
        self.process = None
        wait_until(lambda: not self.has_owner(), "its end")

    def end(self) -> str:
        """Has it end in order; what it has told on standard error."""
        self.process.terminate()
        told = self.process.stderr.read()
        self.process.wait()
        self.forget_process()
        return told

    def forget_process(self):
        """After its end."""
        self.process.stderr.close()
        self.process = None

    def restart(self, *arguments: str):
        self.kill()
        return self.start(*arguments)

    def has_owner(self) -> bool:
        return self._bus_call("NameHasOwner", GLib.Variant("(s)", (NAME,)))[0]

    def owner_process(self) -> int:
        """The number of the process that has the name, whoever started it."""
        return self._bus_call("GetConnectionUnixProcessID", GLib.Variant("(s)", (NAME,)))[0]

    def call(self, method: str, arguments: GLib.Variant | None = None):
        """The reply's values; raises GLib.Error for an error reply."""
        return self.connection.call_sync(
            NAME, PATH, INTERFACE, method, arguments, None, Gio.DBusCallFlags.NONE, 60_000,
            None).unpack()

    def add(self, identifier: str, trigger: str, title: str = "Title", body: str = "Body"):
        self.call("AddRequest",
                  GLib.Variant("(sssss)", (identifier, title, body, "default", trigger)))

    def remove(self, *identifiers: str):
        self.call("RemovePendingRequests", GLib.Variant("(as)", (list(identifiers),)))

    def remove_all(self):
        self.call("RemoveAllPendingRequests")

    def authorize(self):
        self.call("RequestAuthorization", GLib.Variant("(u)", (7,)))

    def pending(self) -> list[tuple[str, str, str, str, str]]:
        return self.call("PendingRequests")[0]

    def identifiers(self) -> list[str]:
        return [request[0] for request in self.pending()]

    def tell(self, method: str, arguments: GLib.Variant | None):
        """Sends a call and asks for no answer."""
        self.connection.call(NAME, PATH, INTERFACE, method, arguments, None,
                             Gio.DBusCallFlags.NONE, -1, None, None)

    def send(self, method: str, arguments: GLib.Variant | None, answered):
        """Sends a call without waiting; answered(error or None) comes from iterate()."""
        def done(connection, result):
            try:
                connection.call_finish(result)
                answered(None)
            except GLib.Error as error:
                answered(error)

        self.connection.call(NAME, PATH, INTERFACE, method, arguments, None,
                             Gio.DBusCallFlags.NONE, 60_000, None, done)

    @staticmethod
    def iterate():
        """Lets the answers of send() come in, without waiting for more."""
        while GLib.MainContext.default().iteration(False):
            pass

    def _bus_call(self, method: str, arguments: GLib.Variant):
        return self.connection.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
            arguments, None, Gio.DBusCallFlags.NONE, -1, None).unpack()


def error_name(error: GLib.Error) -> str:
    return Gio.DBusError.get_remote_error(error)
