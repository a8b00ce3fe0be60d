// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

/// The panel's text styles, all made from the desktop's font, which is `body`.
///
/// Sizes are whole device-independent pixels. Follows the desktop's font when that changes.
class TextStyles : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QFont largeTitle READ largeTitle NOTIFY changed)
    Q_PROPERTY(QFont title3 READ title3 NOTIFY changed)
    Q_PROPERTY(QFont headline READ headline NOTIFY changed)
    Q_PROPERTY(QFont body READ body NOTIFY changed)
    Q_PROPERTY(QFont caption READ caption NOTIFY changed)
    Q_PROPERTY(QFont captionMedium READ captionMedium NOTIFY changed)

public:
    explicit TextStyles(QObject *parent = nullptr);

    [[nodiscard]] static QFont largeTitle();
    [[nodiscard]] static QFont title3();
    [[nodiscard]] static QFont headline();
    [[nodiscard]] static QFont body();
    [[nodiscard]] static QFont caption();
    [[nodiscard]] static QFont captionMedium();

    /// What a line of this font takes, in whole device-independent pixels.
    Q_INVOKABLE [[nodiscard]] static int lineHeight(const QFont &font);
    /// What a text on one line takes, in whole device-independent pixels.
    Q_INVOKABLE [[nodiscard]] static int width(const QString &text, const QFont &font);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void changed();
};

} // namespace norvane
