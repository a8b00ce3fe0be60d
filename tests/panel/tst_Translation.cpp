// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Translation.h"
#include "panel/TrialPresentation.h"
#include "tests/support/TestProgram.h"
#include "time/Calendar.h"

#include <QDir>
#include <QGuiApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>

using namespace norvane;

namespace {

struct Message {
    QString context;
    QString source;
    QString forTranslator;
    QStringList forms; ///< The translation, or one for each plural.

    friend bool operator==(const Message &one, const Message &other)
    {
        return one.context == other.context && one.source == other.source &&
               one.forTranslator == other.forTranslator;
    }
};

QString sourceFile(const QString &name)
{
    return QStringLiteral(NORVANE_TRANSLATIONS "/") + name;
}

/// The messages of the template, which has every text of the panel; or those of another file.
QList<Message> messages(const QString &path = sourceFile(QStringLiteral("norvane.ts")))
{
    QFile file{path};
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Cannot read %s", qUtf8Printable(path));
    }
    QList<Message> messages;
    QString context;
    for (QXmlStreamReader reader{&file}; !reader.atEnd();) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (reader.name() == u"name") {
            context = reader.readElementText();
        } else if (reader.name() == u"source") {
            messages.append({.context = context,
                             .source = reader.readElementText(),
                             .forTranslator = {},
                             .forms = {}});
        } else if (reader.name() == u"extracomment") {
            messages.last().forTranslator = reader.readElementText();
        } else if (reader.name() == u"translation") {
            const QString text =
                reader.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
            messages.last().forms = text.split(QRegularExpression{QStringLiteral("\\s*\n\\s*")});
        }
    }
    return messages;
}

QStringList languageFiles()
{
    return QDir{sourceFile({})}.entryList({QStringLiteral("norvane_*.ts")});
}

QString translated(const Message &message)
{
    return QCoreApplication::translate(message.context.toUtf8().constData(),
                                       message.source.toUtf8().constData());
}

void addLanguages()
{
    QTest::addColumn<QString>("locale");
    for (const char *const locale : {"de_AT", "fr_CA", "es_MX", "ja_JP", "ar_EG"}) {
        QTest::newRow(locale) << locale;
    }
}

} // namespace

class TestTranslation final : public QObject {
    Q_OBJECT

private slots:
    void theTemplateHasEveryText()
    {
        const QTemporaryDir folder;
        const QString collected = folder.filePath(QStringLiteral("norvane.ts"));

        QCOMPARE(
            QProcess::execute(QStringLiteral(NORVANE_LUPDATE),
                              {QStringLiteral("-silent"), QStringLiteral(NORVANE_PANEL "/../app"),
                               QStringLiteral(NORVANE_PANEL),
                               QStringLiteral(NORVANE_PANEL "/../platform/tray"),
                               QStringLiteral("-ts"), collected}),
            0);

        QVERIFY(messages() == messages(collected));
    }

    void everyLanguageHasTheTextsOfTheTemplate()
    {
        const QStringList files = languageFiles();
        QCOMPARE(files.count(), 5);

        for (const QString &file : files) {
            QVERIFY2(messages(sourceFile(file)) == messages(), qPrintable(file));
        }
    }

    void everyTextHasASentenceForTheTranslator()
    {
        for (const Message &message : messages()) {
            QVERIFY2(message.forTranslator.endsWith(u'.'), qPrintable(message.source));
        }
    }

    void everyTextIsTranslated_data() { addLanguages(); }
    void everyTextIsTranslated()
    {
        QFETCH(const QString, locale);
        const QStringList same{QStringLiteral("Norvane"), QStringLiteral("$"),
                               QStringLiteral("0.00")};
        QVERIFY(messages().size() > 20);

        const Translation translation{QLocale{locale}};

        for (const Message &message : messages()) {
            QVERIFY2((translated(message) == message.source) == same.contains(message.source),
                     qPrintable(message.source));
        }
    }

    void everyTranslationAndEachPluralHasItsPlaceholderOnce()
    {
        for (const QString &file : languageFiles()) {
            for (const Message &message : messages(sourceFile(file))) {
                for (const QString &form : message.forms) {
                    for (const auto &placeholder : {QStringLiteral("%lld"), QStringLiteral("%@")}) {
                        QVERIFY2(form.count(placeholder) == message.source.count(placeholder),
                                 qPrintable(file + u' ' + form));
                    }
                }
            }
        }
    }

    void aLanguageWithSeveralPluralsShowsTheRightOne_data()
    {
        QTest::addColumn<int>("days");
        QTest::addColumn<QString>("text");

        QTest::newRow("one") << 1 << "1 dzień";
        QTest::newRow("two") << 2 << "2 dni";
        QTest::newRow("five") << 5 << "dni: 5";
        QTest::newRow("twenty-two") << 22 << "22 dni";
        QTest::newRow("one that is past") << -1 << "-1 dzień";
        QTest::newRow("more than a translator can count") << 2'000'000'022 << "2000000022 dni";
    }
    void aLanguageWithSeveralPluralsShowsTheRightOne()
    {
        QFETCH(const int, days);
        const QTemporaryDir folder;
        const QString compiled = folder.filePath(QStringLiteral("pl.qm"));
        QCOMPARE(QProcess::execute(QStringLiteral(NORVANE_LRELEASE),
                                   {QStringLiteral("-silent"),
                                    QStringLiteral(NORVANE_TEST_DATA "/plurals_pl.ts"),
                                    QStringLiteral("-qm"), compiled}),
                 0);
        QTranslator polish;
        QVERIFY(polish.load(compiled));
        QVERIFY(QCoreApplication::installTranslator(&polish));

        constexpr PointInTime now{758'017'815};
        const PointInTime end = now.advanced(days * 86'400.0);
        const auto shown = TrialPresentation::of(Trial::make({}, end, 0, {}, now), now,
                                                 Calendar{QTimeZone::utc()});

        QTEST(shown.daysText, "text");
    }

    void theNameStandsBetweenStraightQuotes_data() { addLanguages(); }
    void theNameStandsBetweenStraightQuotes()
    {
        QFETCH(const QString, locale);

        const Translation translation{QLocale{locale}};

        const QString message = translated({.context = QStringLiteral("AlertContent"),
                                            .source = QStringLiteral("Remove \"%@\" from Norvane?"),
                                            .forTranslator = {},
                                            .forms = {}});
        QCOMPARE(message.count(u'"'), 2);
    }

    void aLanguageWithoutTranslationShowsTheTextsAsWritten()
    {
        const Translation translation{QLocale{QStringLiteral("fi_FI")}};

        for (const Message &message : messages()) {
            QCOMPARE(translated(message), message.source);
        }
    }

    void theLayoutDirectionIsTheLocalesAlsoWithoutATranslation()
    {
        {
            const Translation hebrew{QLocale{QStringLiteral("he_IL")}};
            QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
        }
        const Translation arabic{QLocale{QStringLiteral("ar_EG")}};
        QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
        const Translation german{QLocale{QStringLiteral("de_DE")}};
        QCOMPARE(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    }

    void theFirstLanguageThatCanBeShownIsUsed_data()
    {
        QTest::addColumn<QString>("languages");
        QTest::addColumn<QString>("cancel");
        QTest::addColumn<Qt::LayoutDirection>("direction");

        QTest::newRow("English needs no translation") << "en-US en de-DE de"
                                                      << "Cancel" << Qt::LeftToRight;
        QTest::newRow("English behind another") << "de-AT en-US"
                                                << "Abbrechen" << Qt::LeftToRight;
        QTest::newRow("unknown ones before it") << "fi-FI fi ar-Arab-EG"
                                                << "إلغاء" << Qt::RightToLeft;
        QTest::newRow("it has another direction") << "he-IL de"
                                                  << "Abbrechen" << Qt::LeftToRight;
        QTest::newRow("so has English") << "he-IL en"
                                        << "Cancel" << Qt::LeftToRight;
        QTest::newRow("there is none") << "he-IL fi"
                                       << "Cancel" << Qt::RightToLeft;
        QTest::newRow("no languages") << ""
                                      << "Cancel" << Qt::LeftToRight;
    }
    void theFirstLanguageThatCanBeShownIsUsed()
    {
        QFETCH(const QString, languages);

        const Translation translation{languages.split(u' ', Qt::SkipEmptyParts)};

        QTEST(translated({.context = QStringLiteral("FormActions"),
                          .source = QStringLiteral("Cancel"),
                          .forTranslator = {},
                          .forms = {}}),
              "cancel");
        QTEST(QGuiApplication::layoutDirection(), "direction");
    }
};

NORVANE_GUI_TEST(TestTranslation)
#include "tst_Translation.moc"
