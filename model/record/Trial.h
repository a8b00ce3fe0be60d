// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/PointInTime.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QUuid>

namespace norvane {

/// One free trial that the user tracks. A plain value: copied, never shared.
struct Trial {
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(norvane::PointInTime endDate MEMBER endDate)
    Q_PROPERTY(double cost MEMBER cost)
    Q_PROPERTY(QString notes MEMBER notes)
    Q_PROPERTY(norvane::PointInTime createdAt MEMBER createdAt)
    Q_PROPERTY(QStringList notificationIds MEMBER notificationIds)

public:
    /// A new record with a fresh random `id` and no reminders yet.
    [[nodiscard]] static Trial make(const QString &name, PointInTime endDate, double cost,
                                    const QString &notes, PointInTime createdAt);

    /// `id` as 36 characters in groups of 8-4-4-4-12, with upper-case digits.
    [[nodiscard]] QString idText() const;

    QUuid id;                    ///< Identity: what lists and lookups compare, alone.
    QString name;                ///< The service's name as the user typed it.
    PointInTime endDate;         ///< When the trial ends and charging begins.
    double cost = 0;             ///< The amount per month afterwards; no currency.
    QString notes;               ///< Free text.
    PointInTime createdAt;       ///< When the record was made.
    QStringList notificationIds; ///< The reminders last planned for this trial, in their order.

    /// All seven fields are equal. Texts count as equal when they are canonically equivalent, so
    /// that an accent typed in one piece or in two is the same; a NaN cost equals nothing.
    friend bool operator==(const Trial &left, const Trial &right);
};

} // namespace norvane
