// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Contrast.h"
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
    explicit ChangingTheme(QPalette palette)
        : palette_{std::move(palette)},
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
        tellOfChange<QWindowSystemInterface>();
    }

private:
    /// Later versions of Qt no longer ask which window is concerned.
    template <typename System>
    static void tellOfChange()
    {
        using Delivery = QWindowSystemInterface::SynchronousDelivery;
        if constexpr (requires { System::template handleThemeChange<Delivery>(); }) {
            System::template handleThemeChange<Delivery>();
        } else {
            System::template handleThemeChange<Delivery>(nullptr);
        }
    }

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

    void aDesktopWithoutColoursOfItsOwnGetsOurs()
    {
        QGuiApplication::setPalette(QPalette{});
        QVERIFY(DesktopPalette::isQtsOwn(QGuiApplication::palette()));

        const ChosenAppearance appearance{Scheme::NoPreference};
        const DesktopPalette palette{appearance};

        QCOMPARE(window(), DesktopPalette::light().color(QPalette::Window));
    }

    void aDesktopWithColoursOfItsOwnKeepsThemWhereTheyFit()
    {
        const QPalette own{QColor{"#e0e0d0"}};
        const ChangingTheme theme{own};

        for (const Scheme scheme : {Scheme::NoPreference, Scheme::Light}) {
            const ChosenAppearance appearance{scheme};
            const DesktopPalette palette{appearance};
            for (const auto role : {QPalette::Window, QPalette::Text, QPalette::Highlight}) {
                QCOMPARE(QGuiApplication::palette().color(role), own.color(role));
            }
        }
    }

    void theAccentColourIsPutOverWhateverColoursThereAre()
    {
        const QPalette own{QColor{"#e0e0d0"}};
        const QWindow told;
        const Appearance::Preferences violet{.accent = Appearance::Color{0.6, 0, 0.8}};
        const auto accent = [] { return QGuiApplication::palette().color(QPalette::Highlight); };
        ChosenAppearance appearance{violet};
        const DesktopPalette palette{appearance};
        QCOMPARE(accent().name(), QStringLiteral("#9900cc"));

        ChangingTheme theme{own};
        theme.change(own);
        QCOMPARE(accent().name(), QStringLiteral("#9900cc"));
        QCOMPARE(window(), own.color(QPalette::Window));

        appearance.choose(Appearance::Preferences{});
        QCOMPARE(accent(), own.color(QPalette::Highlight));
    }

    void moreContrastIsPassedOnAndTakenBack()
    {
        ChosenAppearance appearance{Scheme::Dark};
        const DesktopPalette palette{appearance};
        QVERIFY(!Contrast::more());

        appearance.choose({.colorScheme = Scheme::Dark, .moreContrast = true});
        QVERIFY(Contrast::more());
        QCOMPARE(window(), DesktopPalette::dark(true).color(QPalette::Window));

        appearance.choose(Scheme::Dark);
        QVERIFY(!Contrast::more());
    }

    void ourColoursCanBeReadOnOneAnother()
    {
        for (const bool more : {false, true}) {
            for (const QPalette &ours : {DesktopPalette::light(more), DesktopPalette::dark(more)}) {
                const auto ratio = [&](QPalette::ColorRole one, QPalette::ColorRole other) {
                    return Contrast::ratio(ours.color(one), ours.color(other));
                };
                QVERIFY(ratio(QPalette::WindowText, QPalette::Window) >= 7);
                QVERIFY(ratio(QPalette::Text, QPalette::Base) >= 7);
                QVERIFY(ratio(QPalette::ButtonText, QPalette::Button) >= 7);
            }
        }
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
