// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPalette>

namespace norvane {

class Appearance;

/// Keeps the application's palette as the user wants programs to look.
///
/// Where the desktop gives a palette, that holds as long as it is as light or dark as wanted;
/// otherwise, and where the desktop gives none, one of our own steps in. The accent colour, where
/// the user has chosen one, is put over either. Follows the preferences and the desktop's palette
/// when they change, and passes the wanted contrast on to Contrast.
class DesktopPalette : public QObject {
    Q_OBJECT

public:
    /// Borrows the appearance.
    explicit DesktopPalette(const Appearance &appearance, QObject *parent = nullptr);

    [[nodiscard]] static QPalette light(bool moreContrast = false);
    [[nodiscard]] static QPalette dark(bool moreContrast = false);
    /// Whether a palette is what Qt itself falls back to where the desktop gives none.
    [[nodiscard]] static bool isQtsOwn(const QPalette &palette);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply() const;

    const Appearance &appearance_;
};

} // namespace norvane
