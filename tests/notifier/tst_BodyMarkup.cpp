// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/BodyMarkup.h"
#include "tests/support/TestProgram.h"

#include <QTest>

using namespace norvane;

class TestBodyMarkup final : public QObject {
    Q_OBJECT

private slots:
    void whatMarkupWouldReadIsEscaped()
    {
        QCOMPARE(asMarkup(QStringLiteral("<b>A&B</b> &amp; \"x\" 'y'")),
                 QStringLiteral("&lt;b&gt;A&amp;B&lt;/b&gt; &amp;amp; \"x\" 'y'"));
    }

    void whatXmlCannotHoldIsReplaced()
    {
        QCOMPARE(asMarkup(QStringLiteral("a\u0001b\u001fc\ufffed\uffff")),
                 QStringLiteral("a\ufffdb\ufffdc\ufffdd\ufffd"));
    }

    void everythingElseStays()
    {
        const QString text = QStringLiteral("a\tb\r\nc 🎬 שלום \u202e \u007f \ue000 \ufffd");

        QCOMPARE(asMarkup(text), text);
    }
};

NORVANE_TEST(TestBodyMarkup)
#include "tst_BodyMarkup.moc"
