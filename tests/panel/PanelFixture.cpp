// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/panel/PanelFixture.h"

#include "panel/Contrast.h"
#include "panel/DesktopPalette.h"
#include "panel/Symbol.h"
#include "tests/panel/RenderedContrast.h"

#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QClipboard>
#include <QDateTime>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>

#include <functional>
#include <ranges>

namespace norvane {

namespace {

/// The first in the tree below an item, itself included, that is visible and fits.
QQuickItem *first(QQuickItem *item, const std::function<bool(QQuickItem *)> &fits)
{
    if (!item->isVisible()) {
        return nullptr;
    }
    if (fits(item)) {
        return item;
    }
    // What lies on top comes last.
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *const child : std::ranges::reverse_view(children)) {
        if (QQuickItem *const found = first(child, fits)) {
            return found;
        }
    }
    return nullptr;
}

QString accessibleText(QQuickItem *item, QAccessible::Text kind)
{
    QAccessibleInterface *const interface = QAccessible::queryAccessibleInterface(item);
    return interface != nullptr && !interface->state().invisible ? interface->text(kind)
                                                                 : QString{};
}

} // namespace

/// A translation of a single text, in whatever context.
class PanelFixture::OneText final : public QTranslator {
public:
    OneText(QString source, QString translation)
        : source_{std::move(source)},
          translation_{std::move(translation)}
    {
    }

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char * /*context*/, const char *source,
                                    const char * /*disambiguation*/, int /*n*/) const override
    {
        return source_ == QString::fromUtf8(source) ? translation_ : QString{};
    }

private:
    QString source_;
    QString translation_;
};

PanelFixture::PanelFixture(QObject *parent) : QObject{parent} {}

PanelFixture::~PanelFixture() = default;

PanelContent *PanelFixture::start(const QVariantList &trials, const QString &locale)
{
    QList<Trial> list;
    for (const QVariant &value : trials) {
        const QVariantMap trial = value.toMap();
        list.append(Trial::make(trial.value(QStringLiteral("name")).toString(),
                                moment(trial.value(QStringLiteral("hours")).toDouble() * 3600),
                                trial.value(QStringLiteral("cost")).toDouble(), {},
                                PanelOnFakes::start));
    }
    panels_.push_back(
        std::make_unique<PanelOnFakes>(list, QByteArrayLiteral("Europe/Berlin"), QLocale{locale}));
    PanelContent &content = panels_.back()->content();
    QQmlEngine::setObjectOwnership(&content, QQmlEngine::CppOwnership);
    return &content;
}

PanelContent *PanelFixture::startWithMany(int count)
{
    QVariantList trials;
    for (int number = 0; number < count; ++number) {
        trials.append(QVariantMap{{QStringLiteral("name"), QStringLiteral("Trial %1").arg(number)},
                                  {QStringLiteral("hours"), 50.0},
                                  {QStringLiteral("cost"), 5.0}});
    }
    return start(trials);
}

void PanelFixture::moveClock(double seconds)
{
    panels_.back()->clock().set(moment(seconds));
}

QStringList PanelFixture::names() const
{
    QStringList names;
    for (const Trial &trial : panels_.back()->content().store()->trials()) {
        names.append(trial.name);
    }
    return names;
}

double PanelFixture::cost(int trial) const
{
    return panels_.back()->content().store()->trials().value(trial).cost;
}

QString PanelFixture::notes(int trial) const
{
    return panels_.back()->content().store()->trials().value(trial).notes;
}

double PanelFixture::end(int trial) const
{
    return secondsFromStart(panels_.back()->content().store()->trials().value(trial).endDate);
}

double PanelFixture::secondsFromStart(PointInTime moment) const
{
    return moment.secondsSinceReference() - PanelOnFakes::start.secondsSinceReference();
}

PointInTime PanelFixture::moment(double secondsFromStart) const
{
    return PanelOnFakes::start.advanced(secondsFromStart);
}

PointInTime PanelFixture::berlin(const QString &text) const
{
    QDateTime local = QDateTime::fromString(text, Qt::ISODateWithMs);
    local.setTimeZone(QTimeZone{QByteArrayLiteral("Europe/Berlin")});
    return PointInTime::fromUnixSeconds(static_cast<double>(local.toMSecsSinceEpoch()) / 1000);
}

QQuickItem *PanelFixture::find(QQuickItem *anywhere, const QString &name,
                               const QString &description) const
{
    return first(anywhere->window()->contentItem(), [&](QQuickItem *item) {
        return accessibleText(item, QAccessible::Name) == name &&
               (description.isEmpty() ||
                accessibleText(item, QAccessible::Description) == description);
    });
}

QQuickItem *PanelFixture::text(QQuickItem *anywhere, const QString &text) const
{
    return first(anywhere->window()->contentItem(), [&](QQuickItem *item) {
        return item->property("text").toString().remove(u'\u2068').remove(u'\u2069') == text;
    });
}

QString PanelFixture::nameOf(QQuickItem *item) const
{
    return item != nullptr ? accessibleText(item, QAccessible::Name) : QString{};
}

QString PanelFixture::descriptionOf(QQuickItem *item) const
{
    return accessibleText(item, QAccessible::Description);
}

QString PanelFixture::roleOf(QQuickItem *item) const
{
    QAccessibleInterface *const interface = QAccessible::queryAccessibleInterface(item);
    const QMetaEnum roles = QMetaEnum::fromType<QAccessible::Role>();
    return QString::fromLatin1(roles.valueToKey(interface->role()));
}

QStringList PanelFixture::statesOf(QQuickItem *item) const
{
    const QAccessible::State state = QAccessible::queryAccessibleInterface(item)->state();
    QStringList states;
    for (const auto &[name, is] :
         {std::pair{"disabled", state.disabled != 0}, std::pair{"focusable", state.focusable != 0},
          std::pair{"focused", state.focused != 0}, std::pair{"selectable", state.selectable != 0},
          std::pair{"selected", state.selected != 0}}) {
        if (is) {
            states.append(QString::fromLatin1(name));
        }
    }
    return states;
}

QStringList PanelFixture::children(QQuickItem *item) const
{
    const QAccessibleInterface *const parent = QAccessible::queryAccessibleInterface(item);
    QStringList children;
    for (int index = 0; index < parent->childCount(); ++index) {
        const QAccessibleInterface *const child = parent->child(index);
        const bool knowsItsPlace = child != nullptr && child->isValid() &&
                                   child->parent() == parent &&
                                   parent->indexOfChild(child) == index;
        children.append(knowsItsPlace ? child->text(QAccessible::Name) + QStringLiteral("; ") +
                                            child->text(QAccessible::Description)
                                      : QStringLiteral("lost"));
    }
    return children;
}

int PanelFixture::countOf(QQuickItem *below, const QString &type) const
{
    int count = QString::fromLatin1(below->metaObject()->className()).startsWith(type) ? 1 : 0;
    for (QQuickItem *const child : below->childItems()) {
        count += countOf(child, type);
    }
    return count;
}

QList<double> PanelFixture::symbolSizes(QQuickItem *below) const
{
    QList<double> sizes;
    if (below->isVisible() && qobject_cast<Symbol *>(below) != nullptr) {
        sizes.append({below->width(), below->height()});
    }
    for (QQuickItem *const child : below->childItems()) {
        sizes.append(symbolSizes(child));
    }
    return sizes;
}

QStringList PanelFixture::running(QObject *below) const
{
    QStringList types;
    // QML's Timer runs on the clock of the animations, every other on the event loop's.
    const bool isQmlTimer = below->inherits("QQmlTimer") && below->property("running").toBool();
    if (isQmlTimer || !QAbstractEventDispatcher::instance()->registeredTimers(below).isEmpty()) {
        types.append(QString::fromLatin1(below->metaObject()->className()));
    }
    for (QObject *const child : below->children()) {
        types.append(running(child));
    }
    if (const auto *const item = qobject_cast<QQuickItem *>(below)) {
        for (QQuickItem *const child : item->childItems()) {
            types.append(running(child));
        }
    }
    return types;
}

void PanelFixture::settle(QQuickItem *anywhere) const
{
    anywhere->window()->grabWindow();
}

QStringList PanelFixture::faintOnes(QQuickItem *below, double wantedOfText,
                                    double wantedOfSymbol) const
{
    return norvane::faintOnes(below, wantedOfText, wantedOfSymbol, below->window()->grabWindow());
}

QColor PanelFixture::pixel(QQuickItem *item, double x, double y) const
{
    return shownColor(item, {x, y});
}

void PanelFixture::setClipboard(const QString &text) const
{
    QGuiApplication::clipboard()->setText(text);
}

void PanelFixture::setPalette(const QString &name) const
{
    const bool more = name.endsWith(QStringLiteral("more contrast"));
    Contrast::setMore(more);
    if (name.startsWith(QStringLiteral("light"))) {
        QGuiApplication::setPalette(DesktopPalette::light(more));
    } else if (name.startsWith(QStringLiteral("dark"))) {
        QGuiApplication::setPalette(DesktopPalette::dark(more));
    } else {
        QGuiApplication::setPalette(QPalette{QColor{name}, QColor{name}});
    }
}

void PanelFixture::setAccent(const QColor &color) const
{
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::Highlight, color);
    palette.setColor(QPalette::HighlightedText, Contrast::onGround(color));
    QGuiApplication::setPalette(palette);
}

void PanelFixture::setFontPixels(int pixels) const
{
    QFont font{QStringLiteral("Noto Sans")};
    font.setPixelSize(pixels);
    QGuiApplication::setFont(font);
}

void PanelFixture::setRightToLeft(bool mirrored) const
{
    QGuiApplication::setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
}

void PanelFixture::translate(const QString &source, const QString &translation)
{
    translator_ = std::make_unique<OneText>(source, translation);
    QCoreApplication::installTranslator(translator_.get());
}

} // namespace norvane
