# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Runs clang-tidy on all that ships and on the tests: clang_tidy.py BUILD_FOLDER

The build folder is that of a unity build. Each of its joined sources is checked as a whole, because
most of a run is spent on reading Qt's headers; only the static analyzer, which follows paths through
the code, gets what ships file by file. (tests/.clang-tidy says why it leaves the tests alone.)
"""

import json
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
CLANG_TIDY = "clang-tidy-16"
NOISE = re.compile(r"^\d+ warnings? (generated|treated)|^Suppressed|^Use -header-filter")
# What GCC alone understands.
DROPPED = re.compile(r" -Winvalid-pch| -include \S*cmake_pch\.hxx| -Wno-maybe-uninitialized| -fsanitize=\S+"
                     r"| -fno-sanitize-recover=\S+")


def joined_sources(build):
    """For each joined source of the build its compile command and the sources of ours in it."""
    for entry in json.loads((build / "compile_commands.json").read_text()):
        file = Path(entry["file"])
        parts = [file]  # Sources with definitions of their own are not joined.
        if re.fullmatch(r"unity_\d+_cxx\.cxx", file.name):
            parts = [Path(name) for name in re.findall(r'#include "(.+)"', file.read_text())]
        ours = [part for part in parts if part.is_relative_to(ROOT) and not part.is_relative_to(build)]
        if ours:
            yield entry, ours


def plan(build):
    """Writes what clang-tidy is to read below the build folder; yields (source, arguments)."""
    lint = build / "lint"
    database = []

    def add(source, entry):
        command = DROPPED.sub("", entry["command"])
        command = command.replace(f"-c {entry['file']}", f"-c {source}")
        database.append({"directory": entry["directory"], "file": str(source), "command": command})
        return source

    for part in ("shipped", "tests"):
        (lint / part).mkdir(parents=True, exist_ok=True)
    # clang-tidy takes its rules from the folders above the file that it is given.
    (lint / "tests/.clang-tidy").write_text((ROOT / "tests/.clang-tidy").read_text())
    for entry, ours in joined_sources(build):
        target = re.search(r"CMakeFiles/(.+?)\.dir/(\S+)\.o", entry["command"])
        tests = ours[0].is_relative_to(ROOT / "tests")
        joined = lint / ("tests" if tests else "shipped") / f"{target[1]}-{Path(target[2]).stem}.cpp"
        joined.write_text("".join(f'#include "{source}"\n' for source in ours))
        yield add(joined, entry), ["--checks=-clang-analyzer-*,-bugprone-suspicious-include"]
        if not tests:
            for source in ours:
                yield add(source, entry), ["--checks=-*,clang-analyzer-*,-clang-analyzer-cplusplus.NewDeleteLeaks"]
    (lint / "compile_commands.json").write_text(json.dumps(database))


def check(build, source, arguments):
    folders = "app|benchmarks|model|notifier|panel|platform|reminders|tests|time"
    answer = subprocess.run(
        [CLANG_TIDY, "-p", build / "lint", "--quiet", f"--header-filter=^{ROOT}/({folders})/",
         "--extra-arg=-Wno-unknown-warning-option", *arguments, source],
        capture_output=True, text=True, check=False)
    lines = [line for line in (answer.stdout + answer.stderr).splitlines() if not NOISE.match(line)]
    return answer.returncode, lines


def main(build):
    jobs = list(plan(build))
    assert jobs, f"{build} is not the folder of a unity build that has been built"
    failed = False
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for status, lines in pool.map(lambda job: check(build, *job), jobs):
            failed |= status != 0
            if lines:
                print("\n".join(lines), flush=True)
    print(f"{len(jobs)} runs of clang-tidy")
    return failed


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]).resolve()))
