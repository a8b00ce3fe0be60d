// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/SpareMemory.h"

#include <malloc.h>

namespace norvane {

void shareOneHeap()
{
    ::mallopt(M_ARENA_MAX, 1);
}

void giveBackSpareMemory()
{
    ::malloc_trim(0);
}

} // namespace norvane
