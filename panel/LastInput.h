// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

/// Whether the last input came from the keyboard; only then focus rings are shown.
///
/// True after a key press; false after a press of a mouse button, finger or pen, and each time a
/// window is hidden. Modifier keys do not count.
class LastInput : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isKey READ isKey NOTIFY changed)

public:
    explicit LastInput(QObject *parent = nullptr);

    [[nodiscard]] bool isKey() const noexcept { return isKey_; }

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void changed();

private:
    void take(bool isKey);

    bool isKey_ = false;
};

} // namespace norvane
