// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/LocalZone.h"

#include <QSocketNotifier>

namespace norvane {

/// The zone that /etc/localtime links to, and notice of every change of it.
///
/// Where the environment names a zone itself (TZ), that one counts, as it does for every other
/// program; `TZ=:/path/to/link` has that link watched in place of /etc/localtime.
class SystemZone final : public LocalZone {
    Q_OBJECT

public:
    explicit SystemZone(QObject *parent = nullptr);
    ~SystemZone() override;

    /// Begins to watch: the link's folder, and the machine's time settings on the system bus.
    void watch();

    [[nodiscard]] QTimeZone zone() const override { return zone_; }

private slots:
    void look();

private:
    void folderChanged();

    QString link_; ///< Empty when the environment fixes the zone.
    QTimeZone zone_;
    const int descriptor_; ///< Of inotify, or -1; closed by the destructor.
    QSocketNotifier readable_;
};

} // namespace norvane
