// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/record/Trial.h"
#include "model/record/TrialsFile.h"
#include "panel/PanelContent.h"
#include "tests/support/HandMovedClock.h"
#include "tests/support/HeldBackgroundTasks.h"
#include "tests/support/RecordingNotificationCenter.h"
#include "tests/support/TemporaryFolders.h"

#include <QLocale>

#include <memory>

namespace norvane {

/// The panel's content on a platform that a test controls.
class PanelOnFakes {
public:
    /// 2025-01-08 08:30:15 UTC, a Wednesday.
    static constexpr PointInTime start{758'017'815};

    PanelOnFakes(const QList<Trial> &trials, const QByteArray &zone, const QLocale &locale)
        : clock_{start, zone}
    {
        folders_.write(TrialsFile::encode(trials).value_or(QByteArray{}));
        content_ = std::make_unique<PanelContent>(
            Platform{clock_, folders_.path(), center_, tasks_}, locale);
    }

    [[nodiscard]] HandMovedClock &clock() noexcept { return clock_; }
    [[nodiscard]] const TemporaryFolders &folders() const noexcept { return folders_; }
    [[nodiscard]] PanelContent &content() noexcept { return *content_; }

private:
    HandMovedClock clock_;
    TemporaryFolders folders_;
    RecordingNotificationCenter center_;
    HeldBackgroundTasks tasks_;
    std::unique_ptr<PanelContent> content_;
};

} // namespace norvane
