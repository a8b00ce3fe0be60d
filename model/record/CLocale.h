// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <clocale>

namespace norvane {

/// While it exists, C functions called from this thread use the C locale: strtod reads a point as
/// the decimal mark, whatever the desktop's own is.
///
/// Needed because QCoreApplication sets the process's locale to the user's, and because the JSON
/// library reads numbers with strtod. Other threads keep their locale, which is why this is not
/// setlocale.
class CLocale {
public:
    CLocale() = default;
    CLocale(const CLocale &) = delete;
    CLocale &operator=(const CLocale &) = delete;
    ~CLocale() { ::uselocale(before_); }

private:
    static locale_t made()
    {
        static const locale_t locale = ::newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    const locale_t before_ = ::uselocale(made());
};

} // namespace norvane
