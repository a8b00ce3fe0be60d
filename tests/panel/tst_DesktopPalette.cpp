// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DesktopPalette.h"
#include "tests/panel/ChosenAppearance.h"

#include <QGuiApplication>
#include <QTest>

using namespace norvane;
using Scheme = Appearance::ColorScheme;

namespace {

QColor window()
{
    return QGuiApplication::palette().color(QPalette::Window);
}

} // namespace

class TestDesktopPalette final : public QObject {
    Q_OBJECT

private slots:
    void aDarkDesktopGetsADarkPaletteAtOnceAndWhenItChanges()
    {
        ChosenAppearance appearance{Scheme::Dark};
        const DesktopPalette palette{appearance};
        QVERIFY(window().lightness() < 128);

        appearance.choose(Scheme::Light);
        QVERIFY(window().lightness() > 128);

        appearance.choose(Scheme::Dark);
        QVERIFY(window().lightness() < 128);
    }

    void withoutAPreferenceTheDesktopsOwnPaletteHolds()
    {
        QGuiApplication::setPalette(QPalette{});
        const QPalette own = QGuiApplication::palette();
        ChosenAppearance appearance{Scheme::Dark};
        const DesktopPalette palette{appearance};

        appearance.choose(Scheme::NoPreference);

        QCOMPARE(QGuiApplication::palette().color(QPalette::Window), own.color(QPalette::Window));
        QCOMPARE(QGuiApplication::palette().color(QPalette::Highlight),
                 own.color(QPalette::Highlight));
    }

    void aDesktopThatIsLightAlreadyKeepsItsOwnColours()
    {
        QGuiApplication::setPalette(QPalette{});
        const QPalette own = QGuiApplication::palette();
        QVERIFY(own.color(QPalette::Window).lightness() > 128);

        const ChosenAppearance appearance{Scheme::Light};
        const DesktopPalette palette{appearance};

        QCOMPARE(window(), own.color(QPalette::Window));
    }
};

QTEST_MAIN(TestDesktopPalette)
#include "tst_DesktopPalette.moc"
