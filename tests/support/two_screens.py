# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""A virtual desktop with two screens side by side, DUMMY0 and DUMMY1, of 1280x800 each.

The panel chooses one of them, not always the same: ask screen_at() where the icon is.
"""

from .desktop import Desktop

CONFIGURATION = """
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "card"
    Driver "dummy"
    VideoRam 65536
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5-1000
    VertRefresh 5-200
    Modeline "1280x800" 83.5 1280 1352 1480 1680 800 803 809 831
EndSection
Section "Screen"
    Identifier "screen"
    Device "card"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes "1280x800"
        Virtual 2560 800
    EndSubSection
EndSection
"""


class TwoScreens(Desktop):
    """Needs root, as the X server with the dummy driver does."""

    LEFT_EDGES = {"DUMMY0": 0, "DUMMY1": 1280}

    def screen_at(self, x):
        """The name of the screen at this horizontal position."""
        return "DUMMY0" if x < 1280 else "DUMMY1"

    def unplug(self, screen):
        self.run("xrandr", "--output", screen, "--off")

    def _start_display(self):
        configuration = self.folder / "xorg.conf"
        configuration.write_text(CONFIGURATION)
        # The server itself: the wrapper of that name insists on a console.
        self._start_server(
            "/usr/lib/xorg/Xorg", "-config", str(configuration), "-logfile", str(self.folder / "Xorg.0.log"))
        self.run("xrandr", "--addmode", "DUMMY1", "1280x800")
        self.run("xrandr", "--output", "DUMMY1", "--mode", "1280x800", "--right-of", "DUMMY0")
        self.run("xrandr", "--output", "DUMMY0", "--primary")
