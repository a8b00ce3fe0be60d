#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
# Every C++ file is formatted as .clang-format says.
set -euo pipefail
mapfile -d '' files < <(git ls-files -z '*.cpp' '*.h')
[ ${#files[@]} -gt 0 ] || { echo "git names no C++ file"; exit 1; }
clang-format-16 --dry-run --Werror "${files[@]}"
