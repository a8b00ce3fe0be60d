# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Measures the notification centre, each figure beside its floor of the same run.

    notifier_figures.py BUILD_FOLDER [PART ...] [--seconds N] [--rounds N] [--kills N] [--requests N]
                        [--minutes N]

BUILD_FOLDER  a build tree, best the release preset's
PART          memory, traffic, wake-ups, faults or minutes; all of them unless told
--seconds     how long to count wake-ups (60)
--rounds      how often to measure the traffic; the best round counts (3)
--kills       kills in the fault run (200), under --requests requests (30000)
--minutes     how many real minutes to be punctual at (20)

Prints one figure a line: what, how much, the floor, the ratio, the goal. Exits 1 when a goal is
missed or the fault run finds something lost.
"""

import argparse
import os
import subprocess
import sys
import tempfile
import time
from datetime import datetime, timedelta
from pathlib import Path
from statistics import median

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests"))

from gi.repository import Gio, GLib  # noqa: E402
from support import kill_run  # noqa: E402
from support.bus import PrivateBus  # noqa: E402
from support.notification_server import NotificationServer  # noqa: E402
from support.notifier import NAME, Notifier, minute  # noqa: E402
from support.process import memory, wake_ups  # noqa: E402
from support.waiting import wait_until  # noqa: E402

FLOOR_NAME = "org.norvane.EmptyProcess"
PARTS = ["memory", "traffic", "wake-ups", "faults", "minutes"]
MEMORY_GOAL = 1.25
TRAFFIC_GOAL = 3.0
LATENESS_GOAL = 50  # Milliseconds behind a program that only waits for the minute.


class Figures:
    """Prints figures and remembers whether all goals were met."""

    def __init__(self):
        self.met = True

    def report(self, what: str, value: str, goal: str, met: bool):
        self.met &= met
        print(f"{what:<44}{value:<44}goal {goal:<9}{'met' if met else 'MISSED'}", flush=True)

    def ratio(self, what: str, value: float, floor: float, unit: str, goal: float):
        ratio = value / floor
        self.report(what, f"{value:.2f} {unit} / {floor:.2f} {unit} = {ratio:.2f}", f"<= {goal}",
                    ratio <= goal)


def settled_memory(pid: int) -> dict[str, int]:
    """The process's memory once it has not changed for a second."""
    last = memory(pid)
    while True:
        time.sleep(1)
        now = memory(pid)
        if now == last:
            return now
        last = now


class Floor:
    """An empty process on the bus, as a context manager."""

    def __init__(self, build: Path, bus: PrivateBus):
        self.process = subprocess.Popen(
            [build / "benchmarks/empty_bus_process", FLOOR_NAME],
            env={**os.environ, "DBUS_SESSION_BUS_ADDRESS": bus.address})
        connection = bus.connect()
        wait_until(lambda: owned(connection), "the name on the bus")

    def __enter__(self):
        return self.process

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()


def owned(connection) -> bool:
    return connection.call_sync(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
        GLib.Variant("(s)", (FLOOR_NAME,)), None, Gio.DBusCallFlags.NONE, -1, None).unpack()[0]


def load(build: Path, bus: PrivateBus, name: str, count: int) -> float:
    """Seconds until so many requests were answered."""
    client = subprocess.run([build / "benchmarks/bus_load", name, str(count)], check=True,
                            env={**os.environ, "DBUS_SESSION_BUS_ADDRESS": bus.address},
                            capture_output=True, text=True)
    return float(client.stdout)


def measure_memory(build: Path, bus: PrivateBus, folder: Path, figures: Figures):
    def compare(what: str, pid: int):
        used = settled_memory(pid)
        for kind in ("Private", "Pss", "Rss"):
            figures.ratio(f"{kind} {what}", used[kind] / 1024, floor[kind] / 1024, "MiB",
                          MEMORY_GOAL)

    for count in (0, 300, 30_000, 100_000):
        # Just before each figure, and not beside it: the proportional one depends on who else has
        # the same libraries loaded.
        with Floor(build, bus) as process:
            floor = settled_memory(process.pid)
        with Notifier(bus, folder / f"memory-{count}") as notifier:
            notifier.start()
            if count:
                load(build, bus, NAME, count)
                compare(f"just after taking {count} requests", notifier.process.pid)
                notifier.restart()
            compare(f"idle with {count} requests", notifier.process.pid)


def measure_wake_ups(build: Path, bus: PrivateBus, folder: Path, seconds: int, figures: Figures):
    with Notifier(bus, folder / "wake-ups") as notifier:
        notifier.start("--linger", "1")
        load(build, bus, NAME, 300)
        time.sleep(3)  # Until it has stopped lingering.
        before = wake_ups(notifier.process.pid)
        time.sleep(seconds)
        count = wake_ups(notifier.process.pid) - before
    figures.report("Wake-ups per minute with 300 requests", f"{count * 60 / seconds:g}", "0",
                   count == 0)


def measure_traffic(build: Path, bus: PrivateBus, folder: Path, rounds: int, figures: Figures):
    bare, durable = [], []
    for number in range(rounds):
        with Floor(build, bus):
            bare.append(load(build, bus, FLOOR_NAME, 30_000))
        with Notifier(bus, folder / f"traffic-{number}") as notifier:
            notifier.start()
            durable.append(load(build, bus, NAME, 30_000))
    figures.ratio("30,000 requests accepted durably", min(durable), min(bare), "s", TRAFFIC_GOAL)


def measure_faults(bus: PrivateBus, folder: Path, kills: int, requests: int, figures: Figures):
    with NotificationServer(bus) as server, Notifier(bus, folder / "faults") as notifier:
        accounts = kill_run.run(notifier, server, kills, requests, seed=kills)
        pending = set(notifier.identifiers())
        lost = accounts.lost(pending, set(server.titles))
        after_kill, without_cause = accounts.doubled(server)
        wrong = len(lost) + len(accounts.returned(pending)) + len(without_cause)
        figures.report(f"Wrong after {kills} kills, {requests} requests",
                       f"{wrong} ({len(lost)} lost, {len(without_cause)} doubled; {len(after_kill)} shown "
                       "again after a kill)", "0", wrong == 0)


def measure_minutes(build: Path, bus: PrivateBus, folder: Path, minutes: int, figures: Figures):
    """How long after its minute began a reminder reaches the server, beside a bare kernel timer."""
    with NotificationServer(bus) as server, Notifier(bus, folder / "minutes") as notifier:
        notifier.start()
        while datetime.now().second > 50:
            time.sleep(1)
        with subprocess.Popen([build / "benchmarks/bare_timer", str(minutes)], stdout=subprocess.PIPE,
                              text=True) as bare:
            start = datetime.now()
            for i in range(1, minutes + 1):
                notifier.add(f"{i}-1h", minute(start + timedelta(minutes=i)), title=str(i))
            wakings = [float(line) for line in bare.stdout]
        shown = server.wait_for(minutes)
    assert len(wakings) == minutes and server.titles == [str(i) for i in range(1, minutes + 1)]
    behind = [1000 * (one.time - waking) for one, waking in zip(shown, wakings)]
    late = [1000 * (one.time % 60) for one in shown]
    figures.report(f"Behind a bare timer, {minutes} minutes", f"{max(behind):.1f} ms at worst, {median(behind):.1f} ms "
                   f"usually (of {min(late):.1f} to {max(late):.1f} ms)", f"<= {LATENESS_GOAL} ms",
                   max(behind) <= LATENESS_GOAL)


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=Path)
    parser.add_argument("parts", nargs="*", metavar="PART", default=PARTS)
    parser.add_argument("--seconds", type=int, default=60)
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--kills", type=int, default=200)
    parser.add_argument("--requests", type=int, default=30_000)
    parser.add_argument("--minutes", type=int, default=20)
    arguments = parser.parse_args()
    if not set(arguments.parts) <= set(PARTS):
        parser.error(f"PART is one of {', '.join(PARTS)}")
    build = arguments.build.resolve()
    os.environ["NORVANE_NOTIFIER"] = str(build / "libexec/norvane-notifier")

    figures = Figures()
    with tempfile.TemporaryDirectory() as name, PrivateBus(Path(name) / "bus") as bus:
        folder = Path(name)
        measures = {
            "memory": lambda: measure_memory(build, bus, folder, figures),
            "traffic": lambda: measure_traffic(build, bus, folder, arguments.rounds, figures),
            "wake-ups": lambda: measure_wake_ups(build, bus, folder, arguments.seconds, figures),
            "faults": lambda: measure_faults(bus, folder, arguments.kills, arguments.requests, figures),
            "minutes": lambda: measure_minutes(build, bus, folder, arguments.minutes, figures),
        }
        for part in arguments.parts:
            measures[part]()
    return 0 if figures.met else 1


if __name__ == "__main__":
    sys.exit(main())
