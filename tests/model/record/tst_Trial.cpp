// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "model/record/Trial.h"
#include "tests/support/ReferenceCases.h"
#include "tests/support/TestProgram.h"

#include <QJsonObject>
#include <QMetaProperty>
#include <QTest>

#include <functional>
#include <limits>

using namespace norvane;

class TestTrial final : public QObject {
    Q_OBJECT

private slots:
    void aNewRecordHasAFreshRandomIdAndNoReminders()
    {
        const Trial trial = sample();
        const Trial other = sample();

        QCOMPARE(trial.id.version(), QUuid::Random);
        QCOMPARE(trial.id.variant(), QUuid::DCE);
        QVERIFY(trial.id != other.id);
        QVERIFY(trial.notificationIds.isEmpty());
    }

    void aNewRecordKeepsWhatItWasGiven()
    {
        const Trial trial = Trial::make(QStringLiteral(" "), PointInTime{-1.5}, -2,
                                        QStringLiteral("n"), PointInTime{7});

        QCOMPARE(trial.name, QStringLiteral(" "));
        QCOMPARE(trial.endDate, PointInTime{-1.5});
        QCOMPARE(trial.cost, -2.0);
        QCOMPARE(trial.notes, QStringLiteral("n"));
        QCOMPARE(trial.createdAt, PointInTime{7});
    }

    void anEmptyRecordCostsNothing() { QCOMPARE(Trial{}.cost, 0.0); }

    void theTextOfAnIdHasUpperCaseDigitsInFiveGroups()
    {
        Trial trial;
        trial.id = QUuid::fromString(QStringLiteral("ba96ca62-a106-480e-9c02-eebdc393f97e"));

        QCOMPARE(trial.idText(), QStringLiteral("BA96CA62-A106-480E-9C02-EEBDC393F97E"));
    }

    void aCopyIsEqual()
    {
        const Trial trial = sample();

        QVERIFY(trial == Trial{trial});
    }

    void recordsThatDifferInOneFieldAreNotEqual_data()
    {
        QTest::addColumn<Change>("change");
        const auto row = [](const char *field, const Change &change) {
            QTest::newRow(field) << change;
        };
        row("id", [](Trial &trial) { trial.id = QUuid::createUuid(); });
        row("name", [](Trial &trial) { trial.name = QStringLiteral("acme cloud"); });
        row("endDate", [](Trial &trial) { trial.endDate = trial.endDate.advanced(0.5); });
        row("cost", [](Trial &trial) { trial.cost = 10; });
        row("notes", [](Trial &trial) { trial.notes = QStringLiteral(" "); });
        row("createdAt", [](Trial &trial) { trial.createdAt = trial.createdAt.advanced(1); });
        row("notificationIds, one more",
            [](Trial &trial) { trial.notificationIds.append(QStringLiteral("c")); });
        row("notificationIds, another order", [](Trial &trial) {
            trial.notificationIds = {QStringLiteral("b"), QStringLiteral("a")};
        });
        row("notificationIds, one fewer", [](Trial &trial) { trial.notificationIds.removeLast(); });
    }
    void recordsThatDifferInOneFieldAreNotEqual()
    {
        QFETCH(const Change, change);
        Trial trial = sample();
        trial.notificationIds = {QStringLiteral("a"), QStringLiteral("b")};
        Trial changed = trial;

        change(changed);

        QVERIFY(!(trial == changed));
        QVERIFY(trial != changed);
    }

    void aCostThatIsNotANumberEqualsNothing()
    {
        Trial trial = sample();
        trial.cost = std::numeric_limits<double>::quiet_NaN();
        const Trial copy = trial;

        QVERIFY(!(trial == copy));
    }

    void zeroAndNegativeZeroAreOneCost()
    {
        Trial trial = sample();
        trial.cost = 0;
        Trial other = trial;
        other.cost = -0.0;

        QVERIFY(trial == other);
    }

    void textsAreComparedAsTheReferenceDoes_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("equal");
        ReferenceCases cases{QStringLiteral("equality.json")};
        for (const QJsonValue &each : cases.all()) {
            const QString a = each[u"a"].toString();
            const QString b = each[u"b"].toString();
            QTest::newRow(cases.rowName(a + QStringLiteral(" and ") + b).constData())
                << a << b << each[u"equal"].toBool();
        }
    }
    void textsAreComparedAsTheReferenceDoes()
    {
        QFETCH(const QString, a);
        QFETCH(const QString, b);
        QFETCH(const bool, equal);
        const Trial trial = sample();
        const auto withTexts = [&trial](const QString &name, const QString &notes,
                                        const QString &identifier) {
            Trial copy = trial;
            copy.name = name;
            copy.notes = notes;
            copy.notificationIds = {identifier};
            return copy;
        };
        const QString same;

        QCOMPARE(withTexts(a, same, same) == withTexts(b, same, same), equal);
        QCOMPARE(withTexts(same, a, same) == withTexts(same, b, same), equal);
        QCOMPARE(withTexts(same, same, a) == withTexts(same, same, b), equal);
    }

    void theFieldsAreReadableAsProperties()
    {
        const Trial trial = sample();
        QByteArrayList names;
        for (int index = 0; index < Trial::staticMetaObject.propertyCount(); ++index) {
            names.append(Trial::staticMetaObject.property(index).name());
        }

        QCOMPARE(names, (QByteArrayList{"id", "name", "endDate", "cost", "notes", "createdAt",
                                        "notificationIds"}));
        QCOMPARE(Trial::staticMetaObject.property(1).readOnGadget(&trial).toString(), trial.name);
    }

private:
    using Change = std::function<void(Trial &)>;

    static Trial sample()
    {
        return Trial::make(QStringLiteral("Acme Cloud"), PointInTime{757'382'400}, 9.5, {},
                           PointInTime{756'000'000});
    }
};

NORVANE_TEST(TestTrial)
#include "tst_Trial.moc"
