# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Reminders of an installed Norvane in a login session of systemd's, wherever it was installed."""

import subprocess
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


def test_the_service_starts_with_the_documented_drop_in_where_namespaces_are_allowed():
    page = (Path(__file__).resolve().parents[2] / "docs/packaging.md").read_text()
    drop_in = page.split("```ini\n")[1].split("```")[0]
    session = UserSession(BUILD, "/usr")
    folder = session.home / ".config/systemd/user" / f"{UNIT}.d"
    folder.mkdir(parents=True)
    (folder / "confinement.conf").write_text(drop_in)
    with session:
        expect_a_reminder(session)

        own, outer = (session.run("readlink", f"/proc/{process}/ns/user")
                      for process in (session.main_process_of_unit(UNIT), "self"))
        assert own != outer


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


@pytest.fixture(scope="module")
def tarball(folder):
    root = Path(__file__).resolve().parents[2]
    output = (folder / "tarball").relative_to(root)
    subprocess.run([root / "scripts/tarball", BUILD, output], check=True, capture_output=True)
    (file,) = (folder / "tarball").glob("*.tar.xz")
    return file


@pytest.mark.parametrize("place", ["/opt", "~/programs"])
def test_a_reminder_comes_with_the_tarball_unpacked_in(place, tarball):
    with UserSession(BUILD, place, tarball=tarball) as session:
        expect_a_reminder(session)

        assert session.process_of_name(NAME) == session.main_process_of_unit(UNIT)


def test_what_the_tarball_set_up_is_taken_back(tarball):
    def files(session):
        return set(session.run("find", session.home, "-type", "f", "-not", "-path", "*/programs/*").split())

    with UserSession(BUILD, "~/programs", tarball=tarball) as session:
        expect_a_reminder(session)
        before = files(session)
        session.run("sh", "-c", "~/programs/norvane-*/setup remove")

        assert {Path(file).name for file in before - files(session)} == {
            "norvane-notifier.service", AUTOSTART, "org.norvane.Norvane.desktop", "org.norvane.Norvane.metainfo.xml",
            "org.norvane.Norvane.service", "org.norvane.Norvane.svg", "org.norvane.Norvane-symbolic.svg",
            "org.norvane.NotificationCenter.service"}
        assert {Path(file).parent.name for file in files(session)} <= {"norvane"}, "only the reminders' state is left"
