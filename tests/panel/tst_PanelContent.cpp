// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/TrialPresentation.h"
#include "tests/panel/PanelOnFakes.h"
#include "tests/support/TestProgram.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace norvane;

namespace {

Trial trial(const char *name, double hours)
{
    return Trial::make(QString::fromUtf8(name), PanelOnFakes::start.advanced(hours * 3600), 1, {},
                       PanelOnFakes::start);
}

QStringList names(const TrialListModel &rows)
{
    QStringList names;
    for (int row = 0; row < rows.rowCount(); ++row) {
        names.append(rows.data(rows.index(row), TrialListModel::TrialRole).value<Trial>().name);
    }
    return names;
}

QString days(const TrialListModel &rows, int row)
{
    return rows.data(rows.index(row), TrialListModel::PresentationRole)
        .value<TrialPresentation>()
        .daysText;
}

} // namespace

class TestPanelContent final : public QObject {
    Q_OBJECT

private slots:
    void rowsStandInTheStoresOrderWithTheirModelInOrder()
    {
        PanelOnFakes panel{
            {trial("b", 40), trial("a", 80)}, QByteArrayLiteral("UTC"), QLocale::c()};
        TrialListModel &rows = *panel.content().trials();
        const QAbstractItemModelTester tester{
            &rows, QAbstractItemModelTester::FailureReportingMode::QtTest};

        panel.content().store()->add(QStringLiteral("c"), PanelOnFakes::start, 0, {});
        panel.content().store()->delete_(panel.content().store()->trials().first());

        QTRY_COMPARE(names(rows), (QStringList{QStringLiteral("a"), QStringLiteral("c")}));
    }

    void trialsThatShareAnIdAreOneRowThatShowsTheFirst()
    {
        Trial second = trial("second", 80);
        const Trial first = trial("first", 40);
        second.id = first.id;

        PanelOnFakes panel{{first, second}, QByteArrayLiteral("UTC"), QLocale::c()};

        QCOMPARE(names(*panel.content().trials()), QStringList{QStringLiteral("first")});
    }

    void manyChangesInOneTurnAreOneRebuild()
    {
        PanelOnFakes panel{{}, QByteArrayLiteral("UTC"), QLocale::c()};
        const QSignalSpy rebuilt{&panel.content(), &PanelContent::rebuilt};

        for (int count = 0; count < 5; ++count) {
            panel.content().store()->add(QStringLiteral("a"), PanelOnFakes::start, 0, {});
        }

        QCOMPARE(rebuilt.count(), 0);
        QTRY_COMPARE(panel.content().trials()->rowCount(), 5);
        QCOMPARE(rebuilt.count(), 1);
    }

    void aRemovalTakesOutItsRowAloneAndAnAdditionAppends()
    {
        PanelOnFakes panel{{trial("a", 40), trial("b", 40), trial("c", 40)},
                           QByteArrayLiteral("UTC"),
                           QLocale::c()};
        TrialListModel &rows = *panel.content().trials();
        const QSignalSpy removed{&rows, &QAbstractItemModel::rowsRemoved};
        const QSignalSpy inserted{&rows, &QAbstractItemModel::rowsInserted};
        const QSignalSpy reset{&rows, &QAbstractItemModel::modelReset};

        panel.content().store()->delete_(panel.content().store()->trials().at(1));
        QTRY_COMPARE(rows.rowCount(), 2);
        panel.content().store()->add(QStringLiteral("d"), PanelOnFakes::start, 0, {});
        QTRY_COMPARE(rows.rowCount(), 3);

        QCOMPARE(removed.count(), 1);
        QCOMPARE(removed.first().at(1).toInt(), 1);
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(inserted.first().at(1).toInt(), 2);
        QCOMPARE(reset.count(), 0);
    }

    void whatTimeChangesIsShownAtTheNextRebuildAndNotBefore()
    {
        PanelOnFakes panel{{trial("a", 30)}, QByteArrayLiteral("UTC"), QLocale::c()};
        QCOMPARE(panel.content().activeCount(), 1);
        QCOMPARE(days(*panel.content().trials(), 0), QStringLiteral("1d left"));

        panel.clock().set(PanelOnFakes::start.advanced(7 * 86'400.0));
        QCOMPARE(panel.content().activeCount(), 1);
        QCOMPARE(days(*panel.content().trials(), 0), QStringLiteral("1d left"));

        panel.content().rebuild();
        QCOMPARE(panel.content().activeCount(), 0);
        QCOMPARE(days(*panel.content().trials(), 0), QStringLiteral("-5d left"));
    }
};

NORVANE_GUI_TEST(TestPanelContent)
#include "tst_PanelContent.moc"
