# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""A notification server that records what it is given, and can be told to misbehave."""

import threading
import time
from dataclasses import dataclass, field

from gi.repository import Gio, GLib

from .bus import PrivateBus
from .waiting import wait_until

NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
INTERFACE = """<node><interface name="org.freedesktop.Notifications">
  <method name="GetCapabilities"><arg type="as" direction="out"/></method>
  <method name="GetServerInformation">
    <arg type="s" direction="out"/><arg type="s" direction="out"/><arg type="s" direction="out"/>
    <arg type="s" direction="out"/>
  </method>
  <method name="Notify">
    <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/>
  </method>
  <signal name="NotificationClosed"><arg type="u"/><arg type="u"/></signal>
  <signal name="ActionInvoked"><arg type="u"/><arg type="s"/></signal>
  <signal name="ActivationToken"><arg type="u"/><arg type="s"/></signal>
</interface></node>"""


@dataclass(frozen=True)
class Shown:
    """One notification as it arrived."""

    time: float  # Seconds since 1970, when the call arrived.
    sender: str  # The caller's name on the bus; every process has another.
    id: int
    application: str
    icon: str
    title: str
    body: str
    actions: list[str]
    hints: dict[str, object]
    timeout: int


@dataclass
class NotificationServer:
    """Owns the server's name on the bus from start() to stop(); calls arrive on its own thread.

    behaviour: "take" shows everything, "refuse" answers with an error, "ignore" never answers a
    notification and "mute" nothing at all, "distinct" refuses a text that came within the last
    second already, "single" has room for one and closes it when the next comes,
    "unready" does not tell what it can do.

    `refused` are titles that it refuses, with the error `refusal`, whatever its behaviour. A title
    in `hung` it shows, and answers neither that nor anything else until resume().
    """

    bus: PrivateBus
    capabilities: tuple[str, ...] = ("body", "body-markup")
    behaviour: str = "take"
    name: str = "test"
    version: str = "1.0"
    refused: tuple[str, ...] = ()
    refusal: str = "org.freedesktop.Notifications.Error.ExcessNotificationGeneration"
    hung: tuple[str, ...] = ()
    shown: list[Shown] = field(default_factory=list)
    attempts: int = 0  # Calls to show something, also those that were not taken.

    def start(self):
        ready = threading.Event()
        self._resumed = threading.Event()
        self._thread = threading.Thread(target=self._run, args=(ready,), daemon=True)
        self._thread.start()
        assert ready.wait(10)
        return self

    def stop(self):
        """Leaves the bus, as a server does that ends or crashes."""
        self._resumed.set()
        self._loop.quit()
        self._thread.join()

    def __enter__(self):
        return self.start()

    def __exit__(self, *_):
        self.stop()

    def close_notification(self, identifier: int):
        self._connection.emit_signal(None, PATH, NAME, "NotificationClosed",
                                     GLib.Variant("(uu)", (identifier, 2)))

    def click(self, identifier: int, token: str | None = None):
        """What a server does when the user clicks on a notification."""
        if token is not None:
            self._connection.emit_signal(None, PATH, NAME, "ActivationToken",
                                         GLib.Variant("(us)", (identifier, token)))
        self._connection.emit_signal(None, PATH, NAME, "ActionInvoked",
                                     GLib.Variant("(us)", (identifier, "default")))
        self.close_notification(identifier)

    def resume(self):
        """Lets a server that hangs go on with what waits for it."""
        self.hung = ()
        self._resumed.set()

    def wait_for(self, count: int, seconds: float = 20) -> list[Shown]:
        """What was shown, once there are at least so many."""
        wait_until(lambda: len(self.shown) >= count, f"notification {count}", seconds)
        return list(self.shown)

    @property
    def titles(self) -> list[str]:
        return [notification.title for notification in self.shown]

    def _run(self, ready):
        context = GLib.MainContext()
        context.push_thread_default()
        self._loop = GLib.MainLoop(context)
        self._connection = self.bus.connect()
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self._connection.register_object(PATH, interface, self._called, None, None)
        self._connection.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
            GLib.Variant("(su)", (NAME, 7)), None, Gio.DBusCallFlags.NONE, -1, None)
        ready.set()
        self._loop.run()
        self._connection.flush_sync(None)  # A last answer may be on its way.
        self._connection.close_sync(None)
        context.pop_thread_default()

    def _called(self, _connection, sender, _path, _interface, method, arguments, invocation):
        if self.behaviour == "mute":
            self.attempts += 1
            return
        if self.behaviour == "unready":
            self.attempts += 1
            invocation.return_dbus_error("org.freedesktop.Notifications.Error.Unready", "Not yet")
            return
        if method == "GetCapabilities":
            invocation.return_value(GLib.Variant("(as)", (list(self.capabilities),)))
            return
        if method == "GetServerInformation":
            invocation.return_value(GLib.Variant(
                "(ssss)", (self.name, "the Norvane authors", self.version, "1.2")))
            return
        now = time.time()
        self.attempts += 1
        application, _, icon, title, body, actions, hints, timeout = arguments.unpack()
        repeated = any(one.title == title and one.body == body and now - one.time < 1
                       for one in self.shown[-20:])
        if self.behaviour == "ignore":
            return
        if self.behaviour == "refuse" or title in self.refused or (self.behaviour == "distinct" and repeated):
            invocation.return_dbus_error(self.refusal, "Not now")
            return
        if self.behaviour == "single" and self.shown:
            self.close_notification(self.shown[-1].id)
        shown = Shown(now, sender, len(self.shown) + 1, application, icon, title, body, actions,
                      hints, timeout)
        if title in self.hung:
            self._resumed.wait()
        invocation.return_value(GLib.Variant("(u)", (shown.id,)))
        self.shown.append(shown)  # Afterwards, so that whoever waits for it can close it.
