// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/app/Shell.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/TestProgram.h"

#include <QTest>

#include <csignal>

using namespace norvane;

class TestAppDelegate final : public QObject {
    Q_OBJECT

private slots:
    void launchingPutsTheNamedIconIntoTheStatusArea()
    {
        Shell shell;

        shell.launch();

        QCOMPARE(shell.statusItem.item()->images(),
                 QStringList{QStringLiteral("org.norvane.Norvane-symbolic|Norvane")});
    }

    void launchingAsksForPermissionLastAndForAllThreeOptions()
    {
        Shell shell;

        shell.launch();

        const QStringList operations{QStringLiteral("remove all"), QStringLiteral("authorize 7")};
        QCOMPARE(shell.platform.center.operations(), operations);
    }

    void launchingLeavesThePopoverHidden()
    {
        Shell shell;

        shell.launch();

        QVERIFY(Shell::popover() != nullptr);
        QVERIFY(!Shell::popover()->isVisible());
        QCOMPARE(Shell::popover()->size(), QSize(360, 420));
    }

    void anItemWithoutAButtonGetsNoImage()
    {
        Shell shell;
        shell.statusItem.setHasButton(false);

        shell.launch();

        QVERIFY(shell.statusItem.item()->images().isEmpty());
    }

    void anItemWithoutAButtonOpensNothing()
    {
        Shell shell;
        shell.statusItem.setHasButton(false);
        shell.launch();

        shell.delegate->togglePopover({});

        QVERIFY(!Shell::popover()->isVisible());
    }

    void aPressOpensAndTheNextOneCloses()
    {
        Shell shell;
        shell.launch();

        shell.press();
        QVERIFY(Shell::popover()->isVisible());
        QTRY_COMPARE(QGuiApplication::focusWindow(), Shell::popover());
        shell.press();
        QVERIFY(!Shell::popover()->isVisible());
    }

    void theMenuOpensAndNeverCloses()
    {
        Shell shell;
        shell.launch();

        shell.statusItem.item()->chooseOpen();
        shell.statusItem.item()->chooseOpen();

        QVERIFY(Shell::popover()->isVisible());
    }

    void startingAgainOpensWithoutAnyIcon()
    {
        Shell shell;
        shell.statusItem.setHasButton(false);
        shell.launch();

        shell.delegate->showPopover({});

        QVERIFY(Shell::popover()->isVisible());
    }

    void startingAgainLeavesAnOpenPopoverOpen()
    {
        Shell shell;
        shell.launch();
        shell.press();

        shell.delegate->showPopover({});

        QVERIFY(Shell::popover()->isVisible());
    }

    void aStartByHandOpensOnlyWhereNobodyShowsTheIcon()
    {
        Shell shell;
        shell.launch();

        shell.delegate->showPopoverWithoutHost({});
        QVERIFY(!Shell::popover()->isVisible());
        shell.statusItem.item()->setHosted(false);
        shell.delegate->showPopoverWithoutHost({});
        QVERIFY(Shell::popover()->isVisible());
    }

    void anotherWindowTakingTheKeyboardLeavesThePopoverOpen()
    {
        Shell shell;
        shell.launch();
        shell.press();
        QTRY_COMPARE(QGuiApplication::focusWindow(), Shell::popover());

        QWindow other;
        other.show();
        other.requestActivate();

        QTRY_COMPARE(QGuiApplication::focusWindow(), &other);
        QVERIFY(Shell::popover()->isVisible());
    }

    void escapeClosesThePopover()
    {
        Shell shell;
        shell.launch();
        shell.press();
        QTRY_COMPARE(QGuiApplication::focusWindow(), Shell::popover());

        QTest::keyClick(Shell::popover(), Qt::Key_Escape);

        QVERIFY(!Shell::popover()->isVisible());
    }

    void escapeClosesTheAlertFirst()
    {
        Shell shell;
        shell.launch();
        shell.press();
        QTRY_COMPARE(QGuiApplication::focusWindow(), Shell::popover());
        Shell::track("Acme");
        QTRY_VERIFY(Shell::find(QStringLiteral("Delete")));
        Shell::click(Shell::find(QStringLiteral("Delete")));
        QTRY_VERIFY(Shell::find(QStringLiteral("Cancel")));

        QTest::keyClick(Shell::popover(), Qt::Key_Escape);
        QTRY_VERIFY(!Shell::find(QStringLiteral("Cancel")));
        QVERIFY(Shell::popover()->isVisible());
        QTest::keyClick(Shell::popover(), Qt::Key_Escape);
        QVERIFY(!Shell::popover()->isVisible());
    }

    void aPopoverThatOpensAfterAWeekShowsTheDaysOfThatMoment()
    {
        Shell shell;
        shell.launch();
        shell.press();
        QTRY_COMPARE(QGuiApplication::focusWindow(), Shell::popover());
        Shell::track("Acme");
        QTRY_VERIFY(Shell::shows(QStringLiteral("7d left")));
        shell.press();

        shell.platform.clock.set(FakePlatform::start.advanced(5 * 86'400));
        shell.press();

        QTRY_VERIFY(Shell::shows(QStringLiteral("2d left")));
    }

    void whatWasTypedIsThereWhenThePopoverComesBack()
    {
        Shell shell;
        shell.launch();
        shell.press();
        QTRY_COMPARE(QGuiApplication::focusWindow(), Shell::popover());
        Shell::click(Shell::find(QStringLiteral("Add Trial")));
        Shell::type("Half");

        QTest::keyClick(Shell::popover(), Qt::Key_Escape);
        QVERIFY(!Shell::popover()->isVisible());
        shell.press();
        QTRY_COMPARE(QGuiApplication::focusWindow(), Shell::popover());
        Shell::type(" way");

        QCOMPARE(QGuiApplication::focusObject()->property("text").toString(),
                 QStringLiteral("Half way"));
    }

    void togglingBeforeTheLaunchStopsTheProcess()
    {
        const auto outcome = ForkedChild::run([] {
            Shell shell;
            shell.delegate->togglePopover({});
            return 0;
        });

        QCOMPARE(outcome.signal, SIGABRT);
    }
};

NORVANE_GUI_TEST(TestAppDelegate)
#include "tst_AppDelegate.moc"
