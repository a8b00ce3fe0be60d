// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/StatusBar.h"

namespace norvane {

/// The status area of the session that the program runs in. Needs the application object.
class DesktopStatusBar final : public StatusBar {
public:
    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem() override;
};

} // namespace norvane
