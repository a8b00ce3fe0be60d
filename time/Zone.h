// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QTimeZone>

#include <array>
#include <chrono>

namespace norvane {

/// A time zone: how far its clocks are from UTC at any moment.
///
/// The machine's zone is normally the one that the C library uses: from /etc/localtime (a link, a
/// copy or a mount), or from the environment variable TZ (a name, a rule or a path). Asking the C
/// library for offsets keeps Norvane in the same zone as every other program. Looking the zone up
/// by name would not: a copy has no name, /etc/timezone can be outdated, and the sign in a rule
/// such as "UTC-3" is inverted.
///
/// Exception: if TZ is a path that leads into the zone database, the zone is looked up by name. The
/// C library reads such a path only once per process and would miss that a link was replaced.
class Zone {
public:
    /// The zone that the machine is in at the moment of the call.
    [[nodiscard]] static Zone ofMachine();
    /// The file whose change can change ofMachine(): /etc/localtime, or the path in TZ. Empty where
    /// TZ holds a name or a rule.
    [[nodiscard]] static QString fileOfMachine();

    /// A zone of the database, whatever the machine's. Where Qt finds none, it is UTC.
    Zone(const QTimeZone &zone); // NOLINT(google-explicit-constructor): the same thing as a value.

    /// Seconds east of UTC.
    [[nodiscard]] std::chrono::seconds offsetAt(std::chrono::sys_seconds moment) const;

    /// Whether the two come from the same settings.
    friend bool operator==(const Zone &, const Zone &) = default;

private:
    /// What tells one zone file from another: device, inode, and seconds and nanoseconds of the
    /// last change.
    using FileIdentity = std::array<qint64, 4>;

    explicit Zone(const FileIdentity &file) : file_{file} {}

    QTimeZone zone_; ///< Not valid where the C library's zone counts.
    FileIdentity file_{};
};

} // namespace norvane
