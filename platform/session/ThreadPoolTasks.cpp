// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/ThreadPoolTasks.h"

#include <utility>

namespace norvane {

ThreadPoolTasks::ThreadPoolTasks()
{
    pool_.setMaxThreadCount(1); // Deletions in a row stay in a row.
}

void ThreadPoolTasks::detach(std::function<void()> work)
{
    pool_.start(std::move(work));
}

} // namespace norvane
