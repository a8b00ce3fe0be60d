# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT

import os
import sys
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from support.desktop import fresh_folder  # noqa: E402

BUILD = Path(os.environ["NORVANE_BUILD"])


@pytest.fixture(scope="module")
def folder(request):
    """An empty folder in the build tree; the pictures stay there."""
    return fresh_folder(BUILD / "packaging-tests" / request.module.__name__)
