// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

namespace norvane {

class BackgroundTasks;
class CalendarSource;
class Clock;
class Folders;
class NotificationCenter;

/// What the program needs of the machine, as borrowed references: the owner of the real ones (or
/// of a test's) keeps them alive longer than whoever was given this.
struct Platform {
    const Clock &clock;
    const CalendarSource &calendars;
    const Folders &folders;
    NotificationCenter &notificationCenter;
    BackgroundTasks &backgroundTasks;
};

} // namespace norvane
