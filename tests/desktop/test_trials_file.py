# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""What the program makes of its file and folder: no desktop is needed, only the program itself."""

import json
import os
import subprocess
import sys
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.waiting import wait_until  # noqa: E402

PROGRAM = Path(os.environ["NORVANE_BUILD"]) / "app/norvane"
TRIAL = {
    "id": "BA96CA62-A106-480E-9C02-EEBDC393F97E",
    "name": "Acme Cloud",
    "endDate": 757382400.25,
    "cost": 12.99,
    "notes": "",
    "createdAt": 756000000.5,
    "notificationIds": [],
}


class Norvane:
    """One run of the program without a display and without a bus."""

    def __init__(self, home, before=(), **environment):
        self.command = [*before, PROGRAM]
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": str(home),
            "XDG_RUNTIME_DIR": str(home),
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere",
            "QT_QPA_PLATFORM": "offscreen",
        } | environment

    def __enter__(self):
        self.process = subprocess.Popen(self.command, env=self.environment, stdin=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        self.process.terminate()
        assert self.process.wait(30) == 0


def trials_file(home):
    return home / ".local/share/Norvane/trials.json"


def write(home, text):
    file = trials_file(home)
    file.parent.mkdir(parents=True)
    file.write_text(text)
    return file


def wait_for_text(file, text):
    wait_until(lambda: file.exists() and file.read_text() == text, f"{text[:100]} in the file")


@pytest.fixture(scope="module")
def locales(tmp_path_factory):
    """A folder with a locale whose decimal mark has two bytes."""
    folder = tmp_path_factory.mktemp("locales")
    subprocess.run(["localedef", "--no-archive", "-i", "ps_AF", "-f", "UTF-8", folder / "ps_AF"], check=True)
    return folder


@pytest.mark.parametrize("variable", ["LC_ALL", "LC_NUMERIC"])
def test_numbers_keep_their_fractions_in_a_locale_without_a_decimal_point(tmp_path, locales, variable):
    file = write(tmp_path, json.dumps([TRIAL]))

    with Norvane(tmp_path, LOCPATH=str(locales), LANG="C.UTF-8", **{variable: "ps_AF"}):
        wait_for_text(file, json.dumps([TRIAL], separators=(",", ":")))
