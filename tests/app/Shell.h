// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/AppDelegate.h"
#include "app/KeyMonitors.h"
#include "app/Popover.h"
#include "platform/windows/WindowSystem.h"
#include "tests/app/FakeStatusItem.h"
#include "tests/support/FakePlatform.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QTest>

#include <optional>

namespace norvane {

/// The shell with its real panel, operated by a test.
struct Shell {
    FakePlatform platform;
    FakeStatusItemMaker statusItem;
    WindowSystem windowSystem;
    KeyMonitors keyMonitors;
    std::optional<AppDelegate> delegate;

    Shell()
    {
        delegate.emplace(platform.all(),
                         AppDelegate::Seams{.makeStatusItem = [this] { return statusItem.make(); },
                                            .windowSystem = windowSystem,
                                            .keyMonitors = keyMonitors});
    }

    void launch() { delegate->applicationDidFinishLaunching(); }
    void press() const { statusItem.item()->press(); }

    /// The popover; null before the launch.
    [[nodiscard]] static Popover *popover()
    {
        for (QWindow *const window : QGuiApplication::topLevelWindows()) {
            if (auto *const found = qobject_cast<Popover *>(window)) {
                return found;
            }
        }
        return nullptr;
    }

    /// The visible button of the panel with this label; null if there is none.
    [[nodiscard]] static QQuickItem *find(const QString &text)
    {
        return below(popover()->contentItem(), [&text](const QQuickItem *item) {
            return item->property("text").toString() == text &&
                   item->inherits("QQuickAbstractButton");
        });
    }
    /// Whether the panel shows this text.
    [[nodiscard]] static bool shows(const QString &text)
    {
        return below(popover()->contentItem(), [&text](const QQuickItem *item) {
                   return item->property("text").toString() == text;
               }) != nullptr;
    }

    static void type(const char *text)
    {
        for (; *text != 0; ++text) {
            QTest::keyClick(popover(), *text);
        }
    }

    static void click(QQuickItem *item)
    {
        const QPointF middle{item->width() / 2, item->height() / 2};
        QTest::mouseClick(popover(), Qt::LeftButton, {}, item->mapToScene(middle).toPoint());
    }

    /// Enters a trial into the form, by click and keys.
    static void track(const char *name)
    {
        click(find(QStringLiteral("Add Trial")));
        type(name);
        QTest::keyClick(popover(), Qt::Key_Return, Qt::ControlModifier);
    }

private:
    /// The first visible item at or below this one that is wanted; null if there is none.
    template <typename Predicate>
    static QQuickItem *below(QQuickItem *item, const Predicate &isWanted)
    {
        if (!item->isVisible() || isWanted(item)) {
            return item->isVisible() ? item : nullptr;
        }
        for (QQuickItem *const child : item->childItems()) {
            if (QQuickItem *const found = below(child, isWanted)) {
                return found;
            }
        }
        return nullptr;
    }
};

} // namespace norvane
