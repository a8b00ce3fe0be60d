// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/SystemZone.h"
#include "tests/support/TestProgram.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <memory>

using namespace norvane;

class TestSystemZone final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        point(QStringLiteral("Europe/Berlin"));
        qputenv("TZ", QFile::encodeName(u':' + link()));
    }

    void theZoneIsTheOneThatTheLinkNames()
    {
        const SystemZone zone;

        QCOMPARE(zone.zone(), Zone{QTimeZone{"Europe/Berlin"}});
    }

    void aLinkThatIsReplacedBeforeItIsWatchedIsNoticed()
    {
        SystemZone zone;
        point(QStringLiteral("Asia/Tokyo"));

        zone.watch();

        QCOMPARE(zone.zone(), Zone{QTimeZone{"Asia/Tokyo"}});
    }

    void aFileThatIsWrittenInItsPlaceIsNoticed()
    {
        QVERIFY(QFile::remove(link()));
        QVERIFY(QFile::copy(QStringLiteral("/usr/share/zoneinfo/Europe/Berlin"), link()));
        QVERIFY(QFile::setPermissions(link(), QFile::ReadOwner | QFile::WriteOwner));
        SystemZone zone;
        zone.watch();
        QSignalSpy changed{&zone, &LocalZone::changed};
        QFile other{QStringLiteral("/usr/share/zoneinfo/Asia/Tokyo")};
        QVERIFY(other.open(QFile::ReadOnly));

        QFile file{link()};
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(other.readAll());
        file.close();

        QVERIFY(changed.count() > 0 || changed.wait());
    }

    void aLinkThatIsReplacedIsNoticed()
    {
        SystemZone zone;
        zone.watch();
        QSignalSpy changed{&zone, &LocalZone::changed};

        point(QStringLiteral("Asia/Tokyo"));

        QVERIFY(changed.wait());
        QCOMPARE(zone.zone(), Zone{QTimeZone{"Asia/Tokyo"}});
    }

    void aLinkThatIsRemovedAndMadeAnewIsNoticed()
    {
        SystemZone zone;
        zone.watch();
        QSignalSpy changed{&zone, &LocalZone::changed};

        QFile::remove(link());
        point(QStringLiteral("Asia/Tokyo"));

        QTRY_COMPARE(zone.zone(), Zone{QTimeZone{"Asia/Tokyo"}});
    }

    void aLinkThatIsMovedAwayAndMadeAnewIsNoticed()
    {
        SystemZone zone;
        zone.watch();
        QCOMPARE(std::rename(qUtf8Printable(link()),
                             qUtf8Printable(folder_->filePath(QStringLiteral("old")))),
                 0);

        point(QStringLiteral("Asia/Tokyo"));
        QTRY_COMPARE(zone.zone(), Zone{QTimeZone{"Asia/Tokyo"}});

        point(QStringLiteral("Asia/Seoul"));
        QTRY_COMPARE(zone.zone(), Zone{QTimeZone{"Asia/Seoul"}});
    }

    void aLinkThatIsReplacedTwiceIsNoticedTwice()
    {
        SystemZone zone;
        zone.watch();
        point(QStringLiteral("Asia/Tokyo"));
        QTRY_COMPARE(zone.zone(), Zone{QTimeZone{"Asia/Tokyo"}});

        point(QStringLiteral("Asia/Seoul"));

        QTRY_COMPARE(zone.zone(), Zone{QTimeZone{"Asia/Seoul"}});
    }

    void nothingElseInTheFolderWakesIt()
    {
        SystemZone zone;
        zone.watch();
        QAbstractEventDispatcher &dispatcher = *QAbstractEventDispatcher::instance();
        dispatcher.processEvents(QEventLoop::AllEvents); // What was underway before.

        QFile file{folder_->filePath(QStringLiteral("other"))};
        QVERIFY(file.open(QFile::WriteOnly));
        file.close();

        QVERIFY(!dispatcher.processEvents(QEventLoop::AllEvents));
    }

    void anythingElseInTheFolderIsNoChange()
    {
        SystemZone zone;
        zone.watch();
        QSignalSpy changed{&zone, &LocalZone::changed};

        QFile other{folder_->filePath(QStringLiteral("other"))};
        QVERIFY(other.open(QFile::WriteOnly));

        QVERIFY(!changed.wait(200));
    }

private:
    [[nodiscard]] QString link() const { return folder_->filePath(QStringLiteral("localtime")); }

    void point(const QString &zone) const
    {
        const QString made = folder_->filePath(QStringLiteral("new"));
        QVERIFY(QFile::link(QStringLiteral("/usr/share/zoneinfo/") + zone, made));
        QCOMPARE(std::rename(qUtf8Printable(made), qUtf8Printable(link())), 0);
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

NORVANE_TEST(TestSystemZone)
#include "tst_SystemZone.moc"
