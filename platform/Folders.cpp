// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/Folders.h"

#include <cerrno>
#include <system_error>

#include <sys/stat.h>

namespace norvane {

bool makePrivateFolder(const std::filesystem::path &folder)
{
    // Not create_directories(), which leaves the mode to the umask of the process.
    const auto make = [&folder] { return ::mkdir(folder.c_str(), S_IRWXU) == 0; };
    if (make()) {
        return true;
    }
    if (errno == ENOENT && folder.has_relative_path() && makePrivateFolder(folder.parent_path()) &&
        make()) {
        return true;
    }
    std::error_code ignored;
    return std::filesystem::is_directory(folder, ignored);
}

} // namespace norvane
