// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

/// A piece of a text, from `start` up to, not including, `end`.
struct TextRange {
    Q_GADGET
    QML_VALUE_TYPE(textRange)
    Q_PROPERTY(int start MEMBER start)
    Q_PROPERTY(int end MEMBER end)

public:
    int start = 0;
    int end = 0;

    friend bool operator==(const TextRange &, const TextRange &) = default;
};

} // namespace norvane
