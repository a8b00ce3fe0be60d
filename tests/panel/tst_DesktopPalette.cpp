// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DesktopPalette.h"
#include "tests/panel/ChosenAppearance.h"
#include "tests/support/TestProgram.h"

#include <QGuiApplication>
#include <QTest>
#include <QWindow>
#include <qpa/qplatformtheme.h>
#include <qpa/qwindowsysteminterface.h>

#include <utility>

#include <private/qguiapplication_p.h>

using namespace norvane;
using Scheme = Appearance::ColorScheme;

namespace {

QColor window()
{
    return QGuiApplication::palette().color(QPalette::Window);
}

/// A desktop's theme, in force while it lives, whose colours a test changes.
class ChangingTheme final : public QPlatformTheme {
public:
    explicit ChangingTheme(const QPalette &palette)
        : palette_{palette},
          former_{std::exchange(QGuiApplicationPrivate::platform_theme, this)}
    {
        QGuiApplication::setPalette(QPalette{});
    }
    ChangingTheme(const ChangingTheme &) = delete;
    ChangingTheme(ChangingTheme &&) = delete;
    ChangingTheme &operator=(const ChangingTheme &) = delete;
    ChangingTheme &operator=(ChangingTheme &&) = delete;
    ~ChangingTheme() override { QGuiApplicationPrivate::platform_theme = former_; }

    [[nodiscard]] const QPalette *palette(Palette type) const override
    {
        return type == SystemPalette ? &palette_ : nullptr;
    }
    void change(const QPalette &palette)
    {
        palette_ = palette;
        using Delivery = QWindowSystemInterface::SynchronousDelivery;
        QWindowSystemInterface::handleThemeChange<Delivery>(nullptr);
    }

private:
    QPalette palette_;
    QPlatformTheme *former_;
};

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

    void theDesktopsOwnColoursTakeOverWhenTheyComeAfterItsPreference()
    {
        const QPalette light{QColor{"#e0e0e0"}};
        const QPalette dark{QColor{"#182030"}};
        const QWindow told;
        ChangingTheme theme{light};
        const ChosenAppearance appearance{Scheme::Dark};
        const DesktopPalette palette{appearance};
        QCOMPARE(window(), DesktopPalette::dark().color(QPalette::Window));

        theme.change(dark);
        QCOMPARE(window(), dark.color(QPalette::Window));

        theme.change(light);
        QCOMPARE(window(), DesktopPalette::dark().color(QPalette::Window));
    }
};

NORVANE_GUI_TEST(TestDesktopPalette)
#include "tst_DesktopPalette.moc"
