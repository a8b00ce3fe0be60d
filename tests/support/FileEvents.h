// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>

#include <array>
#include <cstring>
#include <utility>

#include <sys/inotify.h>
#include <unistd.h>

namespace norvane {

/// What happens to one file, as inotify tells it.
class FileEvents {
public:
    FileEvents(const QString &file, quint32 mask)
    {
        if (::inotify_add_watch(descriptor_, QFile::encodeName(file).constData(), mask) < 0) {
            qFatal("Cannot watch %s", qUtf8Printable(file));
        }
    }
    FileEvents(const FileEvents &) = delete;
    FileEvents &operator=(const FileEvents &) = delete;
    ~FileEvents() { ::close(descriptor_); }

    /// The kinds of the events since the last call, in their order.
    [[nodiscard]] QList<quint32> take() const
    {
        QList<quint32> masks;
        std::array<char, 4096> buffer{};
        const ssize_t length = ::read(descriptor_, buffer.data(), buffer.size());
        inotify_event event{};
        for (std::size_t offset = 0; std::cmp_less(offset, length);
             offset += sizeof event + event.len) {
            std::memcpy(&event, buffer.data() + offset, sizeof event);
            masks.append(event.mask);
        }
        return masks;
    }

private:
    const int descriptor_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

} // namespace norvane
