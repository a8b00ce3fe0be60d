// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleActionInterface>
#include <QAccessibleObject>

class QQuickItem;

namespace norvane {

/// What a screen reader is told of one control, where Qt's own answer is wrong or missing.
///
/// Role, name and description are those of the item's `Accessible` properties. Unlike Qt 6.4, it
/// reports a disabled item as disabled. It has no children unless a derived class adds some.
class AccessibleItem : public QAccessibleObject, public QAccessibleActionInterface {
public:
    /// For a QQuickItem with `Accessible` properties.
    explicit AccessibleItem(QQuickItem *item);

    /// Lets every text field, button, list and grid of the program that has `Accessible` properties
    /// be described by the classes here; to be called before the first item is made and after the
    /// application. Also lets a screen reader hear where the focus is whenever a window becomes
    /// active. Calling it again changes nothing.
    static void install();

    [[nodiscard]] QWindow *window() const override;
    [[nodiscard]] QAccessibleInterface *parent() const override;
    [[nodiscard]] QAccessibleInterface *child(int index) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    /// In device-independent pixels of the whole desktop; empty where the item is scrolled away.
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString &name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString &name) const override;

protected:
    ~AccessibleItem() override = default;

    void *interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QQuickItem *item() const;
};

} // namespace norvane
