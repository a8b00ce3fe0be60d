#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Norvane authors
# SPDX-License-Identifier: MIT
# Nothing that users see is animated: no QML file of the program names what would do it, and none takes
# ready-made controls, which come with animations of their own.
set -euo pipefail
mapfile -d '' files < <(git ls-files -z '*.qml' ':!tests/*')
[ ${#files[@]} -gt 0 ] || { echo "git names no QML file"; exit 1; }
moving='\b(Behavior|Transition|\w*Animation|\w*Animator|PropertyAction|FrameAnimation|AnimatedImage|AnimatedSprite)\b'
moving+='|\b(enter|exit|transitions|add|addDisplaced|remove|removeDisplaced|move|moveDisplaced|displaced|populate|rebound):'
moving+='|\bimport (QtQuick\.Controls|QtQuick\.Particles|Qt\.labs)'
! grep -nE "$moving" "${files[@]}"
