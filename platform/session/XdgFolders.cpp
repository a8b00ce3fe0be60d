// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/XdgFolders.h"

#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace norvane {

namespace {

/// The variable's value where it is an absolute path; the rules have a relative one ignored.
std::filesystem::path absolutePathIn(const char *variable)
{
    const char *const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? std::filesystem::path{value}
                                             : std::filesystem::path{};
}

std::filesystem::path home()
{
    if (std::filesystem::path folder = absolutePathIn("HOME"); !folder.empty()) {
        return folder;
    }
    const passwd *const user = ::getpwuid(::getuid());
    return user != nullptr ? std::filesystem::path{user->pw_dir} : std::filesystem::path{};
}

std::filesystem::path baseFolder(const char *variable, const char *belowHome)
{
    if (std::filesystem::path folder = absolutePathIn(variable); !folder.empty()) {
        return folder;
    }
    const std::filesystem::path start = home();
    return start.empty() ? std::filesystem::path{} : start / belowHome;
}

} // namespace

std::filesystem::path XdgFolders::dataFolder()
{
    return baseFolder("XDG_DATA_HOME", ".local/share");
}

std::filesystem::path XdgFolders::stateFolder()
{
    return baseFolder("XDG_STATE_HOME", ".local/state");
}

} // namespace norvane
