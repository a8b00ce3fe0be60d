// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

namespace norvane {

/// Has all threads take memory from one heap, so that none keeps spare memory of its own. Call it
/// before the first thread starts.
void shareOneHeap();

/// Returns free heap memory to the system, for a process that is about to wait. May take a few
/// milliseconds.
void giveBackSpareMemory();

} // namespace norvane
