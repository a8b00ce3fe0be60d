// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/record/Trial.h"

#include <QList>
#include <nlohmann/json.hpp>

#include <bitset>
#include <string>
#include <utility>

namespace norvane {

/// Builds trials from the events of the JSON parser, and stops it at the first thing that has no
/// place in a trials file.
///
/// It handles events instead of a finished document because a document no longer tells -0 from 0,
/// or the first of two members of one name from the second, and because a document of nested arrays
/// would need memory for each of them.
class TrialsReader final : public nlohmann::json_sax<nlohmann::ordered_json> {
public:
    /// What was read, once the parser has reported success.
    [[nodiscard]] QList<Trial> takeTrials() { return std::move(trials_); }

    /// The number that stopped the parser because it is too large for a double; empty when
    /// something else did, or nothing.
    [[nodiscard]] const std::string &tooLargeNumber() const noexcept { return tooLargeNumber_; }

    bool null() override;
    bool boolean(bool value) override;
    bool number_integer(number_integer_t value) override;
    bool number_unsigned(number_unsigned_t value) override;
    bool number_float(number_float_t value, const string_t &digits) override;
    bool string(string_t &value) override;
    bool binary(binary_t &value) override;
    bool start_object(std::size_t elements) override;
    bool key(string_t &name) override;
    bool end_object() override;
    bool start_array(std::size_t elements) override;
    bool end_array() override;
    bool parse_error(std::size_t position, const std::string &lastToken,
                     const nlohmann::detail::exception &error) override;

private:
    enum class Member : quint8 {
        Id,
        Name,
        EndDate,
        Cost,
        Notes,
        CreatedAt,
        NotificationIds,
        Other
    };
    static constexpr std::size_t memberCount = 7;

    [[nodiscard]] static Member memberNamed(const std::string &name);
    [[nodiscard]] bool skipping() const;
    [[nodiscard]] bool enter();
    [[nodiscard]] bool takeNumber(double value);
    [[nodiscard]] bool takeId(const QString &text);

    QList<Trial> trials_;
    int depth_ = 0; ///< How many arrays and objects are open.
    Trial trial_;
    std::bitset<memberCount> seen_;
    Member member_ = Member::Other; ///< Whose value is being read.
    std::string tooLargeNumber_;
};

} // namespace norvane
