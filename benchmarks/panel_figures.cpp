// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/panel/PanelOnFakes.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <algorithm>
#include <iostream>
#include <vector>

Q_IMPORT_QML_PLUGIN(org_norvane_panelPlugin)

// Prints how long the panel takes for what its user waits for, in milliseconds, as one line of
// JSON. The one argument is the number of trials; without it, shows an empty window instead and
// stays until its input ends, to be weighed.

using namespace norvane;

namespace {

/// A window's frames: when the work on one begins, and when it is on the screen.
class Frames final : public QObject {
public:
    explicit Frames(QQuickWindow &window)
    {
        window.installEventFilter(this);
        connect(&window, &QQuickWindow::frameSwapped, this, [this] {
            ++count_;
            lastWork_ = milliseconds(work_);
        });
    }

    /// From now until a frame has been shown after `action`.
    template <typename Action>
    double until(const Action &action)
    {
        const int before = count_;
        QElapsedTimer timer;
        timer.start();
        action();
        if (!QTest::qWaitFor([&] { return count_ > before; })) {
            qFatal("No frame came");
        }
        return milliseconds(timer);
    }
    /// What `action` and the frame after it cost, without the wait for the frame's turn.
    template <typename Action>
    double work(const Action &action)
    {
        const int before = count_;
        QElapsedTimer timer;
        timer.start();
        action();
        const double own = milliseconds(timer);
        if (!QTest::qWaitFor([&] { return count_ > before; })) {
            qFatal("No frame came");
        }
        return own + lastWork_;
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::UpdateRequest) {
            work_.start();
        }
        return false;
    }

private:
    static double milliseconds(const QElapsedTimer &timer)
    {
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    }

    int count_ = 0;
    QElapsedTimer work_;
    double lastWork_ = 0;
};

double percentile(std::vector<double> values, double share)
{
    std::ranges::sort(values);
    return values.at(static_cast<std::size_t>(share * static_cast<double>(values.size() - 1)));
}

QList<Trial> trials(int count)
{
    QList<Trial> trials;
    for (int number = 0; number < count; ++number) {
        trials.append(Trial::make(QStringLiteral("Service %1").arg(number),
                                  PanelOnFakes::start.advanced(number % 20 * 40'000.0), 9.99, {},
                                  PanelOnFakes::start));
    }
    return trials;
}

QQuickItem *listBelow(QQuickItem *item)
{
    if (item->inherits("QQuickListView")) {
        return item;
    }
    for (QQuickItem *const child : item->childItems()) {
        if (QQuickItem *const list = listBelow(child)) {
            return list;
        }
    }
    return nullptr;
}

void key(QWindow &window, Qt::Key key, const QString &text, Qt::KeyboardModifiers modifiers = {})
{
    QTest::sendKeyEvent(QTest::Click, &window, key, text, modifiers);
}

int measure(int count)
{
    PanelOnFakes panel{trials(count), QByteArrayLiteral("Europe/Berlin"), QLocale{}};
    QQuickView view;
    Frames frames{view};
    view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    QQmlEngine::setObjectOwnership(&panel.content(), QQmlEngine::CppOwnership);
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setInitialProperties({{QStringLiteral("content"), QVariant::fromValue(&panel.content())}});
    view.setSource(QUrl{QStringLiteral("qrc:/qt/qml/org/norvane/panel/ContentView.qml")});
    view.resize(360, 420);

    const auto show = [&] {
        panel.content().rebuild();
        view.show();
    };
    QJsonObject figures{{QStringLiteral("first showing to frame"), frames.until(show)}};
    std::vector<double> times;
    for (int round = 0; round < 10; ++round) {
        view.hide();
        QTest::qWait(20);
        times.push_back(frames.until(show));
    }
    figures[QStringLiteral("later showing to frame")] = percentile(times, 0.5);
    view.requestActivate();
    if (!QTest::qWaitForWindowActive(&view)) {
        qFatal("The window does not become active");
    }

    QMetaObject::invokeMethod(view.rootObject(), "showForm");
    QTest::qWait(100);
    times.clear();
    for (int round = 0; round < 40; ++round) {
        times.push_back(frames.until([&] { key(view, Qt::Key_A, QStringLiteral("a")); }));
    }
    figures[QStringLiteral("key to glyph")] = percentile(times, 0.5);

    times.clear();
    for (int round = 0; round < 5; ++round) {
        QMetaObject::invokeMethod(view.rootObject(), "showForm");
        key(view, Qt::Key_B, QStringLiteral("b"));
        QTest::qWait(50);
        times.push_back(frames.until([&] { key(view, Qt::Key_Return, {}, Qt::ControlModifier); }));
    }
    figures[QStringLiteral("add to visible row")] = percentile(times, 0.5);

    QQuickItem *const list = listBelow(view.rootObject());
    if (count >= 100) {
        times.clear();
        constexpr int steps = 300;
        constexpr double step = 61;
        list->setProperty("contentY", 0);
        QTest::qWait(50);
        for (int round = 1; round <= steps && round * step < count * 40.0; ++round) {
            times.push_back(frames.work([&] { list->setProperty("contentY", round * step); }));
        }
        figures[QStringLiteral("scrolling frame, median")] = percentile(times, 0.5);
        figures[QStringLiteral("scrolling frame, 99 of 100")] = percentile(times, 0.99);
    }
    std::cout << QJsonDocument{figures}.toJson(QJsonDocument::Compact).constData() << std::endl;
    return EXIT_SUCCESS;
}

int showEmptyWindow()
{
    QQuickView view;
    QQmlComponent nothing{view.engine()};
    nothing.setData(QByteArrayLiteral("import QtQuick\nRectangle {}"), {});
    view.setContent({}, &nothing, nothing.create());
    view.resize(360, 420);
    view.show();
    if (!QTest::qWaitForWindowExposed(&view)) {
        return EXIT_FAILURE;
    }
    std::cout << "shown" << std::endl;
    std::cin.get();
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application{argc, argv};
    const QStringList words = QGuiApplication::arguments();
    return words.size() > 1 ? measure(words.at(1).toInt()) : showEmptyWindow();
}
