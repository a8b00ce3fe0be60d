// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QObject>
#include <QSocketNotifier>

#include <optional>

namespace norvane {

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a Qt signal, so that
/// the program ends in the same way as by the panel's button.
///
/// There may be one at a time, on the main thread. A signal that arrives before the event loop
/// runs is reported when it does. A signal that was ignored from the start stays ignored.
class StopSignals final : public QObject {
    Q_OBJECT

public:
    StopSignals();
    ~StopSignals() override;

    /// Whether a signal has arrived, reported or not.
    [[nodiscard]] bool isRequested() const;

signals:
    void stopRequested();

private:
    std::optional<QSocketNotifier> received_;
    bool isReported_ = false;
    QList<int> taken_; ///< The signals that were not ignored.
};

} // namespace norvane
