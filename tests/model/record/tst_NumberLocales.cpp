// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/Cost.h"
#include "model/record/TrialsFile.h"
#include "tests/support/TestProgram.h"
#include "tests/support/TrialsText.h"

#include <QDir>
#include <QLocale>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <clocale>
#include <cstdlib>

using namespace norvane;

/// Numbers in the file and in texts have a point, whatever decimal mark the process's locale has.
class TestNumberLocales final : public QObject {
    Q_OBJECT

private slots:
    /// Compiles one locale for each decimal mark that the C library's locales have, since a machine
    /// need not have any locale but its own.
    void initTestCase()
    {
        const QDir sources{QStringLiteral("/usr/share/i18n/locales")};
        for (const QString &name : sources.entryList({QStringLiteral("*_*")}, QDir::Files)) {
            QFile source{sources.filePath(name)};
            QVERIFY(source.open(QIODevice::ReadOnly));
            static const QRegularExpression line{QStringLiteral("^decimal_point\\s+\"([^\"]+)\""),
                                                 QRegularExpression::MultilineOption};
            const auto match = line.match(QString::fromUtf8(source.readAll()));
            if (match.hasMatch() && !localeOfMark_.contains(match.captured(1))) {
                localeOfMark_.insert(match.captured(1), name);
            }
        }
        QVERIFY(localeOfMark_.contains(QStringLiteral(",")));
        QVERIFY(localeOfMark_.contains(QStringLiteral("<U066B>")) || // Two bytes in UTF-8;
                localeOfMark_.contains(QStringLiteral("٫")));        // later releases write it so.

        qputenv("LOCPATH", locales_.path().toLocal8Bit());
        for (const QString &name : std::as_const(localeOfMark_)) {
            QCOMPARE(QProcess::execute(QStringLiteral("localedef"),
                                       {QStringLiteral("--no-archive"), QStringLiteral("-i"), name,
                                        QStringLiteral("-f"), QStringLiteral("UTF-8"),
                                        locales_.filePath(name)}),
                     0);
        }
    }
    void cleanup()
    {
        std::setlocale(LC_ALL, "C");
        QLocale::setDefault(QLocale::c());
    }

    void aCostIsReadAndWrittenWithAPoint_data() { addLocales(); }
    void aCostIsReadAndWrittenWithAPoint()
    {
        enterLocale();

        QCOMPARE(Cost::fromText(QStringLiteral("9.99")), 9.99);
        QCOMPARE(Cost::fromText(QStringLiteral("1.5e1")), 15.0);
        QCOMPARE(Cost::fromText(QStringLiteral("9,99")), 0.0);
        QCOMPARE(Cost::fromText(QStringLiteral("9٫99")), 0.0);
        QCOMPARE(Cost::text(1234.5), QStringLiteral("1234.50"));
    }

    void aFileIsReadAndWrittenWithPoints_data() { addLocales(); }
    void aFileIsReadAndWrittenWithPoints()
    {
        enterLocale();
        const QByteArray text =
            TrialsText{}.with("cost", "12.99").with("endDate", "-1234567.25").text();

        const auto trials = TrialsFile::decode(text);

        QVERIFY(trials);
        QCOMPARE(trials->first().cost, 12.99);
        QCOMPARE(trials->first().endDate, PointInTime{-1'234'567.25});
        QCOMPARE(TrialsFile::encode(*trials), text);
        QVERIFY(!TrialsFile::decode(TrialsText{}.with("cost", "12,99").text()));
        QVERIFY(!TrialsFile::decode(TrialsText{}.with("cost", "12٫99").text()));
    }

    void aNumberThatNoDoubleHoldsIsIgnoredInAnIgnoredMember_data() { addLocales(); }
    void aNumberThatNoDoubleHoldsIsIgnoredInAnIgnoredMember()
    {
        enterLocale();

        const auto trials =
            TrialsFile::decode(TrialsText{}.with("cost", "12.99").plus("\"x\":1.5e999").text());

        QVERIFY(trials);
        QCOMPARE(trials->first().cost, 12.99);
    }

    void theLocaleOfTheProcessIsTheSameAfterwards_data() { addLocales(); }
    void theLocaleOfTheProcessIsTheSameAfterwards()
    {
        enterLocale();
        const std::string mark = std::localeconv()->decimal_point;

        QVERIFY(TrialsFile::decode("[]"));
        QCOMPARE(Cost::fromText(QStringLiteral("1")), 1.0);

        QCOMPARE(std::localeconv()->decimal_point, mark);
    }

private:
    void addLocales() const
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : localeOfMark_) {
            QTest::newRow(qPrintable(name)) << name;
        }
    }
    /// Makes the row's locale the process's own, as QCoreApplication does with the user's.
    static void enterLocale()
    {
        QFETCH(const QString, name);
        QVERIFY(std::setlocale(LC_ALL, qPrintable(name)) != nullptr);
        QLocale::setDefault(QLocale{name});
        const QByteArray mark{std::localeconv()->decimal_point};
        QCOMPARE(std::strtod(QByteArray{"9" + mark + "5"}.constData(), nullptr), 9.5);
    }

    QTemporaryDir locales_;
    QMap<QString, QString> localeOfMark_;
};

NORVANE_TEST(TestNumberLocales)
#include "tst_NumberLocales.moc"
