// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/Cost.h"
#include "model/record/TrialsFile.h"
#include "tests/support/TestProgram.h"
#include "tests/support/TrialsText.h"

#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <clocale>
#include <cstdlib>

using namespace norvane;

/// Numbers in the file and in texts stay as they are on a desktop whose numbers have a comma.
class TestCommaLocale final : public QObject {
    Q_OBJECT

private slots:
    /// Compiles the locale, since a machine need not have any but its own.
    void initTestCase()
    {
        const QString folder = locales_.filePath(QStringLiteral("de_DE.UTF-8"));
        QProcess localedef;
        localedef.start(QStringLiteral("localedef"),
                        {QStringLiteral("--no-archive"), QStringLiteral("-i"),
                         QStringLiteral("de_DE"), QStringLiteral("-f"), QStringLiteral("UTF-8"),
                         folder});
        QVERIFY(localedef.waitForFinished());
        QCOMPARE(localedef.exitCode(), 0);

        qputenv("LOCPATH", locales_.path().toLocal8Bit());
        QVERIFY(std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr);
        QLocale::setDefault(QLocale{QLocale::German, QLocale::Germany});
        QCOMPARE(std::strtod("9,5", nullptr), 9.5);
    }
    void cleanupTestCase() { std::setlocale(LC_ALL, "C"); }

    void aCostIsReadWithAPoint()
    {
        QCOMPARE(Cost::fromText(QStringLiteral("9.99")), 9.99);
        QCOMPARE(Cost::fromText(QStringLiteral("9,99")), 0.0);
        QCOMPARE(Cost::fromText(QStringLiteral("1.5e1")), 15.0);
    }

    void aCostIsWrittenWithAPoint() { QCOMPARE(Cost::text(1234.5), QStringLiteral("1234.50")); }

    void aFileIsReadAndWrittenWithPoints()
    {
        const QByteArray text = TrialsText{}.with("cost", "12.99").with("endDate", "-0.25").text();

        const auto trials = TrialsFile::decode(text);

        QVERIFY(trials);
        QCOMPARE(trials->first().cost, 12.99);
        QCOMPARE(trials->first().endDate, PointInTime{-0.25});
        QCOMPARE(TrialsFile::encode(*trials), text);
        QVERIFY(!TrialsFile::decode(TrialsText{}.with("cost", "12,99").text()));
    }

private:
    QTemporaryDir locales_;
};

NORVANE_TEST(TestCommaLocale)
#include "tst_CommaLocale.moc"
