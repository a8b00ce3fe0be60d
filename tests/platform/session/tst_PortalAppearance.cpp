// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/PortalAppearance.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/TestProgram.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QSignalSpy>
#include <QTest>

using namespace norvane;
using Scheme = Appearance::ColorScheme;

namespace {

/// The settings portal, as far as it is asked here.
class Portal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(const QDBusConnection &bus, uint scheme) : bus_{bus}, scheme_{scheme}
    {
        bus_.registerObject(path, this, QDBusConnection::ExportAllSlots);
        bus_.registerService(service);
    }
    Portal(const Portal &) = delete;
    Portal &operator=(const Portal &) = delete;
    ~Portal() override
    {
        bus_.unregisterService(service);
        bus_.unregisterObject(path);
    }

    void change(const QString &group, const QString &key, uint value)
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.portal.Settings"),
                                       QStringLiteral("SettingChanged"));
        signal << group << key << QVariant::fromValue(QDBusVariant{value});
        bus_.send(signal);
    }

public slots:
    QDBusVariant Read(const QString &group, const QString &key) const
    {
        const bool known = group == QStringLiteral("org.freedesktop.appearance") &&
                           key == QStringLiteral("color-scheme");
        // Real ones wrap it twice.
        return QDBusVariant{QVariant::fromValue(QDBusVariant{known ? scheme_ : 99})};
    }

private:
    static inline const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
    static inline const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

    QDBusConnection bus_;
    uint scheme_;
};

} // namespace

class TestPortalAppearance final : public QObject {
    Q_OBJECT

private slots:
    void thePortalIsAskedAtTheStart()
    {
        const Portal portal{other(), 1};

        const PortalAppearance appearance{QDBusConnection::sessionBus()};

        QCOMPARE(appearance.colorScheme(), Scheme::NoPreference); // Not waited for.
        QTRY_COMPARE(appearance.colorScheme(), Scheme::Dark);
    }

    void aSwitchIsFollowedLive()
    {
        Portal portal{other(), 2};
        const PortalAppearance appearance{QDBusConnection::sessionBus()};
        QTRY_COMPARE(appearance.colorScheme(), Scheme::Light);
        const QSignalSpy changed{&appearance, &Appearance::colorSchemeChanged};

        portal.change(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                      1);
        QTRY_COMPARE(appearance.colorScheme(), Scheme::Dark);
        portal.change(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                      0);
        QTRY_COMPARE(appearance.colorScheme(), Scheme::NoPreference);

        QCOMPARE(changed.count(), 2);
    }

    void otherSettingsAreNoneOfItsBusiness()
    {
        Portal portal{other(), 2};
        const PortalAppearance appearance{QDBusConnection::sessionBus()};
        QTRY_COMPARE(appearance.colorScheme(), Scheme::Light);

        portal.change(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("contrast"), 1);
        portal.change(QStringLiteral("org.example"), QStringLiteral("color-scheme"), 0);
        portal.change(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                      1);
        const QSignalSpy changed{&appearance, &Appearance::colorSchemeChanged};

        QTRY_COMPARE(appearance.colorScheme(), Scheme::Dark);
        QCOMPARE(changed.count(), 1);
    }

    void aPortalThatComesLaterIsAsked()
    {
        const PortalAppearance appearance{QDBusConnection::sessionBus()};

        const Portal portal{other(), 1};

        QTRY_COMPARE(appearance.colorScheme(), Scheme::Dark);
    }

    void withoutABusThereIsNoPreference()
    {
        const PortalAppearance appearance{QDBusConnection{QStringLiteral("none")}};

        QCOMPARE(appearance.colorScheme(), Scheme::NoPreference);
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
