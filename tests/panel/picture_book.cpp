// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DesktopPalette.h"
#include "panel/Translation.h"
#include "tests/panel/ChosenAppearance.h"
#include "tests/panel/PanelOnFakes.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <functional>

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

QList<Trial> several()
{
    return {trial(QStringLiteral("Netflix"), 9 * 24 + 1, 15.49),
            trial(QStringLiteral("Canva Pro"), 3 * 24 + 1, 12.99),
            trial(QStringLiteral("Acme Cloud"), 36, 9.5),
            trial(QStringLiteral("Radio Norte"), 20, 0)};
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

/// One panel in its window, and the hands of a user.
class Picture {
public:
    Picture(const QList<Trial> &trials, const QLocale &locale)
        : panel_{trials, QByteArrayLiteral("Europe/Berlin"), locale}
    {
        view_.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlEngine::setObjectOwnership(&panel_.content(), QQmlEngine::CppOwnership);
        view_.setResizeMode(QQuickView::SizeRootObjectToView);
        view_.setInitialProperties(
            {{QStringLiteral("content"), QVariant::fromValue(&panel_.content())}});
        view_.setSource(QUrl{QStringLiteral("qrc:/qt/qml/org/norvane/panel/ContentView.qml")});
        view_.resize(360, 420);
        view_.show();
        view_.requestActivate();
        if (!QTest::qWaitForWindowActive(&view_)) {
            qFatal("The window does not come up");
        }
    }

    /// The visible button with this text on it, or said of it.
    [[nodiscard]] QQuickItem *button(const QString &text) const
    {
        QList<QQuickItem *> items{view_.contentItem()};
        for (qsizetype i = 0; i < items.size(); ++i) {
            QQuickItem *const item = items.at(i);
            if (item->inherits("QQuickAbstractButton") && item->isVisible() &&
                item->property("text").toString() == text) {
                return item;
            }
            items += item->childItems();
        }
        qFatal("There is no button %s", qUtf8Printable(text));
    }
    void pointAt(const QQuickItem *item)
    {
        QTest::mouseMove(&view_, item->mapToScene(item->boundingRect().center()).toPoint());
    }
    void press(const QQuickItem *item)
    {
        QTest::mousePress(&view_, Qt::LeftButton, {},
                          item->mapToScene(item->boundingRect().center()).toPoint());
    }
    /// Until what shows itself to a resting pointer does.
    static void rest() { QTest::qWait(900); }

    /// From "Add Trial", which has the keyboard at first, over "Quit" to the first row.
    void goToFirstRow()
    {
        key(Qt::Key_Tab);
        key(Qt::Key_Tab);
    }
    void call(const char *function) { QMetaObject::invokeMethod(view_.rootObject(), function); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&view_, key, modifiers);
    }
    void type(const QString &text)
    {
        for (const QChar letter : text) {
            QTest::keyClick(&view_, letter.toLatin1());
        }
    }

    void save(const QString &path)
    {
        if (!view_.grabWindow().save(path)) {
            qFatal("Cannot write %s", qUtf8Printable(path));
        }
    }

private:
    PanelOnFakes panel_;
    QQuickView view_;
};

/// What controls look like under the pointer, pressed, and with the keyboard. The first button of
/// the panel is its first row's trash button, the next ones come in their order.
void drawStates(const QLocale &locale, const std::function<QString(const char *)> &path)
{
    {
        Picture row{longNames(), locale};
        QQuickItem *const trash = row.button(QCoreApplication::translate("TrialRow", "Delete"));
        row.pointAt(trash);
        Picture::rest();
        row.save(path("hover-trash"));
        row.press(trash);
        row.save(path("pressed-trash"));
    }
    {
        Picture row{longNames(), locale};
        const QQuickItem *const trash =
            row.button(QCoreApplication::translate("TrialRow", "Delete"));
        row.pointAt(trash->parentItem()->childItems().at(1));
        Picture::rest();
        row.save(path("hover-name"));
    }
    {
        Picture form{several(), locale};
        form.call("showForm");
        form.type(QStringLiteral("Radio Sur"));
        QQuickItem *const track =
            form.button(QCoreApplication::translate("FormActions", "Track Trial"));
        form.pointAt(track);
        form.save(path("hover-track"));
        form.press(track);
        form.save(path("pressed-track"));
    }
    {
        Picture form{several(), locale};
        form.call("showForm");
        form.pointAt(form.button(QCoreApplication::translate("FormActions", "Cancel")));
        form.save(path("hover-cancel"));
        form.type(QStringLiteral("Radio Sur"));
        for (int tabs = 0; tabs < 5; ++tabs) {
            form.key(Qt::Key_Tab);
        }
        form.save(path("focus-cancel"));
        form.key(Qt::Key_Tab);
        form.save(path("focus-track"));
    }
    {
        Picture alert{several(), locale};
        alert.goToFirstRow();
        alert.key(Qt::Key_Delete);
        alert.pointAt(alert.button(QCoreApplication::translate("AlertContent", "Delete")));
        alert.save(path("hover-delete"));
    }
}

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

    Picture{{}, locale}.save(path("empty"));
    Picture{{several().first()}, locale}.save(path("one"));
    Picture{several(), locale}.save(path("several"));
    Picture{many(), locale}.save(path("many"));
    Picture{ended(), locale}.save(path("ended"));
    Picture{longNames(), locale}.save(path("long-name"));
    {
        Picture form{{}, locale};
        form.call("showForm");
        form.save(path("form-empty"));
    }
    {
        Picture form{several(), locale};
        form.call("showForm");
        form.type(QStringLiteral("Radio Sur"));
        form.key(Qt::Key_Tab);
        form.key(Qt::Key_Up);
        form.save(path("form"));
        form.key(Qt::Key_Tab);
        form.key(Qt::Key_Return);
        form.save(path("calendar"));
    }
    {
        Picture alert{several(), locale};
        alert.goToFirstRow();
        alert.save(path("focus"));
        alert.key(Qt::Key_Delete);
        alert.save(path("alert"));
    }
    {
        Picture alert{longNames(), locale};
        alert.goToFirstRow();
        alert.key(Qt::Key_Delete);
        alert.save(path("alert-long-name"));
    }
    {
        Picture alert{longNames(), locale};
        alert.goToFirstRow();
        alert.key(Qt::Key_End);
        alert.key(Qt::Key_Delete);
        alert.save(path("alert-arabic-name"));
    }
    drawStates(locale, path);
    return EXIT_SUCCESS;
}
