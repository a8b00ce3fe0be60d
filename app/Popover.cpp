// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/Popover.h"

#include "app/Placement.h"
#include "panel/PanelContent.h"
#include "platform/windows/WindowSystem.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QScreen>
#include <QtQml/qqmlextensionplugin.h>

#include <algorithm>
#include <chrono>

Q_IMPORT_QML_PLUGIN(org_norvane_panelPlugin)
Q_IMPORT_QML_PLUGIN(org_norvane_shellPlugin)

namespace norvane {

namespace {

using namespace std::chrono_literals;

constexpr QSize popoverSize{360, 420};
constexpr auto timeToRest = 300ms;

/// Where the icon of this press is, in device-independent pixels.
QRect anchorOf(const IconPress &press, const WindowSystem &windowSystem, const Placement &placement)
{
    const std::optional<QRect> icon =
        press.icon ? windowSystem.fromDevicePixels(*press.icon) : std::nullopt;
    std::optional<QPoint> place;
    if (press.place && !press.place->isNull()) { // (0, 0) is said by hosts that know no place.
        if (const auto pixel = windowSystem.fromDevicePixels({*press.place, QSize{1, 1}})) {
            place = pixel->topLeft();
        }
    }
    return placement.anchor(icon, place, QCursor::pos());
}

} // namespace

Popover::Popover(PanelContent &content, WindowSystem &windowSystem)
    : content_{content},
      windowSystem_{windowSystem}
{
    setTitle(QStringLiteral("Norvane"));
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setMinimumSize(popoverSize);
    setMaximumSize(popoverSize);
    resize(popoverSize);
    setResizeMode(QQuickView::SizeRootObjectToView);
    engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    QQmlEngine::setObjectOwnership(&content, QQmlEngine::CppOwnership);
    setInitialProperties({{QStringLiteral("content"), QVariant::fromValue(&content)}});
    setSource(QUrl{QStringLiteral("qrc:/qt/qml/org/norvane/shell/PopoverFrame.qml")});
    connect(engine(), &QQmlEngine::quit, qGuiApp, &QGuiApplication::quit, Qt::QueuedConnection);
    watchScreens();
    // A first frame that nobody sees, so that the one at the press finds its pictures and letters.
    QMetaObject::invokeMethod(this, &QQuickWindow::grabWindow, Qt::QueuedConnection);
}

void Popover::showBeside(const std::optional<IconPress> &press)
{
    const Placement placement{windowSystem_.screens(), popoverSize};
    // A press on the icon's menu tells no place: the icon is where it was.
    if (press && (press->icon || press->place || !anchor_)) {
        anchor_ = anchorOf(*press, windowSystem_, placement);
    }
    content_.rebuild();
    create();
    windowSystem_.makeAccessory(*this);
    setPosition(corner(placement));
    show();
}

void Popover::takeKeyboard(const QString &activationToken)
{
    windowSystem_.activate(*this, activationToken);
}

void Popover::keyPressEvent(QKeyEvent *event)
{
    QQuickView::keyPressEvent(event);
    if (!event->isAccepted() && event->key() == Qt::Key_Escape &&
        event->modifiers() == Qt::NoModifier) {
        event->accept();
        hide();
    }
}

void Popover::watchScreens()
{
    // Screens change in several steps, and the window manager has its own say in between.
    screensAtRest_.setSingleShot(true);
    screensAtRest_.setInterval(timeToRest);
    connect(&screensAtRest_, &QTimer::timeout, this, &Popover::settle);
    const auto wait = [this] { screensAtRest_.start(); };
    const auto watch = [this, wait](const QScreen *screen) {
        connect(screen, &QScreen::geometryChanged, this, wait);
        connect(screen, &QScreen::availableGeometryChanged, this, wait);
        screensAtRest_.start();
    };
    const QList<QScreen *> present = QGuiApplication::screens();
    std::ranges::for_each(present, watch);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, watch);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, wait);
}

/// Comes back whole into a work area when the screens are no longer what they were.
void Popover::settle()
{
    const Placement placement{windowSystem_.screens(), popoverSize};
    if (isVisible() && !placement.isWhole(position())) {
        setPosition(corner(placement));
    }
}

QPoint Popover::corner(const Placement &placement) const
{
    return anchor_ && placement.isOnScreen(*anchor_) ? placement.beside(*anchor_)
                                                     : placement.withoutAnchor();
}

} // namespace norvane
