// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/app/Shell.h"
#include "tests/support/TestProgram.h"

#include <QKeyEvent>
#include <QTest>

using namespace norvane;

namespace {

/// A window elsewhere in the program that notes the keys it gets.
class NotingWindow final : public QWindow {
public:
    [[nodiscard]] const QList<int> &keys() const noexcept { return keys_; }

protected:
    void keyPressEvent(QKeyEvent *event) override { keys_.append(event->key()); }

private:
    QList<int> keys_;
};

/// Notes which key presses reach an item.
class NotingFilter final : public QObject {
public:
    [[nodiscard]] const QList<int> &keys() const noexcept { return keys_; }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) {
            keys_.append(static_cast<const QKeyEvent *>(event)->key());
        }
        return false;
    }

private:
    QList<int> keys_;
};

bool openWithKeyboard(Shell &shell)
{
    shell.press();
    return QTest::qWaitFor([] { return QGuiApplication::focusWindow() == Shell::popover(); });
}

} // namespace

class TestKeyMonitor final : public QObject {
    Q_OBJECT

private slots:
    void spaceInATextFieldTypesASpace()
    {
        Shell shell;
        shell.launch();
        QVERIFY(openWithKeyboard(shell));
        Shell::click(Shell::find(QStringLiteral("Add Trial")));

        Shell::type("a b");

        QCOMPARE(QGuiApplication::focusObject()->property("text").toString(),
                 QStringLiteral("a b"));
    }

    void spaceOnAButtonDoesNothing()
    {
        Shell shell;
        shell.launch();
        QVERIFY(openWithKeyboard(shell));
        QQuickItem *const button = Shell::find(QStringLiteral("Add Trial"));
        button->forceActiveFocus();
        NotingFilter reached;
        button->installEventFilter(&reached);

        QTest::keyClick(Shell::popover(), Qt::Key_Space);

        QVERIFY(reached.keys().isEmpty());
        QVERIFY(Shell::find(QStringLiteral("Track Trial")) == nullptr);
    }

    void spaceWithNothingFocusedDoesNothing()
    {
        Shell shell;
        shell.launch();
        QVERIFY(openWithKeyboard(shell));
        NotingFilter reached;
        Shell::popover()->contentItem()->installEventFilter(&reached);

        QTest::keyClick(Shell::popover(), Qt::Key_Space);

        QVERIFY(reached.keys().isEmpty());
    }

    void spaceWhileHiddenReachesTheRestOfTheApplication()
    {
        Shell shell;
        shell.launch();
        shell.press();
        shell.press();
        NotingWindow other;
        other.show();
        other.requestActivate();
        QTRY_COMPARE(QGuiApplication::focusWindow(), &other);

        QTest::keyClick(&other, Qt::Key_Space);

        QCOMPARE(other.keys(), QList<int>{Qt::Key_Space});
    }

    void spaceAfterEscapeReachesTheRestOfTheApplication()
    {
        Shell shell;
        shell.launch();
        QVERIFY(openWithKeyboard(shell));
        QTest::keyClick(Shell::popover(), Qt::Key_Escape);
        NotingWindow other;
        other.show();
        other.requestActivate();
        QTRY_COMPARE(QGuiApplication::focusWindow(), &other);

        QTest::keyClick(&other, Qt::Key_Space);

        QCOMPARE(other.keys(), QList<int>{Qt::Key_Space});
    }

    void otherKeysPass_data()
    {
        QTest::addColumn<bool>("shown");
        QTest::addColumn<Qt::Key>("key");
        for (const bool shown : {true, false}) {
            const char *const state = shown ? "shown" : "hidden";
            QTest::addRow("Return, %s", state) << shown << Qt::Key_Return;
            QTest::addRow("A letter, %s", state) << shown << Qt::Key_X;
            QTest::addRow("Escape, %s", state) << shown << Qt::Key_Escape;
            QTest::addRow("Tab, %s", state) << shown << Qt::Key_Tab;
        }
    }
    void otherKeysPass()
    {
        QFETCH(const bool, shown);
        QFETCH(const Qt::Key, key);
        Shell shell;
        shell.launch();
        shell.press();
        if (!shown) {
            shell.press();
        }
        NotingWindow other;
        other.show();
        other.requestActivate();
        QTRY_COMPARE(QGuiApplication::focusWindow(), &other);

        QTest::keyClick(&other, key);

        QCOMPARE(other.keys(), QList<int>{key});
    }

    void theMonitorOutlivesTheShellAndPassesEverything()
    {
        Shell shell;
        shell.launch();
        shell.press();
        shell.delegate.reset();
        NotingWindow other;
        other.show();

        QTest::keyClick(&other, Qt::Key_Space);

        QCOMPARE(other.keys(), QList<int>{Qt::Key_Space});
    }

    void everyShowingInstallsOneMoreMonitor()
    {
        const auto pass = [](const QKeyEvent &) { return KeyMonitors::Verdict::Pass; };
        Shell shell;
        shell.launch();

        const auto before = shell.keyMonitors.add(pass);
        for (int i = 0; i < 5; ++i) {
            shell.press();
            shell.press();
        }

        QCOMPARE(shell.keyMonitors.add(pass), before + 5 + 1);
    }

    void manyOpeningsDoNotChangeWhatKeysDo()
    {
        Shell shell;
        shell.launch();
        for (int i = 0; i < 200; ++i) {
            shell.press();
            shell.press();
        }
        QVERIFY(openWithKeyboard(shell));
        QQuickItem *const button = Shell::find(QStringLiteral("Add Trial"));
        Shell::click(button);
        Shell::type("a b");
        const QString typed = QGuiApplication::focusObject()->property("text").toString();
        button->forceActiveFocus();
        NotingFilter reached;
        button->installEventFilter(&reached);
        QTest::keyClick(Shell::popover(), Qt::Key_Space);

        QCOMPARE(typed, QStringLiteral("a b"));
        QVERIFY(reached.keys().isEmpty());
    }
};

NORVANE_GUI_TEST(TestKeyMonitor)
#include "tst_KeyMonitor.moc"
