// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/record/Trial.h"
#include "model/store/TrialStore.h"
#include "time/PointInTime.h"

#include <QtQml/qqml.h>

namespace norvane {

// Makes types of the layers below available to QML, so that those layers need not depend on QML.

struct PointInTimeForQml {
    Q_GADGET
    QML_FOREIGN(norvane::PointInTime)
    QML_VALUE_TYPE(pointInTime)
};

struct TrialForQml {
    Q_GADGET
    QML_FOREIGN(norvane::Trial)
    QML_VALUE_TYPE(trial)
};

struct TrialStoreForQml {
    Q_GADGET
    QML_FOREIGN(norvane::TrialStore)
    QML_NAMED_ELEMENT(TrialStore)
    QML_UNCREATABLE("the program has one")
};

} // namespace norvane
