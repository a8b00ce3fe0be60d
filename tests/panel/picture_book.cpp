// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DesktopPalette.h"
#include "panel/Translation.h"
#include "tests/panel/ChosenAppearance.h"
#include "tests/panel/PanelPicture.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QtQml/qqmlextensionplugin.h>

#include <array>

Q_IMPORT_QML_PLUGIN(org_norvane_panelPlugin)

// Draws the panel in each of its states, one picture a state, without a screen. What the pictures
// share is given on the command line; the scale is Qt's QT_SCALE_FACTOR.

using namespace norvane;

namespace {

Trial trial(const QString &name, double hoursLeft, double cost)
{
    return Trial::make(name, PanelOnFakes::start.advanced(hoursLeft * 3600), cost, {},
                       PanelOnFakes::start);
}

QList<Trial> none()
{
    return {};
}

QList<Trial> several()
{
    return {trial(QStringLiteral("Netflix"), 9 * 24 + 1, 15.49),
            trial(QStringLiteral("Canva Pro"), 3 * 24 + 1, 12.99),
            trial(QStringLiteral("Acme Cloud"), 36, 9.5),
            trial(QStringLiteral("Radio Norte"), 20, 0)};
}

QList<Trial> one()
{
    return {several().first()};
}

QList<Trial> many()
{
    QList<Trial> trials = several();
    for (int number = 1; number <= 20; ++number) {
        trials.append(trial(QStringLiteral("Service %1").arg(number), number * 30, number * 1.25));
    }
    return trials;
}

QList<Trial> ended()
{
    return {trial(QStringLiteral("Acme Cloud"), -10, 9.5),
            trial(QStringLiteral("Netflix"), -50, 15.49),
            trial(QStringLiteral("Canva Pro"), -73, 0)};
}

QList<Trial> longNames()
{
    return {trial(QStringLiteral("The Extraordinarily Comprehensive Streaming Bundle with Sports, "
                                 "News, Music and Unlimited Cloud Storage for Families"),
                  50, 123'456.5),
            trial(QStringLiteral("<img src=x> & <b>bold</b>"), 200, 4.99),
            trial(QStringLiteral("خدمة البث التجريبية"), 100, 7)};
}

struct State {
    const char *name;
    QList<Trial> (*trials)();
    void (*reach)(PanelPicture &panel);
};

/// What there is to see, and how a user comes to see it.
constexpr std::array states{
    State{"empty", none, [](PanelPicture &) {}},
    State{"one", one, [](PanelPicture &) {}},
    State{"several", several, [](PanelPicture &) {}},
    State{"many", many, [](PanelPicture &) {}},
    State{"ended", ended, [](PanelPicture &) {}},
    State{"long-name", longNames, [](PanelPicture &) {}},
    State{"form-empty", none, [](PanelPicture &panel) { panel.showForm(); }},
    State{"form", several,
          [](PanelPicture &panel) {
              panel.fillForm();
              panel.tab(1);
              panel.key(Qt::Key_Up);
          }},
    State{"calendar", several, [](PanelPicture &panel) { panel.openCalendar(); }},
    State{"alert", several, [](PanelPicture &panel) { panel.ask(); }},
    State{"alert-long-name", longNames, [](PanelPicture &panel) { panel.ask(); }},
    State{"alert-arabic-name", longNames,
          [](PanelPicture &panel) {
              panel.goToFirstRow();
              panel.key(Qt::Key_End);
              panel.key(Qt::Key_Delete);
          }},
    State{"menu", several,
          [](PanelPicture &panel) {
              panel.fillForm();
              panel.openMenu();
              panel.key(Qt::Key_Down);
          }},
    State{"hover-row", several, [](PanelPicture &panel) { panel.pointAt("UrgencyBadge", "", 1); }},
    State{"hover-trash", longNames,
          [](PanelPicture &panel) {
              panel.pointAt("TrialRow", "Delete");
              PanelPicture::rest();
          }},
    State{"hover-name", longNames,
          [](PanelPicture &panel) {
              panel.pointAtCutText();
              PanelPicture::rest();
          }},
    State{"hover-add", several,
          [](PanelPicture &panel) { panel.pointAt("PanelFooter", "Add Trial"); }},
    State{"hover-quit", several, [](PanelPicture &panel) { panel.pointAt("PanelFooter", "Quit"); }},
    State{"hover-field", several,
          [](PanelPicture &panel) {
              panel.showForm();
              panel.pointAt("StepField");
          }},
    State{"hover-calendar-button", several,
          [](PanelPicture &panel) {
              panel.showForm();
              panel.pointAt("DateTimeField", "Choose a day");
              PanelPicture::rest();
          }},
    State{"hover-cancel", several,
          [](PanelPicture &panel) {
              panel.showForm();
              panel.pointAt("FormActions", "Cancel");
          }},
    State{"hover-track", several,
          [](PanelPicture &panel) {
              panel.fillForm();
              panel.pointAt("FormActions", "Track Trial");
          }},
    State{"hover-day", several,
          [](PanelPicture &panel) {
              panel.openCalendar();
              panel.pointAt("DayCell", "", 11);
          }},
    State{"hover-month", several,
          [](PanelPicture &panel) {
              panel.openCalendar();
              panel.pointAt("MonthPage", "Next month");
              PanelPicture::rest();
          }},
    State{"hover-delete", several,
          [](PanelPicture &panel) {
              panel.ask();
              panel.pointAt("AlertContent", "Delete");
          }},
    State{"hover-keep", several,
          [](PanelPicture &panel) {
              panel.ask();
              panel.pointAt("AlertContent", "Cancel");
          }},
    State{"pressed-trash", longNames,
          [](PanelPicture &panel) { panel.press("TrialRow", "Delete"); }},
    State{"pressed-add", several,
          [](PanelPicture &panel) { panel.press("PanelFooter", "Add Trial"); }},
    State{"pressed-quit", several, [](PanelPicture &panel) { panel.press("PanelFooter", "Quit"); }},
    State{"pressed-calendar-button", several,
          [](PanelPicture &panel) {
              panel.showForm();
              panel.press("DateTimeField", "Choose a day");
          }},
    State{"pressed-cancel", several,
          [](PanelPicture &panel) {
              panel.showForm();
              panel.press("FormActions", "Cancel");
          }},
    State{"pressed-track", several,
          [](PanelPicture &panel) {
              panel.fillForm();
              panel.press("FormActions", "Track Trial");
          }},
    State{"pressed-delete", several,
          [](PanelPicture &panel) {
              panel.ask();
              panel.press("AlertContent", "Delete");
          }},
    State{"pressed-keep", several,
          [](PanelPicture &panel) {
              panel.ask();
              panel.press("AlertContent", "Cancel");
          }},
    State{"focus", several, [](PanelPicture &panel) { panel.goToFirstRow(); }},
    State{"focus-trash", several, [](PanelPicture &panel) { panel.tab(3); }},
    State{"focus-quit", several, [](PanelPicture &panel) { panel.tab(1); }},
    State{"focus-add", several,
          [](PanelPicture &panel) {
              panel.tab(1);
              panel.key(Qt::Key_Backtab);
          }},
    State{"focus-field", several, [](PanelPicture &panel) { panel.fillForm(); }},
    State{"focus-calendar-button", several,
          [](PanelPicture &panel) {
              panel.fillForm();
              panel.tab(2);
          }},
    State{"focus-day", several,
          [](PanelPicture &panel) {
              panel.openCalendar();
              panel.key(Qt::Key_Down);
          }},
    State{"focus-month", several,
          [](PanelPicture &panel) {
              panel.openCalendar();
              panel.tab(1);
          }},
    State{"focus-cancel", several,
          [](PanelPicture &panel) {
              panel.fillForm();
              panel.tab(5);
          }},
    State{"focus-track", several,
          [](PanelPicture &panel) {
              panel.fillForm();
              panel.tab(6);
          }},
    State{"focus-delete", several,
          [](PanelPicture &panel) {
              panel.ask();
              panel.tab(1);
          }},
};

} // namespace

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application{argc, argv};
    QCommandLineParser parser;
    parser.addOptions({{QStringLiteral("folder"), {}, QStringLiteral("folder")},
                       {QStringLiteral("suffix"), {}, QStringLiteral("text")},
                       {QStringLiteral("locale"), {}, QStringLiteral("name")},
                       {QStringLiteral("font"), {}, QStringLiteral("pixels")},
                       {QStringLiteral("accent"), {}, QStringLiteral("colour")},
                       QCommandLineOption{QStringLiteral("contrast")},
                       QCommandLineOption{QStringLiteral("dark")}});
    parser.process(application);
    const QLocale locale{parser.value(QStringLiteral("locale"))};
    const Translation translation{locale};
    using Scheme = Appearance::ColorScheme;
    Appearance::Preferences wanted;
    wanted.colorScheme = parser.isSet(QStringLiteral("dark")) ? Scheme::Dark : Scheme::Light;
    wanted.moreContrast = parser.isSet(QStringLiteral("contrast"));
    if (const QColor accent{parser.value(QStringLiteral("accent"))}; accent.isValid()) {
        wanted.accent = {accent.redF(), accent.greenF(), accent.blueF()};
    }
    const ChosenAppearance appearance{wanted};
    const DesktopPalette palette{appearance};
    QFont font{QStringLiteral("Noto Sans")};
    font.setPixelSize(parser.value(QStringLiteral("font")).toInt());
    QGuiApplication::setFont(font);

    const QString folder = parser.value(QStringLiteral("folder"));
    const auto path = [&](const char *state) -> QString {
        return folder + u'/' + QLatin1String{state} + u'-' +
               parser.value(QStringLiteral("suffix")) + u".png";
    };
    QDir{}.mkpath(folder);
    for (const State &state : states) {
        PanelPicture panel{state.trials(), locale};
        state.reach(panel);
        panel.save(path(state.name));
    }
    return EXIT_SUCCESS;
}
