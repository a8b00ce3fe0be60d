# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""A click on a reminder opens Norvane's window, with the keyboard, on notification servers that people have."""

import re
from pathlib import Path

import pytest
from conftest import BUILD
from gi.repository import Gio
from support.desktop import Desktop, fresh_folder
from support.notification_server import NotificationServer
from support.notifier import INTERFACE, NAME, PATH, this_minute
from support.shell import PROGRAM
from support.sway import Sway
from support.waiting import wait_until

NOTIFIER = BUILD / "libexec/norvane-notifier"
PICTURES = BUILD.parent / "pictures"
NORVANE = "org.norvane.Norvane"
# Dunst's own settings bind "do the action" to the middle button, and "close" to the left one.
LEFT, MIDDLE = 1, 2


class Installed:
    """Has the session bus of a desktop start Norvane and its notifier from the build tree."""

    def _start_bus(self):
        services = self.folder / "data/dbus-1/services"
        services.mkdir(parents=True)
        for name, program in (NORVANE, PROGRAM), (NAME, NOTIFIER):
            (services / f"{name}.service").write_text(f"[D-BUS Service]\nName={name}\nExec={program.resolve()}\n")
        self.environment["XDG_DATA_DIRS"] = f"{self.folder}/data:/usr/local/share:/usr/share"
        super()._start_bus()


class DesktopOfX11(Installed, Desktop):
    """With a window of another program that has the keyboard."""

    def focus_another_window(self):
        self.start("xev", "-name", "Other", "-geometry", "300x200+100+300")
        wait_until(lambda: "Other" in self.focused_name(), "the other window's keyboard")

    def focused_name(self):
        return self.run("xdotool", "getwindowfocus", "getwindowname").strip()


class DesktopOfSway(Installed, Sway):
    """Without XWayland, so that Norvane is a program of Wayland there."""

    def __init__(self, folder):
        super().__init__(folder, xwayland=False)

    def let_the_bus_start_programs_here(self):
        self.run("dbus-update-activation-environment", "WAYLAND_DISPLAY", "SWAYSOCK", "XDG_SESSION_TYPE")


def remind(desktop):
    desktop.run("gdbus", "call", "--session", "--dest", NAME, "--object-path", PATH, "--method",
                f"{INTERFACE}.AddRequest", "a-1h", "Acme Cloud", "Cancel now", "default", this_minute())


def reminder(desktop):
    """Has a reminder shown, and returns where it is: x, y, width, height."""
    desktop.wait_until_still()
    before = desktop.screenshot(desktop.folder / "before.png")
    remind(desktop)

    def area():
        found = desktop.changed_area(before, desktop.screenshot(desktop.folder / "reminder.png"))
        return found if found and found[2] > 100 else None

    wait_until(area, "the reminder on the screen")
    desktop.wait_until_still()
    return area()


def click(desktop, area, button=LEFT):
    x, y, width, height = area
    desktop.click(x + width // 2, y + height // 2, button)


@pytest.fixture
def desktop(folder):
    with DesktopOfX11(fresh_folder(folder / "x11")) as started:
        yield started


@pytest.mark.parametrize("runs", [True, False], ids=["running", "started-by-the-bus"])
def test_on_dunst_a_click_opens_norvane(runs, desktop):
    settings = desktop.home / ".config/dunst/dunstrc"
    settings.parent.mkdir(parents=True)
    settings.write_text("[urgency_normal]\ntimeout = 0\n")  # It stays, however busy the machine is.
    desktop.start("dunst")
    wait_until(lambda: desktop.owns("org.freedesktop.Notifications"), "the notification server")
    if runs:
        desktop.start(PROGRAM)
        wait_until(lambda: desktop.owns(NORVANE), "Norvane on the bus")
    desktop.focus_another_window()
    area = reminder(desktop)
    desktop.screenshot(PICTURES / "reminder-dunst.png")
    assert desktop.owns(NORVANE) == runs

    click(desktop, area, MIDDLE)

    wait_until(lambda: desktop.windows("Norvane"), "the popover")
    wait_until(lambda: desktop.focused_name() == "Norvane", "the keyboard at the popover")
    desktop.wait_until_still()
    desktop.screenshot(PICTURES / "reminder-dunst-clicked.png")


def test_a_token_that_comes_with_the_click_does_not_keep_the_keyboard_away(desktop):
    class Bus:
        def connect(self):
            return Gio.DBusConnection.new_for_address_sync(
                desktop.environment["DBUS_SESSION_BUS_ADDRESS"],
                Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
                None, None)

    with NotificationServer(Bus(), capabilities=("body", "actions")) as server:
        desktop.start(PROGRAM)
        wait_until(lambda: desktop.owns(NORVANE), "Norvane on the bus")
        desktop.focus_another_window()
        remind(desktop)
        (shown,) = server.wait_for(1)

        server.click(shown.id, "server-1-host_TIME4711")

        wait_until(lambda: desktop.focused_name() == "Norvane", "the keyboard at the popover")


def test_on_xfce_a_reminder_has_no_button_and_a_click_only_closes_it(desktop):
    """Xfce's server never reports a click on a notification itself, and draws a button for each action."""
    (server,) = Path("/usr/lib").glob("*/xfce4/notifyd/xfce4-notifyd")
    # It stays for a minute, however busy the machine is.
    desktop.run("xfconf-query", "-c", "xfce4-notifyd", "-p", "/expire-timeout", "-n", "-t", "int", "-s", "60")
    desktop.start(server)
    wait_until(lambda: desktop.owns("org.freedesktop.Notifications"), "the notification server")
    calls = desktop.start("dbus-monitor", "--session", "interface='org.freedesktop.Notifications'")
    log = desktop.folder / "dbus-monitor.log"
    wait_until(lambda: "NameAcquired" in log.read_text(), "the monitor")
    area = reminder(desktop)
    desktop.screenshot(PICTURES / "reminder-xfce4-notifyd.png")

    click(desktop, area)

    by_the_user = r"member=NotificationClosed\n\s+uint32 \d+\n\s+uint32 2\n"
    wait_until(lambda: re.search(by_the_user, log.read_text()), "the end of the reminder")
    desktop.wait_until_still()
    desktop.screenshot(PICTURES / "reminder-xfce4-notifyd-clicked.png")
    desktop.stop(calls)
    assert "ActionInvoked" not in log.read_text()
    assert not re.search(r'array \[\s+string "default"', log.read_text())
    assert not desktop.owns(NORVANE)


@pytest.mark.parametrize("runs", [True, False], ids=["running", "started-by-the-bus"])
def test_on_mako_a_click_opens_norvane_and_the_token_reaches_the_compositor(runs, folder):
    with DesktopOfSway(fresh_folder(folder / "sway")) as desktop:
        desktop.let_the_bus_start_programs_here()
        desktop.start("mako")
        wait_until(lambda: desktop.owns("org.freedesktop.Notifications"), "the notification server")
        desktop.start("dbus-monitor", "--session", "member='ActivationToken'")
        if runs:
            norvane = desktop.start(PROGRAM, WAYLAND_DEBUG="1")
            wait_until(lambda: desktop.owns(NORVANE), "Norvane on the bus")
        area = reminder(desktop)
        desktop.screenshot(PICTURES / "reminder-mako.png")

        click(desktop, area)

        wait_until(lambda: any(window["focused"] for window in desktop.windows("Norvane")),
                   "the popover with the keyboard")
        desktop.wait_until_still()
        desktop.screenshot(PICTURES / "reminder-mako-clicked.png")
        (token,) = re.findall(r'member=ActivationToken\n\s+uint32 \d+\n\s+string "(.+)"',
                              (desktop.folder / "setpriv.log").read_text())
        if runs:
            desktop.stop(norvane)
            log = (desktop.folder / "setpriv.log").read_text()
            assert re.search(rf'xdg_activation_v1[@#]\d+\.activate\("{re.escape(token)}"', log)
