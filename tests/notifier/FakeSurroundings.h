// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/NotificationServer.h"
#include "notifier/Scheduler.h"
#include "platform/Clock.h"

#include <QStringList>

#include <chrono>
#include <csignal>
#include <optional>

#include <sys/resource.h>

namespace norvane {

/// A clock that stands where a test puts it.
class FakeClock final : public Clock {
public:
    std::chrono::sys_seconds moment;

    explicit FakeClock(std::chrono::sys_seconds start) : moment{start} {}
    [[nodiscard]] PointInTime now() const override
    {
        return PointInTime::fromUnixSeconds(static_cast<double>(moment.time_since_epoch().count()));
    }
    [[nodiscard]] Zone zone() const override { return QTimeZone::utc(); }
};

/// An alarm that a test sets off by hand.
class FakeAlarm final : public Alarm {
    Q_OBJECT

public:
    std::optional<std::chrono::sys_seconds> moment;

    void set(std::chrono::sys_seconds at) override { moment = at; }
};

class FakeZone final : public LocalZone {
    Q_OBJECT

public:
    explicit FakeZone(const QByteArray &name) : zone_{QTimeZone{name}} {}
    [[nodiscard]] Zone zone() const override { return zone_; }
    void move(const QByteArray &name)
    {
        zone_ = QTimeZone{name};
        emit changed();
    }

private:
    Zone zone_;
};

/// A notification server that holds each notification until a test answers.
class FakeServer final : public NotificationServer {
    Q_OBJECT

public:
    QStringList given; ///< The identifiers of what it was given.
    bool isOnHold = false;

    void show(const NotificationRequest &request) override
    {
        given << request.identifier;
        last_ = request;
    }
    [[nodiscard]] bool isShowing() const override { return false; }
    void setOnHold(bool on) override { isOnHold = on; }

    /// Takes what it was given last.
    void take() { emit shown(NotificationRequest{last_}); }

private:
    NotificationRequest last_;
};

/// No file can be written beyond this many bytes as long as this lives.
class FullDisk {
public:
    explicit FullDisk(bool isFull, rlim_t bytes = 0)
    {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        if (isFull) {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
            ::setrlimit(RLIMIT_FSIZE, &limit);
        }
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }

private:
    rlimit before_{};
};

} // namespace norvane
