// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/FolderLock.h"

#include <QDeadlineTimer>

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace norvane {

namespace {

constexpr std::chrono::milliseconds betweenAttempts{10};

} // namespace

FolderLock::~FolderLock()
{
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

FolderLock::Answer FolderLock::take(const std::filesystem::path &folder,
                                    std::chrono::milliseconds timeout)
{
    if (descriptor_ >= 0) {
        return Answer::Taken;
    }
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        return Answer::NoFolder;
    }
    const QDeadlineTimer deadline{timeout};
    // Any other error means a file system without locks; the program runs without one then.
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        if (deadline.hasExpired()) {
            ::close(descriptor);
            return Answer::Held;
        }
        std::this_thread::sleep_for(betweenAttempts);
    }
    descriptor_ = descriptor;
    return Answer::Taken;
}

} // namespace norvane
