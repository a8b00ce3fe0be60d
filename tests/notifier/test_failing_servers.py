# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""Notification servers that refuse one reminder, die of it, or hang; and what a click does."""

import signal
import sys
import time
from pathlib import Path

import pytest

from support.notification_server import NotificationServer
from support.notifier import this_minute
from support.process import wake_ups
from support.waiting import wait_until

FRAGILE_SERVER = Path(__file__).resolve().parents[1] / "support" / "fragile_server.py"


def add_in_order(notifier, *titles):
    trigger = this_minute()
    for title in titles:
        notifier.add(f"{title}-1h", trigger, title=title)


def test_one_that_the_server_refuses_does_not_keep_the_others_from_coming(notifier, server):
    server.refused = ("refused",)
    notifier.start()

    add_in_order(notifier, "refused", "other")

    assert server.wait_for(1, 30)[0].title == "other"
    server.refused = ()
    assert server.wait_for(2, 40)[1].title == "refused"


@pytest.mark.parametrize("error", ["org.freedesktop.Notifications.Error.ExcessNotificationGeneration",
                                   "org.freedesktop.DBus.Error.LimitsExceeded"], ids=["own", "common"])
def test_one_that_is_refused_does_not_delay_what_comes_later(notifier, server, error):
    server.refused = ("refused",)
    server.refusal = error
    notifier.start()
    add_in_order(notifier, "refused")
    wait_until(lambda: server.attempts == 3, "the third refusal", 20)

    add_in_order(notifier, "later")

    assert server.wait_for(1, 2)[0].title == "later"


def test_a_server_that_cannot_say_yet_what_it_reads_is_given_nothing_before(notifier, server):
    server.behaviour = "unready"
    notifier.start()
    notifier.add("a-1h", this_minute(), title="first", body="A&B")
    wait_until(lambda: server.attempts == 1, "the first question")

    server.behaviour = "take"

    assert server.wait_for(1)[0].body == "A&amp;B"


def test_one_that_kills_the_server_does_not_keep_the_others_from_coming(bus, notifier, tmp_path):
    log = tmp_path / "shown"
    bus.install("org.freedesktop.Notifications",
                f"{sys.executable} {FRAGILE_SERVER} {bus.address} {log}")
    notifier.start()

    add_in_order(notifier, "deadly", "other")

    wait_until(lambda: log.exists() and "other" in log.read_text(), "the other reminder", 30)
    assert log.read_text().splitlines().count("deadly") == 2


def test_a_server_that_hangs_shows_each_reminder_once(notifier, server):
    server.hung = ("first",)
    notifier.start()
    add_in_order(notifier, "first", "second")
    wait_until(lambda: server.attempts == 1, "the first attempt")

    time.sleep(25)  # More than twice as long as a server may take.
    server.resume()

    wait_until(lambda: "second" in server.titles, "the second reminder")
    assert server.titles == ["first", "second"]
    assert server.attempts == 2


def test_what_a_hanging_server_has_is_given_to_the_one_that_takes_its_place(notifier, bus, server):
    server.hung = ("first",)
    notifier.start()
    add_in_order(notifier, "first")
    wait_until(lambda: server.attempts == 1, "the first attempt")

    with NotificationServer(bus) as other:
        assert other.wait_for(1, 5)[0].title == "first"


def test_a_reminder_that_the_server_is_about_to_answer_is_not_shown_again(notifier, server):
    server.hung = ("first",)
    notifier.start()
    add_in_order(notifier, "first")
    wait_until(lambda: server.attempts == 1, "the attempt")

    notifier.process.send_signal(signal.SIGTERM)
    server.resume()
    assert notifier.process.wait(10) == 0
    notifier.forget_process()
    notifier.start()
    add_in_order(notifier, "second")

    wait_until(lambda: "second" in server.titles, "the second reminder")
    assert server.titles == ["first", "second"]


def test_a_server_that_never_answers_does_not_hold_up_the_end(notifier, server):
    server.behaviour = "ignore"
    notifier.start()
    add_in_order(notifier, "first")
    wait_until(lambda: server.attempts == 1, "the attempt")

    notifier.process.send_signal(signal.SIGTERM)

    assert notifier.process.wait(5) == 0
    notifier.forget_process()


@pytest.fixture
def norvane(bus, tmp_path):
    """Has the bus start a program in Norvane's place, which writes down how it was activated."""
    log = tmp_path / "activations"
    recorder = FRAGILE_SERVER.with_name("activated_program.py")
    bus.install("org.norvane.Norvane", f"{sys.executable} {recorder} {bus.address} {log}")
    return lambda: log.read_text().splitlines() if log.exists() else []


@pytest.mark.parametrize("token, activation", [
    ("token-1", "{'activation-token': 'token-1'}"), (None, "{}")])
def test_a_click_starts_norvane_and_hands_it_the_token(notifier, server, norvane, token, activation):
    server.capabilities = ("body", "actions")
    notifier.start()
    add_in_order(notifier, "first")
    shown = server.wait_for(1)[0]
    assert shown.actions == ["default", ""]

    server.click(shown.id, token)

    wait_until(lambda: norvane() == [activation], "the activation")


def test_a_click_on_another_programs_notification_means_nothing(notifier, server, norvane):
    server.capabilities = ("body", "actions")
    notifier.start()
    add_in_order(notifier, "first")
    shown = server.wait_for(1)[0]

    server.click(shown.id + 1)
    server.click(shown.id, "ours")

    wait_until(norvane, "the activation")
    assert norvane() == ["{'activation-token': 'ours'}"]


@pytest.mark.parametrize("name, version, actions", [
    ("lxqt-notificationd", "1.1.0", []), ("lxqt-notificationd", "1.2.0", ["default", ""]),
    ("Xfce Notify Daemon", "0.9.7", []), ("another", "1.1.0", ["default", ""])])
def test_a_server_that_would_draw_a_button_for_the_click_is_given_none(
        bus, notifier, name, version, actions):
    with NotificationServer(bus, capabilities=("body", "actions"), name=name,
                            version=version) as server:
        notifier.start()
        add_in_order(notifier, "first")

        assert server.wait_for(1)[0].actions == actions


def test_after_its_server_is_gone_other_programs_notifications_do_not_wake_it(notifier, bus):
    notifier.start()
    with NotificationServer(bus) as server:
        add_in_order(notifier, "first")
        server.wait_for(1)
    time.sleep(2)  # It tidies up half a second after the last call.
    with NotificationServer(bus) as other:
        time.sleep(1)  # A server that appears wakes it.
        before = wake_ups(notifier.process.pid)

        for i in range(20):
            other.close_notification(i)
        time.sleep(1)  # What is looked for is that nothing happens, which only time can show.

        assert wake_ups(notifier.process.pid) == before
