# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""A stand-in for the notification centre: owns its name and writes every call to a file.

    recording_center.py FILE

One JSON array a line: the method, then its arguments.
"""

import json
import sys

import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME = "org.norvane.NotificationCenter"
INTERFACE = "org.norvane.NotificationCenter1"


class RecordingCenter(dbus.service.Object):
    def __init__(self, bus, file):
        self.file = file
        super().__init__(bus, "/org/norvane/NotificationCenter")

    def record(self, *call):
        self.file.write(json.dumps(call, ensure_ascii=False) + "\n")
        self.file.flush()

    @dbus.service.method(INTERFACE, in_signature="u", out_signature="b")
    def RequestAuthorization(self, options):
        self.record("RequestAuthorization", int(options))
        return True

    @dbus.service.method(INTERFACE, in_signature="sssss")
    def AddRequest(self, identifier, title, body, sound, trigger):
        self.record("AddRequest", identifier, title, body, sound, trigger)

    @dbus.service.method(INTERFACE, in_signature="as")
    def RemovePendingRequests(self, identifiers):
        self.record("RemovePendingRequests", list(identifiers))

    @dbus.service.method(INTERFACE)
    def RemoveAllPendingRequests(self):
        self.record("RemoveAllPendingRequests")


if __name__ == "__main__":
    DBusGMainLoop(set_as_default=True)
    session = dbus.SessionBus()
    with open(sys.argv[1], "a", encoding="utf-8") as calls:
        center = RecordingCenter(session, calls)
        name = dbus.service.BusName(NAME, session)
        GLib.MainLoop().run()
