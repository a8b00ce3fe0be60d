// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QMetaType>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

/// A named colour in each of its uses on one background, adjusted so that it has enough contrast to
/// that background.
struct Hue {
    Q_GADGET
    QML_VALUE_TYPE(hue)
    Q_PROPERTY(QColor text MEMBER text)
    Q_PROPERTY(QColor symbol MEMBER symbol)
    Q_PROPERTY(QColor patch MEMBER patch)
    Q_PROPERTY(QColor symbolOnPatch MEMBER symbolOnPatch)

public:
    QColor text;
    QColor symbol;
    QColor patch; ///< The colour itself, at an opacity of 0.2: what stands behind a symbol.
    QColor symbolOnPatch;

    friend bool operator==(const Hue &, const Hue &) = default;
};

} // namespace norvane
