# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""The file behind the notification centre, whole, damaged, foreign or out of reach."""

import os
import re
import resource
import shutil
import signal
import sqlite3
import stat
import subprocess
import time
from contextlib import closing
from pathlib import Path
from tempfile import TemporaryDirectory

import pytest
from gi.repository import GLib

from support.bus import PrivateBus
from support.notifier import FAR, STORAGE_ERROR, Notifier, error_name, this_minute
from support.waiting import wait_until

# Root may write wherever it likes: where tests run as root, the notifier runs as somebody else.
AS_ORDINARY_USER = (("setpriv", "--reuid=65534", "--regid=65534", "--clear-groups")
                    if os.getuid() == 0 else ())


def mode(path):
    return stat.S_IMODE(path.stat().st_mode)


def aside(notifier, reason):
    return list(notifier.folder.glob(f"pending.sqlite.{reason}-*"))


def not_durable(notifier, identifier, trigger=FAR):
    """Adds a request and sees it answered as kept in memory only."""
    with pytest.raises(GLib.Error) as caught:
        notifier.add(identifier, trigger, title=identifier)
    return error_name(caught.value) == STORAGE_ERROR


def identifiers_in(file):
    with closing(sqlite3.connect(f"file:{file}?mode=ro", uri=True)) as ledger:
        return {row[0] for row in ledger.execute("SELECT identifier FROM pending")}


def may_write(notifier, may):
    """Lets the running process write to files, or has each of its writes fail."""
    limit = resource.RLIM_INFINITY if may else 0
    resource.prlimit(notifier.process.pid, resource.RLIMIT_FSIZE,
                     (limit, resource.RLIM_INFINITY))


def hold_one_in_memory(notifier):
    """a-1h is on the disk, and b-1h is not since the disk is full."""
    notifier.start()
    notifier.add("a-1h", FAR)
    may_write(notifier, False)
    assert not_durable(notifier, "b-1h")


def test_folder_and_file_are_the_users_alone(notifier):
    before = os.umask(0)
    try:
        notifier.start()
    finally:
        os.umask(before)
    notifier.add("a-1h", FAR)

    assert mode(notifier.folder) == 0o700
    assert {mode(file) for file in notifier.folder.iterdir()} == {0o600}


def test_a_file_that_others_could_read_is_closed_to_them(notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    notifier.kill()
    notifier.ledger.chmod(0o644)

    notifier.start()

    notifier.pending()
    assert mode(notifier.ledger) == 0o600


def test_what_was_acknowledged_survives_a_kill(notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    notifier.add("b-1h", FAR)
    notifier.remove("a-1h")

    notifier.restart()

    assert notifier.identifiers() == ["b-1h"]


@pytest.mark.skipif(not shutil.which("strace"), reason="needs strace")
def test_a_request_is_on_the_disk_before_it_is_answered(notifier, tmp_path):
    notifier.start()
    notifier.add("a-1h", FAR)
    log = tmp_path / "calls"
    threads = Path(f"/proc/{notifier.process.pid}/task")
    tracer = subprocess.Popen(["strace", "-f", "-qq", "-e", "trace=fdatasync,fsync,sendmsg", "-o", log,
                               "-p", str(notifier.process.pid)], stderr=subprocess.DEVNULL)
    wait_until(lambda: tracer.poll() is not None or all(
        f"TracerPid:\t{tracer.pid}\n" in status.read_text() for status in threads.glob("*/status")), "the tracer")
    if tracer.poll() is not None:
        pytest.skip("no process may trace another")

    notifier.add("b-1h", FAR)

    tracer.send_signal(signal.SIGINT)
    tracer.wait()
    calls = re.findall(r"(\w+)\(", log.read_text())
    assert calls.index("fdatasync") < calls.index("sendmsg")


@pytest.mark.parametrize("content", [b"no database at all" * 1000, b"SQLite format 3\0" + b"x" * 9000],
                         ids=["text", "header"])
def test_a_damaged_file_is_set_aside(notifier, content):
    notifier.folder.mkdir(parents=True)
    notifier.ledger.write_bytes(content)

    notifier.start()
    notifier.add("a-1h", FAR)

    assert [one.read_bytes() for one in aside(notifier, "damaged")] == [content]
    assert "set aside in" in notifier.end()
    notifier.start()
    assert notifier.identifiers() == ["a-1h"]


@pytest.mark.parametrize("start, end", [(100, 4096), (8192, 20480)], ids=["schema", "table"])
def test_a_file_with_damaged_pages_is_set_aside(notifier, start, end):
    notifier.start()
    for i in range(100):
        notifier.add(f"{i}-1h", FAR, body="x" * 500)
    notifier.kill()
    with closing(sqlite3.connect(notifier.ledger)) as ledger:
        ledger.execute("PRAGMA wal_checkpoint(TRUNCATE)")
    content = bytearray(notifier.ledger.read_bytes())
    content[start:end] = os.urandom(end - start)
    notifier.ledger.write_bytes(content)

    notifier.start()

    assert notifier.pending() == []
    assert len(aside(notifier, "damaged")) == 1


@pytest.mark.parametrize("version", [2, -1])
def test_a_file_of_another_version_is_set_aside(notifier, version):
    notifier.folder.mkdir(parents=True)
    with closing(sqlite3.connect(notifier.ledger)) as ledger:
        ledger.execute("CREATE TABLE pending (something)")
        ledger.execute(f"PRAGMA user_version = {version}")
        ledger.commit()

    notifier.start()
    notifier.add("a-1h", FAR)

    assert len(aside(notifier, "other-version")) == 1
    assert notifier.identifiers() == ["a-1h"]


def test_a_folder_in_the_place_of_the_file_does_not_keep_it_from_starting(notifier):
    notifier.ledger.mkdir(parents=True)

    notifier.start()

    assert not_durable(notifier, "a-1h")
    assert notifier.identifiers() == ["a-1h"]


def test_a_full_disk_is_told_and_reminders_still_come_once(notifier, server):
    notifier.start()
    notifier.add("a-1h", FAR)
    may_write(notifier, False)

    assert not_durable(notifier, "b-1h")
    assert not_durable(notifier, "now-1h", this_minute())

    server.wait_for(1)
    assert notifier.identifiers() == ["a-1h", "b-1h"]
    assert server.titles == ["now-1h"]


def test_a_file_with_one_more_column_is_taken_to_memory_when_the_disk_is_full(notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    notifier.kill()
    with closing(sqlite3.connect(notifier.ledger)) as ledger:
        ledger.execute("ALTER TABLE pending ADD COLUMN extra TEXT")
    notifier.start()
    may_write(notifier, False)

    assert not_durable(notifier, "b-1h")

    assert notifier.identifiers() == ["a-1h", "b-1h"]


def test_when_the_disk_has_room_again_nothing_is_lost(notifier):
    hold_one_in_memory(notifier)

    may_write(notifier, True)
    notifier.add("c-1h", FAR)
    notifier.restart()

    assert notifier.identifiers() == ["a-1h", "b-1h", "c-1h"]


def test_when_the_disk_has_room_again_nobody_needs_to_call(notifier):
    hold_one_in_memory(notifier)

    may_write(notifier, True)

    wait_until(lambda: identifiers_in(notifier.ledger) == {"a-1h", "b-1h"}, "both on the disk", 40)


def test_at_its_end_it_writes_what_it_could_not_before(notifier):
    notifier.start()
    may_write(notifier, False)
    assert not_durable(notifier, "a-1h")

    may_write(notifier, True)
    notifier.kill(signal.SIGTERM)

    assert notifier.start().identifiers() == ["a-1h"]


def test_a_disk_that_is_full_from_the_start_is_used_once_it_has_room(notifier):
    notifier.start(command=("prlimit", "--fsize=0:unlimited"))
    assert not_durable(notifier, "a-1h")

    may_write(notifier, True)
    notifier.add("b-1h", FAR)
    notifier.restart()

    assert notifier.identifiers() == ["a-1h", "b-1h"]


@pytest.fixture
def open_notifier():
    """A notification centre whose folder, and whose bus, every user of the machine can reach."""
    with TemporaryDirectory() as name:
        folder = Path(name)
        folder.chmod(0o755)
        (folder / "state").mkdir()  # Made by the notifier, it would be for its user alone.
        with PrivateBus(folder / "bus") as bus, Notifier(bus, folder / "state") as one:
            yield one
            one.folder.chmod(0o755)  # So that it can be removed.


@pytest.mark.parametrize("log", ["beside it", "worked in"])
def test_in_a_read_only_folder_it_works_from_memory_on_what_is_there(open_notifier, log):
    notifier = open_notifier
    notifier.start()
    notifier.add("a-1h", FAR)
    notifier.kill()
    if log == "worked in":
        sqlite3.connect(notifier.ledger).execute("PRAGMA wal_checkpoint").connection.close()
    for file in notifier.folder.iterdir():
        file.chmod(0o444)
    notifier.folder.chmod(0o555)

    notifier.start(command=AS_ORDINARY_USER)

    assert notifier.identifiers() == ["a-1h"]
    assert not_durable(notifier, "b-1h")
    assert notifier.identifiers() == ["a-1h", "b-1h"]


@pytest.fixture
def notifier_with_unreadable_file(open_notifier):
    """Not started yet; a-1h is in the file."""
    open_notifier.start()
    open_notifier.add("a-1h", FAR)
    open_notifier.kill()
    for file in open_notifier.folder.iterdir():
        file.chmod(0o000)
    return open_notifier


def test_a_file_that_cannot_be_read_is_not_taken_for_empty(notifier_with_unreadable_file):
    notifier = notifier_with_unreadable_file
    notifier.start(command=AS_ORDINARY_USER)

    with pytest.raises(GLib.Error) as caught:
        notifier.pending()

    assert error_name(caught.value) == STORAGE_ERROR
    assert not_durable(notifier, "b-1h")
    notifier.folder.chmod(0o777)
    for file in notifier.folder.iterdir():
        file.chmod(0o666)
    notifier.add("c-1h", FAR)
    assert sorted(notifier.identifiers()) == ["a-1h", "b-1h", "c-1h"]


def test_with_a_file_that_cannot_be_read_it_does_not_leave(notifier_with_unreadable_file):
    notifier = notifier_with_unreadable_file
    notifier.start("--linger", "0", command=AS_ORDINARY_USER)

    time.sleep(1)
    assert notifier.has_owner()


def test_thousands_of_requests_are_kept_and_listed_by_trigger(notifier):
    notifier.start()
    answers = []
    for i in range(3000):
        notifier.send("AddRequest", GLib.Variant("(sssss)", (
            f"{i}-1h", "Title", "Body", "default", f"{9999 - i}-01-01T00:00")), answers.append)
        notifier.iterate()
    wait_until(lambda: notifier.iterate() or len(answers) == 3000, "every answer", 30)

    notifier.restart()

    assert set(answers) == {None}
    assert notifier.identifiers() == [f"{i}-1h" for i in reversed(range(3000))]
