# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""What reaches the notification server, and what becomes of it when the server fails."""

import time

import pytest

from support.notification_server import NotificationServer
from support.notifier import FAR, minutes_ago, this_minute
from support.process import wake_ups
from support.waiting import wait_until

AWKWARD = '<b>A&B</b> "x"'


def add_numbered(notifier, count, prefix="r"):
    """Requests of as many trials for the running minute; their titles, in order."""
    trigger = this_minute()
    titles = [f"{prefix} {i}" for i in range(count)]
    for i, title in enumerate(titles):
        notifier.add(f"{prefix}{i}-1h", trigger, title=title)
    return titles


def test_the_server_is_given_exactly_this(notifier, server):
    notifier.start()

    notifier.add("a-1h", this_minute(), title="🚨 Trial <i>&amp;", body="Body")

    shown = server.wait_for(1)[0]
    assert (shown.application, shown.icon) == ("Norvane", "org.norvane.Norvane")
    assert (shown.title, shown.body) == ("🚨 Trial <i>&amp;", "Body")
    assert (shown.actions, shown.timeout) == ([], -1)
    assert shown.hints == {"desktop-entry": "org.norvane.Norvane", "urgency": 1,
                           "sound-name": "message-new-instant"}


def test_a_body_is_escaped_for_a_server_that_reads_markup(notifier, server):
    notifier.start()

    notifier.add("a-1h", this_minute(), body=AWKWARD + "\u0001\n")

    assert server.wait_for(1)[0].body == '&lt;b&gt;A&amp;B&lt;/b&gt; "x"\ufffd\n'


def test_a_body_is_left_alone_for_a_server_that_does_not(notifier, server):
    server.capabilities = ("body", "actions")
    notifier.start()

    notifier.add("a-1h", this_minute(), body=AWKWARD)

    assert server.wait_for(1)[0].body == AWKWARD


def test_a_new_server_is_asked_anew_what_it_can_read(notifier, bus):
    notifier.start()
    with NotificationServer(bus) as first:
        notifier.add("a-1h", this_minute(), body=AWKWARD)
        first.wait_for(1)

    with NotificationServer(bus, capabilities=("body",)) as second:
        notifier.add("b-1h", this_minute(), body=AWKWARD)

        assert second.wait_for(1)[0].body == AWKWARD


def test_a_name_of_10_000_characters_arrives_whole(notifier, server):
    notifier.start()

    notifier.add("a-1h", this_minute(), title="t" * 10_000, body="🎬" * 10_000)

    assert (server.wait_for(1)[0].title, server.shown[0].body) == ("t" * 10_000, "🎬" * 10_000)


def test_what_is_due_without_a_server_comes_in_order_when_one_appears(notifier, bus):
    notifier.start()
    titles = add_numbered(notifier, 20)

    with NotificationServer(bus) as late:
        late.wait_for(20)

        assert late.titles == titles


def test_what_waits_for_a_server_survives_a_kill(notifier, bus):
    notifier.start()
    titles = add_numbered(notifier, 3)
    notifier.restart()

    with NotificationServer(bus) as late:
        late.wait_for(3)

        assert late.titles == titles


def test_a_server_that_refuses_gets_it_again_in_order(notifier, server):
    server.behaviour = "refuse"
    notifier.start()
    titles = add_numbered(notifier, 3)
    wait_until(lambda: server.attempts >= 2, "a second attempt")

    server.behaviour = "take"

    server.wait_for(3)
    assert server.titles == titles


def test_equal_texts_both_arrive_where_a_server_refuses_a_quick_repetition(notifier, server):
    server.behaviour = "distinct"
    notifier.start()
    trigger = this_minute()

    notifier.add("a-1h", trigger, title="Same")
    notifier.add("b-1h", trigger, title="Same")

    assert [one.title for one in server.wait_for(2)] == ["Same", "Same"]


@pytest.mark.parametrize("behaviour", ["ignore", "mute"])
def test_a_server_that_never_answers_is_given_up_and_tried_again(notifier, server, behaviour):
    server.behaviour = behaviour
    notifier.start()
    notifier.add("a-1h", this_minute())
    wait_until(lambda: server.attempts == 1, "the first attempt")
    assert notifier.call("PendingRequests") == ([],)  # Calls are served meanwhile.

    server.behaviour = "take"

    assert server.wait_for(1, 30)


def test_a_server_that_vanishes_in_mid_delivery_loses_nothing(notifier, bus):
    notifier.start()
    first = NotificationServer(bus, behaviour="ignore").start()
    titles = add_numbered(notifier, 5)
    wait_until(lambda: first.attempts == 1, "the first attempt")
    first.stop()

    with NotificationServer(bus) as second:
        second.wait_for(5)

        assert second.titles == titles


def test_only_the_latest_reminder_of_a_trial_waits_for_a_server(notifier, bus):
    notifier.start()
    notifier.add("a-24h", minutes_ago(2), title="over")
    notifier.add("b-24h", minutes_ago(2), title="another trial's")
    notifier.add("a-1h", minutes_ago(1), title="latest")

    with NotificationServer(bus) as late:
        late.wait_for(2)

        assert late.titles == ["another trial's", "latest"]


def test_a_request_for_the_running_minute_comes_once(notifier, server):
    notifier.start()
    trigger = this_minute()
    notifier.add("a-1h", trigger, title="once")
    server.wait_for(1)

    notifier.remove_all()
    notifier.add("a-1h", trigger, title="once")
    notifier.restart()
    notifier.add("a-1h", trigger, title="once")
    notifier.add("b-1h", trigger, title="last")

    server.wait_for(2)
    assert server.titles == ["once", "last"]


def test_planning_anew_while_it_waits_for_a_server_does_not_double_it(notifier, bus):
    notifier.start()
    trigger = this_minute()
    notifier.add("a-1h", trigger, title="once")
    notifier.remove_all()
    notifier.add("a-1h", trigger, title="once")
    notifier.add("b-1h", trigger, title="last")

    with NotificationServer(bus) as late:
        late.wait_for(2)

        assert late.titles == ["once", "last"]


def test_removing_all_spares_what_could_not_be_shown_yet(notifier, bus):
    notifier.start()
    notifier.add("a-1h", this_minute(), title="due")
    notifier.add("b-1h", FAR)

    notifier.remove_all()

    assert notifier.pending() == []
    with NotificationServer(bus) as late:
        assert late.wait_for(1)[0].title == "due"


def test_removing_by_identifier_takes_it_from_the_waiting_ones_too(notifier, bus):
    notifier.start()
    trigger = this_minute()
    notifier.add("a-1h", trigger, title="gone")
    notifier.add("b-1h", trigger, title="stays")

    notifier.remove("a-1h")

    with NotificationServer(bus) as late:
        assert late.wait_for(1)[0].title == "stays"


@pytest.mark.parametrize("identifier, minutes, comes", [
    ("a-1h", 30, True), ("a-1h", 61, False), ("a-24h", 23 * 60, True), ("a-24h", 24 * 60, False),
    ("a-3d", 71 * 60, True), ("a-3d", 72 * 60, False), ("a", 23 * 60, True), ("a", 24 * 60, False)])
def test_a_minute_that_is_over_counts_as_missed(notifier, server, identifier, minutes, comes):
    notifier.start()

    notifier.add(identifier, minutes_ago(minutes), title="missed")
    notifier.add("z-1h", this_minute(), title="now")

    wait_until(lambda: "now" in server.titles, "the notification")
    assert server.titles == (["missed", "now"] if comes else ["now"])
    assert notifier.pending() == []


def test_nothing_polls_while_something_is_pending(notifier, server):
    notifier.start("--linger", "1")
    for i in range(100):
        notifier.add(f"{i}-1h", FAR)

    time.sleep(2)  # The second of lingering has to pass: it is measured from the last call.
    before = wake_ups(notifier.process.pid)
    time.sleep(3)  # What is looked for is that nothing happens, which only time can show.

    assert wake_ups(notifier.process.pid) == before
