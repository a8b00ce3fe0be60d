// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "panel/AccessibleItem.h"

#include <QAccessibleEditableTextInterface>
#include <QAccessibleTextInterface>
#include <QAccessibleValueInterface>

namespace norvane {

/// What a screen reader is told of a line of text, its caret and its selection, and how it edits
/// it.
///
/// Answers every question at every offset; Qt's own implementation never returns when asked for the
/// word at the end. Offsets count UTF-16 units; -1 is the end of the text, and beyond the end there
/// is nothing. An edit counts as one by the user.
///
/// A field whose property `value` holds an integer is one that can be stepped: its role is SpinBox,
/// and when the value changes, its text is read out. The value is only to be read, not to be set.
class AccessibleTextField final : public AccessibleItem,
                                  public QAccessibleTextInterface,
                                  public QAccessibleEditableTextInterface,
                                  public QAccessibleValueInterface {
public:
    /// For a QML TextInput.
    using AccessibleItem::AccessibleItem;

    using AccessibleItem::text;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;

    void selection(int index, int *start, int *end) const override;
    [[nodiscard]] int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;

    [[nodiscard]] int cursorPosition() const override;
    void setCursorPosition(int position) override;

    [[nodiscard]] QString text(int start, int end) const override;
    [[nodiscard]] int characterCount() const override;
    /// The pieces between the boundaries cover the text without gaps. The piece at the end of the
    /// text is the last one; for characters, there is none.
    [[nodiscard]] QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary,
                                       int *start, int *end) const override;
    /// The piece before the one at the offset.
    [[nodiscard]] QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary,
                                           int *start, int *end) const override;
    /// The piece after the one at the offset.
    [[nodiscard]] QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary,
                                          int *start, int *end) const override;

    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint &point) const override;
    /// Does nothing: the text follows its caret.
    void scrollToSubstring(int start, int end) override;
    /// There are none: the text is plain.
    [[nodiscard]] QString attributes(int offset, int *start, int *end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString &text) override;
    void replaceText(int start, int end, const QString &text) override;

    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant & /*value*/) override {}
    [[nodiscard]] QVariant minimumValue() const override;
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

protected:
    void *interface_cast(QAccessible::InterfaceType type) override;

private:
    [[nodiscard]] QString all() const;
    [[nodiscard]] QString piece(int offset, int away, QAccessible::TextBoundaryType boundary,
                                int *start, int *end) const;
};

} // namespace norvane
