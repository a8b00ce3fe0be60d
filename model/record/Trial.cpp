// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/Trial.h"

#include <algorithm>

namespace norvane {

namespace {

bool canonicallyEquivalent(const QString &left, const QString &right)
{
    return left == right || left.normalized(QString::NormalizationForm_D) ==
                                right.normalized(QString::NormalizationForm_D);
}

} // namespace

Trial Trial::make(const QString &name, PointInTime endDate, double cost, const QString &notes,
                  PointInTime createdAt)
{
    Trial trial;
    trial.id = QUuid::createUuid();
    trial.name = name;
    trial.endDate = endDate;
    trial.cost = cost;
    trial.notes = notes;
    trial.createdAt = createdAt;
    return trial;
}

QString Trial::idText() const
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

bool operator==(const Trial &left, const Trial &right)
{
    return left.id == right.id && canonicallyEquivalent(left.name, right.name) &&
           left.endDate == right.endDate && left.cost == right.cost &&
           canonicallyEquivalent(left.notes, right.notes) && left.createdAt == right.createdAt &&
           std::ranges::equal(left.notificationIds, right.notificationIds, canonicallyEquivalent);
}

} // namespace norvane
