// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/AccessibleTextField.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <limits>
#include <optional>

namespace norvane {

namespace {

std::optional<QTextBoundaryFinder::BoundaryType> finderType(QAccessible::TextBoundaryType boundary)
{
    switch (boundary) {
    case QAccessible::CharBoundary:
        return QTextBoundaryFinder::Grapheme;
    case QAccessible::WordBoundary:
        return QTextBoundaryFinder::Word;
    case QAccessible::SentenceBoundary:
        return QTextBoundaryFinder::Sentence;
    case QAccessible::ParagraphBoundary:
    case QAccessible::LineBoundary:
    case QAccessible::NoBoundary:
        return std::nullopt; // The field is a single line.
    }
    return std::nullopt;
}

/// Where the pieces of a text begin, and the end of the last one.
QList<int> edges(const QString &text, QAccessible::TextBoundaryType boundary)
{
    const auto length = static_cast<int>(text.size());
    QList<int> edges{0};
    if (const auto type = finderType(boundary)) {
        QTextBoundaryFinder finder{*type, text};
        // After the last boundary the finder answers -1.
        for (auto next = finder.toNextBoundary(); next > 0 && next < length;
             next = finder.toNextBoundary()) {
            // Between words it also stops where one could break a line.
            if (*type != QTextBoundaryFinder::Word ||
                (finder.boundaryReasons() &
                 (QTextBoundaryFinder::StartOfItem | QTextBoundaryFinder::EndOfItem)) != 0) {
                edges.append(static_cast<int>(next));
            }
        }
    }
    edges.append(length);
    return edges;
}

} // namespace

QString AccessibleTextField::all() const
{
    return item()->property("text").toString();
}

QString AccessibleTextField::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? all() : AccessibleItem::text(kind);
}

QAccessible::Role AccessibleTextField::role() const
{
    return currentValue().isValid() ? QAccessible::SpinBox : AccessibleItem::role();
}

QAccessible::State AccessibleTextField::state() const
{
    QAccessible::State state = AccessibleItem::state();
    state.readOnly = item()->property("readOnly").toBool();
    state.editable = !state.readOnly;
    state.selectableText = true;
    return state;
}

void AccessibleTextField::selection(int index, int *start, int *end) const
{
    const bool there = index == 0 && selectionCount() == 1;
    *start = there ? item()->property("selectionStart").toInt() : 0;
    *end = there ? item()->property("selectionEnd").toInt() : 0;
}

int AccessibleTextField::selectionCount() const
{
    return item()->property("selectionStart") == item()->property("selectionEnd") ? 0 : 1;
}

void AccessibleTextField::addSelection(int start, int end)
{
    setSelection(0, start, end);
}

void AccessibleTextField::removeSelection(int index)
{
    if (index == 0) {
        QMetaObject::invokeMethod(item(), "deselect");
    }
}

void AccessibleTextField::setSelection(int index, int start, int end)
{
    if (index == 0) {
        QMetaObject::invokeMethod(item(), "select", Q_ARG(int, start), Q_ARG(int, end));
    }
}

int AccessibleTextField::cursorPosition() const
{
    return item()->property("cursorPosition").toInt();
}

void AccessibleTextField::setCursorPosition(int position)
{
    item()->setProperty("cursorPosition", std::clamp(position, 0, characterCount()));
}

QString AccessibleTextField::text(int start, int end) const
{
    const QString text = all();
    const auto length = static_cast<int>(text.size());
    const int from = std::clamp(start, 0, length);
    return text.mid(from, std::max(0, (end < 0 ? length : end) - from));
}

int AccessibleTextField::characterCount() const
{
    return static_cast<int>(all().size());
}

QString AccessibleTextField::piece(int offset, int away, QAccessible::TextBoundaryType boundary,
                                   int *start, int *end) const
{
    *start = *end = -1;
    const QString text = all();
    const auto length = static_cast<int>(text.size());
    const int place = offset == -1 ? length : offset;
    if (text.isEmpty() || place < 0 || place > length) {
        return {};
    }
    const QList<int> cuts = edges(text, boundary);
    // There is no character at the end of the text, but there is one before it.
    const bool behindAll = place == length && boundary == QAccessible::CharBoundary;
    const auto last = static_cast<int>(cuts.size()) - 2;
    const auto next = std::ranges::upper_bound(cuts, place);
    const int here =
        next != cuts.end() ? static_cast<int>(next - cuts.begin()) - 1 : last + (behindAll ? 1 : 0);
    const int wanted = here + away;
    if (wanted < 0 || wanted > last) {
        return {};
    }
    *start = cuts.at(wanted);
    *end = cuts.at(wanted + 1);
    return text.mid(*start, *end - *start);
}

QString AccessibleTextField::textAtOffset(int offset, QAccessible::TextBoundaryType boundary,
                                          int *start, int *end) const
{
    return piece(offset, 0, boundary, start, end);
}

QString AccessibleTextField::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary,
                                              int *start, int *end) const
{
    return piece(offset, -1, boundary, start, end);
}

QString AccessibleTextField::textAfterOffset(int offset, QAccessible::TextBoundaryType boundary,
                                             int *start, int *end) const
{
    return piece(offset, 1, boundary, start, end);
}

QRect AccessibleTextField::characterRect(int offset) const
{
    const QQuickWindow *const window = item()->window();
    if (window == nullptr || offset < 0 || offset > characterCount()) {
        return {};
    }
    QRectF here;
    QRectF next;
    if (!QMetaObject::invokeMethod(item(), "positionToRectangle", Q_RETURN_ARG(QRectF, here),
                                   Q_ARG(int, offset)) ||
        !QMetaObject::invokeMethod(item(), "positionToRectangle", Q_RETURN_ARG(QRectF, next),
                                   Q_ARG(int, std::min(offset + 1, characterCount())))) {
        return {};
    }
    here.setWidth(next.x() - here.x());
    const QRectF inScene = item()->mapRectToScene(here.normalized());
    return {window->mapToGlobal(inScene.topLeft().toPoint()), inScene.size().toSize()};
}

int AccessibleTextField::offsetAtPoint(const QPoint &point) const
{
    for (int offset = 0; offset < characterCount(); ++offset) {
        if (characterRect(offset).contains(point)) {
            return offset;
        }
    }
    return -1;
}

void AccessibleTextField::scrollToSubstring(int /*start*/, int /*end*/) {}

QString AccessibleTextField::attributes(int /*offset*/, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}

void AccessibleTextField::deleteText(int start, int end)
{
    replaceText(start, end, {});
}

void AccessibleTextField::insertText(int offset, const QString &text)
{
    replaceText(offset, offset, text);
}

void AccessibleTextField::replaceText(int start, int end, const QString &text)
{
    if (!state().editable || state().disabled) {
        return;
    }
    const int from = std::clamp(start, 0, characterCount());
    const int to = std::clamp(end < 0 ? characterCount() : end, from, characterCount());
    QMetaObject::invokeMethod(item(), "remove", Q_ARG(int, from), Q_ARG(int, to));
    QMetaObject::invokeMethod(item(), "insert", Q_ARG(int, from), Q_ARG(QString, text));
}

QVariant AccessibleTextField::currentValue() const
{
    return item()->property("value");
}

QVariant AccessibleTextField::minimumValue() const
{
    return std::numeric_limits<int>::min();
}

QVariant AccessibleTextField::maximumValue() const
{
    return std::numeric_limits<int>::max();
}

void *AccessibleTextField::interface_cast(QAccessible::InterfaceType type)
{
    switch (type) {
    case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface *>(this);
    case QAccessible::EditableTextInterface:
        return static_cast<QAccessibleEditableTextInterface *>(this);
    case QAccessible::ValueInterface:
        return role() == QAccessible::SpinBox ? static_cast<QAccessibleValueInterface *>(this)
                                              : nullptr;
    default:
        return AccessibleItem::interface_cast(type);
    }
}

} // namespace norvane
