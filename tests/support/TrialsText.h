// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <array>
#include <cstddef>

namespace norvane {

/// The text of a trials file whose one record can be changed member by member.
class TrialsText {
public:
    static constexpr std::array<const char *, 7> members{
        "id", "name", "endDate", "cost", "notes", "createdAt", "notificationIds"};

    /// Puts another JSON value in the place of a member's.
    TrialsText &with(const QByteArray &member, const QByteArray &value)
    {
        values_[indexOf(member)] = "\"" + member + "\":" + value;
        return *this;
    }
    TrialsText &without(const QByteArray &member)
    {
        values_[indexOf(member)].clear();
        return *this;
    }
    /// Writes the member under another name.
    TrialsText &renamed(const QByteArray &member, const QByteArray &name)
    {
        values_[indexOf(member)].replace(1, member.size(), name);
        return *this;
    }
    /// Appends any text as one more member.
    TrialsText &plus(const QByteArray &text)
    {
        values_.append(text);
        return *this;
    }

    [[nodiscard]] QByteArray record() const
    {
        QByteArrayList present = values_;
        present.removeAll(QByteArray{});
        return "{" + present.join(',') + "}";
    }
    [[nodiscard]] QByteArray text() const { return fileOf({record()}); }

    /// The text of a file with these elements.
    [[nodiscard]] static QByteArray fileOf(const QByteArrayList &elements)
    {
        return "[" + elements.join(',') + "]";
    }

private:
    [[nodiscard]] static qsizetype indexOf(const QByteArray &member)
    {
        std::size_t index = 0;
        while (member != members.at(index)) {
            ++index;
        }
        return static_cast<qsizetype>(index);
    }

    QByteArrayList values_{R"("id":"BA96CA62-A106-480E-9C02-EEBDC393F97E")",
                           R"("name":"Acme Cloud")",
                           R"("endDate":757382400)",
                           R"("cost":12.99)",
                           R"("notes":"")",
                           R"("createdAt":756000000.5)",
                           R"("notificationIds":[])"};
};

} // namespace norvane
