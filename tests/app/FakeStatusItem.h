// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/StatusItem.h"

#include <QStringList>

#include <memory>

namespace norvane {

/// A status item that a test presses.
class FakeStatusItem final : public StatusItem {
public:
    explicit FakeStatusItem(bool hasButton) : hasButton_{hasButton} {}

    [[nodiscard]] bool hasButton() const override { return hasButton_; }
    [[nodiscard]] bool isHosted() const override { return hosted_; }
    void setImage(const QString &iconName, const QString &accessibilityDescription) override
    {
        images_.append(iconName + u'|' + accessibilityDescription);
    }

    void press() { emit pressed({}); }
    void chooseOpen() { emit openRequested({}); }
    void setHosted(bool hosted) { hosted_ = hosted; }
    /// Each image set, as "name|description".
    [[nodiscard]] const QStringList &images() const noexcept { return images_; }

private:
    bool hasButton_;
    bool hosted_ = true;
    QStringList images_;
};

/// Makes the shell's status item and lets the test press it.
class FakeStatusItemMaker final {
public:
    [[nodiscard]] std::unique_ptr<StatusItem> make()
    {
        auto made = std::make_unique<FakeStatusItem>(hasButton_);
        item_ = made.get();
        return made;
    }

    void setHasButton(bool hasButton) { hasButton_ = hasButton; }
    /// The item last made; null before.
    [[nodiscard]] FakeStatusItem *item() const noexcept { return item_; }

private:
    bool hasButton_ = true;
    FakeStatusItem *item_ = nullptr;
};

} // namespace norvane
