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

/// The largest rectangle of whole device-independent pixels inside one of device pixels.
QRect scaledInwards(const QRect &rect, const QPointF &origin, double scale)
{
    const QPointF start = (QPointF{rect.topLeft()} - origin) / scale + origin;
    const QPointF end =
        (QPointF(rect.x() + rect.width(), rect.y() + rect.height()) - origin) / scale + origin;
    const QPoint topLeft{static_cast<int>(std::ceil(start.x())),
                         static_cast<int>(std::ceil(start.y()))};
    const QPoint bottomRight{static_cast<int>(std::floor(end.x())) - 1,
                             static_cast<int>(std::floor(end.y())) - 1};
    return {topLeft, bottomRight};
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
        const double scale = screen->devicePixelRatio();
        const QRect work = scaledInwards(Struts::workArea(device, strips), device.topLeft(), scale);
        // What Qt knows of the work area counts for the place where Qt knows the screen.
        const QPoint moved = device.topLeft() - screen->geometry().topLeft();
        areas.append({.whole = screen->geometry().translated(moved),
                      .work = work & screen->availableGeometry().translated(moved)});
    }
    return areas;
}

std::optional<QRect> WindowSystem::fromDevicePixels(const QRect &rect)
{
    for (const QScreen *const screen : QGuiApplication::screens()) {
        const QRect whole = inDevicePixels(*screen);
        if (whole.contains(rect.center())) {
            const QPointF origin = whole.topLeft();
            const double scale = screen->devicePixelRatio();
            const QPointF place = (QPointF{rect.topLeft()} - origin) / scale + origin;
            return QRect{place.toPoint(), (QSizeF{rect.size()} / scale).toSize()};
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
