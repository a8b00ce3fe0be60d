// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/TrialsFile.h"
#include "model/store/TrialStore.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/FileEvents.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/TestProgram.h"
#include "tests/support/TrialsText.h"

#include <QRegularExpression>
#include <QTest>

#include <filesystem>
#include <fstream>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace norvane;

/// How the store treats the disk: in place, in silence, and not at all without a folder.
class TestTrialStoreDisk final : public QObject {
    Q_OBJECT

private slots:
    void theFileIsWrittenInPlace()
    {
        FakePlatform fake;
        fake.folders.write("[]");
        const QString link = fake.folders.root() + QStringLiteral("/link.json");
        QCOMPARE(::link(qPrintable(fake.folders.trialsFile()), qPrintable(link)), 0);
        QFile::setPermissions(fake.folders.trialsFile(), QFile::Permissions{0x6640});
        const auto before = status(fake.folders.trialsFile());

        TrialStore store{fake.all()};
        add(store);

        const auto after = status(fake.folders.trialsFile());
        QCOMPARE(after.st_ino, before.st_ino);
        QCOMPARE(after.st_mode, before.st_mode);
        QCOMPARE(after.st_nlink, before.st_nlink);
        QFile linked{link};
        QVERIFY(linked.open(QIODevice::ReadOnly));
        QCOMPARE(TrialsFile::decode(linked.readAll()), store.trials());
        QCOMPARE(QDir{fake.folders.storeFolder()}.entryList(QDir::Files | QDir::Hidden),
                 QStringList{QStringLiteral("trials.json")});
    }

    void aLinkIsFollowedAlsoToAFileThatIsNotThereYet()
    {
        FakePlatform fake;
        const QString target = fake.folders.root() + QStringLiteral("/elsewhere.json");
        QVERIFY(QDir{}.mkpath(fake.folders.storeFolder()));
        QVERIFY(QFile::link(target, fake.folders.trialsFile()));

        TrialStore store{fake.all()};
        add(store);

        QCOMPARE(QFile::symLinkTarget(fake.folders.trialsFile()), target);
        QFile file{target};
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(TrialsFile::decode(file.readAll()), store.trials());
    }

    void aFolderWhosePathIsNotUnicodeIsUsed()
    {
        FakePlatform fake;
        const std::filesystem::path folder = fake.folders.path() / "Donn\xE9"
                                                                   "es";

        TrialStore store{fake.onFolder(folder)};
        add(store);

        std::ifstream file{folder / "Norvane" / "trials.json"};
        const std::string text{std::istreambuf_iterator{file}, {}};
        QCOMPARE(TrialsFile::decode(text), store.trials());
        const TrialStore again{fake.onFolder(folder)};
        QCOMPARE(again.trials().size(), 1);
        std::filesystem::remove_all(folder); // QTemporaryDir cannot.
    }

    void foldersThatAreMadeAreForTheUserAloneAndOthersStayAsTheyAre()
    {
        using std::filesystem::perms;
        FakePlatform fake;
        const std::filesystem::path there = fake.folders.path() / "there";
        std::filesystem::create_directory(there);
        std::filesystem::permissions(there, perms{0755});

        const auto outcome = ForkedChild::run([&] {
            ::umask(0);
            const TrialStore store{fake.onFolder(there / "a" / "b")};
            return 0;
        });

        const auto modeOf = [](const std::filesystem::path &folder) {
            return static_cast<unsigned>(std::filesystem::status(folder).permissions());
        };
        QCOMPARE(outcome.status, 0);
        QCOMPARE(modeOf(there), 0755U);
        QCOMPARE(modeOf(there / "a"), 0700U);
        QCOMPARE(modeOf(there / "a" / "b"), 0700U);
        QCOMPARE(modeOf(there / "a" / "b" / "Norvane"), 0700U);
    }

    void aFileThatTheMemoryDoesNotSufficeForIsAnEmptyList_data()
    {
        QTest::addColumn<qint64>("moreMemory");
        QTest::newRow("already while it is read") << (qint64{1} << 20);
        QTest::newRow("while it is decoded") << (qint64{40} << 20);
    }
    void aFileThatTheMemoryDoesNotSufficeForIsAnEmptyList()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("AddressSanitizer needs all of the address space, and ends where memory does.");
#endif
        QFETCH(const qint64, moreMemory);
        FakePlatform fake;
        fake.folders.write(TrialsText{}.with("name", '"' + QByteArray(32 << 20, 'x') + '"').text());

        const auto outcome = ForkedChild::run([&] {
            const auto size = static_cast<rlim_t>(addressSpace() + moreMemory);
            const rlimit limit{size, size};
            if (::setrlimit(RLIMIT_AS, &limit) != 0) {
                return 2;
            }
            const TrialStore store{fake.all()};
            return store.trials().isEmpty() ? 0 : 1;
        });

        QCOMPARE(outcome.output, QByteArray{});
        QCOMPARE(outcome.status, 0);
        QCOMPARE(fake.folders.bytes(), QByteArray{"[]"});
    }

    void aFileThatIsMadeHasTheUsualPermissions()
    {
        FakePlatform fake;

        const auto outcome = ForkedChild::run([&fake] {
            ::umask(0022);
            const TrialStore store{fake.all()};
            return 0;
        });

        QCOMPARE(outcome.status, 0);
        QCOMPARE(status(fake.folders.trialsFile()).st_mode & 07777U, 0644U);
    }

    void withoutStandardInputTheFileIsReadAndWrittenTheSame()
    {
        FakePlatform fake;
        fake.folders.write(TrialsText{}.text());

        const auto outcome = ForkedChild::run([&fake] {
            ::close(STDIN_FILENO); // The file gets its number.
            TrialStore store{fake.all()};
            add(store);
            return store.trials().size() == 2 ? 0 : 1;
        });

        QCOMPARE(outcome.status, 0);
        const auto written = TrialsFile::decode(fake.folders.bytes());
        QVERIFY(written);
        QCOMPARE(written->size(), 2);
    }

    void aPipeInPlaceOfTheFileIsNotWaitedFor()
    {
        QTest::failOnWarning(QRegularExpression{QStringLiteral(".*")});
        FakePlatform fake;
        QVERIFY(QDir{}.mkpath(fake.folders.storeFolder()));
        QCOMPARE(::mkfifo(qPrintable(fake.folders.trialsFile()), 0600), 0);

        TrialStore store{fake.all()};
        add(store);

        QCOMPARE(store.trials().size(), 1);
    }

    void aShorterListLeavesNoRestOfTheLongerOne()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        add(store);
        add(store);

        store.delete_(store.trials().first());

        QCOMPARE(fake.folders.bytes(), TrialsFile::encode(store.trials()));
    }

    void aSaveIsOneOpenAndOneWriteOfTheWholeText()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        // Longer than what any buffer in between holds.
        store.add(QString{1'000'000, u'x'}, FakePlatform::start, 0, {});
        const FileEvents watcher{fake.folders.trialsFile(),
                                 IN_OPEN | IN_CLOSE | IN_MOVE_SELF | IN_DELETE_SELF};
        const Written before = writtenByThisThread();

        add(store);

        const Written after = writtenByThisThread();
        const QList<quint32> events = watcher.take();
        QCOMPARE(after.calls - before.calls, 1);
        QCOMPARE(after.bytes - before.bytes, fake.folders.bytes().size());
        QCOMPARE(events, (QList<quint32>{IN_OPEN, IN_CLOSE_WRITE}));
    }

    void aFolderThatCannotBeMadeLeavesTheListInMemory()
    {
        FakePlatform fake;
        QFile::setPermissions(fake.folders.root(), QFile::Permissions{0x5555});

        const auto outcome = ForkedChild::run(
            [&fake] {
                TrialStore store{fake.all()};
                add(store);
                return store.trials().size() == 1 && !QFile::exists(fake.folders.storeFolder()) ? 0
                                                                                                : 1;
            },
            ForkedChild::ordinaryUser);

        QCOMPARE(outcome.output, QByteArray{});
        QCOMPARE(outcome.status, 0);
    }

    void aFileThatCannotBeReadIsAnEmptyListAndWrittenAsOne_data()
    {
        QTest::addColumn<int>("permissions");
        QTest::addColumn<QByteArray>("bytes");

        QTest::newRow("only written") << 0x2222 << QByteArray{"[]"};
        QTest::newRow("not written either") << 0 << TrialsText{}.text();
    }
    void aFileThatCannotBeReadIsAnEmptyListAndWrittenAsOne()
    {
        QFETCH(const int, permissions);
        FakePlatform fake;
        fake.folders.write(TrialsText{}.text());
        QFile::setPermissions(fake.folders.trialsFile(), QFile::Permissions{permissions});

        const auto outcome = ForkedChild::run(
            [&fake] {
                const TrialStore store{fake.all()};
                return store.trials().isEmpty() ? 0 : 1;
            },
            ForkedChild::ordinaryUser);

        QCOMPARE(outcome.output, QByteArray{});
        QCOMPARE(outcome.status, 0);
        QFile::setPermissions(fake.folders.trialsFile(), QFile::ReadOwner);
        QTEST(fake.folders.bytes(), "bytes");
    }

    void aFileThatCannotBeWrittenLeavesTheListInMemoryAhead()
    {
        FakePlatform fake;
        fake.folders.write(TrialsText{}.text());
        QFile::setPermissions(fake.folders.trialsFile(), QFile::Permissions{0x4444});

        const auto outcome = ForkedChild::run(
            [&fake] {
                TrialStore store{fake.all()};
                add(store);
                return store.trials().size() == 2 ? 0 : 1;
            },
            ForkedChild::ordinaryUser);

        QCOMPARE(outcome.output, QByteArray{});
        QCOMPARE(outcome.status, 0);
        QCOMPARE(fake.folders.bytes(), TrialsText{}.text());
    }

    void aLaterSaveThatSucceedsWritesWhatAnEarlierOneCouldNot()
    {
        FakePlatform fake;
        TrialStore store{fake.all()};
        QFile::remove(fake.folders.trialsFile());
        QVERIFY(QDir{}.mkdir(fake.folders.trialsFile())); // Stands in the way, for root as well.
        add(store);
        QVERIFY(QDir{}.rmdir(fake.folders.trialsFile()));

        add(store);

        QCOMPARE(store.trials().size(), 2);
        QCOMPARE(TrialsFile::decode(fake.folders.bytes()), store.trials());
    }

    void withoutAFolderForApplicationDataTheProcessStopsInSilence()
    {
        FakePlatform fake;

        const auto outcome = ForkedChild::run([&fake] {
            const TrialStore store{fake.onFolder({})};
            return 0;
        });

        QCOMPARE(outcome.signal, SIGABRT);
        QCOMPARE(outcome.output, QByteArray{});
        QVERIFY(!QFile::exists(fake.folders.storeFolder()));
    }

private:
    struct Written {
        qint64 calls = 0;
        qint64 bytes = 0;
    };

    static void add(TrialStore &store)
    {
        store.add(QStringLiteral("Acme"), FakePlatform::start, 1, {});
    }

    /// How much address space this process uses, in bytes.
    static qint64 addressSpace()
    {
        QFile file{QStringLiteral("/proc/self/statm")};
        return file.open(QIODevice::ReadOnly)
                   ? file.readAll().split(' ').first().toLongLong() * ::getpagesize()
                   : 0;
    }

    static struct stat status(const QString &path)
    {
        struct stat status {};
        ::stat(qPrintable(path), &status);
        return status;
    }

    /// What the kernel has counted of write calls so far.
    static Written writtenByThisThread()
    {
        QFile file{QStringLiteral("/proc/thread-self/io")};
        Written written;
        if (!file.open(QIODevice::ReadOnly)) {
            return written;
        }
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith("syscw: ")) {
                written.calls = line.mid(7).toLongLong();
            } else if (line.startsWith("wchar: ")) {
                written.bytes = line.mid(7).toLongLong();
            }
        }
        return written;
    }
};

NORVANE_TEST(TestTrialStoreDisk)
#include "tst_TrialStoreDisk.moc"
