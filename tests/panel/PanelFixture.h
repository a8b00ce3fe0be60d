// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/panel/PanelOnFakes.h"

#include <QObject>
#include <QQuickItem>
#include <QTranslator>
#include <QVariantList>

#include <memory>
#include <vector>

namespace norvane {

/// What a Qt Quick test of the panel uses: it controls the platform below the panel, and finds
/// items of the window by their names for a screen reader.
class PanelFixture : public QObject {
    Q_OBJECT

public:
    explicit PanelFixture(QObject *parent = nullptr);
    ~PanelFixture() override;

    /// A new panel's content over these trials, each with `name`, `hours` left, and `cost`; lives
    /// as long as the fixture. The zone is Europe/Berlin.
    Q_INVOKABLE norvane::PanelContent *start(const QVariantList &trials,
                                             const QString &locale = QStringLiteral("en_US"));
    Q_INVOKABLE norvane::PanelContent *startWithMany(int count);
    /// Sets the clock, in seconds after the fixture's start.
    Q_INVOKABLE void moveClock(double seconds);

    /// The store's trials.
    Q_INVOKABLE [[nodiscard]] QStringList names() const;
    Q_INVOKABLE [[nodiscard]] double cost(int trial) const;
    Q_INVOKABLE [[nodiscard]] QString notes(int trial) const;
    /// Seconds from the fixture's start to the end of a trial.
    Q_INVOKABLE [[nodiscard]] double end(int trial) const;
    /// The same of any moment.
    Q_INVOKABLE [[nodiscard]] double secondsFromStart(norvane::PointInTime moment) const;
    Q_INVOKABLE [[nodiscard]] norvane::PointInTime moment(double secondsFromStart) const;
    /// The moment of a wall clock in the fixture's zone, from ISO text without a zone.
    Q_INVOKABLE [[nodiscard]] norvane::PointInTime berlin(const QString &text) const;

    /// The visible item with this accessible name, and description where one is given.
    Q_INVOKABLE [[nodiscard]] QQuickItem *find(QQuickItem *anywhere, const QString &name,
                                               const QString &description = {}) const;
    /// The visible item that shows exactly this text, without the marks that isolate a name.
    Q_INVOKABLE [[nodiscard]] QQuickItem *text(QQuickItem *anywhere, const QString &text) const;
    Q_INVOKABLE [[nodiscard]] QString nameOf(QQuickItem *item) const;
    Q_INVOKABLE [[nodiscard]] QString descriptionOf(QQuickItem *item) const;
    Q_INVOKABLE [[nodiscard]] QString roleOf(QQuickItem *item) const;
    /// Those of an item's states that hold: disabled, focusable, focused, selectable, selected.
    Q_INVOKABLE [[nodiscard]] QStringList statesOf(QQuickItem *item) const;
    /// What a screen reader finds directly below an item: "name; description" of each.
    Q_INVOKABLE [[nodiscard]] QStringList children(QQuickItem *item) const;
    /// How many items of this type there are below an item, shown or not.
    Q_INVOKABLE [[nodiscard]] int countOf(QQuickItem *below, const QString &type) const;

    /// The sides of all visible symbols below an item.
    Q_INVOKABLE [[nodiscard]] QList<double> symbolSizes(QQuickItem *below) const;
    /// The types of the objects below one, itself included, that have a timer running.
    Q_INVOKABLE [[nodiscard]] QStringList running(QObject *below) const;

    /// Does all layout and drawing that is still pending.
    Q_INVOKABLE void settle(QQuickItem *anywhere) const;

    /// The texts and symbols below an item whose contrast on the screen is less than these ratios.
    /// Disabled items are left out.
    Q_INVOKABLE [[nodiscard]] QStringList faintOnes(QQuickItem *below, double wantedOfText,
                                                    double wantedOfSymbol) const;
    /// The colour on the screen at a place in an item.
    Q_INVOKABLE [[nodiscard]] QColor pixel(QQuickItem *item, double x, double y) const;

    Q_INVOKABLE void setClipboard(const QString &text) const;

    /// "light" or "dark", with "more contrast" behind it or not, or the name of a colour for
    /// everything's background.
    Q_INVOKABLE void setPalette(const QString &name) const;
    Q_INVOKABLE void setAccent(const QColor &color) const;
    Q_INVOKABLE void setFontPixels(int pixels) const;
    Q_INVOKABLE void setRightToLeft(bool mirrored) const;
    /// Sets the translation of one text, for as long as the fixture exists.
    Q_INVOKABLE void translate(const QString &source, const QString &translation);

private:
    class OneText;

    std::vector<std::unique_ptr<PanelOnFakes>> panels_; ///< The last is the current one.
    std::unique_ptr<OneText> translator_;
};

} // namespace norvane
