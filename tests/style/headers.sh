#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
# Every source names its licence.
missing=$(git ls-files '*.cpp' '*.h' '*.qml' '*.py' '*.sh' '*.cmake' '*CMakeLists.txt' '.ci/*' 'scripts/*' |
    grep -v '^scripts/.*\.txt$' | xargs grep -L 'SPDX-License-Identifier: MIT')
[ -z "$missing" ] || { printf 'No licence line in:\n%s\n' "$missing"; exit 1; }
