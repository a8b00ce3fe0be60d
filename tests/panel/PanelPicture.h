// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/panel/PanelOnFakes.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <functional>

namespace norvane {

/// One panel in its window, operated as by a user, and pictures of it. A step that cannot be done
/// ends the program.
class PanelPicture {
public:
    PanelPicture(const QList<Trial> &trials, const QLocale &locale)
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

    /// The visible item of this QML type, the first of them unless another is wanted. With a text:
    /// the button that has it, in the panel's language, on it or said of it.
    [[nodiscard]] QQuickItem *item(const char *type, const char *text = "", int number = 0) const
    {
        const QString words = *text == '\0' ? QString{} : QCoreApplication::translate(type, text);
        QQuickItem *const found = first([&](const QQuickItem &item) {
            const bool fits = words.isEmpty()
                                  ? QByteArray{item.metaObject()->className()}.startsWith(type)
                                  : item.inherits("QQuickAbstractButton") &&
                                        item.property("text").toString() == words;
            return fits && number-- == 0;
        });
        if (found == nullptr) {
            qFatal("There is no %s %s", type, text);
        }
        return found;
    }

    void pointAt(const char *type, const char *text = "", int number = 0)
    {
        QTest::mouseMove(&view_, centre(item(type, text, number)));
    }
    void pointAtCutText()
    {
        QTest::mouseMove(&view_, centre(first([](const QQuickItem &item) {
            return item.property("truncated").toBool();
        })));
    }
    void press(const char *type, const char *text = "", int number = 0)
    {
        pointAt(type, text, number);
        QTest::mousePress(&view_, Qt::LeftButton, {}, centre(item(type, text, number)));
    }
    void openMenu()
    {
        QTest::mouseClick(&view_, Qt::RightButton, {}, centre(item("FormTextField")));
    }
    /// Waits until the hint for what is under the resting pointer has appeared.
    static void rest() { QTest::qWait(700); }

    /// From "Add Trial", which has the keyboard at first, over "Quit" to the first row.
    void goToFirstRow() { tab(2); }
    void ask()
    {
        goToFirstRow();
        key(Qt::Key_Delete);
    }
    void showForm() { QMetaObject::invokeMethod(view_.rootObject(), "showForm"); }
    void fillForm()
    {
        showForm();
        type(QStringLiteral("Radio Sur"));
    }
    /// The calendar at the end of the filled form.
    void openCalendar()
    {
        fillForm();
        tab(2);
        key(Qt::Key_Return);
    }
    void tab(int times)
    {
        for (int tabs = 0; tabs < times; ++tabs) {
            key(Qt::Key_Tab);
        }
    }
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
    /// The first visible item that fits, those nearer to the root before others.
    [[nodiscard]] QQuickItem *first(const std::function<bool(const QQuickItem &)> &fits) const
    {
        QList<QQuickItem *> items{view_.contentItem()};
        for (qsizetype i = 0; i < items.size(); ++i) {
            QQuickItem *const item = items.at(i);
            if (item->isVisible() && fits(*item)) {
                return item;
            }
            items += item->childItems();
        }
        return nullptr;
    }
    static QPoint centre(const QQuickItem *item)
    {
        return item->mapToScene(item->boundingRect().center()).toPoint();
    }

    PanelOnFakes panel_;
    QQuickView view_;
};

} // namespace norvane
