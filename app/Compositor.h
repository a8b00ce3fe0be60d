// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/windows/CompositorWatch.h"

#include <QtQml/qqml.h>

namespace norvane {

/// Makes CompositorWatch available to QML, so that its own folder need not depend on QML.
struct CompositorForQml {
    Q_GADGET
    QML_FOREIGN(norvane::CompositorWatch)
    QML_NAMED_ELEMENT(Compositor)
    QML_SINGLETON
};

} // namespace norvane
