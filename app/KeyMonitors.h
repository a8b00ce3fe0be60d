// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <functional>
#include <vector>

class QKeyEvent;

namespace norvane {

/// Lets handlers see every key press that reaches a window of the program, before the window.
///
/// Owned by the application; outlives every object that installs a handler. Lives on the main
/// thread.
class KeyMonitors final : public QObject {
    Q_OBJECT

public:
    enum class Verdict { Pass, Swallow };
    using Handler = std::function<Verdict(const QKeyEvent &)>;
    /// Stands for an installed handler.
    using Token = std::size_t;

    KeyMonitors();

    /// Installs one more handler. Handlers are asked in the order of their installation until one
    /// swallows the press. A handler cannot be removed.
    Token add(Handler handler);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::vector<Handler> handlers_;
};

} // namespace norvane
