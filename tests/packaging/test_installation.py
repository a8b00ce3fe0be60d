# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""What an installation consists of, and that Norvane runs from one."""

import os
import re
import subprocess
from collections import Counter
from pathlib import Path
from xml.etree import ElementTree

import pytest
from conftest import BUILD
from gi.repository import GLib
from support.desktop import Desktop
from support.shell import Shell
from support.waiting import wait_until

SHARE = "usr/local/share"
PROGRAMS = ["bin/norvane", "libexec/norvane-notifier", "libexec/norvane/norvane-legacy-tray"]
TRANSLATIONS = Path(__file__).resolve().parents[2] / "translations"
XML_LANGUAGE = "{http://www.w3.org/XML/1998/namespace}lang"


@pytest.fixture(scope="module")
def root(folder):
    """A tree into which Norvane is installed."""
    tree = folder / "root"
    subprocess.run(["cmake", "--install", BUILD, "--prefix", "/usr/local"], check=True, capture_output=True,
                   env={"DESTDIR": str(tree), "PATH": "/usr/bin:/bin"})
    return tree


@pytest.mark.parametrize("path", [
    "etc/xdg/autostart/org.norvane.NotificationCenter.desktop",
    "usr/local/bin/norvane",
    "usr/local/lib/systemd/user/norvane-notifier.service",
    f"{SHARE}/applications/org.norvane.Norvane.desktop",
    f"{SHARE}/dbus-1/services/org.norvane.Norvane.service",
    f"{SHARE}/dbus-1/services/org.norvane.NotificationCenter.service",
    f"{SHARE}/icons/hicolor/16x16/apps/org.norvane.Norvane.svg",
    f"{SHARE}/icons/hicolor/22x22/apps/org.norvane.Norvane-symbolic.svg",
    f"{SHARE}/icons/hicolor/scalable/apps/org.norvane.Norvane.svg",
    f"{SHARE}/icons/hicolor/symbolic/apps/org.norvane.Norvane-symbolic.svg",
    f"{SHARE}/man/man8/norvane-notifier.8",
    f"{SHARE}/man/man1/norvane.1",
    f"{SHARE}/metainfo/org.norvane.Norvane.metainfo.xml",
])
def test_it_brings_what_a_desktop_expects(root, path):
    assert (root / path).is_file()


def test_the_list_of_what_was_installed_names_every_file_that_is_to_be_removed(root):
    listed = {line.lstrip("/") for line in (BUILD / "install_manifest.txt").read_text().splitlines()}

    assert {str(path.relative_to(root)) for path in root.rglob("*") if path.is_file()} == listed


def elf(root, program, *what):
    return subprocess.run(["readelf", "--wide", *what, root / "usr/local" / program], check=True,
                          capture_output=True, text=True).stdout


@pytest.mark.parametrize("program", PROGRAMS)
def test_a_program_looks_for_libraries_where_the_system_has_them(root, program):
    assert not re.search(r"\((RUNPATH|RPATH)\)", elf(root, program, "--dynamic"))


@pytest.mark.parametrize("program", PROGRAMS)
def test_what_ships_is_hardened(root, program):
    if "CMAKE_BUILD_TYPE:STRING=Release\n" not in (BUILD / "CMakeCache.txt").read_text():
        pytest.skip("only the preset release is what ships")
    assert "BIND_NOW" in elf(root, program, "--dynamic")
    assert "GNU_RELRO" in elf(root, program, "--segments")
    assert "__stack_chk_fail" in elf(root, program, "--dyn-syms")


def test_what_starts_the_notifier_names_the_installed_program(root):
    for file in ("etc/xdg/autostart/org.norvane.NotificationCenter.desktop",
                 "usr/local/lib/systemd/user/norvane-notifier.service",
                 f"{SHARE}/dbus-1/services/org.norvane.NotificationCenter.service"):
        lines = (root / file).read_text().splitlines()
        (program,) = [line.split()[0] for line in lines if line.startswith(("Exec=", "ExecStart="))]
        assert (root / program.split("=")[1].lstrip("/")).is_file(), file


@pytest.mark.parametrize("entry", [f"{SHARE}/applications/org.norvane.Norvane.desktop",
                                   "etc/xdg/autostart/org.norvane.NotificationCenter.desktop"])
def test_a_desktop_entry_is_valid(root, folder, entry):
    probe = folder / "probe.desktop"
    probe.write_text("[Desktop Entry]\nType=Application\nVersion=1.5\nName=Probe\nExec=true\n")
    text = (root / entry).read_text()
    if subprocess.run(["desktop-file-validate", probe], capture_output=True, check=False).returncode:
        # This validator knows the standard up to version 1.4, and not what came with 1.5.
        text = text.replace("Version=1.5\n", "Version=1.4\n").replace("SingleMainWindow=true\n", "")
    copy = folder / Path(entry).name
    copy.write_text(text)

    answer = subprocess.run(["desktop-file-validate", copy], capture_output=True, text=True, check=False)

    assert (answer.returncode, answer.stdout) == (0, "")


def test_the_notifiers_unit_is_valid(root, tmp_path):
    """In a folder with a short name: the system's own units are read, too, and put sockets there."""
    unit = tmp_path / "norvane-notifier.service"
    installed = (root / "usr/local/lib/systemd/user/norvane-notifier.service").read_text()
    unit.write_text(installed.replace("ExecStart=/", f"ExecStart={root}/"))

    answer = subprocess.run(["systemd-analyze", "--user", "--man=no", "verify", unit], capture_output=True,
                            text=True, check=False, env={**os.environ, "XDG_RUNTIME_DIR": str(tmp_path)})

    assert (answer.returncode, answer.stderr) == (0, "")


def test_the_metadata_is_valid(root):
    metadata = root / SHARE / "metainfo/org.norvane.Norvane.metainfo.xml"

    answer = subprocess.run(["appstreamcli", "validate", "--no-net", metadata],
                            capture_output=True, text=True, check=False)

    assert answer.returncode == 0, answer.stdout


@pytest.fixture
def languages():
    """The languages of the panel, apart from English."""
    return {file.stem.removeprefix("norvane_") for file in TRANSLATIONS.glob("norvane_*.ts")}


def test_a_launcher_shows_the_desktop_entry_in_the_users_language(root, languages):
    entry = GLib.KeyFile()
    entry.load_from_file(str(root / SHARE / "applications/org.norvane.Norvane.desktop"),
                         GLib.KeyFileFlags.KEEP_TRANSLATIONS)

    def text(key, language):
        return entry.get_locale_string("Desktop Entry", key, language)

    for language in languages:
        assert text("Name", language) == "Norvane"
        for key in "GenericName", "Comment", "Keywords":
            assert text(key, language) != text(key, "en"), f"{key} in {language}"
    assert "Actions" not in entry.get_keys("Desktop Entry")[0], "their names would have to be translated too"


def test_the_metadata_speaks_the_languages_of_the_panel(root, languages):
    tree = ElementTree.parse(root / SHARE / "metainfo/org.norvane.Norvane.metainfo.xml").getroot()
    count = Counter((element.tag, element.get(XML_LANGUAGE)) for element in tree.iter()
                    if element.tag in ("summary", "p", "caption"))

    for tag in "summary", "p", "caption":
        assert {language: count[tag, language] for language in languages} == dict.fromkeys(languages, count[tag, None])


@pytest.mark.parametrize("page", ["man1/norvane.1", "man8/norvane-notifier.8"])
def test_a_manual_page_is_well_formed(root, page):
    answer = subprocess.run(["groff", "-man", "-ww", "-z", root / SHARE / "man" / page],
                            capture_output=True, text=True, check=False)

    assert (answer.returncode, answer.stderr) == (0, "")


def test_the_icon_for_old_trays_is_found_from_where_it_is_installed(root, folder):
    with Desktop(folder / "desktop", panel=None) as desktop:
        desktop.start("trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height", "30")
        with Shell(desktop, program=root / "usr/local/bin/norvane"):
            wait_until(lambda: desktop.windows("Norvane"), "the icon in the tray")


def test_it_can_be_started_by_its_name_on_the_bus(root, folder):
    services = folder / "services/dbus-1/services"
    services.mkdir(parents=True)
    service = (root / SHARE / "dbus-1/services/org.norvane.Norvane.service").read_text()
    program = next(line for line in service.splitlines() if line.startswith("Exec=")).removeprefix("Exec=")
    (services / "org.norvane.Norvane.service").write_text(
        service.replace(program, str(BUILD / "app/norvane")))
    assert Path(program).name == "norvane"

    class Activating(Desktop):
        def _start_bus(self):
            self.environment["XDG_DATA_DIRS"] = f"{folder / 'services'}:/usr/share"
            super()._start_bus()

    with Activating(folder / "activating", panel=None) as desktop:
        desktop.run("gdbus", "call", "--session", "--dest", "org.norvane.Norvane",
                    "--object-path", "/org/norvane/Norvane",
                    "--method", "org.freedesktop.Application.Activate", "{}")
        wait_until(lambda: desktop.windows("Norvane"), "the popover")
