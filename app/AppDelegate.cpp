// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "app/Environment.h"
#include "app/Popover.h"
#include "panel/PanelContent.h"
#include "platform/NotificationCenter.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QQuickItem>

#include <cstdlib>
#include <utility>

namespace norvane {

namespace {

/// Whether text is being edited where the keyboard is.
bool textHasKeyboard()
{
    const auto *const item = qobject_cast<QQuickItem *>(QGuiApplication::focusObject());
    return item != nullptr && item->flags().testFlag(QQuickItem::ItemAcceptsInputMethod);
}

} // namespace

AppDelegate::AppDelegate(Platform platform, Seams seams)
    : platform_{std::move(platform)},
      seams_{std::move(seams)}
{
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    statusItem_ = seams_.makeStatusItem();
    if (statusItem_->hasButton()) {
        statusItem_->setImage(QStringLiteral("org.norvane.Norvane-symbolic"),
                              QStringLiteral("Norvane"));
        connect(statusItem_.get(), &StatusItem::pressed, this, &AppDelegate::togglePopover);
        connect(statusItem_.get(), &StatusItem::openRequested, this,
                [this](const IconPress &press) { present(press, press.activationToken); });
    }
    content_ = std::make_unique<PanelContent>(platform_, formatLocale());
    popover_ = std::make_unique<Popover>(*content_, seams_.windowSystem);
    connect(popover_.get(), &Popover::failed, this, &AppDelegate::panelFailed);
    using Option = NotificationCenter::Option;
    platform_.notificationCenter.requestAuthorization(Option::Badge | Option::Sound |
                                                      Option::Alert);
}

void AppDelegate::togglePopover(const IconPress &press)
{
    if (!statusItem_) {
        std::abort();
    }
    if (!statusItem_->hasButton()) {
        return;
    }
    if (!popover_) {
        std::abort();
    }
    if (popover_->isVisible()) {
        popover_->hide();
        eventMonitor_.reset(); // The monitor itself stays: it passes everything while hidden.
    } else {
        present(press, press.activationToken);
    }
}

void AppDelegate::showPopover(const QString &activationToken)
{
    present(std::nullopt, activationToken);
}

void AppDelegate::showPopoverWithoutHost(const QString &activationToken)
{
    if (!statusItem_->isHosted()) {
        showPopover(activationToken);
    }
}

void AppDelegate::present(const std::optional<IconPress> &press, const QString &activationToken)
{
    const bool isShown = popover_->isVisible();
    if (!isShown) {
        popover_->showBeside(press);
    }
    popover_->takeKeyboard(activationToken);
    if (isShown) {
        return;
    }
    // A monitor cannot be removed, so every showing adds one. They all decide in the same way, so
    // the first one that swallows a key leaves nothing for the others to do.
    eventMonitor_ =
        seams_.keyMonitors.add([self = QPointer<const AppDelegate>{this}](const QKeyEvent &key) {
            return self ? self->decide(key) : KeyMonitors::Verdict::Pass;
        });
}

/// Space types a space or does nothing: it never presses a button that happens to have the focus.
KeyMonitors::Verdict AppDelegate::decide(const QKeyEvent &key) const
{
    if (key.key() != Qt::Key_Space || !popover_->isVisible() || textHasKeyboard()) {
        return KeyMonitors::Verdict::Pass;
    }
    return KeyMonitors::Verdict::Swallow;
}

} // namespace norvane
