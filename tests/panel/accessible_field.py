# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Reaches a program's text field as a screen reader does.

    accessible_field.py focus PROGRAM NAME   gives it the keyboard
    accessible_field.py read PROGRAM NAME    prints what stands in it

A process of its own, because the accessibility library binds to one session bus for good.
"""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.accessible import program_named, walk  # noqa: E402


def main(command, program, name):
    field = next(node for node in walk(program_named(program)) if (node.getRoleName(), node.name) == ("text", name))
    if command == "focus":
        return 0 if field.queryComponent().grabFocus() else 1
    print(field.queryText().getText(0, -1), end="")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
