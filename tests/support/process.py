# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""What the kernel knows of a process."""

import os
import subprocess
from contextlib import contextmanager
from pathlib import Path


@contextmanager
def busy_machine():
    """As many processes as there are processors, each of which takes all the time it gets."""
    loads = [subprocess.Popen(["sh", "-c", "while :; do :; done"])
             for _ in range(os.cpu_count() or 1)]
    try:
        yield
    finally:
        for load in loads:
            load.kill()
            load.wait()


def wake_ups(pid: int) -> int:
    """How often the threads of the process have gone to sleep so far; each wake-up adds one."""
    return sum(int(line.split()[1])
               for status in Path(f"/proc/{pid}/task").glob("*/status")
               for line in status.read_text().splitlines()
               if line.startswith("voluntary_ctxt_switches"))


def processor_seconds(pid: int) -> float:
    """How long the process has kept a processor busy so far, however many others there are."""
    fields = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def memory(pid: int) -> dict[str, int]:
    """The process's memory in KiB: private (Private), proportional (Pss) and resident (Rss).

    Private memory is what the process alone has written to: what the machine gets back when it ends.
    Unwritten pages of a file are left out, also where only this process has mapped the file: the
    kernel can drop them at any time, and whether they are shared depends on what else is running.
    """
    names = {"Private_Dirty:": "Private", "Pss:": "Pss", "Rss:": "Rss"}
    rows = (line.split() for line in Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines())
    return {names[row[0]]: int(row[1]) for row in rows if row[0] in names}
