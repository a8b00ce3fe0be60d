# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Both processes are in the zone that every other program is in, however the machine is set up."""

import json
import os
import shutil
import sqlite3
import subprocess
import sys
import time
from contextlib import closing
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.bus import PrivateBus  # noqa: E402
from support.norvane import BUILD, Norvane, write  # noqa: E402
from support.notifier import Notifier  # noqa: E402
from support.waiting import wait_until  # noqa: E402

os.environ["NORVANE_NOTIFIER"] = str(BUILD / "libexec/norvane-notifier")
REFERENCE = 978307200
LEADS = {"-3d": 3 * 86400, "-24h": 86400, "-1h": 3600}
DATABASE = Path("/usr/share/zoneinfo")


def other_etc(folder):
    """A command that runs another one with a copy of Tokyo's zone as /etc/localtime, a file and not
    a link, beside an /etc/timezone that still names Berlin."""
    etc = folder / "etc"
    shutil.copytree("/etc", etc, symlinks=True,
                    ignore=lambda path, names: ["localtime", "timezone"] if path == "/etc" else [])
    shutil.copy(DATABASE / "Asia/Tokyo", etc / "localtime")
    (etc / "timezone").write_text("Europe/Berlin\n")
    return mounted(etc, "/etc")


def mounted_zone(_folder):
    """A command that runs another one with Tokyo's zone mounted at /etc/localtime. Where that is a
    link, as is usual, the mount lies on the zone that it names."""
    return mounted(DATABASE / "Asia/Tokyo", "/etc/localtime")


def mounted(source, target):
    return ["unshare", "--mount", "sh", "-c", f'mount --bind {source} {target} && exec "$@"', "sh"]


def can_mount():
    return subprocess.run(mounted("/etc", "/etc") + ["true"], capture_output=True, check=False).returncode == 0


def local_minutes(before, environment, moments):
    """What the C library makes of the moments, in a process of its own."""
    answer = subprocess.run([*before, "date", "--file=-", "+%Y-%m-%dT%H:%M"], text=True, check=True,
                            capture_output=True, env=environment, input="".join(f"@{moment}\n" for moment in moments))
    return answer.stdout.split()


def check_both_processes(tmp_path, before=(), **environment):
    start = int(time.time()) // 3600 * 3600
    ends = [start + days * 86400 for days in range(10, 410, 10)]  # Over the next changes of the clocks.
    trials = [{"id": f"BA96CA62-A106-480E-9C02-{number:012X}", "name": "A", "endDate": end - REFERENCE, "cost": 0,
               "notes": "", "createdAt": 0, "notificationIds": []} for number, end in enumerate(ends)]
    write(tmp_path / "home", json.dumps(trials))
    reminders = {trial["id"] + suffix: end - lead for trial, end in zip(trials, ends) for suffix, lead in LEADS.items()}
    with PrivateBus(tmp_path / "bus") as bus, Notifier(bus, tmp_path / "state") as notifier:
        notifier.environment.pop("TZ", None)
        notifier.environment |= environment
        notifier.start(command=tuple(before))
        with Norvane(tmp_path / "home", before, DBUS_SESSION_BUS_ADDRESS=bus.address, **environment):
            wait_until(lambda: len(notifier.identifiers()) == len(reminders), "all requests", 30)
        triggers = {request[0]: request[4] for request in notifier.pending()}
        minutes = local_minutes(before, {"PATH": os.environ["PATH"]} | environment, reminders.values())
        assert triggers == dict(zip(reminders, minutes)), "the minutes that Norvane asked for"
        notifier.kill()
        with closing(sqlite3.connect(notifier.ledger)) as ledger:
            due = dict(ledger.execute("SELECT identifier, due FROM pending"))
        assert due == reminders, "the moments that the notifier waits for"


@pytest.mark.parametrize("setting", ["UTC-3", "UTC+5:30", "UTC3", "GMT-5", "CET-1CEST,M3.5.0,M10.5.0/3", "",
                                     ":America/New_York", "Australia/Lord_Howe"])
def test_a_zone_or_a_rule_in_the_environment(tmp_path, setting):
    check_both_processes(tmp_path, TZ=setting)


def test_a_path_whose_name_is_no_zone(tmp_path):
    copy = shutil.copy(DATABASE / "America/New_York", tmp_path / "here")
    check_both_processes(tmp_path, TZ=f":{copy}")


@pytest.mark.skipif(not can_mount(), reason="needs to mount what the others do not see")
@pytest.mark.parametrize("setup", [other_etc, mounted_zone])
def test_a_zone_file_of_another_content_than_its_name_says(tmp_path, setup):
    check_both_processes(tmp_path, setup(tmp_path))
