// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/ThreadPoolTasks.h"
#include "tests/support/TestProgram.h"

#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>

using namespace norvane;

class TestThreadPoolTasks final : public QObject {
    Q_OBJECT

private slots:
    void workIsDoneElsewhereAndNotWaitedFor()
    {
        QSemaphore allowed;
        QSemaphore done;
        const QThread *worker = nullptr;
        ThreadPoolTasks tasks;

        tasks.detach([&] {
            allowed.tryAcquire(1, 10'000);
            worker = QThread::currentThread();
            done.release();
        });
        allowed.release(); // Too late if detach() did the work itself.

        QVERIFY(done.tryAcquire(1, 10'000));
        QVERIFY(worker != QThread::currentThread());
    }

    void workIsDoneInTheOrderInWhichItCame()
    {
        QList<int> order;
        {
            ThreadPoolTasks tasks;
            for (int number = 0; number < 100; ++number) {
                tasks.detach([&order, number] { order.append(number); });
            }
        }

        QCOMPARE(order.size(), 100);
        QVERIFY(std::ranges::is_sorted(order));
    }

    void theEndWaitsForWhatWasStarted()
    {
        QSemaphore allowed;
        QSemaphore ended;
        std::atomic<bool> done = false;
        auto tasks = std::make_unique<ThreadPoolTasks>();
        tasks->detach([&] {
            allowed.acquire();
            done = true;
        });
        // Only an end that lasts sees the work done: one that does not wait is over before.
        std::thread release{[&] {
            ended.tryAcquire(1, 100);
            allowed.release();
        }};

        tasks.reset();
        const bool doneAtTheEnd = done;

        ended.release();
        release.join();
        QVERIFY(doneAtTheEnd);
    }
};

NORVANE_TEST(TestThreadPoolTasks)
#include "tst_ThreadPoolTasks.moc"
