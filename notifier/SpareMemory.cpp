// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/SpareMemory.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace norvane {

namespace {

constexpr std::array<std::string_view, 3> databaseLibraries{"/libsqlite3.so", "/libQt6Sql.so",
                                                            "/libqsqlite.so"};

/// Drops the pages of a library that no one wrote to; its file still holds them.
int dropCode(dl_phdr_info *library, std::size_t /*size*/, void * /*unused*/)
{
    const std::string_view name{library->dlpi_name};
    bool isDatabase = false;
    for (const std::string_view one : databaseLibraries) {
        isDatabase = isDatabase || name.find(one) != std::string_view::npos;
    }
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    for (int i = 0; isDatabase && i < library->dlpi_phnum; ++i) {
        const auto &segment = library->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W) != 0) {
            continue;
        }
        const std::uintptr_t start = (library->dlpi_addr + segment.p_vaddr) / page * page;
        const std::uintptr_t end = library->dlpi_addr + segment.p_vaddr + segment.p_memsz;
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader speaks in addresses.
        ::madvise(reinterpret_cast<void *>(start), end - start, MADV_DONTNEED);
    }
    return 0;
}

} // namespace

void shareOneHeap()
{
    ::mallopt(M_ARENA_MAX, 1);
}

void giveBackSpareMemory()
{
    ::malloc_trim(0);
    ::dl_iterate_phdr(dropCode, nullptr);
}

} // namespace norvane
