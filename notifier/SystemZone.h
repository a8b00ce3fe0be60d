// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Scheduler.h"

#include <QSocketNotifier>

namespace norvane {

/// The machine's zone, and notice of its changes.
///
/// Watches /etc/localtime, or the path that TZ holds in its place, and the file that it points to.
/// Other files beside them cause no wake-up. A zone or a rule in TZ never changes. Nothing here
/// talks to another process.
class SystemZone final : public LocalZone {
    Q_OBJECT

public:
    explicit SystemZone(QObject *parent = nullptr);
    ~SystemZone() override;

    /// Begins to watch. Where the kernel grants no watch, the zone stays what it was at the start.
    void watch();

    [[nodiscard]] Zone zone() const override { return zone_; }

private:
    void filesChanged();
    void watchFiles();
    [[nodiscard]] bool watchLink();
    void readZone();

    const QString link_; ///< Empty when TZ holds a zone or a rule.
    Zone zone_;
    const int descriptor_; ///< Of inotify, or -1; closed by the destructor.
    int folderWatch_ = -1; ///< On the link's folder, while there is no link.
    QSocketNotifier readable_;
};

} // namespace norvane
