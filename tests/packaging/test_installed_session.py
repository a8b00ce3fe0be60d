# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Reminders of an installed Norvane in a login session of systemd's, wherever it was installed."""

from pathlib import Path

import pytest
from conftest import BUILD
from gi.repository import Gio, GLib
from support.notification_server import NotificationServer
from support.notifier import INTERFACE, NAME, PATH, this_minute
from support.user_session import UserSession, obstacle

PREFIXES = ("/usr", "/usr/local", "/opt/norvane", "~/.local", "~/programs/norvane")
UNIT = "norvane-notifier.service"
AUTOSTART = "org.norvane.NotificationCenter.desktop"


def on_debian_12():
    release = Path("/etc/os-release")
    return release.exists() and 'VERSION_ID="12"' in release.read_text()


@pytest.fixture(autouse=True)
def possible():
    reason = obstacle()
    if reason and not (on_debian_12() and "root" not in reason):
        pytest.skip(reason)


def expect_a_reminder(session):
    """Plans a reminder for this minute through the session bus, and sees it shown."""
    with NotificationServer(session) as server:
        request = GLib.Variant("(sssss)", ("a-1h", "Title", "Body", "default", this_minute()))
        session.connect().call_sync(NAME, PATH, INTERFACE, "AddRequest", request, None,
                                    Gio.DBusCallFlags.NONE, 60_000, None)
        (shown,) = server.wait_for(1, 20)
    assert (shown.title, shown.body) == ("Title", "Body")


@pytest.mark.parametrize("namespaces", [True, False], ids=["allowed", "denied"])
def test_the_service_starts_with_user_namespaces(namespaces):
    with UserSession(BUILD, "/usr", namespaces) as session:
        expect_a_reminder(session)

        assert session.process_of_name(NAME) == session.main_process_of_unit(UNIT)
        answer = session.run("sh", "-c", "unshare --user true && echo allowed || echo denied")
        assert answer.strip() == ("allowed" if namespaces else "denied")


@pytest.mark.parametrize("prefix", PREFIXES)
def test_a_reminder_comes_with_norvane_installed_in(prefix):
    with UserSession(BUILD, prefix) as session:
        expect_a_reminder(session)

        assert session.process_of_name(NAME) == session.main_process_of_unit(UNIT)


@pytest.mark.parametrize("prefix", PREFIXES)
def test_login_starts_the_notifier_installed_in(prefix):
    with UserSession(BUILD, prefix) as session:
        folder = session.home / ".config" if prefix.startswith("~") else Path("/etc/xdg")
        entry = session.run("cat", folder / "autostart" / AUTOSTART)
        (command,) = [line.removeprefix("Exec=") for line in entry.splitlines() if line.startswith("Exec=")]
        (program,) = [line.removeprefix("TryExec=") for line in entry.splitlines() if line.startswith("TryExec=")]

        session.run("test", "-x", program)
        session.run(*command.split())

        assert session.process_of_name(NAME) == session.main_process_of_unit(UNIT)
