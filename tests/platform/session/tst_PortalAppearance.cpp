// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/PortalAppearance.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/TestProgram.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QSignalSpy>
#include <QTest>

#include <limits>
#include <utility>

using namespace norvane;
using Scheme = Appearance::ColorScheme;

namespace {

/// An accent colour as it crosses the bus.
struct Parts {
    double red = 0;
    double green = 0;
    double blue = 0;
};

QDBusArgument &operator<<(QDBusArgument &argument, const Parts &parts)
{
    argument.beginStructure();
    argument << parts.red << parts.green << parts.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Parts &parts)
{
    argument.beginStructure();
    argument >> parts.red >> parts.green >> parts.blue;
    argument.endStructure();
    return argument;
}

using Groups = QMap<QString, QVariantMap>;

const QString group = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
const QString contrast = QStringLiteral("contrast");
const QString accentColor = QStringLiteral("accent-color");

} // namespace

Q_DECLARE_METATYPE(Parts)

namespace {

/// The settings portal, as far as it is asked here.
class Portal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Portal(QDBusConnection bus, QVariantMap settings)
        : bus_{std::move(bus)},
          settings_{std::move(settings)}
    {
        qDBusRegisterMetaType<Groups>();
        qDBusRegisterMetaType<Parts>();
        if (!bus_.registerObject(path, this, QDBusConnection::ExportAllSlots) ||
            !bus_.registerService(service)) {
            qFatal("The portal cannot be offered");
        }
    }
    Portal(const Portal &) = delete;
    Portal &operator=(const Portal &) = delete;
    ~Portal() override
    {
        bus_.unregisterService(service);
        bus_.unregisterObject(path);
    }

    void change(const QString &changedGroup, const QString &key, const QVariant &value)
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.portal.Settings"),
                                       QStringLiteral("SettingChanged"));
        signal << changedGroup << key << QVariant::fromValue(QDBusVariant{value});
        QVERIFY(bus_.send(signal));
    }

public slots:
    Groups ReadAll(const QStringList &groups) const
    {
        return groups == QStringList{group} ? Groups{{group, settings_}} : Groups{};
    }

private:
    static inline const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
    static inline const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

    QDBusConnection bus_;
    QVariantMap settings_;
};

} // namespace

class TestPortalAppearance final : public QObject {
    Q_OBJECT

private slots:
    void thePortalIsAskedAtTheStart()
    {
        const Portal portal{other(),
                            {{colorScheme, 1U},
                             {contrast, 1U},
                             {accentColor, QVariant::fromValue(Parts{0.25, 0.5, 1})}}};

        const PortalAppearance appearance{QDBusConnection::sessionBus()};

        QCOMPARE(appearance.preferences(), Appearance::Preferences{}); // Not waited for.
        QTRY_COMPARE(appearance.preferences().colorScheme, Scheme::Dark);
        QVERIFY(appearance.preferences().moreContrast);
        QCOMPARE(appearance.preferences().accent, (Appearance::Color{0.25, 0.5, 1}));
    }

    void valuesInAnExtraVariantAreUnderstood()
    {
        const Portal portal{other(), {{colorScheme, QVariant::fromValue(QDBusVariant{1U})}}};

        const PortalAppearance appearance{QDBusConnection::sessionBus()};

        QTRY_COMPARE(appearance.preferences().colorScheme, Scheme::Dark);
    }

    void aSwitchIsFollowedLive()
    {
        Portal portal{other(), {{colorScheme, 2U}}};
        const PortalAppearance appearance{QDBusConnection::sessionBus()};
        QTRY_COMPARE(appearance.preferences().colorScheme, Scheme::Light);
        const QSignalSpy changed{&appearance, &Appearance::changed};

        portal.change(group, colorScheme, 1U);
        QTRY_COMPARE(appearance.preferences().colorScheme, Scheme::Dark);
        portal.change(group, colorScheme, 0U);
        QTRY_COMPARE(appearance.preferences().colorScheme, Scheme::NoPreference);

        QCOMPARE(changed.count(), 2);
    }

    void contrastAndAccentAreFollowedLive()
    {
        Portal portal{other(), {{colorScheme, 2U}}};
        const PortalAppearance appearance{QDBusConnection::sessionBus()};
        QTRY_COMPARE(appearance.preferences().colorScheme, Scheme::Light);

        portal.change(group, contrast, 1U);
        QTRY_VERIFY(appearance.preferences().moreContrast);
        portal.change(group, accentColor, QVariant::fromValue(Parts{1, 0, 0.5}));
        QTRY_COMPARE(appearance.preferences().accent, (Appearance::Color{1, 0, 0.5}));
        portal.change(group, contrast, 0U);
        QTRY_VERIFY(!appearance.preferences().moreContrast);

        QCOMPARE(appearance.preferences().colorScheme, Scheme::Light);
    }

    void anInvalidAccentColourCountsAsNone_data()
    {
        QTest::addColumn<QVariant>("value");
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("unset") << QVariant::fromValue(Parts{-1, -1, -1});
        QTest::newRow("too much") << QVariant::fromValue(Parts{0.5, 1.01, 0.5});
        QTest::newRow("not a number") << QVariant::fromValue(Parts{nan, 0.5, 0.5});
        QTest::newRow("another type") << QVariant{QStringLiteral("blue")};
    }
    void anInvalidAccentColourCountsAsNone()
    {
        QFETCH(const QVariant, value);
        Portal portal{other(), {{accentColor, QVariant::fromValue(Parts{1, 0, 0.5})}}};
        const PortalAppearance appearance{QDBusConnection::sessionBus()};
        QTRY_VERIFY(appearance.preferences().accent);

        portal.change(group, accentColor, value);

        QTRY_VERIFY(!appearance.preferences().accent);
    }

    void otherSettingsAndGroupsAreIgnored()
    {
        Portal portal{other(), {{colorScheme, 2U}}};
        const PortalAppearance appearance{QDBusConnection::sessionBus()};
        QTRY_COMPARE(appearance.preferences().colorScheme, Scheme::Light);
        const QSignalSpy changed{&appearance, &Appearance::changed};

        portal.change(group, QStringLiteral("reduced-motion"), 1U);
        portal.change(QStringLiteral("org.example"), colorScheme, 0U);
        portal.change(group, colorScheme, 1U);

        QTRY_COMPARE(appearance.preferences().colorScheme, Scheme::Dark);
        QCOMPARE(changed.count(), 1);
    }

    void aPortalThatComesLaterIsAsked()
    {
        const PortalAppearance appearance{QDBusConnection::sessionBus()};

        const Portal portal{other(), {{colorScheme, 1U}}};

        QTRY_COMPARE(appearance.preferences().colorScheme, Scheme::Dark);
    }

    void withoutABusThereIsNoPreference()
    {
        const PortalAppearance appearance{QDBusConnection{QStringLiteral("none")}};

        QCOMPARE(appearance.preferences(), Appearance::Preferences{});
    }

private:
    /// The portal's own connection.
    [[nodiscard]] static QDBusConnection other()
    {
        return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
    }

    PrivateSessionBus bus_;
};

NORVANE_TEST(TestPortalAppearance)
#include "tst_PortalAppearance.moc"
