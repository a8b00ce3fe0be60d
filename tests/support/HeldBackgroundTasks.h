// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/BackgroundTasks.h"

#include <thread>
#include <utility>
#include <vector>

namespace norvane {

/// Holds background work back until the test wants it done.
class HeldBackgroundTasks final : public BackgroundTasks {
public:
    void detach(std::function<void()> work) override { held_.push_back(std::move(work)); }

    [[nodiscard]] std::size_t count() const noexcept { return held_.size(); }

    /// Does what is held on another thread, in order, and returns when it is done.
    void run()
    {
        std::thread{[work = std::exchange(held_, {})] {
            for (const auto &task : work) {
                task();
            }
        }}.join();
    }

private:
    std::vector<std::function<void()>> held_;
};

} // namespace norvane
