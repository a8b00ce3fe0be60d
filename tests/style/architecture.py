# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""The table of libraries in docs/architecture.md says what the link lines say."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FOLDERS = ("app", "model", "notifier", "panel", "platform", "reminders", "time")
# Warnings, and how Qt loads a QML module that is linked in: nothing that a reader needs to know.
UNNAMED = re.compile(r"norvane-strict|norvane-\w+plugin")


def documented():
    rows = re.findall(r"^\| `(norvane[\w-]*)` \| [^|]* \|([^|]*)\|$",
                      (ROOT / "docs/architecture.md").read_text(encoding="utf-8"), re.MULTILINE)
    return {library: set(re.findall(r"`(norvane[\w-]*)`", links)) for library, links in rows}


def linked():
    found = {}
    for folder in FOLDERS:
        for file in (ROOT / folder).rglob("CMakeLists.txt"):
            text = re.sub(r"#.*", "", file.read_text(encoding="utf-8"))
            for library in re.findall(r"qt_add_(?:library|executable)\((norvane[\w-]*)", text):
                found.setdefault(library, set())
            for library, links in re.findall(r"target_link_libraries\((norvane[\w-]*)([^)]*)\)", text):
                names = re.findall(r"norvane[\w-]*", links)
                found.setdefault(library, set()).update(name for name in names if not UNNAMED.fullmatch(name))
    return found


def main():
    said, true = documented(), linked()
    wrong = [f"{library}: documented {sorted(said.get(library, []))}, linked {sorted(true.get(library, []))}"
             for library in sorted(said.keys() | true.keys())
             if library not in said or library not in true or said[library] != true[library]]
    print("\n".join(wrong) or f"{len(true)} libraries and programs stand as documented")
    return bool(wrong)


if __name__ == "__main__":
    sys.exit(main())
