// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <QStringList>

#include <variant>

namespace norvane {

struct AddRequest {
    NotificationRequest request;
};

struct RemoveRequests {
    QStringList identifiers;
};

struct RemoveAllRequests {};

/// One call that changes what is pending.
using Change = std::variant<AddRequest, RemoveRequests, RemoveAllRequests>;

} // namespace norvane
