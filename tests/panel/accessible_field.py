# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Reaches into a program as a screen reader does.

    accessible_field.py focus PROGRAM NAME      gives a text field the keyboard
    accessible_field.py read PROGRAM NAME       prints what stands in it
    accessible_field.py last-word PROGRAM NAME  prints the word at the end of it
    accessible_field.py rows PROGRAM NAME       prints the rows of a list, "name; description" each
    accessible_field.py table PROGRAM NAME      prints a table as JSON: rows, columns, and each cell with its place

A process of its own, because the accessibility library binds to one session bus for good.
"""

import json
import sys
from pathlib import Path

import pyatspi

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.accessible import program_named, walk  # noqa: E402

ROLES = {"rows": "list", "table": "panel"}


def contents(node):
    """A table's size, and its cells by the numbers that they have among its children."""
    table = node.queryTable()
    cells = [
        [table.getRowAtIndex(index), table.getColumnAtIndex(index), cell.name,
         table.getAccessibleAt(table.getRowAtIndex(index), table.getColumnAtIndex(index)).name]
        for index, cell in enumerate(node)
    ]
    return {"rows": table.nRows, "columns": table.nColumns, "cells": cells}


def main(command, program, name):
    role = ROLES.get(command, "text")
    node = next(node for node in walk(program_named(program)) if (node.getRoleName(), node.name) == (role, name))
    if command == "focus":
        return 0 if node.queryComponent().grabFocus() else 1
    if command == "rows":
        print("\n".join(f"{row.name}; {row.description}" for row in node))
        return 0
    if command == "table":
        print(json.dumps(contents(node), ensure_ascii=False))
        return 0
    text = node.queryText()
    if command == "read":
        print(text.getText(0, -1), end="")
    else:
        print(text.getTextAtOffset(text.characterCount, pyatspi.TEXT_BOUNDARY_WORD_START)[0], end="")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
