# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""A notification server, as a program, that dies of each notification with the title "deadly".

Arguments: the bus's address, and the file to which it appends the title of each notification.
"""

import os
import sys

from gi.repository import Gio, GLib

NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
INTERFACE = """<node><interface name="org.freedesktop.Notifications">
  <method name="GetCapabilities"><arg type="as" direction="out"/></method>
  <method name="Notify">
    <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/>
  </method>
</interface></node>"""


def called(_connection, _sender, _path, _interface, method, arguments, invocation):
    if method == "GetCapabilities":
        invocation.return_value(GLib.Variant("(as)", (["body"],)))
        return
    title = arguments.unpack()[3]
    with open(sys.argv[2], "a") as log:
        log.write(f"{title}\n")
    if title == "deadly":
        os._exit(1)
    invocation.return_value(GLib.Variant("(u)", (1,)))


connection = Gio.DBusConnection.new_for_address_sync(
    sys.argv[1],
    Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
    None, None)
connection.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], called,
                           None, None)
connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                     "RequestName", GLib.Variant("(su)", (NAME, 4)), None,
                     Gio.DBusCallFlags.NONE, -1, None)
GLib.MainLoop().run()
