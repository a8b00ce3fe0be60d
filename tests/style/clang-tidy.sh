#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
# clang-tidy finds nothing in the code that ships: clang-tidy.sh BUILD_FOLDER
# (Tests are left to tests/.clang-tidy and the editor: Qt Test's headers take it minutes.)
set -o pipefail
folders=(app model notifier panel platform reminders)
mapfile -d '' files < <(git ls-files -z "${folders[@]/%//*.cpp}")
[ ${#files[@]} -gt 0 ] || { echo "git names no C++ file"; exit 1; }
printf '%s\0' "${files[@]}" |
    xargs -0 -n 4 -P "$(nproc)" clang-tidy-16 -p "$1" --quiet \
        --header-filter="^$PWD/($(IFS='|' && echo "${folders[*]}"))/" 2>&1 |
    grep -vE '^[0-9]+ warnings? (generated|treated)|^Suppressed|^Use -header-filter'
[ "${PIPESTATUS[1]}" -eq 0 ] # grep fails where there is nothing to show.
