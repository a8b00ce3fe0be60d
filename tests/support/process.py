# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""What the kernel knows of a process."""

from pathlib import Path


def wake_ups(pid: int) -> int:
    """How often the threads of the process have gone to sleep so far; each wake-up adds one."""
    return sum(int(line.split()[1])
               for status in Path(f"/proc/{pid}/task").glob("*/status")
               for line in status.read_text().splitlines()
               if line.startswith("voluntary_ctxt_switches"))


def memory(pid: int) -> dict[str, int]:
    """The process's resident (Rss) and proportional (Pss) memory in KiB."""
    rows = (line.split() for line in Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines())
    return {row[0].rstrip(":"): int(row[1]) for row in rows if row[0] in ("Rss:", "Pss:")}
