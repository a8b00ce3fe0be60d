# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""Real notification servers on a virtual desktop; screenshots go into the build folder."""

import os
import subprocess
from pathlib import Path

import pytest

from support.notifier import this_minute
from support.waiting import wait_until

SERVERS = {
    "dunst": ["dunst"],
    "xfce4-notifyd": ["/usr/lib/x86_64-linux-gnu/xfce4/notifyd/xfce4-notifyd"],
}
BACKGROUND = "#204060"


@pytest.fixture
def desktop():
    """A virtual screen of one colour; its name."""
    reader, writer = os.pipe()
    screen = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writer), "-screen", "0", "800x300x24", "-nolisten", "tcp",
         "-noreset"],
        pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    with os.fdopen(reader) as number:
        display = f":{number.readline().strip()}"
    subprocess.run(["xsetroot", "-display", display, "-solid", BACKGROUND], check=True)
    yield display
    screen.kill()
    screen.wait()


def colours(display, file):
    """How many colours the screen shows, after a picture of it was taken."""
    subprocess.run(["import", "-display", display, "-window", "root", str(file)], check=True)
    count = subprocess.run(["identify", "-format", "%k", str(file)], check=True,
                           capture_output=True, text=True)
    return int(count.stdout)


@pytest.mark.parametrize("name", SERVERS)
def test_a_reminder_is_seen_on(name, desktop, bus, notifier, tmp_path):
    pictures = Path(os.environ["NORVANE_SCREENSHOTS"])
    pictures.mkdir(parents=True, exist_ok=True)
    environment = {**notifier.environment, "DISPLAY": desktop, "HOME": str(tmp_path),
                   "XDG_CONFIG_HOME": str(tmp_path), "XDG_CACHE_HOME": str(tmp_path)}
    server = subprocess.Popen(SERVERS[name], env=environment, stderr=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL)
    try:
        notifier.start()
        notifier.add("a-1h", this_minute(), title="🚨 Trial Ending in 1 Hour",
                     body='"<b>A&B</b> "x"" — cancel now to avoid being charged $9.50.')

        wait_until(lambda: colours(desktop, pictures / f"notification-{name}.png") > 50,
                   "a notification on the screen", 20)
    finally:
        server.terminate()
        server.wait()
