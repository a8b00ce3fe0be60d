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
/// The machine's zone is as a rule the one that the C library works with, whatever the settings
/// that it comes from: the zone file /etc/localtime, be it a link, a copy or a mount, or in the
/// environment (TZ) a name, a rule or a path. Asking the C library for offsets is what keeps
/// Norvane and every other program in the same zone. To find a name and look that up instead goes
/// wrong: a copy has none, /etc/timezone may be out of date, and "UTC-3" is a rule whose sign means
/// the opposite of what it seems to.
///
/// The exception is a path in TZ that leads into the zone database: the C library reads it only
/// once in a process, so such a zone is looked up by name, and a link that is replaced counts.
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
