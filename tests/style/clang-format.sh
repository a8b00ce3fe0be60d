#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
# Every C++ file is formatted as .clang-format says.
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format-16 --dry-run --Werror
