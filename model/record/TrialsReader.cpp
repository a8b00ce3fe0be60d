// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/TrialsReader.h"

#include <QStringDecoder>

#include <array>
#include <string_view>

namespace norvane {

namespace {

constexpr int deepestNesting = 512;

// How many arrays and objects are open around a value: the list, then a trial, then its
// identifiers.
constexpr int inList = 1;
constexpr int inTrial = 2;
constexpr int inIdentifiers = 3;

/// Unlike QString::fromUtf8(), keeps a leading U+FEFF, which inside a text is a character.
QString textFrom(const std::string &utf8)
{
    QStringDecoder decoder{QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom};
    return decoder.decode(utf8);
}

} // namespace

TrialsReader::Member TrialsReader::memberNamed(const std::string &name)
{
    static constexpr std::array<std::string_view, memberCount> names{
        "id", "name", "endDate", "cost", "notes", "createdAt", "notificationIds"};
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (names.at(index) == name) {
            return static_cast<Member>(index);
        }
    }
    return Member::Other;
}

/// Whether what comes is part of a member that is ignored, where any JSON value is accepted.
bool TrialsReader::skipping() const
{
    return depth_ >= inTrial && member_ == Member::Other;
}

bool TrialsReader::enter()
{
    ++depth_;
    return depth_ <= deepestNesting;
}

bool TrialsReader::takeNumber(double value)
{
    if (skipping()) {
        return true;
    }
    if (depth_ != inTrial) {
        return false;
    }
    switch (member_) {
    case Member::EndDate:
        trial_.endDate = PointInTime{value};
        return true;
    case Member::Cost:
        trial_.cost = value;
        return true;
    case Member::CreatedAt:
        trial_.createdAt = PointInTime{value};
        return true;
    default:
        return false;
    }
}

bool TrialsReader::takeId(const QString &text)
{
    trial_.id = QUuid::fromString(text);
    // QUuid also reads other forms, such as one in braces, and gives the null UUID for a text that
    // is none: only the accepted form is written back as it was.
    return trial_.idText() == text.toUpper();
}

bool TrialsReader::null()
{
    return skipping();
}

bool TrialsReader::boolean(bool /*value*/)
{
    return skipping();
}

bool TrialsReader::number_integer(number_integer_t value)
{
    // Only digits after a minus sign arrive here, so a zero was written -0.
    return takeNumber(value == 0 ? -0.0 : static_cast<double>(value));
}

bool TrialsReader::number_unsigned(number_unsigned_t value)
{
    return takeNumber(static_cast<double>(value));
}

bool TrialsReader::number_float(number_float_t value, const string_t & /*digits*/)
{
    return takeNumber(value);
}

bool TrialsReader::string(string_t &value)
{
    if (skipping()) {
        return true;
    }
    if (depth_ == inIdentifiers) {
        trial_.notificationIds.append(textFrom(value));
        return true;
    }
    if (depth_ != inTrial) {
        return false;
    }
    switch (member_) {
    case Member::Id:
        return takeId(textFrom(value));
    case Member::Name:
        trial_.name = textFrom(value);
        return true;
    case Member::Notes:
        trial_.notes = textFrom(value);
        return true;
    default:
        return false;
    }
}

bool TrialsReader::binary(binary_t & /*value*/)
{
    return false;
}

bool TrialsReader::start_object(std::size_t /*elements*/)
{
    if (depth_ == inList) {
        seen_.reset();
        return enter();
    }
    return skipping() && enter();
}

bool TrialsReader::key(string_t &name)
{
    if (depth_ != inTrial) {
        return true;
    }
    member_ = memberNamed(name);
    if (member_ != Member::Other) {
        const auto index = static_cast<std::size_t>(member_);
        if (seen_.test(index)) {
            member_ = Member::Other; // The first of two members of one name counts.
        } else {
            seen_.set(index);
        }
    }
    return true;
}

bool TrialsReader::end_object()
{
    --depth_;
    if (depth_ != inList) {
        return true;
    }
    trials_.append(std::exchange(trial_, {}));
    return seen_.all();
}

bool TrialsReader::start_array(std::size_t /*elements*/)
{
    const bool isList = depth_ == 0;
    const bool isIdentifiers = depth_ == inTrial && member_ == Member::NotificationIds;
    return (isList || isIdentifiers || skipping()) && enter();
}

bool TrialsReader::end_array()
{
    --depth_;
    return true;
}

bool TrialsReader::parse_error(std::size_t /*position*/, const std::string &lastToken,
                               const nlohmann::detail::exception &error)
{
    constexpr int numberOutOfRange = 406; // As the library's documentation numbers its errors.
    if (error.id == numberOutOfRange) {
        tooLargeNumber_ = lastToken;
    }
    return false;
}

} // namespace norvane
