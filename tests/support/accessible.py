# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
"""Prints what a screen reader finds in a program, as JSON, and presses buttons as one would.

    accessible.py tree PROGRAM
    accessible.py press PROGRAM ROLE NAME [DESCRIPTION]
    accessible.py programs

A process of its own, because the accessibility library binds to one session bus for good.
"""

import json
import sys

import pyatspi


def program_named(name):
    desktop = pyatspi.Registry.getDesktop(0)
    return next((child for child in desktop if child is not None and child.name == name), None)


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def walk(node):
    """Every node on screen below this one, parents first."""
    for child in node:
        if child is None:
            continue
        if showing(child):
            yield child
        yield from walk(child)


def role_of(node):
    """The role's name, as all versions of the library before 2.56 call it."""
    return {"button": "push button"}.get(node.getRoleName(), node.getRoleName())


def text_in(node):
    """What stands in a text field; nothing for what is no text."""
    try:
        return node.queryText().getText(0, -1)
    except NotImplementedError:
        return None


def describe(node):
    states = node.getState()
    box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return {
        "role": role_of(node),
        "name": node.name,
        "description": node.description,
        "text": text_in(node),
        "focused": states.contains(pyatspi.STATE_FOCUSED),
        "enabled": states.contains(pyatspi.STATE_ENABLED),
        "box": [box.x, box.y, box.width, box.height],
    }


def press(program, role, name, description=None):
    for node in walk(program):
        if role_of(node) == role and node.name == name and description in (None, node.description):
            node.queryAction().doAction(0)
            return True
    return False


def main(command, program_name=None, *rest):
    if command == "programs":
        print(*(child.name for child in pyatspi.Registry.getDesktop(0) if child is not None), sep="\n")
        return 0
    program = program_named(program_name)
    if program is None:
        print("[]")
        return 1
    if command == "press":
        return 0 if press(program, *rest) else 1
    print(json.dumps([describe(node) for node in walk(program)], ensure_ascii=False))
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
