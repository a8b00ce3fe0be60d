#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
# qmllint has nothing to remark on any QML file: qmllint.sh BUILD_FOLDER
output=$(cmake --build "$1" --target all_qmllint 2>&1)
status=$?
printf '%s\n' "$output"
[ $status -eq 0 ] && ! grep -qE '^(Warning|Error):' <<<"$output"
