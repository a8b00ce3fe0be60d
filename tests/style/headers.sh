#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
# Every source names its licence.
set -euo pipefail
mapfile -d '' files < <(git ls-files -z '*.cpp' '*.h' '*.qml' '*.py' '*.sh' '*.cmake' \
    '*CMakeLists.txt' '.ci/*' 'scripts/*' ':!scripts/*.txt')
[ ${#files[@]} -gt 0 ] || { echo "git names no source"; exit 1; }
# REUSE-IgnoreStart: what is searched for here says nothing about this file.
missing=$(grep -L 'SPDX-License-Identifier: MIT' "${files[@]}" || true)
# REUSE-IgnoreEnd
[ -z "$missing" ] || { printf 'No licence line in:\n%s\n' "$missing"; exit 1; }
