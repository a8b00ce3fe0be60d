# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""A program in Norvane's place that writes down how it is activated.

Arguments: the bus's address, and the file to which it appends the data of each activation.
"""

import sys

from gi.repository import Gio, GLib

INTERFACE = """<node><interface name="org.freedesktop.Application">
  <method name="Activate"><arg type="a{sv}" direction="in"/></method>
</interface></node>"""


def called(_connection, _sender, _path, _interface, _method, arguments, invocation):
    with open(sys.argv[2], "a") as log:
        log.write(f"{arguments.unpack()[0]}\n")
    invocation.return_value(None)


connection = Gio.DBusConnection.new_for_address_sync(
    sys.argv[1],
    Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
    None, None)
connection.set_exit_on_close(True)  # It ends with its bus.
connection.register_object("/org/norvane/Norvane",
                           Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], called, None,
                           None)
connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                     "RequestName", GLib.Variant("(su)", ("org.norvane.Norvane", 4)), None,
                     Gio.DBusCallFlags.NONE, -1, None)
GLib.MainLoop().run()
