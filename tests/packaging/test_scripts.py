# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""What the scripts for installing and releasing ask of a machine, and what they say where they cannot go on."""

import os
import re
import shutil
import subprocess
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
SCRIPT = ROOT / "scripts/install-packages"
TOOLS = ("awk", "bash", "dirname", "env", "paste", "sed")


class Machine:
    """A folder of programs, for PATH: a machine that has next to nothing, and a user without rights."""

    def __init__(self, folder):
        self.folder = folder
        for tool in TOOLS:
            (folder / tool).symlink_to(shutil.which(tool))
        self.add("id", "echo 1000")

    def add(self, name, text):
        program = self.folder / name
        program.write_text(f"#!{shutil.which('sh')}\n{text}\n")
        program.chmod(0o755)

    def run(self, *lists, more_path=""):
        return subprocess.run([SCRIPT, *lists], env={"PATH": f"{self.folder}{more_path}"}, check=False,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True)


@pytest.fixture
def machine(tmp_path):
    return Machine(tmp_path)


@pytest.mark.skipif(not shutil.which("dpkg-query"), reason="no Debian packages on this system")
def test_where_everything_is_installed_it_needs_neither_root_nor_the_network(machine):
    for name in ("apt-get", "sudo"):
        machine.add(name, "echo $0 was called; exit 1")

    answer = machine.run("run", "build", "test", more_path=":" + os.environ["PATH"])

    assert (answer.returncode, answer.stdout, answer.stderr) == (0, "", "")


def test_no_script_but_one_installs_anything_on_this_machine():
    """scripts/elsewhere and scripts/pictures --beside do, too, in systems of their own."""
    callers = {script.name for script in (ROOT / "scripts").iterdir()
               if script.is_file() and re.search(r"\bapt(-get)? (-\S+ )*(install|update)\b", script.read_text())}

    assert callers == {"install-packages", "elsewhere", "pictures"}


@pytest.mark.parametrize(("manager", "command", "names"), [
    ("debian", "apt-get install --no-install-recommends", {"libqt6sql6-sqlite", "qml6-module-qtquick", "qt6-base-dev"}),
    ("fedora", "dnf install", {"qt6-qtbase", "qt6-qtdeclarative-devel", "gcc-c++"}),
    ("arch", "pacman -S", {"qt6-base", "qt6-declarative", "gcc"}),
])
def test_without_root_it_says_in_one_sentence_what_an_administrator_would_type(machine, manager, command, names):
    if manager == "debian":
        machine.add("dpkg-query", "exit 0")
        machine.add("apt-get", "exit 1")
        machine.add("apt-cache", "exit 1")
    elif manager == "fedora":
        machine.add("dnf", "exit 1")
        machine.add("rpm", "exit 1")
    else:
        machine.add("pacman", "exit 127")

    answer = machine.run("run", "build")

    assert (answer.returncode, answer.stdout) == (0, "")
    (sentence,) = answer.stderr.splitlines()
    match = re.fullmatch(
        f"(\\d+) packages seem to be missing, which an administrator installs with: {command} (.*)", sentence)
    assert match, sentence
    assert names <= set(match[2].split())
    assert int(match[1]) == len(match[2].split()) == len(set(match[2].split()))


def test_only_what_is_missing_is_named(machine):
    machine.add("pacman", '[ "$2" != cmake ]')

    assert machine.run("run", "build").stderr.endswith("pacman -S cmake\n")


def test_on_an_unknown_system_it_names_what_debian_calls_the_packages(machine):
    (sentence,) = machine.run("run", "build").stderr.splitlines()

    assert "qt6-base-dev" in sentence and "xvfb" not in sentence


def test_what_runs_norvane_brings_nothing_that_only_tests_need(machine):
    machine.add("dpkg-query", "exit 0")
    machine.add("apt-cache", "exit 1")

    sentence = machine.run("run", "build").stderr

    for tests_own in ("xvfb", "xfce4-notifyd", "dunst", "sway", "xfce4-panel", "python3-pytest", "clang-tidy-16"):
        assert tests_own not in sentence


def packages(*lists):
    """The names in some of the lists, those of alternatives each."""
    chosen, names = False, set()
    for line in (ROOT / "scripts/packages.txt").read_text().splitlines():
        if line.startswith("["):
            chosen = line.strip("[]") in lists
        elif chosen and not line.startswith("#"):
            names |= set(line.split()[0].rstrip("?").split("|"))
    return names


@pytest.mark.parametrize(("checked", "lists"), [(False, ("build", "package")),
                                                (True, ("run", "build", "test", "package"))])
def test_the_lists_bring_all_that_the_debian_package_is_built_with(checked, lists):
    field = re.search(r"^Build-Depends:(.*?)^\S", (ROOT / "debian/control.in").read_text(), re.M | re.S)[1]
    needed = [entry for entry in field.split(",") if checked or "<!nocheck>" not in entry]
    assert len(needed) > 10

    for entry in needed:
        names = {re.match(r"[^\s(]+", name.strip())[0].replace("debhelper-compat", "debhelper")
                 for name in entry.split("|")}
        assert names & packages(*lists), entry


@pytest.mark.skipif(not shutil.which("apt-cache"), reason="no apt on this system")
def test_every_name_is_a_real_package_of_this_release():
    lines = [line.split()[0] for line in (ROOT / "scripts/packages.txt").read_text().splitlines()
             if line and line[0] not in "#["]
    names = {name for line in lines if not line.endswith("?") for name in line.split("|")}
    answer = subprocess.run(["apt-cache", "madison", *names], capture_output=True, text=True, check=False).stdout
    known = {line.split("|")[0].strip() for line in answer.splitlines()}
    if not known:
        pytest.skip("apt has no lists of packages here")

    assert [line for line in lines if not line.endswith("?") and not known & set(line.split("|"))] == []


def test_there_is_no_release_while_its_addresses_are_reserved_ones():
    answer = subprocess.run([ROOT / "scripts/release"], capture_output=True, text=True, check=False)

    assert answer.returncode == 1
    for name in ("MAINTAINER_EMAIL", "HOMEPAGE", "BUG_TRACKER", "SCREENSHOTS"):
        assert f"{name} is a reserved value" in answer.stderr
