// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/StatusItem.h"
#include "platform/tray/TrayMenu.h"
#include "platform/tray/TrayTypes.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>

#include <optional>

namespace norvane {

/// The status item as the session bus sees it.
///
/// Registered from construction to destruction, even without a watcher, because some hosts look for
/// items themselves. The icon is given as a theme name, which a panel can recolour, and as pixels
/// for panels that do not find the name. No icon folder is given, since hosts disagree about what
/// that path means.
class StatusNotifierItem final : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ id CONSTANT)
    Q_PROPERTY(QString Title READ title CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(QString IconThemePath READ none CONSTANT)
    Q_PROPERTY(QString IconName READ iconName NOTIFY NewIcon)
    Q_PROPERTY(norvane::IconPixmapList IconPixmap READ iconPixmap NOTIFY NewIcon)
    Q_PROPERTY(QString IconAccessibleDesc READ iconAccessibleDescription NOTIFY NewIcon)
    Q_PROPERTY(QString OverlayIconName READ none CONSTANT)
    Q_PROPERTY(norvane::IconPixmapList OverlayIconPixmap READ noPixmap CONSTANT)
    Q_PROPERTY(QString AttentionIconName READ none CONSTANT)
    Q_PROPERTY(norvane::IconPixmapList AttentionIconPixmap READ noPixmap CONSTANT)
    Q_PROPERTY(QString AttentionMovieName READ none CONSTANT)
    Q_PROPERTY(norvane::ToolTip ToolTip READ toolTip CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)

public:
    /// Puts the item and its menu on the bus.
    explicit StatusNotifierItem(const QDBusConnection &bus);
    ~StatusNotifierItem() override;

    void setImage(const QString &iconName, const QString &accessibilityDescription);

    [[nodiscard]] static QString category() { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] static QString id() { return QStringLiteral("org.norvane.Norvane"); }
    [[nodiscard]] static QString title() { return QStringLiteral("Norvane"); }
    [[nodiscard]] static QString status() { return QStringLiteral("Active"); }
    [[nodiscard]] static int windowId() { return 0; }
    [[nodiscard]] static QString none() { return {}; }
    [[nodiscard]] static IconPixmapList noPixmap() { return {}; }
    [[nodiscard]] static bool itemIsMenu() { return false; }
    [[nodiscard]] static QDBusObjectPath menu() { return QDBusObjectPath{TrayMenu::path()}; }
    [[nodiscard]] static norvane::ToolTip toolTip();
    [[nodiscard]] QString iconName() const { return iconName_; }
    [[nodiscard]] QString iconAccessibleDescription() const { return iconDescription_; }
    [[nodiscard]] IconPixmapList iconPixmap();

public slots: // What hosts call, under the names the bus knows.
    /// A press of the main mouse button.
    void Activate(int x, int y);
    /// A press of the middle button; does nothing.
    void SecondaryActivate(int x, int y);
    /// A press of the menu button on a host that draws no menus: does the same as the menu's entry.
    void ContextMenu(int x, int y);
    /// A turn of the wheel; does nothing.
    void Scroll(int delta, const QString &orientation);
    /// The token for the call that follows.
    void ProvideXdgActivationToken(const QString &token);

signals:
    void NewIcon(); ///< On the bus too. Nothing else about the item ever changes.
    void pressed(const norvane::IconPress &press);
    void openRequested(const norvane::IconPress &press);

private:
    [[nodiscard]] IconPress pressAt(std::optional<QPoint> place);

    QDBusConnection bus_;
    TrayMenu menu_;
    QString iconName_;
    QString iconDescription_;
    std::optional<IconPixmapList> iconPixmap_; ///< Drawn when first asked for.
    QString activationToken_;                  ///< For the next call only.
};

} // namespace norvane
