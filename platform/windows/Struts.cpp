// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/windows/Struts.h"

#include <algorithm>
#include <tuple>

namespace norvane {

namespace {

constexpr int depths = 4;
constexpr int depthsAndSpans = 12;

} // namespace

QList<Struts::Strip> Struts::strips(const QList<int> &numbers, const QSize &display)
{
    QList<int> strut = numbers;
    if (strut.size() == depths) {
        strut << 0 << display.height() - 1 << 0 << display.height() - 1;
        strut << 0 << display.width() - 1 << 0 << display.width() - 1;
    }
    QList<Strip> result;
    if (strut.size() != depthsAndSpans) {
        return result;
    }
    const auto [left, right, top, bottom] = std::tuple{strut[0], strut[1], strut[2], strut[3]};
    if (left > 0) {
        result.append({Qt::LeftEdge, QRect{QPoint{0, strut[4]}, QPoint{left - 1, strut[5]}}});
    }
    if (right > 0) {
        result.append({Qt::RightEdge, QRect{QPoint{display.width() - right, strut[6]},
                                            QPoint{display.width() - 1, strut[7]}}});
    }
    if (top > 0) {
        result.append({Qt::TopEdge, QRect{QPoint{strut[8], 0}, QPoint{strut[9], top - 1}}});
    }
    if (bottom > 0) {
        result.append({Qt::BottomEdge, QRect{QPoint{strut[10], display.height() - bottom},
                                             QPoint{strut[11], display.height() - 1}}});
    }
    return result;
}

QRect Struts::workArea(const QRect &screen, const QList<Strip> &strips)
{
    QRect work = screen;
    for (const auto &[edge, rect] : strips) {
        const QRect here = rect & screen;
        const bool alongTopOrBottom = edge == Qt::TopEdge || edge == Qt::BottomEdge;
        const bool isForAnother = alongTopOrBottom ? here.height() > screen.height() / 2
                                                   : here.width() > screen.width() / 2;
        if (here.isEmpty() || isForAnother) {
            continue;
        }
        if (edge == Qt::LeftEdge) {
            work.setLeft(std::max(work.left(), here.right() + 1));
        } else if (edge == Qt::RightEdge) {
            work.setRight(std::min(work.right(), here.left() - 1));
        } else if (edge == Qt::TopEdge) {
            work.setTop(std::max(work.top(), here.bottom() + 1));
        } else {
            work.setBottom(std::min(work.bottom(), here.top() - 1));
        }
    }
    return work;
}

} // namespace norvane
