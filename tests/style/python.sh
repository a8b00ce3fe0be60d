#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
# flake8 finds nothing in the Python files. Its opinions on layout that this tree does not share:
#   E127 E128  where a continued line starts
#   W503 W504  on which side of a line break an operator stands
set -euo pipefail
mapfile -d '' files < <(git ls-files -z '*.py')
[ ${#files[@]} -gt 0 ] || { echo "git names no Python file"; exit 1; }
/usr/bin/python3 -m flake8 --max-line-length 120 --extend-ignore E127,E128,W503,W504 "${files[@]}"
