// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QTimeZone>

namespace norvane {

/// The time zone the machine is in.
class LocalZone : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual QTimeZone zone() const = 0;

signals:
    /// zone() is another one from now on.
    void changed();
};

} // namespace norvane
