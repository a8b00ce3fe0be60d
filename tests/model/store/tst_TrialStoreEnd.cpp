// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/store/TrialStore.h"
#include "platform/client/DBusNotificationCenter.h"
#include "platform/session/ThreadPoolTasks.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/RecordingCenterService.h"
#include "tests/support/TestProgram.h"

#include <QTest>
#include <QThread>

using namespace norvane;

/// The end of a program with real background tasks and a real centre.
class TestTrialStoreEnd final : public QObject {
    Q_OBJECT

private slots:
    void aWithdrawalThatIsStillToComeAtTheEndReachesTheBus()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        FakePlatform fake;
        QStringList withdrawal{QStringLiteral("RemovePendingRequests")};

        {
            // They end as in the program: the store, then the tasks, then the centre.
            DBusNotificationCenter center;
            ThreadPoolTasks tasks;
            TrialStore store{{.clock = fake.clock,
                              .dataFolder = fake.folders.path(),
                              .notificationCenter = center,
                              .backgroundTasks = tasks}};
            tasks.detach([] { QThread::msleep(100); }); // The withdrawal has to wait for this.
            store.add(QStringLiteral("Acme"), FakePlatform::start.advanced(864'000), 1, {});
            withdrawal += store.trials().first().notificationIds;

            store.delete_(store.trials().first());
        }

        QTRY_COMPARE(service.calls().size(), 5);
        QCOMPARE(service.calls().constLast(), withdrawal.join(u' '));
    }

private:
    PrivateSessionBus bus_;
};

NORVANE_TEST(TestTrialStoreEnd)
#include "tst_TrialStoreEnd.moc"
