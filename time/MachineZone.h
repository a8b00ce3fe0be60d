// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QTimeZone>

namespace norvane {

/// The file that tells the machine's zone, as a rule a link into the zone database: the one that
/// the environment names (TZ, with or without a colon before the path), else /etc/localtime.
/// Empty where the environment names the zone itself.
[[nodiscard]] QString zoneLink();

/// The time zone the machine is in at the moment of the call.
///
/// What TZ holds counts first: a path as above, a zone's name or a rule. Where /etc/localtime is a
/// copy of a zone's file, /etc/timezone names the zone. UTC where there is none to be found.
[[nodiscard]] QTimeZone machineZone();

} // namespace norvane
