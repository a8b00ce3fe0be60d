// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/SystemZone.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cstdint>
#include <tuple>
#include <utility>

#include <sys/inotify.h>
#include <unistd.h>

namespace norvane {

SystemZone::SystemZone(QObject *parent)
    : LocalZone{parent},
      link_{Zone::fileOfMachine()},
      zone_{Zone::ofMachine()},
      descriptor_{::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)},
      readable_{QSocketNotifier::Read}
{
}

SystemZone::~SystemZone()
{
    ::close(descriptor_); // Refused where there is none.
}

void SystemZone::watch()
{
    if (link_.isEmpty() || descriptor_ < 0) {
        return;
    }
    readable_.setSocket(descriptor_);
    connect(&readable_, &QSocketNotifier::activated, this, &SystemZone::filesChanged);
    readable_.setEnabled(true);
    watchFiles();
    readZone(); // It may have changed since it was read first.
}

void SystemZone::filesChanged()
{
    std::array<char, 4096> events{};
    while (::read(descriptor_, events.data(), events.size()) > 0) {
        // What happened does not matter: the files are watched anew and read either way.
    }
    watchFiles();
    readZone();
}

/// A watch belongs to a file and not to its name. When another file takes the name, the watch tells
/// so and ends. A second watch on the same file has no effect.
void SystemZone::watchFiles()
{
    if (watchLink()) {
        return;
    }
    // There is no link at the moment. The next file that comes into the folder may be the new one.
    const QByteArray folder = QFile::encodeName(QFileInfo{link_}.absolutePath());
    folderWatch_ = ::inotify_add_watch(descriptor_, folder.constData(), IN_CREATE | IN_MOVED_TO);
    std::ignore = watchLink(); // It may have come just before.
}

bool SystemZone::watchLink()
{
    constexpr std::uint32_t changes = IN_ATTRIB | IN_CLOSE_WRITE | IN_DELETE_SELF | IN_MOVE_SELF;
    const QByteArray link = QFile::encodeName(link_);
    if (::inotify_add_watch(descriptor_, link.constData(), changes | IN_DONT_FOLLOW) == -1) {
        return false;
    }
    ::inotify_add_watch(descriptor_, link.constData(), changes); // Where it points to, if anywhere.
    // Refused where the folder is not watched.
    ::inotify_rm_watch(descriptor_, std::exchange(folderWatch_, -1));
    return true;
}

void SystemZone::readZone()
{
    const Zone zone = Zone::ofMachine();
    if (zone != zone_) {
        zone_ = zone;
        emit changed();
    }
}

} // namespace norvane
