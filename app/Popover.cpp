// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/Popover.h"

#include "app/Placement.h"
#include "panel/PanelContent.h"
#include "platform/windows/WindowSystem.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QScreen>
#include <QSurfaceFormat>
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
    QSurfaceFormat withAlpha = format();
    withAlpha.setAlphaBufferSize(8);
    setFormat(withAlpha);
    setColor(Qt::transparent); // Behind the round corners.
    setFixedSize(popoverSize);
    setResizeMode(QQuickView::SizeRootObjectToView);
    load();
    connect(engine(), &QQmlEngine::quit, qGuiApp, &QGuiApplication::quit, Qt::QueuedConnection);
    watchScreens();
    // Rendering one frame while hidden loads images and glyphs, so that the first press shows the
    // panel quickly.
    QMetaObject::invokeMethod(this, &QQuickWindow::grabWindow, Qt::QueuedConnection);
}

/// Not by setSource(), which writes every error to standard error by itself.
void Popover::load()
{
    const QUrl url{QStringLiteral("qrc:/qt/qml/org/norvane/shell/PopoverFrame.qml")};
    engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    QQmlEngine::setObjectOwnership(&content_, QQmlEngine::CppOwnership);
    auto *const component = new QQmlComponent{engine(), url, this};
    // Loading can be asynchronous, for example when Qt had to search every import path for a
    // missing module.
    if (component->isLoading()) {
        connect(component, &QQmlComponent::statusChanged, this,
                [this, component] { showLoaded(*component); });
    } else {
        showLoaded(*component);
    }
}

void Popover::showLoaded(QQmlComponent &component)
{
    QObject *const frame = component.isReady()
                               ? component.createWithInitialProperties(
                                     {{QStringLiteral("content"), QVariant::fromValue(&content_)}})
                               : nullptr;
    if (frame != nullptr) {
        setContent(component.url(), &component, frame);
        return;
    }
    const QList<QQmlError> errors = component.errors();
    // The last error is the cause of the earlier ones.
    const QString reason = errors.isEmpty() ? QString{} : errors.constLast().description();
    QMetaObject::invokeMethod(
        this, [this, reason] { emit failed(reason); }, Qt::QueuedConnection);
}

void Popover::showBeside(const std::optional<IconPress> &press)
{
    const Placement placement{windowSystem_.screens(), popoverSize};
    // A press on the icon's menu comes without a position; the icon is still where it was.
    if (press && (press->icon || press->place || !anchor_)) {
        anchor_ = anchorOf(*press, windowSystem_, placement);
    }
    content_.rebuild();
    create();
    windowSystem_.makeAccessory(*this);
    place(placement);
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
    // A change of screens arrives as several events, between which the window manager may move the
    // window; so the position is corrected once, after the last one.
    screensAtRest_.setSingleShot(true);
    screensAtRest_.setInterval(timeToRest);
    connect(&screensAtRest_, &QTimer::timeout, this, &Popover::bringBackToScreen);
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

void Popover::bringBackToScreen()
{
    const Placement placement{windowSystem_.screens(), popoverSize};
    if (isVisible() && !placement.isWhole(geometry())) {
        place(placement);
    }
}

void Popover::place(const Placement &placement)
{
    const QRect where = anchor_ && placement.isOnScreen(*anchor_) ? placement.beside(*anchor_)
                                                                  : placement.withoutAnchor();
    setFixedSize(where.size());
    setPosition(where.topLeft());
}

void Popover::setFixedSize(const QSize &size)
{
    setMinimumSize(size);
    setMaximumSize(size);
    resize(size);
}

} // namespace norvane
