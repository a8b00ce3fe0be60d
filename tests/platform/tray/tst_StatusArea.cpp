// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/StatusArea.h"
#include "tests/platform/tray/FakeWatcher.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/TestProgram.h"

#include <QTest>

#include <memory>

using namespace norvane;

class TestStatusArea final : public QObject {
    Q_OBJECT

    PrivateSessionBus sessionBus_;

    [[nodiscard]] static QString ownName() { return QDBusConnection::sessionBus().baseService(); }
    [[nodiscard]] static std::unique_ptr<StatusArea> area()
    {
        return std::make_unique<StatusArea>(QDBusConnection::sessionBus(), QString{});
    }

private slots:
    void registersByItsUniqueNameWithAWatcherThatIsThere()
    {
        FakeWatcher watcher{QStringLiteral("watcher")};
        QVERIFY(watcher.own());
        watcher.setHost(true);

        const auto item = area();
        QTRY_VERIFY(item->isHosted()); // Asked for after the registration was answered.

        QCOMPARE(watcher.registrations(), QStringList{ownName()});
    }

    void registersWithAWatcherThatComesLater()
    {
        const auto item = area();
        FakeWatcher watcher{QStringLiteral("watcher")};
        watcher.setHost(true);

        QVERIFY(watcher.own());
        QTRY_VERIFY(item->isHosted());

        QCOMPARE(watcher.registrations(), QStringList{ownName()});
    }

    void registersAgainWithAWatcherThatCameBack()
    {
        const auto item = area();
        FakeWatcher watcher{QStringLiteral("watcher")};
        for (int i = 1; i <= 10; ++i) {
            QVERIFY(watcher.own());
            QTRY_COMPARE(watcher.registrations().size(), i);
            watcher.release();
            QTRY_VERIFY(!item->isHosted());
        }
    }

    void registersWithAWatcherThatReplacesAnother()
    {
        FakeWatcher former{QStringLiteral("former")};
        QVERIFY(former.own());
        const auto item = area();
        QTRY_COMPARE(former.registrations().size(), 1);
        FakeWatcher latter{QStringLiteral("latter")};

        QVERIFY(latter.own(FakeWatcher::replaceExisting));

        QTRY_COMPARE(latter.registrations(), QStringList{ownName()});
    }

    void registersAgainWhenAHostAppears()
    {
        FakeWatcher watcher{QStringLiteral("watcher")};
        QVERIFY(watcher.own());
        const auto item = area();
        QTRY_COMPARE(watcher.registrations().size(), 1);

        watcher.setHost(true);

        QTRY_COMPARE(watcher.registrations().size(), 2);
        QTRY_VERIFY(item->isHosted());
    }

    void isNotHostedOnceTheHostIsGone()
    {
        FakeWatcher watcher{QStringLiteral("watcher")};
        QVERIFY(watcher.own());
        const auto item = area();
        watcher.setHost(true);
        QTRY_VERIFY(item->isHosted());

        watcher.setHost(false);

        QTRY_VERIFY(!item->isHosted());
    }

    void triesAgainWithAWatcherThatCannotAnswerYet()
    {
        FakeWatcher watcher{QStringLiteral("watcher")};
        watcher.setRefusing(true);
        QVERIFY(watcher.own());
        const auto item = area();
        QTRY_VERIFY(watcher.refusals() > 0);

        watcher.setRefusing(false);

        QTRY_COMPARE(watcher.registrations(), QStringList{ownName()});
    }
};

NORVANE_TEST(TestStatusArea)
#include "tst_StatusArea.moc"
