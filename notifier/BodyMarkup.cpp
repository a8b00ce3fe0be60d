// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/BodyMarkup.h"

namespace norvane {

namespace {

bool fitsXml(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= 0x20 && code < 0xfffe) || code == u'\t' || code == u'\n' || code == u'\r';
}

} // namespace

QString asMarkup(const QString &text)
{
    QString markup;
    markup.reserve(text.size());
    for (const QChar character : text) {
        if (character == u'&') {
            markup += QLatin1StringView{"&amp;"};
        } else if (character == u'<') {
            markup += QLatin1StringView{"&lt;"};
        } else if (character == u'>') {
            markup += QLatin1StringView{"&gt;"};
        } else {
            markup += fitsXml(character) ? character : QChar{QChar::ReplacementCharacter};
        }
    }
    return markup;
}

} // namespace norvane
