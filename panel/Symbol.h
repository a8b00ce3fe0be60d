// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPixmap>
#include <QQuickPaintedItem>
#include <QString>

namespace norvane {

/// A drawing from the set of symbols, in one colour, crisp wherever its size is whole pixels of the
/// screen.
///
/// Its natural size is `size` square, in device-independent pixels; it is drawn centred.
class Symbol : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged REQUIRED)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)

public:
    explicit Symbol(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

    [[nodiscard]] QString name() const { return name_; }
    void setName(const QString &name);
    [[nodiscard]] QColor color() const { return color_; }
    void setColor(const QColor &color);
    [[nodiscard]] qreal size() const { return implicitWidth(); }
    void setSize(qreal size);

signals:
    void nameChanged();
    void colorChanged();
    void sizeChanged();

private:
    [[nodiscard]] QPixmap drawn(int pixels) const;

    QString name_;
    QColor color_ = Qt::black;
};

} // namespace norvane
