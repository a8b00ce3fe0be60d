// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/windows/WindowSystem.h"

#include "platform/windows/X11WindowSystem.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <cmath>

namespace norvane {

namespace {

/// A screen's place on the desktop is in device pixels already; only its size is scaled.
QRect inDevicePixels(const QScreen &screen)
{
    const QSizeF size = QSizeF{screen.geometry().size()} * screen.devicePixelRatio();
    return {screen.geometry().topLeft(), size.toSize()};
}

/// A point in device-independent pixels. Qt keeps a screen's top-left corner in device pixels and
/// divides only distances from that corner by the scale.
QPointF scaled(const QPointF &place, const QScreen &screen)
{
    const QPointF origin = screen.geometry().topLeft();
    return (place - origin) / screen.devicePixelRatio() + origin;
}

/// The largest rectangle of whole device-independent pixels inside one of device pixels.
QRect scaledInwards(const QRect &rect, const QScreen &screen)
{
    const QPointF start = scaled(rect.topLeft(), screen);
    const QPointF end = scaled(QPointF(rect.x() + rect.width(), rect.y() + rect.height()), screen);
    const QPoint topLeft{static_cast<int>(std::ceil(start.x())),
                         static_cast<int>(std::ceil(start.y()))};
    const QPoint bottomRight{static_cast<int>(std::floor(end.x())) - 1,
                             static_cast<int>(std::floor(end.y())) - 1};
    return {topLeft, bottomRight};
}

/// The part of a screen that panels leave free. An edge without a panel stays exactly the screen's
/// edge: rounding would turn it into a strip of one pixel.
QRect workArea(const QRect &deviceWork, const QRect &device, const QRect &whole,
               const QScreen &screen)
{
    QRect work = scaledInwards(deviceWork, screen);
    if (deviceWork.left() == device.left()) {
        work.setLeft(whole.left());
    }
    if (deviceWork.top() == device.top()) {
        work.setTop(whole.top());
    }
    if (deviceWork.right() == device.right()) {
        work.setRight(whole.right());
    }
    if (deviceWork.bottom() == device.bottom()) {
        work.setBottom(whole.bottom());
    }
    return work;
}

} // namespace

std::unique_ptr<WindowSystem> WindowSystem::forThisSession()
{
    if (QGuiApplication::platformName() == u"xcb") {
        return std::make_unique<X11WindowSystem>();
    }
    return std::make_unique<WindowSystem>();
}

QList<ScreenArea> WindowSystem::screens() const
{
    const QList<Struts::Strip> strips = panelStrips();
    QList<ScreenArea> areas;
    for (const QScreen *const screen : QGuiApplication::screens()) { // The primary one leads.
        const QRect device = corrected(inDevicePixels(*screen));
        const QRect whole{scaled(device.topLeft(), *screen).toPoint(), screen->geometry().size()};
        // Not QScreen::availableGeometry(): Qt 6.10 leaves its position unscaled.
        areas.append({.whole = whole,
                      .work = workArea(Struts::workArea(device, strips), device, whole, *screen)});
    }
    return areas;
}

std::optional<QRect> WindowSystem::fromDevicePixels(const QRect &rect) const
{
    for (const QScreen *const screen : QGuiApplication::screens()) {
        if (corrected(inDevicePixels(*screen)).contains(rect.center())) {
            return QRect{scaled(rect.topLeft(), *screen).toPoint(),
                         (QSizeF{rect.size()} / screen->devicePixelRatio()).toSize()};
        }
    }
    return std::nullopt;
}

void WindowSystem::makeAccessory(QWindow & /*window*/) {}

void WindowSystem::activate(QWindow &window, const QString &token)
{
    if (!token.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8()); // Where Qt looks for it, once.
    }
    window.requestActivate();
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

QRect WindowSystem::corrected(const QRect &screen) const
{
    return screen;
}

QList<Struts::Strip> WindowSystem::panelStrips() const
{
    return {};
}

} // namespace norvane
