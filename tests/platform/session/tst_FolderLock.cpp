// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/FolderLock.h"
#include "tests/support/TestProgram.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <thread>

using namespace norvane;
using namespace std::chrono_literals;

class TestFolderLock final : public QObject {
    Q_OBJECT

private slots:
    void takingALockAgainSucceeds()
    {
        FolderLock lock;

        QCOMPARE(lock.take(path(), 0ms), FolderLock::Answer::Taken);
        QCOMPARE(lock.take(path(), 0ms), FolderLock::Answer::Taken);
    }

    void aSecondLockFailsAsLongAsTheFirstExists()
    {
        auto first = std::make_unique<FolderLock>();
        FolderLock second;
        QCOMPARE(first->take(path(), 0ms), FolderLock::Answer::Taken);
        QCOMPARE(second.take(path(), 20ms), FolderLock::Answer::Held);

        first.reset();

        QCOMPARE(second.take(path(), 0ms), FolderLock::Answer::Taken);
    }

    void aSecondLockWaitsForTheFirstToBeReleased()
    {
        auto first = std::make_unique<FolderLock>();
        FolderLock second;
        QCOMPARE(first->take(path(), 0ms), FolderLock::Answer::Taken);

        std::thread end{[&first] {
            std::this_thread::sleep_for(50ms); // Most likely after the second has begun to wait.
            first.reset();
        }};
        const FolderLock::Answer answer = second.take(path(), 1min);
        end.join();

        QCOMPARE(answer, FolderLock::Answer::Taken);
    }

    void aFolderThatIsNotThereCannotBeTaken()
    {
        FolderLock lock;

        QCOMPARE(lock.take(path() / "none", 0ms), FolderLock::Answer::NoFolder);
    }

private:
    std::filesystem::path path() const { return folder_.path().toStdString(); }

    QTemporaryDir folder_;
};

NORVANE_TEST(TestFolderLock)
#include "tst_FolderLock.moc"
