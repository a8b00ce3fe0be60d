// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPalette>

namespace norvane {

class Appearance;

/// Keeps the application's palette as the user wants programs to look.
///
/// The desktop's palette is used as long as it is light or dark as the user prefers. Otherwise, and
/// where the desktop has no palette, one of Norvane's own is used. The accent colour, if the user
/// has chosen one, replaces that of either. Follows changes of the preferences and of the desktop's
/// palette, and tells Contrast the preferred contrast.
class DesktopPalette : public QObject {
    Q_OBJECT

public:
    /// Borrows the appearance.
    explicit DesktopPalette(const Appearance &appearance, QObject *parent = nullptr);

    [[nodiscard]] static QPalette light(bool moreContrast = false);
    [[nodiscard]] static QPalette dark(bool moreContrast = false);
    /// Whether this is Qt's own default palette, used where the desktop has none.
    [[nodiscard]] static bool isQtsOwn(const QPalette &palette);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void apply() const;

    const Appearance &appearance_;
};

} // namespace norvane
