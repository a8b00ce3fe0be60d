# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""The program alone, without a display: what it makes of its file, its folder and its surroundings."""

import os
import subprocess
from pathlib import Path

BUILD = Path(os.environ.get("NORVANE_BUILD", "build/dev"))
PROGRAM = BUILD / "app/norvane"


class Norvane:
    """One run of the program without a display, and without a bus unless told."""

    def __init__(self, home, before=(), **environment):
        self.command = [*before, PROGRAM]
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": str(home),
            "XDG_RUNTIME_DIR": str(home),
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere",
            "QT_QPA_PLATFORM": "offscreen",
        } | environment

    def __enter__(self):
        self.process = subprocess.Popen(self.command, env=self.environment, stdin=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        self.process.terminate()
        assert self.process.wait(30) == 0


def trials_file(home):
    return home / ".local/share/Norvane/trials.json"


def write(home, text):
    file = trials_file(home)
    file.parent.mkdir(parents=True)
    file.write_text(text)
    return file
