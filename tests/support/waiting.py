# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""Waiting for something to become true, without guessing how long it takes."""

import time
from collections.abc import Callable


def wait_until(condition: Callable[[], object], what: str, seconds: float = 60):
    """The condition's first true value; fails the test when none comes in time."""
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        assert time.monotonic() < deadline, f"{what} did not come true within {seconds} s"
        time.sleep(0.01)
