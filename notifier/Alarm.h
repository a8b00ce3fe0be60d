// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <chrono>

namespace norvane {

/// Wakes its owner at one moment of wall-clock time.
///
/// Holds one moment; setting another replaces it, and a moment already past is reported on the
/// next turn of the event loop. Use it from the thread that made it.
class Alarm : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void set(std::chrono::sys_seconds moment) = 0;

signals:
    void fired();
    /// The wall clock was set, or the machine woke from sleep: what is set must be set again.
    void clockSet();
};

} // namespace norvane
