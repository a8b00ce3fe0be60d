// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/windows/X11Display.h"

#include <QObject>
#include <QSocketNotifier>

#include <optional>

namespace norvane {

/// Tells whether windows may be translucent, which round corners need. On X11 they may while a
/// compositing manager runs, which can start and end at any time; elsewhere they always may.
///
/// Needs the application object; lives on the main thread.
class CompositorWatch : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isPresent READ isPresent NOTIFY changed)

public:
    explicit CompositorWatch(QObject *parent = nullptr);

    [[nodiscard]] bool isPresent() const noexcept { return isPresent_; }

signals:
    void changed();

private:
    void look();
    void readEvents();

    std::optional<X11Display> display_;
    std::optional<QSocketNotifier> readable_;
    xcb_atom_t selection_ = XCB_ATOM_NONE; ///< Owned by the manager as long as it runs.
    bool isPresent_ = true;
};

} // namespace norvane
