# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Measures the panel on a virtual desktop, and weighs the program against an empty window.

    panel_figures.py BUILD
"""

import json
import shutil
import subprocess
import sys
import time
import uuid
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests"))

from support.desktop import Desktop, fresh_folder  # noqa: E402
from support.process import memory  # noqa: E402
from support.waiting import wait_until  # noqa: E402

FRAME = 1000 / 60
PEERS = ("kteatime", "alarm-clock-applet", "cbatticon")


def weight(process):
    """Private, proportional and resident memory, in megabytes."""
    used = memory(process.pid)
    return [used[kind] / 1024 for kind in ("Private", "Pss", "Rss")]


def weigh_empty_window(desktop, figures):
    process = subprocess.Popen([figures], env=desktop.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    process.stdout.readline()
    weights = weight(process)
    process.communicate(b"\n")
    return weights


def weigh_peer(desktop, program):
    """An icon in the tray, as long as nobody has opened anything."""
    process = desktop.start(program)
    time.sleep(5)  # Programs of all kinds: nothing tells when one has settled.
    weights = weight(process)
    desktop.stop(process)
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
        for theme in (None, "gtk3"):
            weigh_all(desktop, figures, program, theme)
        print("Memory of other programs with an icon in the tray, MB (private, proportional, resident)")
        for peer in PEERS:
            print(f"  {peer:20}", row(weigh_peer(desktop, peer)) if shutil.which(peer) else "not installed", flush=True)


def row(weights):
    return ", ".join(f"{weight:6.1f}" for weight in weights)


def weigh_all(desktop, figures, program, theme):
    desktop.environment.pop("QT_QPA_PLATFORMTHEME", None)
    if theme:
        desktop.environment["QT_QPA_PLATFORMTHEME"] = theme
    empty = weigh_empty_window(desktop, figures)
    print(f"Memory with {theme or 'no'} platform theme, MB (private, proportional, resident)")
    print(f"  {'empty Qt Quick window':20} {row(empty)}")
    for count, goal in ((0, 1.25), (100, 1.25), (10_000, 1.35)):
        weights = weigh_program(desktop, program, count)
        ratios = [own / floor for own, floor in zip(weights, empty)]
        print(f"  {f'{count} trials':20} {row(weights)}  ratio {', '.join(f'{ratio:.2f}' for ratio in ratios)}"
              f"  private: {'met' if ratios[0] <= goal else 'missed'} (goal {goal})", flush=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
