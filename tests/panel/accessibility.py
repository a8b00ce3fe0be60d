# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Uses Norvane as a screen reader does: finds everything by role and name, and presses it so.

    accessibility.py BUILD
"""

import json
import sys
import time
import uuid
from datetime import datetime, timedelta
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests"))

from support.desktop import ACCESSIBLE, Desktop, fresh_folder  # noqa: E402
from support.waiting import wait_until  # noqa: E402

FIELD = Path(__file__).with_name("accessible_field.py")


class User:
    """Somebody at a desktop who sees nothing."""

    def __init__(self, desktop, program):
        self.desktop = desktop
        self.program = program
        self.trials_file = desktop.home / ".local/share/Norvane/trials.json"

    def see(self, role, name, description=None):
        return wait_until(lambda: self.desktop.find(role, name, description), f"{role} {name!r}")

    def miss(self, role, name):
        wait_until(lambda: not self.desktop.find(role, name), f"no {role} {name!r}")

    def press(self, role, name, description=None):
        self.see(role, name, description)
        words = [role, name] if description is None else [role, name, description]
        self.desktop.run("/usr/bin/python3", ACCESSIBLE, "press", "Norvane", *words)

    def focused(self, role, name):
        wait_until(lambda: (self.desktop.find(role, name) or {}).get("focused"), f"the focus on {name!r}")

    def read(self, field):
        return self.desktop.run("/usr/bin/python3", FIELD, "read", "Norvane", field)

    def rows(self):
        return self.desktop.run("/usr/bin/python3", FIELD, "rows", "Norvane", "Trials").splitlines()

    def enter(self, field, text):
        """Fills an empty field: Qt 6.4 lets a screen reader give it the keyboard, but not a text."""
        self.see("text", field)
        assert self.read(field) == "", f"{field!r} is not empty"
        self.desktop.run("/usr/bin/python3", FIELD, "focus", "Norvane", field)
        self.focused("text", field)
        self.desktop.type(text)
        wait_until(lambda: self.read(field) == text, f"{text!r} in {field!r}")

    def names(self):
        return [trial["name"] for trial in json.loads(self.trials_file.read_text())]

    def open_panel(self):
        self.process = self.desktop.start(self.program)
        wait_until(lambda: self.desktop.owns("org.norvane.Norvane"), "Norvane on the bus")
        self.desktop.run(self.program)  # The second one asks the first to show its panel.
        self.see("push button", "Quit")

    def add(self, name, cost):
        self.press("push button", "Add Trial")
        self.focused("text", "Service name")
        assert not self.see("push button", "Track Trial")["enabled"]
        self.see("spin button", "Trial ends", "Day")
        self.see("spin button", "Trial ends", "Time")
        self.enter("Monthly cost after trial", cost)
        self.enter("Service name", name)
        wait_until(lambda: self.see("push button", "Track Trial")["enabled"], "a form that can be sent")
        self.press("push button", "Track Trial")
        self.see("list item", f"{name}, 6d left, ${cost}")  # Seven days from a moment ago.


def walk(user):
    user.open_panel()
    user.see("label", "No trials tracked")
    user.see("label", "0 active")

    user.add("Acme Cloud", "9.50")
    assert user.names() == ["Acme Cloud"], user.names()
    user.see("label", "1 active")
    user.see("list", "Trials")
    user.see("notification", "Acme Cloud added")

    user.press("push button", "Add Trial")
    user.enter("Service name", "Radio Norte")
    user.press("push button", "Cancel")
    user.miss("text", "Service name")
    assert user.names() == ["Acme Cloud"], user.names()

    user.press("push button", "Delete", "Acme Cloud")
    user.see("dialog", "Delete Trial?")
    user.see("label", 'Remove "Acme Cloud" from Norvane?')
    user.focused("push button", "Cancel")
    user.press("push button", "Cancel")
    user.miss("dialog", "Delete Trial?")
    assert user.names() == ["Acme Cloud"], user.names()

    user.press("push button", "Delete", "Acme Cloud")
    user.see("dialog", "Delete Trial?")
    user.press("push button", "Delete", "")
    user.see("label", "No trials tracked")
    assert user.names() == [], user.names()
    user.see("notification", "Acme Cloud deleted")

    user.press("push button", "Quit")


def write_trials(file, count):
    """Trials that end in two days and are named by their place: "Trial 1" and so on."""
    now = time.time() - 978307200  # A trials file counts from 2001.
    file.write_text(json.dumps([
        {"id": str(uuid.UUID(int=number)), "name": f"Trial {number}", "endDate": now + 2.5 * 86400, "cost": 5,
         "notes": "", "createdAt": now, "notificationIds": []}
        for number in range(1, count + 1)
    ]))


def read_a_list_longer_than_the_panel(user):
    write_trials(user.trials_file, 30)
    user.open_panel()
    user.see("list", "Trials", "30 in total")
    expected = [f"Trial {number}, 2d left, $5.00; {number} of 30" for number in range(1, 31)]
    assert user.rows() == expected, user.rows()

    user.focused("push button", "Add Trial")
    user.desktop.key("Tab", "Tab", "End")
    user.focused("list item", "Trial 30, 2d left, $5.00")
    assert user.rows() == expected, user.rows()


def read_the_calendar(user):
    user.press("push button", "Add Trial")
    end = datetime.now() + timedelta(days=7)
    user.press("push button", "Choose a day", "Trial ends")
    month = f"{end:%B %Y}"
    user.see("panel", month)
    table = json.loads(user.desktop.run("/usr/bin/python3", FIELD, "table", "Norvane", month))
    assert (table["rows"], table["columns"]) == (6, 7), table
    places = [(row, column) for row, column, *_ in table["cells"]]
    assert places == [(row, column) for row in range(6) for column in range(7)], places
    for row, column, name, name_at_its_place in table["cells"]:
        assert name == name_at_its_place, f"in row {row}, column {column}: {name_at_its_place}, not {name}"
        assert name.split(",")[0] == table["cells"][column][2].split(",")[0], f"{name} is in another column"
    days = [name for _, _, name, _ in table["cells"]]
    assert f"{end:%A}, {end.day} {end:%B %Y}, selected" in days, days
    user.desktop.key("Escape")
    user.miss("panel", month)
    user.press("push button", "Cancel")


def ask_for_the_last_word(user):
    """Orca asks for it when Control+Right brings the caret to the end."""
    user.press("push button", "Add Trial")
    user.enter("Service name", "Hulu Plus")
    user.desktop.key("ctrl+Left", "ctrl+Right")
    word = user.desktop.run("/usr/bin/python3", FIELD, "last-word", "Norvane", "Service name")
    assert word == "Plus", word


def main(build):
    folder = fresh_folder(Path(build) / "accessibility-desktop")
    with Desktop(folder) as desktop:
        walk(User(desktop, Path(build) / "app/norvane"))
        wait_until(lambda: not desktop.owns("org.norvane.Norvane"), "the end of Norvane")

        user = User(desktop, Path(build) / "app/norvane")
        read_a_list_longer_than_the_panel(user)
        read_the_calendar(user)
        ask_for_the_last_word(user)
        user.process.terminate()
        assert user.process.wait(10) == 0, "SIGTERM does not end it"
        noise = desktop.said("norvane")
        assert not noise, f"Norvane said on the console: {noise}"


if __name__ == "__main__":
    main(*sys.argv[1:])
