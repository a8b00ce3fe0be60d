// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

namespace norvane {

class StatusItem;

/// The desktop's status area: where status items come from.
class StatusBar {
public:
    StatusBar() = default;
    StatusBar(const StatusBar &) = delete;
    StatusBar &operator=(const StatusBar &) = delete;
    virtual ~StatusBar() = default;

    /// A new item, as wide as its icon. Never null.
    [[nodiscard]] virtual std::unique_ptr<StatusItem> makeStatusItem() = 0;
};

} // namespace norvane
