// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/IdleWatch.h"

#include <utility>

namespace norvane {

IdleWatch::IdleWatch(std::chrono::milliseconds whileIdle, std::function<bool()> isBusy,
                     QObject *parent)
    : QObject{parent},
      isBusy_{std::move(isBusy)}
{
    timer_.setSingleShot(true);
    timer_.setInterval(whileIdle);
    connect(&timer_, &QTimer::timeout, this, [this] {
        if (!isBusy_()) {
            emit idle();
        }
    });
}

} // namespace norvane
