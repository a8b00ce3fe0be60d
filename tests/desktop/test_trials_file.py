# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""What the program makes of its file and folder: no desktop is needed, only the program itself."""

import json
import os
import stat
import subprocess
import sys
import tempfile
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.norvane import PROGRAM, Norvane, trials_file, write  # noqa: E402
from support.waiting import wait_until  # noqa: E402

ORDINARY_USER = 65534
TRIAL = {
    "id": "BA96CA62-A106-480E-9C02-EEBDC393F97E",
    "name": "Acme Cloud",
    "endDate": 757382400.25,
    "cost": 12.99,
    "notes": "",
    "createdAt": 756000000.5,
    "notificationIds": [],
}


def wait_for_text(file, text):
    def has_text():
        # The size first: the file may be larger than the memory.
        return file.exists() and file.stat().st_size == len(text.encode()) and file.read_text() == text

    wait_until(has_text, f"{text[:100]} in the file")


# In the place of the C library's function of this name, in a program that is told to preload it.
WITHOUT_LOCKS = """#include <errno.h>
int flock(int descriptor, int operation) { (void)descriptor, (void)operation; errno = ENOLCK; return -1; }
"""


@pytest.fixture(scope="module")
def without_locks(tmp_path_factory):
    """The environment of a program on a file system without locks."""
    library = tmp_path_factory.mktemp("locks") / "none.so"
    subprocess.run(["cc", "-shared", "-fPIC", "-o", library, "-xc", "-"], input=WITHOUT_LOCKS, text=True, check=True)
    return {"LD_PRELOAD": str(library), "ASAN_OPTIONS": "verify_asan_link_order=0"}


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


@pytest.mark.skipif(b"__asan_init" in PROGRAM.read_bytes(), reason="AddressSanitizer needs all of the address space")
def test_a_file_larger_than_the_memory_is_an_empty_list(tmp_path):
    file = write(tmp_path, json.dumps([TRIAL]))
    os.truncate(file, 1 << 40)  # Sparse: it takes no space on the disk.

    with Norvane(tmp_path, before=["prlimit", f"--as={4 << 30}"]):
        wait_for_text(file, "[]")


def test_a_data_folder_whose_path_is_not_unicode_is_used(tmp_path):
    folder = os.fsencode(tmp_path) + b"/Donn\xe9es"
    file = Path(os.fsdecode(folder)) / "Norvane/trials.json"

    with Norvane(tmp_path, XDG_DATA_HOME=folder):
        wait_for_text(file, "[]")

    assert os.listdir(os.fsencode(tmp_path)) == [b"Donn\xe9es"]


def test_folders_that_it_makes_are_for_the_user_alone_and_others_stay_as_they_are():
    with tempfile.TemporaryDirectory() as folder:
        home = Path(folder)
        local = home / ".local"
        local.mkdir()
        for path, mode in (home, 0o755), (local, 0o750):
            path.chmod(mode)
            os.chown(path, ORDINARY_USER, ORDINARY_USER)
        user = ["setpriv", f"--reuid={ORDINARY_USER}", f"--regid={ORDINARY_USER}", "--clear-groups"]

        with Norvane(home, before=user):
            wait_for_text(trials_file(home), "[]")

        modes = {path.relative_to(home).as_posix(): stat.S_IMODE(path.stat().st_mode)
                 for path in (local, local / "share", local / "share/Norvane")}
        assert modes == {".local": 0o750, ".local/share": 0o700, ".local/share/Norvane": 0o700}


def test_a_file_system_without_locks_is_no_obstacle(tmp_path, without_locks):
    with Norvane(tmp_path, **without_locks):
        file = trials_file(tmp_path)
        wait_for_text(file, "[]")

        file.unlink()
        with Norvane(tmp_path, **without_locks):  # Which nothing can keep out there.
            wait_for_text(file, "[]")
