// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/XdgFolders.h"

#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace norvane {

namespace {

using std::filesystem::path;

/// The variable's value where it is an absolute path; the rules have a relative one ignored.
path absolutePathIn(const char *variable)
{
    const char *const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? path{value} : path{};
}

path home()
{
    if (path folder = absolutePathIn("HOME"); !folder.empty()) {
        return folder;
    }
    const passwd *const user = ::getpwuid(::getuid());
    return user != nullptr ? path{user->pw_dir} : path{};
}

path baseFolder(const char *variable, const char *belowHome)
{
    if (path folder = absolutePathIn(variable); !folder.empty()) {
        return folder;
    }
    const path start = home();
    return start.empty() ? path{} : start / belowHome;
}

} // namespace

path XdgFolders::dataFolder()
{
    return baseFolder("XDG_DATA_HOME", ".local/share");
}

path XdgFolders::stateFolder()
{
    return baseFolder("XDG_STATE_HOME", ".local/state");
}

} // namespace norvane
