# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""A ledger that is removed or replaced under the running notification centre, or cannot be used."""

import os
import shutil
import sqlite3
import time
from contextlib import closing

import pytest
from gi.repository import GLib

from support.notifier import FAR, STORAGE_ERROR, error_name


def remove_folder(notifier):
    shutil.rmtree(notifier.folder)


def move_folder(notifier):
    notifier.folder.rename(notifier.folder.with_name("moved"))


def remove_file(notifier):
    notifier.ledger.unlink()


def remove_log(notifier):
    notifier.ledger.with_name("pending.sqlite-wal").unlink()


def replace_file(notifier):
    copy = notifier.ledger.with_name("copy")
    shutil.copy(notifier.ledger, copy)
    copy.replace(notifier.ledger)


def replace_file_by_something_else(notifier):
    other = notifier.ledger.with_name("other")
    other.write_bytes(b"no database at all" * 1000)
    other.replace(notifier.ledger)


@pytest.mark.parametrize("lose", [remove_folder, move_folder, remove_file, remove_log, replace_file,
                                  replace_file_by_something_else])
def test_what_is_answered_survives_a_kill_after(lose, notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    lose(notifier)

    notifier.add("b-1h", FAR)
    notifier.restart()

    assert notifier.identifiers() == ["a-1h", "b-1h"]


def test_the_journal_tells_of_a_file_that_was_written_anew(notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    remove_log(notifier)
    notifier.add("b-1h", FAR)

    told = notifier.end()

    assert "it is written anew" in told and "kept in memory" not in told


def test_the_journal_tells_of_a_file_that_cannot_be_written_anew(notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    remove_folder(notifier)
    notifier.folder.write_text("A file where the folder was.")
    with pytest.raises(GLib.Error):
        notifier.add("b-1h", FAR)

    told = notifier.end()

    assert "it is written anew" in told and "kept in memory" in told


def test_after_its_folder_was_removed_nobody_else_may_use_the_new_one(notifier, other_notifier):
    notifier.start()
    notifier.add("before-1h", FAR)
    remove_folder(notifier)
    notifier.add("a-1h", FAR)

    with other_notifier() as other:
        with pytest.raises(GLib.Error) as caught:
            other.add("b-1h", FAR)

    assert error_name(caught.value) == STORAGE_ERROR


def foreign_tables(notifier):
    return ["CREATE TABLE pending (something)", "CREATE TABLE outbox (something)",
            "CREATE TABLE delivered (something)"]


def no_tables(notifier):
    return ["CREATE TABLE unrelated (something)"]


def column_that_must_be_filled(notifier):
    notifier.start()
    assert notifier.pending() == []
    notifier.kill()
    return ["ALTER TABLE pending ADD COLUMN extra TEXT NOT NULL DEFAULT 'x'",
            "CREATE TRIGGER never BEFORE INSERT ON pending BEGIN SELECT raise(ABORT, 'no'); END"]


def other_encoding(notifier):
    return ["PRAGMA encoding = 'UTF-16'", "CREATE TABLE pending (identifier TEXT)"]


def unknown_order(notifier):
    return ["CREATE TABLE pending (identifier TEXT COLLATE unknown UNIQUE)"]


@pytest.mark.parametrize("statements", [foreign_tables, no_tables, column_that_must_be_filled, other_encoding,
                                        unknown_order])
def test_a_file_of_other_tables_is_set_aside(statements, notifier):
    notifier.folder.mkdir(parents=True)
    wrong = statements(notifier)
    with closing(sqlite3.connect(notifier.ledger)) as ledger:
        ledger.create_collation("unknown", lambda one, other: 0)  # Known here and nowhere else.
        for statement in wrong:
            ledger.execute(statement)
        ledger.execute("PRAGMA user_version = 1")
        ledger.commit()

    notifier.start()
    notifier.add("a-1h", FAR)
    notifier.restart()

    assert notifier.identifiers() == ["a-1h"]
    assert len(list(notifier.folder.glob("pending.sqlite.damaged-*[!lm]"))) == 1


def test_a_pipe_in_the_place_of_the_file_does_not_keep_it_from_starting(notifier):
    notifier.folder.mkdir(parents=True)
    os.mkfifo(notifier.ledger)

    notifier.start()

    with pytest.raises(GLib.Error) as caught:
        notifier.add("a-1h", FAR)
    assert error_name(caught.value) == STORAGE_ERROR
    assert notifier.identifiers() == ["a-1h"]


def test_what_a_link_leads_to_keeps_its_permissions(notifier, tmp_path):
    target = tmp_path / "elsewhere"
    target.touch(0o640)
    notifier.folder.mkdir(parents=True)
    notifier.ledger.symlink_to(target)

    notifier.start()
    notifier.add("a-1h", FAR)

    assert target.stat().st_mode & 0o777 == 0o640


def test_a_list_that_cannot_be_read_is_an_error_and_not_empty(notifier):
    notifier.start()
    for i in range(50):
        notifier.add(f"{i}-1h", FAR, body="x" * 10_000)
    time.sleep(1)  # Half a second after the last call it frees what it has in memory of the file.
    for file in (notifier.ledger, notifier.ledger.with_name("pending.sqlite-wal")):
        with open(file, "r+b") as damaged:
            damaged.write(b"\xff" * file.stat().st_size)

    with pytest.raises(GLib.Error) as caught:
        notifier.identifiers()

    assert error_name(caught.value) == STORAGE_ERROR


def test_a_file_that_another_program_has_locked_does_not_delay_every_call(notifier):
    notifier.start()
    notifier.add("a-1h", FAR)
    with closing(sqlite3.connect(notifier.ledger, isolation_level=None)) as other:
        other.execute("BEGIN IMMEDIATE")
        with pytest.raises(GLib.Error):
            notifier.add("b-1h", FAR)  # This one waits, because most such locks are short.

        before = time.monotonic()
        for i in range(10):
            with pytest.raises(GLib.Error):
                notifier.add(f"c{i}-1h", FAR)

        assert time.monotonic() - before < 5
        other.execute("ROLLBACK")
    notifier.add("d-1h", FAR)

    notifier.restart()
    assert len(notifier.identifiers()) == 13
