// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

namespace norvane {

/// Has all threads take memory from one heap, so that none keeps spare memory of its own. Call it
/// before the first thread starts.
void shareOneHeap();

/// Gives back to the system what a process that only waits does not need: free heap, and the
/// database library's code, which comes back from its file with the next use. May take a few
/// milliseconds.
void giveBackSpareMemory();

} // namespace norvane
