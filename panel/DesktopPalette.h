// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPalette>

namespace norvane {

class Appearance;

/// Keeps the application's palette as light or dark as the desktop is.
///
/// The palette that the desktop gives holds where it agrees, or where the desktop has no
/// preference; otherwise one of our own steps in, until the preference or the desktop's palette
/// changes.
class DesktopPalette : public QObject {
    Q_OBJECT

public:
    /// Borrows the appearance.
    explicit DesktopPalette(const Appearance &appearance, QObject *parent = nullptr);

    [[nodiscard]] static QPalette light();
    [[nodiscard]] static QPalette dark();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply() const;

    const Appearance &appearance_;
};

} // namespace norvane
