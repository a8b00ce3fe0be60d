# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Walks a session of Norvane by keys alone, and compares what the screen reader Orca says.

    orca_transcript.py BUILD
"""

import json
import subprocess
import sys
import time
import uuid
from datetime import datetime, timedelta
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests"))

from support.desktop import Desktop, fresh_folder  # noqa: E402
from support.orca import Orca  # noqa: E402
from support.waiting import wait_until  # noqa: E402

FIELD = Path(__file__).with_name("accessible_field.py")

# What the accessibility library calls a role, from this version of it on.
SHARED_WORDS = {"notification": "notification", "dialog": "dialog", "text": "text", "frame": "frame",
                "spin": "spin button", "panel": "panel", "item": "list item"}
ROLE_WORDS = [
    ((2, 0), SHARED_WORDS | {"button": "push button"}),
    ((2, 56), SHARED_WORDS | {"button": "button"}),
]

ENGLISH = {
    "active": "Norvane, 10 active",
    "name": "Service name",
    "hint": "e.g. Netflix, Canva Pro",
    "add": "Add Trial",
    "quit": "Quit",
    "list": "Trials",
    "acme": "Acme Cloud, 2d left, $9.50",
    "radio": "Radio Norte, -1d left",
    "canva": "Canva Pro, 6d left",
    "service": "Service {}, 8d left, $5.00",
    "place": "{} of {}",
    "delete": "Delete",
    "cancel": "Cancel",
    "question": 'Delete Trial? {dialog} Remove "Canva Pro" from Norvane?',
    "added": "Canva Pro added",
    "deleted": "Canva Pro deleted",
}
# Numbers and names are set apart from the direction of the text around them.
ARABIC = {
    "active": "Norvane, النشطة: 10",
    "name": "اسم الخدمة",
    "hint": "مثلًا Netflix، \u200fCanva Pro",
    "add": "إضافة فترة تجريبية",
    "quit": "إنهاء",
    "list": "الفترات التجريبية",
    "acme": "Acme Cloud, متبقٍّ: \u20662\u2069 ي, $9.50",
    "radio": "Radio Norte, متبقٍّ: \u2066-1\u2069 ي",
    "canva": "Canva Pro, متبقٍّ: \u20666\u2069 ي",
    "service": "Service {}, متبقٍّ: \u20668\u2069 ي, $5.00",
    "place": "{} من {}",
    "delete": "حذف",
    "cancel": "إلغاء",
    "question": 'هل تريد حذف الفترة التجريبية؟ {dialog} هل تريد إزالة "Canva Pro" من Norvane؟',
    "added": "تمت إضافة Canva Pro",
    "deleted": "تم حذف Canva Pro",
}

# The trials that there are at first, with the days until they end and their cost: more than the panel has room for.
TRIALS = [("Acme Cloud", 2.5, 9.5), ("Radio Norte", -1.5, 0), *((f"Service {place}", 8.5, 5) for place in range(3, 12))]


def role_words():
    version = subprocess.run(
        ["dpkg-query", "-W", "-f", "${Version}", "at-spi2-core"], capture_output=True, text=True, check=True
    ).stdout
    installed = tuple(int(part) for part in version.split("-")[0].split(".")[:2])
    return [words for since, words in ROLE_WORDS if since <= installed][-1]


def write_trials(file):
    now = time.time() - 978307200  # A trials file counts from 2001.
    file.parent.mkdir(parents=True)
    file.write_text(json.dumps([
        {"id": str(uuid.uuid4()), "name": name, "endDate": now + days * 86400, "cost": cost,
         "notes": "", "createdAt": now, "notificationIds": []}
        for name, days, cost in TRIALS
    ]))


def steps(say):
    """The keys of a session, and what is to be heard after each.

    `say` has Norvane's own words; in braces are Orca's words for a role. Orca tells where one is when it is asked
    by the keypad's Enter key.
    """
    def row(trial, place, count):
        sentence = say["service"].format(trial) if isinstance(trial, int) else say[trial]
        return [sentence, say["place"].format(place, count)]

    def arriving(trial, place, count):
        return [say["list"], f"List with {count} items", *row(trial, place, count)]

    def asked_where_one_is(trial, place, count):
        sentence, told = row(trial, place, count)
        return ["{item}", sentence, f"{place} of {count}", told]  # Orca counts the rows itself, too.

    add, quit_ = say["add"] + " {button}", say["quit"] + " {button}"
    name_field = [say["name"] + " {text}", say["hint"]]
    cancel, delete = say["cancel"] + " {button}", say["delete"] + " {button}"
    return [
        ("Return", name_field),
        ("ctrl+Escape", [add]),
        ("Return", name_field),
        ("type Canva Pro", []),
        ("hold ctrl Left", ["Pro"]),
        ("hold ctrl Right", ["Pro"]),
        ("ctrl+Return", [add, "{notification} " + say["added"]]),
        ("Tab", [quit_]),
        ("Tab", arriving("acme", 1, 12)),
        ("Down", row("radio", 2, 12)),
        ("KP_Enter", asked_where_one_is("radio", 2, 12)),
        ("inward", [delete, "Radio Norte"]),
        ("Down", row(3, 3, 12)),
        ("Up", row("radio", 2, 12)),
        ("End", row("canva", 12, 12)),
        ("Up", row(11, 11, 12)),
        ("Down", row("canva", 12, 12)),
        ("KP_Enter", asked_where_one_is("canva", 12, 12)),
        ("Delete", [say["question"], cancel]),
        ("Escape", arriving("canva", 12, 12)),
        ("Delete", [say["question"], cancel]),
        ("Tab", [delete]),
        ("Return", ["{notification} " + say["deleted"], *arriving(11, 11, 11)]),
        ("KP_Enter", asked_where_one_is(11, 11, 11)),
        ("Up", row(10, 10, 11)),
        ("Home", row("acme", 1, 11)),
        ("Down", row("radio", 2, 11)),
        ("KP_Enter", asked_where_one_is("radio", 2, 11)),
        ("Tab", [delete, "Radio Norte"]),
        ("Tab", [add]),
        ("Tab", [quit_]),
    ]


def walk_the_date(desktop, listen):
    """Through the fields for the end of the trial and the calendar, in English, from the name's field on."""
    def text(part):
        return desktop.find("spin button", "Trial ends", part)["text"]

    def written(date):
        return f"{date.day} {date:%b %Y}"

    def cell(date):
        return f"{date:%A}, {date.day} {date:%B %Y}"

    end = datetime.strptime(text("Day"), "%d %b %Y") + timedelta(days=1)
    listen("Tab", [f"Trial ends {text('Day')} {{spin}}", "Day"])
    listen("Up", [written(end)])
    calendar = ["Choose a day {button}", "Trial ends"]
    listen("Tab", calendar)
    listen("Return", ["Choose a day {dialog}", f"{end:%B %Y} {{panel}}", cell(end) + ", selected"])
    listen("Right", [cell(end + timedelta(days=1))])
    listen("Down", [cell(end + timedelta(days=8))])
    listen("Escape", calendar)
    time_of_day = datetime.strptime(text("Time"), "%H:%M")
    listen("Tab", [f"Trial ends {time_of_day:%H:%M} {{spin}}", "Time"])
    listen("Up", [f"{time_of_day + timedelta(hours=1):%H:%M}"])


def walk(desktop, program, say, inward, **language):
    words = role_words()
    write_trials(desktop.home / ".local/share/Norvane/trials.json")
    with Orca(desktop) as orca:
        desktop.start(program, **language)
        wait_until(lambda: desktop.owns("org.norvane.Norvane"), "Norvane on the bus")
        desktop.run(program)  # The second one asks the first to show its panel.

        def listen(keys, expected):
            if keys.startswith("type "):
                text = keys.removeprefix("type ")
                desktop.type(text)
                # Beside a screen reader a shortcut overtakes letters that were typed before it.
                read = ("/usr/bin/python3", FIELD, "read", "Norvane", say["name"])
                wait_until(lambda: desktop.run(*read) == text, f"{text!r} in its field")
            elif keys.startswith("hold "):
                # Orca looks at what is held when it speaks, which is later.
                desktop.run("xdotool", "keydown", keys.split()[1], "key", keys.split()[2])
            elif keys != "open":
                desktop.key(inward if keys == "inward" else keys)
            expected = [line.format(**words) for line in expected]
            heard = orca.hear(*expected)
            if keys.startswith("hold "):
                desktop.run("xdotool", "keyup", keys.split()[1])
            assert heard == expected, f"after {keys}: {heard}, not {expected}"

        listen("open", ["Norvane {frame}", say["add"] + " {button}", "{notification} " + say["active"]])
        for number, (keys, expected) in enumerate(steps(say)):
            listen(keys, expected)
            if number == 0 and say is ENGLISH:
                walk_the_date(desktop, listen)
        desktop.key("Return")
        wait_until(lambda: not desktop.owns("org.norvane.Norvane"), "the end of Norvane")


def main(build):
    for language, say, inward, environment in (
        ("english", ENGLISH, "Right", {}),
        ("arabic", ARABIC, "Left", {"LANG": "ar_EG.UTF-8"}),
    ):
        with Desktop(fresh_folder(Path(build) / f"orca-desktop-{language}")) as desktop:
            walk(desktop, Path(build) / "app/norvane", say, inward, **environment)


if __name__ == "__main__":
    main(*sys.argv[1:])
