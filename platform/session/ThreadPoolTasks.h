// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/BackgroundTasks.h"

#include <QThreadPool>

namespace norvane {

/// Runs background work on a thread of its own. The destructor waits for started work to finish.
class ThreadPoolTasks final : public BackgroundTasks {
public:
    ThreadPoolTasks();

    void detach(std::function<void()> work) override;

private:
    QThreadPool pool_;
};

} // namespace norvane
