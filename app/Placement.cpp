// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/Placement.h"

#include <algorithm>
#include <array>
#include <utility>

namespace norvane {

namespace {

constexpr int gap = 4; ///< Between the popover and what it belongs to, and to every edge.
constexpr int usualIcon = 24;
/// A place this near to an edge is assumed to be in a panel that hides itself there.
constexpr int panelDepth = 64;

QRect iconAround(const QPoint &place)
{
    return {place - QPoint{usualIcon / 2, usualIcon / 2}, QSize{usualIcon, usualIcon}};
}

/// How far a point lies outside a rectangle, as the squared distance.
qint64 distance(const QPoint &point, const QRect &rect)
{
    const qint64 x = point.x() - std::clamp(point.x(), rect.left(), rect.right());
    const qint64 y = point.y() - std::clamp(point.y(), rect.top(), rect.bottom());
    return x * x + y * y;
}

} // namespace

Placement::Placement(QList<ScreenArea> screens, const QSize &size)
    : screens_{std::move(screens)},
      size_{size}
{
}

QRect Placement::anchor(const std::optional<QRect> &icon, const std::optional<QPoint> &place,
                        const QPoint &pointer) const
{
    if (icon && isOnScreen(*icon)) {
        return *icon;
    }
    const bool inStrip = place && isOnScreen(QRect{*place, QSize{1, 1}}) &&
                         stripEdge(screenOf(*place), *place) != Edge::None;
    return iconAround(inStrip ? *place : pointer);
}

QRect Placement::beside(const QRect &anchor) const
{
    const QPoint middle = anchor.center();
    const ScreenArea &screen = screenOf(middle);
    const Edge strip = stripEdge(screen, middle);
    const bool inStrip = strip != Edge::None;
    const Edge edge = inStrip ? strip : nearEdge(screen, anchor);
    // In a panel's strip the popover stands beside the whole panel, elsewhere beside the icon.
    const int below = inStrip ? screen.work.top() : anchor.bottom() + 1;
    const int above = inStrip ? screen.work.bottom() + 1 : anchor.top();
    const int rightOf = inStrip ? screen.work.left() : anchor.right() + 1;
    const int leftOf = inStrip ? screen.work.right() + 1 : anchor.left();
    const QSize size = sizeIn(screen.work);
    QPoint corner{middle.x() - size.width() / 2, middle.y() - size.height() / 2};
    const bool roomBelow = below + gap + size.height() <= screen.work.bottom() + 1;
    if (edge == Edge::Left) {
        corner.setX(rightOf + gap);
    } else if (edge == Edge::Right) {
        corner.setX(leftOf - gap - size.width());
    } else if (edge == Edge::Bottom || (edge == Edge::None && !roomBelow)) {
        corner.setY(above - gap - size.height());
    } else {
        corner.setY(below + gap);
    }
    return keptInside(corner, screen.work);
}

QRect Placement::withoutAnchor() const
{
    const auto &[whole, work] = screens_.first();
    const bool panelAtTop = work.top() > whole.top();
    const bool panelAtBottom = work.bottom() < whole.bottom();
    const bool panelAtLeft = work.left() > whole.left();
    const bool panelAtRight = work.right() < whole.right();
    const bool atBottom = !panelAtTop && (panelAtBottom || panelAtLeft || panelAtRight);
    const bool atLeft = panelAtLeft && !panelAtRight && !panelAtTop && !panelAtBottom;
    return keptInside({atLeft ? work.left() : work.right(), atBottom ? work.bottom() : work.top()},
                      work);
}

bool Placement::isOnScreen(const QRect &anchor) const
{
    return std::ranges::any_of(screens_, [&anchor](const ScreenArea &screen) {
        return screen.whole.contains(anchor.center());
    });
}

bool Placement::isWhole(const QRect &popover) const
{
    return std::ranges::any_of(screens_, [this, &popover](const ScreenArea &screen) {
        return screen.work.contains(popover) && popover.size() == sizeIn(screen.work);
    });
}

Placement::Edge Placement::stripEdge(const ScreenArea &screen, const QPoint &point)
{
    if (point.y() < screen.work.top()) {
        return Edge::Top;
    }
    if (point.y() > screen.work.bottom()) {
        return Edge::Bottom;
    }
    if (point.x() < screen.work.left()) {
        return Edge::Left;
    }
    return point.x() > screen.work.right() ? Edge::Right : Edge::None;
}

Placement::Edge Placement::nearEdge(const ScreenArea &screen, const QRect &anchor)
{
    const QRect &whole = screen.whole;
    const std::array<std::pair<int, Edge>, 4> edges{
        {{anchor.top() - whole.top(), Edge::Top},
         {whole.bottom() - anchor.bottom(), Edge::Bottom},
         {anchor.left() - whole.left(), Edge::Left},
         {whole.right() - anchor.right(), Edge::Right}}};
    const auto &[depth, edge] = *std::ranges::min_element(edges, {}, &std::pair<int, Edge>::first);
    return depth < panelDepth ? edge : Edge::None;
}

const ScreenArea &Placement::screenOf(const QPoint &point) const
{
    return *std::ranges::min_element(
        screens_, {}, [&point](const ScreenArea &screen) { return distance(point, screen.whole); });
}

QSize Placement::sizeIn(const QRect &work) const
{
    return {size_.width(), std::min(size_.height(), work.height())};
}

QRect Placement::keptInside(const QPoint &corner, const QRect &work) const
{
    const QSize size = sizeIn(work);
    // On a screen that is hardly larger than the popover the gap shrinks to what is left.
    const int besideIt = std::clamp((work.width() - size.width()) / 2, 0, gap);
    const int aboveIt = std::clamp((work.height() - size.height()) / 2, 0, gap);
    const int right = work.right() + 1 - size.width() - besideIt;
    const int bottom = work.bottom() + 1 - size.height() - aboveIt;
    return {QPoint{std::max(work.left() + besideIt, std::min(corner.x(), right)),
                   std::max(work.top() + aboveIt, std::min(corner.y(), bottom))},
            size};
}

} // namespace norvane
