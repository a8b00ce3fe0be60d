// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Scheduler.h"

#include <QSocketNotifier>

namespace norvane {

/// The kernel's wall-clock timer: costs nothing while it waits, runs on through a suspend.
///
/// If the kernel grants no timer it never fires; a line on standard error says so.
class WallClockTimer final : public Alarm {
    Q_OBJECT

public:
    explicit WallClockTimer(QObject *parent = nullptr);
    ~WallClockTimer() override;

    void set(std::chrono::sys_seconds moment) override;

private:
    void expire();

    const int descriptor_; ///< The kernel timer, or -1; closed by the destructor.
    QSocketNotifier readable_;
};

} // namespace norvane
