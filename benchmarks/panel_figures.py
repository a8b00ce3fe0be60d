# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Measures the panel on a virtual desktop, and weighs the program against an empty window.

    panel_figures.py BUILD
"""

import json
import re
import subprocess
import sys
import uuid
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests"))

from support.desktop import Desktop, fresh_folder  # noqa: E402
from support.waiting import wait_until  # noqa: E402

FRAME = 1000 / 60


def weight(process):
    """Proportional and whole resident memory, in megabytes."""
    text = Path(f"/proc/{process.pid}/smaps_rollup").read_text()
    return [int(re.search(rf"^{name}:\s+(\d+)", text, re.M)[1]) / 1024 for name in ("Pss", "Rss")]


def weigh_empty_window(desktop, figures):
    process = subprocess.Popen([figures], env=desktop.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    process.stdout.readline()
    weights = weight(process)
    process.communicate(b"\n")
    return weights


def weigh_program(desktop, program, count):
    folder = desktop.home / ".local/share/Norvane"
    folder.mkdir(parents=True, exist_ok=True)
    trials = [
        {"id": str(uuid.uuid4()).upper(), "name": f"Service {number}", "endDate": 3000000000 + number, "cost": 9.99,
         "notes": "", "createdAt": 750000000, "notificationIds": []}
        for number in range(count)
    ]
    (folder / "trials.json").write_text(json.dumps(trials))
    process = desktop.start(program)
    wait_until(lambda: desktop.owns("org.norvane.Norvane"), "Norvane on the bus")
    desktop.run(program)  # The second one asks the first to show its panel.
    wait_until(lambda: desktop.windows("Norvane"), "the popover")
    desktop.run("sleep", "1")
    weights = weight(process)
    desktop.stop(process)
    wait_until(lambda: not desktop.owns("org.norvane.Norvane"), "the end of Norvane")
    return weights


def main(build):
    build = Path(build).resolve()
    figures, program = build / "benchmarks/panel_figures", build / "app/norvane"
    with Desktop(fresh_folder(build / "panel-desktop")) as desktop:
        # A screen reader's interest costs memory and time that nobody else pays.
        desktop.environment.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", None)
        for count in (0, 100, 10_000):
            print(f"{count} trials, milliseconds (one frame at 60 Hz: {FRAME:.1f})", flush=True)
            for name, value in json.loads(desktop.run(figures, count)).items():
                goal = f"  {value / FRAME:.2f} of a frame" if name.startswith("scrolling") else ""
                print(f"  {name:28} {value:7.1f}{goal}")
        empty = weigh_empty_window(desktop, figures)
        print(f"memory, MB (proportional, resident); an empty Qt Quick window: {empty[0]:.1f}, {empty[1]:.1f}")
        for count in (0, 100, 10_000):
            pss, rss = weigh_program(desktop, program, count)
            print(f"  Norvane with {count:6} trials: {pss:.1f}, {rss:.1f}"
                  f"  ratio {pss / empty[0]:.2f}, {rss / empty[1]:.2f}", flush=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
