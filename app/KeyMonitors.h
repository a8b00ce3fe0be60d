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
/// Belongs to the application and outlives whoever installs handlers. Lives on the main thread.
class KeyMonitors final : public QObject {
    Q_OBJECT

public:
    enum class Verdict { Pass, Swallow };
    using Handler = std::function<Verdict(const QKeyEvent &)>;
    /// Stands for an installed handler.
    using Token = std::size_t;

    KeyMonitors();

    /// Installs one more handler, which sees a press until one before it swallows it. There is no
    /// way to take one out again.
    Token add(Handler handler);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::vector<Handler> handlers_;
};

} // namespace norvane
