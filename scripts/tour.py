# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""The tour: adds a trial, restarts Norvane and deletes the trial, on a virtual desktop with real pointer and keyboard.

    tour.py BUILD_FOLDER PICTURE_FOLDER

Leaves a numbered screenshot of each step and ends with 0 only if every step was seen to work.
"""

import json
import sys
from datetime import datetime, timedelta
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests"))

from support.desktop import Desktop, fresh_folder  # noqa: E402
from support.waiting import wait_until  # noqa: E402

REFERENCE = datetime(2001, 1, 1)
REMINDERS = (
    ("-3d", timedelta(days=3), "📅 Trial Ending in 3 Days",
     '"{}" trial ends in 3 days. Decide before you\'re charged $9.50.'),
    ("-24h", timedelta(days=1), "⏰ Trial Ending Tomorrow",
     '"{}" trial ends tomorrow. Cancel before you\'re charged $9.50.'),
    ("-1h", timedelta(hours=1), "🚨 Trial Ending in 1 Hour",
     '"{}" — cancel now to avoid being charged $9.50.'),
)
NAME = "Acme Cloud"


class Tour:
    def __init__(self, desktop, program, pictures):
        self.desktop = desktop
        self.program = program
        self.pictures = pictures
        self.step = 0
        self.calls_file = desktop.folder / "calls.jsonl"
        self.calls_file.touch()
        self.calls_read = 0
        self.trials_file = desktop.home / ".local/share/Norvane/trials.json"

    def picture(self, what):
        self.step += 1
        path = self.pictures / f"{self.step:02}-{what.replace(' ', '-')}.png"
        self.desktop.screenshot(path)
        print(f"  {self.step:2}. {what}", flush=True)
        return path

    def trials(self):
        return json.loads(self.trials_file.read_text(encoding="utf-8"))

    def expect_calls(self, *expected):
        """The calls that reached the notification centre since the last time are exactly these."""

        def fresh():
            lines = self.calls_file.read_text(encoding="utf-8").splitlines()[self.calls_read:]
            return [json.loads(line) for line in lines]

        wait_until(lambda: len(fresh()) >= len(expected), f"{len(expected)} calls to the notification centre")
        calls = fresh()
        assert calls == list(expected), f"the notification centre was told {calls}, not {list(expected)}"
        self.calls_read += len(calls)

    def reminders_of(self, trial):
        end = REFERENCE + timedelta(seconds=trial["endDate"])  # The desktop's zone is UTC.
        return [
            ["AddRequest", trial["id"] + suffix, title, body.format(trial["name"]), "default",
             (end - lead).strftime("%Y-%m-%dT%H:%M")]
            for suffix, lead, title, body in REMINDERS
        ]

    def start(self):
        process = self.desktop.start(self.program)
        wait_until(lambda: self.trials_file.exists(), "the trials file")
        return process

    def see_icon(self, before):
        def icon():
            after = self.desktop.screenshot(self.desktop.folder / "after.png")
            area = self.desktop.changed_area(before, after)
            return area if area and area[1] < 40 and 8 <= area[2] <= 40 else None

        x, y, width, height = wait_until(icon, "the icon in the tray")
        return x + width // 2, y + height // 2

    def open_popover(self, icon):
        self.desktop.click(*icon)
        wait_until(lambda: self.desktop.windows("Norvane"), "the popover")
        wait_until(lambda: self.desktop.find("push button", "Quit"), "the panel in the popover")

    def quit(self, process):
        self.desktop.click_on("push button", "Quit")
        assert process.wait(10) == 0, "Norvane did not end cleanly"

    def walk(self):
        desktop = self.desktop
        before = self.picture("a desktop with a tray")
        process = self.start()
        icon = self.see_icon(before)
        self.expect_calls(["RemoveAllPendingRequests"], ["RequestAuthorization", 7])
        assert self.trials() == []
        self.picture("the icon is in the tray")

        self.open_popover(icon)
        wait_until(lambda: desktop.find("label", "No trials tracked"), "the empty state")
        assert desktop.find("label", "0 active")
        self.picture("a press on it opens the popover")

        desktop.click_on("push button", "Add Trial")
        wait_until(lambda: (desktop.find("text", "Service name") or {}).get("focused"), "the form with its name field")
        self.picture("Add Trial shows the form")

        desktop.type(NAME)
        # Letters are on their way to assistive programs first; a click would overtake them.
        wait_until(lambda: (desktop.find("text", "Service name") or {}).get("text") == NAME, "the name in its field")
        cost = wait_until(lambda: desktop.find("text", "Monthly cost after trial"), "the cost field")
        desktop.click(cost["box"][0] + 20, cost["box"][1] + 10)
        desktop.type("9.50")
        self.picture("a trial is typed in")

        desktop.click_on("push button", "Track Trial")
        wait_until(lambda: len(self.trials()) == 1, "the trial in the file")
        trial = self.trials()[0]
        assert (trial["name"], trial["cost"], trial["notes"]) == (NAME, 9.5, ""), trial
        assert trial["notificationIds"] == [trial["id"] + suffix for suffix, *_ in REMINDERS], trial
        self.expect_calls(*self.reminders_of(trial))
        wait_until(lambda: desktop.find("label", "1 active"), "the new count")
        self.picture("it is in the list and its reminders are planned")

        self.quit(process)
        self.picture("Quit ends the program")

        process = self.start()
        icon = self.see_icon(before)
        self.expect_calls(["RemoveAllPendingRequests"], *self.reminders_of(trial), ["RequestAuthorization", 7])
        assert self.trials() == [trial], "the restart changed the file"
        self.open_popover(icon)
        wait_until(lambda: desktop.find("push button", "Delete", NAME), "the trial after the restart")
        self.picture("a restart shows it again")

        desktop.click_on("push button", "Delete", NAME)
        wait_until(lambda: desktop.find("push button", "Cancel"), "the question")
        self.picture("the trash button asks first")

        desktop.click_on("push button", "Delete", "")
        wait_until(lambda: self.trials() == [], "the empty file")
        self.expect_calls(["RemovePendingRequests", trial["notificationIds"]])
        wait_until(lambda: desktop.find("label", "No trials tracked"), "the empty state again")
        self.picture("the trial is gone")
        self.quit(process)

        noise = desktop.said("norvane")
        assert not noise, f"Norvane said on the console: {noise}"


def main(build, pictures):
    pictures = fresh_folder(pictures)
    folder = fresh_folder(Path(build) / "tour-desktop")
    with Desktop(folder) as desktop:
        desktop.environment["TZ"] = "UTC"
        desktop.start("/usr/bin/python3", ROOT / "tests/support/recording_center.py", folder / "calls.jsonl")
        wait_until(lambda: desktop.owns("org.norvane.NotificationCenter"), "the recording notification centre")
        desktop.wait_until_still()
        try:
            Tour(desktop, Path(build) / "app/norvane", pictures).walk()
        except AssertionError as failure:
            desktop.screenshot(pictures / "failed.png")
            print(f"The tour failed: {failure}\nWhat the desktop showed then: {pictures / 'failed.png'}")
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
