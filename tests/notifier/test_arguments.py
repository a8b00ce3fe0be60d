# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""What the notification centre accepts, and how it refuses the rest."""

import pytest
from gi.repository import GLib

from support.notifier import FAR, error_name

KIB = 1024


def refusal(notifier, *arguments):
    with pytest.raises(GLib.Error) as caught:
        notifier.call("AddRequest", GLib.Variant("(sssss)", arguments))
    assert error_name(caught.value) == "org.freedesktop.DBus.Error.InvalidArgs"
    assert notifier.pending() == []
    return caught.value.message


def test_an_empty_identifier_is_refused(notifier):
    notifier.start()

    assert "identifier" in refusal(notifier, "", "Title", "Body", "default", FAR)


@pytest.mark.parametrize("trigger", [
    "", "tomorrow", "2025-02-30T10:00", "2025-02-29T10:00", "2025-13-01T10:00", "2025-00-01T10:00",
    "2025-01-00T10:00", "2025-01-01T24:00", "2025-01-01T10:60", "0000-01-01T10:00",
    "2025-01-01 10:00", "2025-01-01T10:00Z", "2025-01-01T10:00:00", " 2025-01-01T10:00",
    "2025-1-1T10:00", "20250101T1000", "+025-01-01T10:00", "-001-01-01T10:00",
    "١٩٢٥-٠١-٠١T١٠:٠٠", "12025-01-01T10:00"])
def test_a_trigger_that_is_no_minute_is_refused(notifier, trigger):
    notifier.start()

    assert "trigger" in refusal(notifier, "a-1h", "Title", "Body", "default", trigger)


@pytest.mark.parametrize("argument, position", [
    ("identifier", 0), ("title", 1), ("body", 2), ("sound", 3)])
@pytest.mark.parametrize("text", ["x" * (64 * KIB + 1), "é" * (32 * KIB + 1)], ids=["x", "é"])
def test_a_text_over_64_kib_is_refused(notifier, argument, position, text):
    notifier.start()
    arguments = ["a-1h", "Title", "Body", "default", FAR]
    arguments[position] = text

    assert argument in refusal(notifier, *arguments)


@pytest.mark.parametrize("text", ["x" * 64 * KIB, "é" * 32 * KIB, ""], ids=["x", "é", "empty"])
def test_a_text_of_64_kib_or_none_is_kept(notifier, text):
    notifier.start()

    notifier.add("a-1h", FAR, title=text, body=text)

    assert notifier.pending() == [("a-1h", text, text, "default", FAR)]


@pytest.mark.parametrize("name", [
    '<b>A&B</b> "x"', "'; DROP TABLE pending; --", "🚨👩‍👩‍👧 e\u0301", "שלום עולם", "\u202eabc",
    "a\tb\nc\u0001d", pytest.param("n" * 10_000, id="long"), "\U0010fffd\ufeff"])
def test_any_name_is_kept_unharmed_over_a_kill(notifier, name):
    notifier.start()
    notifier.add(name, FAR, title=name, body=name)

    notifier.restart()

    assert notifier.pending() == [(name, name, name, "default", FAR)]


def test_permission_is_granted(notifier):
    notifier.start()

    assert notifier.call("RequestAuthorization", GLib.Variant("(u)", (7,))) == (True,)


def test_a_request_with_a_pending_identifier_replaces_that_one(notifier):
    notifier.start()
    notifier.add("a-1h", "2998-01-01T00:00", title="old")
    notifier.add("b-1h", "2997-01-01T00:00")

    notifier.add("a-1h", "2996-01-01T00:00", title="new")

    assert [(one[0], one[1]) for one in notifier.pending()] == [("a-1h", "new"), ("b-1h", "Title")]


def test_a_call_that_asks_for_no_answer_counts_like_any_other(notifier):
    notifier.start()

    notifier.tell("AddRequest", GLib.Variant("(sssss)", ("a-1h", "Title", "Body", "default", FAR)))
    notifier.tell("AddRequest", GLib.Variant("(sssss)", ("", "Title", "Body", "default", FAR)))

    assert notifier.identifiers() == ["a-1h"]


def test_operations_apply_in_the_order_sent(notifier):
    notifier.start()
    answers = []
    add = GLib.Variant("(sssss)", ("a-1h", "Title", "Body", "default", FAR))
    again = GLib.Variant("(sssss)", ("b-1h", "Title", "Body", "default", FAR))

    notifier.send("AddRequest", add, answers.append)
    notifier.send("RemoveAllPendingRequests", None, answers.append)
    notifier.send("AddRequest", again, answers.append)
    notifier.send("RemovePendingRequests", GLib.Variant("(as)", (["c", ""],)), answers.append)

    assert notifier.identifiers() == ["b-1h"]
