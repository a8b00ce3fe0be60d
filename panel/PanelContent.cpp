// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/PanelContent.h"

#include "model/record/Cost.h"
#include "panel/AccessibleItem.h"
#include "panel/TrialPresentation.h"
#include "platform/Clock.h"

#include <utility>

namespace norvane {

PanelContent::PanelContent(const Platform &platform, const QLocale &locale)
    : clock_{platform.clock},
      store_{platform},
      trials_{store_, platform},
      calendar_{platform.clock, locale},
      activeCount_{store_.activeCount()}
{
    AccessibleItem::install();
    // The signal comes before the change, so the new list is read in the next turn of the event
    // loop.
    connect(&store_, &TrialStore::objectWillChange, this, [this] {
        storeChanged_ = true;
        rebuildSoon();
    });
}

void PanelContent::rebuild()
{
    trials_.redraw();
    activeCount_ = store_.activeCount();
    emit rebuilt();
    emit calendar_.refreshed();
}

PointInTime PanelContent::weekFromNow() const
{
    constexpr double week = 604'800;
    return clock_.now().advanced(week);
}

QString PanelContent::spoken(const QString &name)
{
    return TrialPresentation::spoken(name);
}

double PanelContent::cost(const QString &text)
{
    return Cost::fromText(text);
}

void PanelContent::rebuildSoon()
{
    if (!std::exchange(rebuildPending_, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                rebuildPending_ = false;
                if (std::exchange(storeChanged_, false)) {
                    trials_.takeOverTrials();
                }
                rebuild();
            },
            Qt::QueuedConnection);
    }
}

} // namespace norvane
