# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""How the notification centre starts, and when it ends."""

import shutil
import signal
import subprocess
from pathlib import Path

import pytest
from gi.repository import GLib

from support.bus import PrivateBus
from support.notification_server import NotificationServer
from support.notifier import FAR, NAME, STORAGE_ERROR, Notifier, error_name, this_minute
from support.waiting import wait_until


def ends(notifier, seconds=10):
    return notifier.process.wait(seconds) == 0


def request(identifier):
    return GLib.Variant("(sssss)", (identifier, "Title", "Body", "default", FAR))


def stays(notifier):
    """Still there well after the second it was told to linger."""
    try:
        notifier.process.wait(2.5)
    except subprocess.TimeoutExpired:
        return True
    return False


def test_a_call_starts_it_where_it_is_installed(bus, notifier):
    bus.install(NAME, f"/usr/bin/env XDG_STATE_HOME={notifier.folder.parent} "
                      f"{notifier.program} --linger 1")

    notifier.add("a-1h", FAR)

    assert notifier.identifiers() == ["a-1h"]
    notifier.remove_all()
    wait_until(lambda: not notifier.has_owner(), "its end")


def test_the_login_entry_has_the_bus_start_it(bus, notifier):
    bus.install(NAME, f"/usr/bin/env XDG_STATE_HOME={notifier.folder.parent} "
                      f"{notifier.program} --linger 1")

    login = subprocess.run([notifier.program, "--activate"], env=notifier.environment)

    assert login.returncode == 0
    assert notifier.has_owner()
    wait_until(lambda: not notifier.has_owner(), "its end")


def test_a_second_one_says_so_and_touches_nothing(notifier, tmp_path):
    notifier.start()
    elsewhere = {**notifier.environment, "XDG_STATE_HOME": str(tmp_path / "second")}

    second = subprocess.run([notifier.program], env=elsewhere, capture_output=True, text=True)

    assert second.returncode != 0
    assert second.stderr.count("\n") == 1 and NAME in second.stderr
    assert not (tmp_path / "second").exists()


def test_of_two_started_at_once_one_remains(notifier):
    both = [subprocess.Popen([notifier.program], env=notifier.environment,
                             stderr=subprocess.PIPE) for _ in range(2)]

    wait_until(lambda: any(one.poll() is not None for one in both), "the end of one")
    remaining = [one for one in both if one.poll() is None]

    assert len(remaining) == 1
    notifier.add("a-1h", FAR)
    for one in both:
        one.kill()
        one.wait()
        one.stderr.close()


def test_it_ends_when_nothing_is_left_to_do(notifier):
    notifier.start("--linger", "1")

    assert ends(notifier)


def test_while_all_is_well_it_tells_the_journal_nothing(notifier, server):
    notifier.start()
    notifier.add("a-1h", this_minute())
    notifier.add("b-1h", FAR)
    server.wait_for(1)

    assert notifier.end() == ""


def test_it_stays_while_something_is_pending(notifier):
    notifier.start("--linger", "1")
    notifier.add("a-1h", FAR)

    assert stays(notifier)

    notifier.remove("a-1h")
    assert ends(notifier)


def test_it_stays_while_a_notification_may_be_on_the_screen(notifier, server):
    trigger = this_minute()  # Before the second of lingering begins: it may take a while.
    notifier.start("--linger", "1")
    notifier.add("a-1h", trigger)
    shown = server.wait_for(1)[0]

    assert stays(notifier)

    server.close_notification(shown.id)
    assert ends(notifier)


def test_it_ends_after_the_server_took_its_notifications_along(notifier, bus):
    server = NotificationServer(bus).start()
    trigger = this_minute()  # Before the second of lingering begins: it may take a while.
    notifier.start("--linger", "1")
    notifier.add("a-1h", trigger)
    server.wait_for(1)

    server.stop()

    assert ends(notifier)


def test_it_ends_after_a_server_with_room_for_one_has_closed_the_last(notifier, server):
    server.behaviour = "single"
    trigger = this_minute()  # Before the second of lingering begins: it may take a while.
    notifier.start("--linger", "1")
    notifier.add("a-1h", trigger)
    notifier.add("b-1h", trigger)
    last = server.wait_for(2)[-1]

    server.close_notification(last.id)

    assert ends(notifier)


def test_it_stays_while_a_reminder_waits_for_a_server(notifier):
    trigger = this_minute()  # Before the second of lingering begins: it may take a while.
    notifier.start("--linger", "1")
    notifier.add("a-1h", trigger)

    assert stays(notifier)


def test_it_ends_as_failed_with_the_session_bus_and_keeps_what_is_pending(notifier, bus, tmp_path):
    notifier.start()
    notifier.add("a-1h", FAR)

    bus.close()

    assert notifier.process.wait(10) == 1
    notifier.forget_process()
    with PrivateBus(tmp_path / "next-bus") as next_bus:
        with Notifier(next_bus, notifier.folder.parent) as successor:
            assert successor.start().identifiers() == ["a-1h"]


@pytest.fixture
def disconnected(tmp_path):
    """A notifier with one reminder pending, which the bus has just disconnected for its answer."""
    with PrivateBus(tmp_path / "strict-bus", longest_message=100_000) as bus:
        with Notifier(bus, tmp_path / "state") as one:
            def start(*command):
                one.start(command=command)
                for i in range(3):
                    one.add(f"{i}-1h", FAR, body="x" * 50_000)
                with pytest.raises(GLib.Error):
                    one.pending()
                return one
            yield start


def test_it_connects_again_when_the_bus_has_disconnected_it(disconnected):
    notifier = disconnected()
    wait_until(notifier.has_owner, "its return")

    with NotificationServer(notifier.bus) as server:
        notifier.add("a-1h", this_minute())
        server.wait_for(1)

    notifier.remove("1-1h", "2-1h")
    assert notifier.identifiers() == ["0-1h"]
    notifier.process.send_signal(signal.SIGTERM)
    assert ends(notifier)


def test_a_service_of_systemd_leaves_it_to_systemd_to_start_it_again(disconnected):
    notifier = disconnected("sh", "-c", 'SYSTEMD_EXEC_PID=$$ exec "$@"', "sh")

    assert notifier.process.wait(10) == 1
    notifier.forget_process()


def test_without_a_session_bus_its_status_says_that_a_restart_is_useless(notifier):
    environment = {**notifier.environment, "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"}

    assert subprocess.run([notifier.program], env=environment).returncode == 69


def test_without_qts_sqlite_driver_it_ends_with_one_plain_line(notifier, tmp_path):
    alone = Path(shutil.copy(notifier.program, tmp_path / "norvane-notifier"))
    alone.with_name("qt.conf").write_text("[Paths]\nPlugins=none\n")

    answer = subprocess.run([alone], env=notifier.environment, capture_output=True, text=True)

    assert answer.returncode == 69
    assert answer.stderr == "Qt's SQLite driver is missing; reminders cannot be kept.\n"


def test_what_was_asked_for_just_before_a_signal_to_end_is_kept(notifier):
    notifier.start()
    for i in range(20):
        notifier.tell("AddRequest", request(f"{i}-1h"))
    notifier.authorize()  # Answered once those calls are there, and before they are written.

    notifier.kill(signal.SIGTERM)

    notifier.start()
    assert len(notifier.identifiers()) == 20


def test_of_two_on_different_buses_only_the_first_uses_the_file(notifier, other_notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    with other_notifier() as other:
        with pytest.raises(GLib.Error) as caught:
            other.add("b-1h", FAR)

        assert error_name(caught.value) == STORAGE_ERROR
        assert other.identifiers() == ["b-1h"]
        assert notifier.identifiers() == ["a-1h"]
        assert "kept in memory" in other.end()


def test_the_second_takes_over_from_the_first(notifier, other_notifier):
    notifier.start()
    notifier.add("due-24h", this_minute(), title="due")  # No server: it waits in the file.
    notifier.add("a-1h", FAR)
    with other_notifier() as other, NotificationServer(other.bus) as server:
        with pytest.raises(GLib.Error):
            other.remove_all()
        with pytest.raises(GLib.Error):
            other.add("b-1h", FAR)
        notifier.add("c-1h", FAR)

        notifier.kill()

        assert server.wait_for(1, 90)[0].title == "due"
        assert sorted(other.identifiers()) == ["a-1h", "b-1h", "c-1h"]


def test_a_second_that_ends_first_hands_over_what_it_holds(notifier, server, other_notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    with other_notifier() as other:
        for identifier, trigger in (("b-1h", FAR), ("due-24h", this_minute())):
            with pytest.raises(GLib.Error):
                other.add(identifier, trigger, title=identifier)  # No server there: it waits.

        other.kill(signal.SIGTERM)

        assert server.wait_for(1)[0].title == "due-24h"
        assert sorted(notifier.identifiers()) == ["a-1h", "b-1h"]


def test_what_a_second_hands_over_is_noticed_after_the_folder_was_made_anew(notifier, server, other_notifier):
    notifier.start()
    assert notifier.pending() == []
    notifier.folder.rename(notifier.folder.with_name("moved"))
    notifier.add("a-1h", FAR)
    with other_notifier() as other:
        with pytest.raises(GLib.Error):
            other.add("due-24h", this_minute(), title="due-24h")  # No server there: it waits.

        other.kill(signal.SIGTERM)

        assert server.wait_for(1)[0].title == "due-24h"
