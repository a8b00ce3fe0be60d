# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""A session bus of a test's own, on which only what the test installs can be started."""

import subprocess
from pathlib import Path

from gi.repository import Gio

CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={folder}/bus</listen>
  <servicedir>{folder}/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
    <allow user="*"/>
  </policy>
  <limit name="max_replies_per_connection">100000</limit>
  <limit name="max_pending_service_starts">100000</limit>
  <limit name="max_message_size">{longest_message}</limit>
</busconfig>
"""


class PrivateBus:
    """Runs a bus in this folder until close(); use it as a context manager.

    The bus disconnects whoever sends it a message of more than `longest_message` bytes.
    """

    def __init__(self, folder: Path, environment: dict[str, str] | None = None,
                 longest_message: int = 128 * 1024 * 1024):
        self.folder = folder
        (folder / "services").mkdir(parents=True)
        configuration = folder / "bus.conf"
        configuration.write_text(CONFIGURATION.format(
            folder=folder, longest_message=longest_message))
        self.process = subprocess.Popen(
            ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nosyslog",
             "--print-address"],
            stdout=subprocess.PIPE, text=True, env=environment)
        self.address = self.process.stdout.readline().strip()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()

    def install(self, name: str, command: str):
        """Has the bus start this command for calls to the name."""
        (self.folder / "services" / f"{name}.service").write_text(
            f"[D-BUS Service]\nName={name}\nExec={command}\n")
        self.connect().call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "ReloadConfig", None, None, Gio.DBusCallFlags.NONE, -1, None)

    def connect(self) -> Gio.DBusConnection:
        """A connection of its own, closed with its last reference."""
        connection = Gio.DBusConnection.new_for_address_sync(
            self.address,
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        connection.set_exit_on_close(False)
        return connection
