# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Light, dark, contrast and accent colour, as the user switches them while Norvane runs."""

import subprocess

import dbus
import pytest
import Xlib.display
import Xlib.X
from support.desktop import ACCESSIBLE, Desktop
from support.shell import PROGRAM, Shell
from support.waiting import wait_until

PORTAL = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
GROUP = "org.freedesktop.appearance"
NOTHING, DARK, LIGHT = (dbus.UInt32(number) for number in range(3))


class Portal:
    """The settings portal of a desktop: what programs ask for it, and what they are told."""

    def __init__(self, desktop, **settings):
        self.process = desktop.start("/usr/bin/python3", "-m", "dbusmock", "--session", PORTAL, PATH, SETTINGS)
        wait_until(lambda: desktop.owns(PORTAL), "the portal")
        bus = desktop.bus()
        self.mock = dbus.Interface(bus.get_object(PORTAL, PATH), "org.freedesktop.DBus.Mock")
        answer = {GROUP: {key.replace("_", "-"): value for key, value in settings.items()}}
        self.mock.AddMethod(SETTINGS, "ReadAll", "as", "a{sa{sv}}", f"ret = {self._as_code(answer)}")

    @staticmethod
    def _as_code(answer):
        values = ", ".join(
            f"{key!r}: dbus.UInt32({int(value)}, variant_level=1)" for key, value in answer[GROUP].items())
        return f"{{{GROUP!r}: dbus.Dictionary({{{values}}}, signature='sv')}}"

    def change(self, key, value):
        self.mock.EmitSignal(SETTINGS, "SettingChanged", "ssv", [GROUP, key, value])


class Popover:
    """The open popover, as it looks on the screen."""

    def __init__(self, shell):
        self.desktop = shell.desktop
        self.place = shell.wait_open()

    def picture(self):
        x, y, width, height = self.place
        return self.desktop.run("import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8",
                                "+repage", self.desktop.folder / "popover.png") or self.desktop.folder / "popover.png"

    def color_at(self, x, y):
        text = self.desktop.run("convert", self.picture(), "-format",
                                f"%[fx:round(255*p{{{x},{y}}}.r)] %[fx:round(255*p{{{x},{y}}}.g)] "
                                f"%[fx:round(255*p{{{x},{y}}}.b)]", "info:")
        return tuple(int(part) for part in text.split())

    def part(self, box):
        """The colours of a part of it, row by row."""
        x, y, width, height = box
        pixels = subprocess.run(["convert", self.picture(), "-crop", f"{width}x{height}+{x}+{y}", "-depth", "8",
                                 "rgb:-"], check=True, capture_output=True, timeout=30).stdout
        return [tuple(pixels[start:start + 3]) for start in range(0, len(pixels), 3)]

    def text_contrast(self, box):
        """How well the letters in a box can be told from their ground, its most frequent colour."""
        colors = self.part(box)
        ground = max(set(colors), key=colors.count)
        return max(ratio(color, ground) for color in set(colors))

    def outline_contrast(self, box):
        """How well the line at the left edge of a box can be told from what lies on either side of it."""
        x, y, _, height = box
        row = self.part((x - 4, y + height // 2, 9, 1))
        return max(min(ratio(color, row[0]), ratio(color, row[-1])) for color in row)

    def is_dark(self):
        return sum(self.color_at(self.place[2] // 2, 4)) < 3 * 128

    def colors(self):
        """Every colour in it, with the number of its pixels."""
        lines = subprocess.run(["convert", self.picture(), "-format", "%c", "histogram:info:"], check=True,
                               capture_output=True, text=True, timeout=30).stdout.splitlines()
        return {line.split("#")[1][:6].lower(): int(line.split(":")[0]) for line in lines if "#" in line}


def ratio(one, other):
    """Of the luminances of two colours, from 1 for the same to 21 for black and white."""

    def luminance(color):
        parts = [part / 255 for part in color]
        linear = [part / 12.92 if part <= 0.04045 else ((part + 0.055) / 1.055) ** 2.4 for part in parts]
        return sum(weight * part for weight, part in zip((0.2126, 0.7152, 0.0722), linear))

    darker, lighter = sorted((luminance(one), luminance(other)))
    return (lighter + 0.05) / (darker + 0.05)


@pytest.fixture(scope="module")
def desktop(folder):
    with Desktop(folder, size="1280x900", panel=None) as started:
        yield started


@pytest.fixture
def shell(desktop):
    with Shell(desktop) as started:
        desktop.run(PROGRAM)  # The second one asks the first to show its panel.
        started.wait_keyboard()
        yield started


def wait_dark(popover):
    wait_until(popover.is_dark, "a dark popover")


def wait_light(popover):
    wait_until(lambda: not popover.is_dark(), "a light popover")


@pytest.mark.parametrize("front", ["list", "form", "calendar", "alert"])
def test_light_and_dark_are_followed_whatever_is_open(desktop, front):
    portal = Portal(desktop, color_scheme=LIGHT)
    with Shell(desktop) as shell:
        desktop.run(PROGRAM)
        shell.wait_keyboard()
        if front != "list":
            desktop.click_on("push button", "Add Trial")
        if front == "calendar":
            desktop.click_on("push button", "Choose a day")
        if front == "alert":
            desktop.type("Acme")
            desktop.key("ctrl+Return")
            desktop.click_on("push button", "Delete")
            wait_until(lambda: desktop.find("dialog", "Delete Trial?"), "the question")
        popover = Popover(shell)
        wait_light(popover)

        portal.change("color-scheme", DARK)
        wait_dark(popover)
        desktop.screenshot(desktop.folder / f"{front}-dark.png")
        portal.change("color-scheme", LIGHT)
        wait_light(popover)
        desktop.screenshot(desktop.folder / f"{front}-light.png")
        assert shell.output() == ""
    desktop.stop(portal.process)


def test_a_desktop_that_is_dark_at_the_start_gets_a_dark_panel(desktop):
    portal = Portal(desktop, color_scheme=DARK)
    with Shell(desktop) as shell:
        desktop.run(PROGRAM)
        shell.wait_keyboard()
        wait_dark(Popover(shell))
    desktop.stop(portal.process)


def test_the_accent_colour_is_followed(desktop):
    portal = Portal(desktop, color_scheme=LIGHT)
    with Shell(desktop) as shell:
        desktop.run(PROGRAM)
        shell.wait_keyboard()
        desktop.click_on("push button", "Add Trial")
        desktop.type("Acme")
        popover = Popover(shell)
        for color in (0x66, 0x00, 0x99), (0x00, 0x66, 0x33):
            portal.change("accent-color", dbus.Struct([part / 255 for part in color], signature="ddd"))
            wait_until(lambda color=color: popover.colors().get("%02x%02x%02x" % color, 0) > 500,
                       "the button in the accent colour")
    desktop.stop(portal.process)


def test_more_contrast_is_followed(desktop):
    portal = Portal(desktop, color_scheme=LIGHT)
    with Shell(desktop) as shell:
        desktop.run(PROGRAM)
        shell.wait_keyboard()
        popover = Popover(shell)
        wait_until(lambda: "fafafb" in popover.colors(), "the usual background")

        portal.change("contrast", dbus.UInt32(1))
        wait_until(lambda: popover.colors().get("ffffff", 0) > 50_000, "a white background")
        portal.change("contrast", dbus.UInt32(0))
        wait_until(lambda: popover.colors().get("fafafb", 0) > 50_000, "the usual background")
    desktop.stop(portal.process)


def test_a_desktop_with_colours_of_its_own_keeps_them(desktop):
    """Plasma's are in a file, which Qt reads there."""
    settings = desktop.home / ".config/kdeglobals"
    settings.parent.mkdir(parents=True, exist_ok=True)
    settings.write_text("".join(
        f"[Colors:{part}]\nBackgroundNormal={ground}\nForegroundNormal={text}\n"
        for part, ground, text in (("Window", "255,228,181", "40,20,0"), ("View", "255,250,240", "40,20,0"),
                                   ("Button", "250,235,215", "40,20,0"), ("Selection", "139,69,19", "255,255,255"))))
    with Shell(desktop, XDG_CURRENT_DESKTOP="KDE", KDE_FULL_SESSION="true", KDE_SESSION_VERSION="5") as shell:
        desktop.run(PROGRAM)
        shell.wait_keyboard()
        popover = Popover(shell)
        wait_until(lambda: popover.colors().get("ffe4b5", 0) > 50_000, "the desktop's background")
        desktop.click_on("push button", "Add Trial")
        desktop.type("Acme")
        wait_until(lambda: popover.colors().get("8b4513", 0) > 500, "the button in the desktop's colour")
        assert popover.colors().get("fffaf0", 0) > 500, "the fields have another background"
    settings.unlink()


@pytest.mark.parametrize("scheme", [LIGHT, DARK], ids=["light", "dark"])
def test_with_more_contrast_outlines_and_secondary_text_have_seven_to_one(desktop, scheme):
    portal = Portal(desktop, color_scheme=scheme)
    scale = 2  # So that letters have pixels which they cover whole.
    with Shell(desktop, QT_SCALE_FACTOR=str(scale)) as shell:
        desktop.run(PROGRAM)
        shell.wait_keyboard()
        desktop.wait_until_still()
        popover = Popover(shell)
        (wait_dark if scheme == DARK else wait_light)(popover)
        wait_until(lambda: desktop.find("push button", "Add Trial"), "the panel for screen readers")
        desktop.run("/usr/bin/python3", ACCESSIBLE, "press", "Norvane", "push button", "Add Trial")
        wait_until(lambda: (desktop.find("text", "Service name") or {}).get("focused"), "the form")
        desktop.key("Tab")  # Away from the name, which the accent colour outlines as long as it is typed into.

        def box(*node):
            """A place in the popover, in pixels, although screen readers are told those of an unscaled one."""
            left, top, *_ = desktop.find("frame", "Norvane")["box"]
            x, y, width, height = desktop.find(*node)["box"]
            return (x - left) * scale, (y - top) * scale, width * scale, height * scale

        x, y, width, height = field = box("text", "Service name")
        caption, hint = (x, y - 38, width, 34), (x + 8, y + 8, width - 16, height - 16)
        count = next(node["name"] for node in desktop.accessible() if node["name"].endswith(" active")
                     and node["role"] == "label")
        texts = [box("label", count), caption, hint]

        def weakest():
            return min(popover.outline_contrast(field), *map(popover.text_contrast, texts))

        wait_until(lambda: 2.9 < weakest() < 6.5, "the usual contrast")
        portal.change("contrast", dbus.UInt32(1))
        wait_until(lambda: weakest() >= 6.95, "seven to one, but for the rounding of colours")
        desktop.screenshot(desktop.folder / f"contrast-{int(scheme)}.png")
    desktop.stop(portal.process)


class CompositingManager:
    """What tells programs that windows shine through; it draws nothing."""

    def __init__(self, desktop):
        self.display = Xlib.display.Display(desktop.environment["DISPLAY"])
        self.selection = self.display.intern_atom("_NET_WM_CM_S0")
        self.window = self.display.screen().root.create_window(-1, -1, 1, 1, 0, Xlib.X.CopyFromParent)
        self.window.set_selection_owner(self.selection, Xlib.X.CurrentTime)
        self.display.sync()

    def end(self):
        self.display.close()


def test_corners_are_round_while_a_compositor_runs(desktop, shell):
    popover = Popover(shell)
    right, bottom = popover.place[2] - 1, popover.place[3] - 1
    corners = [(0, 0), (right, 0), (0, bottom), (right, bottom)]
    nothing = (0, 0, 0)  # What a display shows of a window that is not there, where nobody mixes.

    def are_round():
        return [popover.color_at(*corner) == nothing for corner in corners]

    assert are_round() == [False] * 4
    for _ in range(2):
        manager = CompositingManager(desktop)
        wait_until(lambda: all(are_round()), "round corners")
        desktop.screenshot(desktop.folder / "round.png")
        manager.end()
        wait_until(lambda: not any(are_round()), "square corners")
