// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

namespace norvane {

/// Runs work off the main thread.
class BackgroundTasks {
public:
    BackgroundTasks() = default;
    BackgroundTasks(const BackgroundTasks &) = delete;
    BackgroundTasks &operator=(const BackgroundTasks &) = delete;
    virtual ~BackgroundTasks() = default;

    /// Starts the work and returns without waiting for it. What the work only borrows must outlive
    /// this object, after whose end no work runs.
    virtual void detach(std::function<void()> work) = 0;
};

} // namespace norvane
