// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/KeyMonitors.h"
#include "platform/Platform.h"
#include "platform/StatusItem.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace norvane {

class PanelContent;
class Popover;
class WindowSystem;

/// The shell around the panel: the status item, its popover, and the keys that reach it.
///
/// Lives on the main thread. It never touches the store, which the panel's content owns. The key
/// monitors stay installed when it is destroyed.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    /// What the shell needs from the desktop; the references are borrowed.
    struct Seams {
        std::function<std::unique_ptr<StatusItem>()> makeStatusItem; ///< Never gives null.
        WindowSystem &windowSystem;
        KeyMonitors &keyMonitors;
    };

    AppDelegate(Platform platform, Seams seams);
    ~AppDelegate() override;

    /// Makes the status item and the hidden popover, then asks for permission to notify, at every
    /// launch and whatever the answer was the last time.
    void applicationDidFinishLaunching();

    /// Hides the popover if it is shown, and otherwise shows it by the icon with the keyboard.
    /// Stops the process when called before launching has finished.
    void togglePopover(const IconPress &press);

    /// Shows the popover with the keyboard, or gives it the keyboard if it is shown, whether or not
    /// the icon is visible. Called when Norvane is started again.
    void showPopover(const QString &activationToken);
    /// The same, but only if no part of the desktop shows the icon, so that the user has no other
    /// way to open the popover.
    void showPopoverWithoutHost(const QString &activationToken);

signals:
    /// Emitted when the panel cannot be loaded; `reason` is one line.
    void panelFailed(const QString &reason);

private:
    void present(const std::optional<IconPress> &press, const QString &activationToken);
    [[nodiscard]] KeyMonitors::Verdict decide(const QKeyEvent &key) const;

    Platform platform_;
    Seams seams_;
    std::unique_ptr<PanelContent> content_; ///< Shown by the popover, which borrows it.
    std::unique_ptr<StatusItem> statusItem_;
    std::unique_ptr<Popover> popover_;
    std::optional<KeyMonitors::Token> eventMonitor_; ///< The monitor installed last.
};

} // namespace norvane
