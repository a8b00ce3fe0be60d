// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusArgument>

#include <tuple>

namespace norvane {

/// A type that crosses the bus as a structure. Its static function fields() returns a tuple of
/// references to the fields of a value, in the order that they have on the bus.
template <typename T>
concept BusStruct = requires(T value) { std::tuple{T::fields(value)}; };

template <BusStruct T>
QDBusArgument &operator<<(QDBusArgument &argument, const T &value)
{
    argument.beginStructure();
    std::apply([&argument](const auto &...field) { (argument << ... << field); }, T::fields(value));
    argument.endStructure();
    return argument;
}

template <BusStruct T>
const QDBusArgument &operator>>(const QDBusArgument &argument, T &value)
{
    argument.beginStructure();
    std::apply([&argument](auto &...field) { (argument >> ... >> field); }, T::fields(value));
    argument.endStructure();
    return argument;
}

} // namespace norvane
