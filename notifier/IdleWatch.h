// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace norvane {

/// Tells when a program that starts on demand has nothing left to do.
class IdleWatch final : public QObject {
    Q_OBJECT

public:
    /// `isBusy` is asked each time that a while has passed since the last stir().
    IdleWatch(std::chrono::milliseconds whileIdle, std::function<bool()> isBusy,
              QObject *parent = nullptr);

    /// Something happened: the while begins anew.
    void stir() { timer_.start(); }

signals:
    void idle();

private:
    const std::function<bool()> isBusy_;
    QTimer timer_;
};

} // namespace norvane
