// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/LocalZone.h"

#include <QSocketNotifier>

namespace norvane {

/// The machine's zone, and notice of its changes.
///
/// Watches /etc/localtime, or the link whose path the environment names in its place (TZ). A zone
/// that the environment names itself never changes.
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
