# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

"""Each test has a bus, a state folder and a notification centre of its own."""

import sys
from contextlib import contextmanager
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.bus import PrivateBus  # noqa: E402
from support.notification_server import NotificationServer  # noqa: E402
from support.notifier import Notifier  # noqa: E402


@pytest.fixture
def bus(tmp_path):
    with PrivateBus(tmp_path / "bus") as one:
        yield one


@pytest.fixture
def notifier(bus, tmp_path):
    """Not started yet."""
    with Notifier(bus, tmp_path / "state") as one:
        yield one


@pytest.fixture
def other_notifier(notifier, tmp_path):
    """Starts one with the same folder, on another bus of the same user."""
    @contextmanager
    def run():
        with PrivateBus(tmp_path / "other-bus") as bus:
            with Notifier(bus, notifier.folder.parent) as other:
                yield other.start()
    return run


@pytest.fixture
def server(bus):
    with NotificationServer(bus) as one:
        yield one
