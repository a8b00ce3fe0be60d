// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/StatusNotifierItem.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/TestProgram.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace norvane;

namespace {

const QString itemPath = QStringLiteral("/StatusNotifierItem");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

} // namespace

class TestStatusNotifierItem final : public QObject {
    Q_OBJECT

    PrivateSessionBus sessionBus_;

    /// Calls as a host does, from another connection, while this thread answers.
    static QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                             const QVariantList &arguments = {})
    {
        QDBusConnection host =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("host"));
        QDBusMessage message = QDBusMessage::createMethodCall(
            QDBusConnection::sessionBus().baseService(), path, interface, method);
        message.setArguments(arguments);
        return host.call(message, QDBus::BlockWithGui);
    }
    static QVariant property(const QString &path, const QString &interface, const QString &name)
    {
        const QDBusMessage answer = call(path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                         QStringLiteral("Get"), {interface, name});
        return answer.arguments().value(0).value<QDBusVariant>().variant();
    }
    static QVariant itemProperty(const char *name)
    {
        return property(itemPath, itemInterface, QString::fromLatin1(name));
    }

private slots:
    void tellsHostsWhatTheyNeed_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("category") << QByteArray{"Category"}
                                  << QVariant{QStringLiteral("ApplicationStatus")};
        QTest::newRow("id") << QByteArray{"Id"} << QVariant{QStringLiteral("org.norvane.Norvane")};
        QTest::newRow("title") << QByteArray{"Title"} << QVariant{QStringLiteral("Norvane")};
        QTest::newRow("status") << QByteArray{"Status"} << QVariant{QStringLiteral("Active")};
        QTest::newRow("no window") << QByteArray{"WindowId"} << QVariant{0};
        QTest::newRow("not a menu only") << QByteArray{"ItemIsMenu"} << QVariant{false};
        QTest::newRow("icon") << QByteArray{"IconName"}
                              << QVariant{QStringLiteral("org.norvane.Norvane-symbolic")};
        QTest::newRow("icon for the ear")
            << QByteArray{"IconAccessibleDesc"} << QVariant{QStringLiteral("Norvane")};
        QTest::newRow("no folder of icons")
            << QByteArray{"IconThemePath"} << QVariant{QStringLiteral("")};
        QTest::newRow("menu") << QByteArray{"Menu"}
                              << QVariant::fromValue(QDBusObjectPath{QStringLiteral("/MenuBar")});
    }
    void tellsHostsWhatTheyNeed()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const QVariant, value);
        StatusNotifierItem item{QDBusConnection::sessionBus()};
        item.setImage(QStringLiteral("org.norvane.Norvane-symbolic"), QStringLiteral("Norvane"));

        QCOMPARE(itemProperty(name.constData()), value);
    }

    void itsToolTipIsItsNameAlone()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};

        const auto toolTip = qdbus_cast<ToolTip>(itemProperty("ToolTip"));

        QCOMPARE(toolTip.title, QStringLiteral("Norvane"));
        QCOMPARE(toolTip.text, QString{});
    }

    void itsPixelsComeInAllSizesThatPanelsUse()
    {
        StatusNotifierItem item{QDBusConnection::sessionBus()};
        item.setImage(QStringLiteral("org.norvane.Norvane-symbolic"), QStringLiteral("Norvane"));

        const auto pixmaps = qdbus_cast<IconPixmapList>(itemProperty("IconPixmap"));

        QList<int> widths;
        for (const IconPixmap &pixmap : pixmaps) {
            widths.append(pixmap.width);
            QCOMPARE(pixmap.height, pixmap.width);
            QCOMPARE(pixmap.argb.size(), qsizetype{4} * pixmap.width * pixmap.height);
        }
        QCOMPARE(widths, (QList<int>{16, 22, 24, 32, 48, 64}));
    }

    void itsPixelsStandOutFromLightAndFromDark()
    {
        StatusNotifierItem item{QDBusConnection::sessionBus()};
        item.setImage(QStringLiteral("org.norvane.Norvane-symbolic"), QStringLiteral("Norvane"));

        for (const IconPixmap &pixmap : item.iconPixmap()) {
            int white = 0;
            int dark = 0;
            for (qsizetype i = 0; i < pixmap.argb.size(); i += 4) {
                const auto alpha = static_cast<uchar>(pixmap.argb[i]);
                const auto grey = static_cast<uchar>(pixmap.argb[i + 1]);
                white += alpha == 255 && grey >= 0xf0 ? 1 : 0;
                dark += alpha >= 0x80 && grey <= 0x50 ? 1 : 0;
            }
            // A drawing, not a blur: a good part of it is covered whole, and it has its edge.
            const int pixels = pixmap.width * pixmap.height;
            QVERIFY2(white * 16 > pixels, qPrintable(QString::number(white)));
            QVERIFY2(dark * 16 > pixels / 2, qPrintable(QString::number(dark)));
        }
    }

    void itsStraightLinesLieOnWholePixels()
    {
        StatusNotifierItem item{QDBusConnection::sessionBus()};
        item.setImage(QStringLiteral("org.norvane.Norvane-symbolic"), QStringLiteral("Norvane"));

        for (const IconPixmap &pixmap : item.iconPixmap()) {
            int white = 0;
            // In this corner there is only the square dot of the exclamation mark.
            for (int y = pixmap.height * 3 / 4; y < pixmap.height; ++y) {
                for (int x = pixmap.width * 3 / 4; x < pixmap.width; ++x) {
                    const qsizetype pixel = 4 * (qsizetype{y} * pixmap.width + x);
                    const auto grey = static_cast<uchar>(pixmap.argb[pixel + 1]);
                    const bool covered = pixmap.argb[pixel] != '\0';
                    QVERIFY2(!covered || grey <= 0x50 || grey >= 0xf0,
                             qPrintable(QStringLiteral("%1: %2").arg(pixmap.width).arg(grey)));
                    white += covered && grey >= 0xf0 ? 1 : 0;
                }
            }
            QVERIFY(white >= 4);
        }
    }

    void itsPixelsStandInTheMiddle()
    {
        StatusNotifierItem item{QDBusConnection::sessionBus()};
        item.setImage(QStringLiteral("org.norvane.Norvane-symbolic"), QStringLiteral("Norvane"));

        for (const IconPixmap &pixmap : item.iconPixmap()) {
            int left = pixmap.width;
            int right = -1;
            int top = pixmap.height;
            int bottom = -1;
            for (int y = 0; y < pixmap.height; ++y) {
                for (int x = 0; x < pixmap.width; ++x) {
                    if (static_cast<uchar>(pixmap.argb[4 * (qsizetype{y} * pixmap.width + x)]) >
                        0) {
                        left = std::min(left, x);
                        right = std::max(right, x);
                        top = std::min(top, y);
                        bottom = std::max(bottom, y);
                    }
                }
            }
            QCOMPARE(left, pixmap.width - 1 - right);
            QCOMPARE(top, pixmap.height - 1 - bottom);
        }
    }

    void activateIsAPressWithItsPlaceAndToken()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};
        QSignalSpy pressed{&item, &StatusNotifierItem::pressed};

        call(itemPath, itemInterface, QStringLiteral("ProvideXdgActivationToken"),
             {QStringLiteral("token")});
        call(itemPath, itemInterface, QStringLiteral("Activate"), {700, 15});

        QCOMPARE(pressed.count(), 1);
        const auto press = pressed.takeFirst().value(0).value<IconPress>();
        QCOMPARE(press.place, QPoint(700, 15));
        QCOMPARE(press.activationToken, QStringLiteral("token"));
    }

    void aTokenIsGoodForOnePress()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};
        QSignalSpy pressed{&item, &StatusNotifierItem::pressed};
        call(itemPath, itemInterface, QStringLiteral("ProvideXdgActivationToken"),
             {QStringLiteral("token")});

        call(itemPath, itemInterface, QStringLiteral("Activate"), {700, 15});
        call(itemPath, itemInterface, QStringLiteral("Activate"), {700, 15});

        QCOMPARE(pressed.count(), 2);
        QVERIFY(pressed.at(1).value(0).value<IconPress>().activationToken.isEmpty());
    }

    void onlyTheMainButtonPresses_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QVariantList>("arguments");
        QTest::newRow("middle button")
            << QStringLiteral("SecondaryActivate") << QVariantList{700, 15};
        QTest::newRow("menu button") << QStringLiteral("ContextMenu") << QVariantList{700, 15};
        QTest::newRow("wheel") << QStringLiteral("Scroll")
                               << QVariantList{120, QStringLiteral("vertical")};
    }
    void onlyTheMainButtonPresses()
    {
        QFETCH(const QString, method);
        QFETCH(const QVariantList, arguments);
        const StatusNotifierItem item{QDBusConnection::sessionBus()};
        const QSignalSpy pressed{&item, &StatusNotifierItem::pressed};

        const QDBusMessage answer = call(itemPath, itemInterface, method, arguments);

        QCOMPARE(answer.type(), QDBusMessage::ReplyMessage);
        QCOMPARE(pressed.count(), 0);
    }

    void aHostThatShowsNoMenusAsksToOpen()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};
        const QSignalSpy openRequested{&item, &StatusNotifierItem::openRequested};

        call(itemPath, itemInterface, QStringLiteral("ContextMenu"), {700, 15});

        QCOMPARE(openRequested.count(), 1);
    }

    void theMenuHasOneEntry()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};

        const QDBusMessage answer = call(TrayMenu::path(), menuInterface,
                                         QStringLiteral("GetLayout"), {0, -1, QStringList{}});

        const auto layout = qdbus_cast<MenuLayout>(answer.arguments().value(1));
        QCOMPARE(layout.children.size(), 1);
        const auto entry = qdbus_cast<MenuLayout>(layout.children.first().variant());
        QCOMPARE(entry.properties.value(QStringLiteral("label")),
                 QVariant{QStringLiteral("Open Norvane")});
    }

    void choosingTheEntryAsksToOpen()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};
        const QSignalSpy opened{&item, &StatusNotifierItem::openRequested};

        call(TrayMenu::path(), menuInterface, QStringLiteral("Event"),
             {1, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant{0}), 0U});

        QCOMPARE(opened.count(), 1);
    }

    void choosingTheEntryInAGroupOfEventsAsksToOpen()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};
        const QSignalSpy opened{&item, &StatusNotifierItem::openRequested};
        const MenuEventList events{{.id = 1,
                                    .eventId = QStringLiteral("clicked"),
                                    .data = QDBusVariant{0},
                                    .timestamp = 0}};

        const QDBusMessage answer =
            call(TrayMenu::path(), menuInterface, QStringLiteral("EventGroup"),
                 {QVariant::fromValue(events)});

        QCOMPARE(answer.type(), QDBusMessage::ReplyMessage);
        QCOMPARE(opened.count(), 1);
    }

    void theEntrysPropertiesCanBeAskedForInAGroup()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};

        const QDBusMessage answer =
            call(TrayMenu::path(), menuInterface, QStringLiteral("GetGroupProperties"),
                 {QVariant::fromValue(QList<int>{1}), QStringList{QStringLiteral("label")}});

        const auto entries = qdbus_cast<MenuEntryList>(answer.arguments().value(0));
        QCOMPARE(entries.size(), 1);
        QCOMPARE(entries.first().properties.value(QStringLiteral("label")),
                 QVariant{QStringLiteral("Open Norvane")});
    }

    void hoveringOverTheEntryDoesNothing()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};
        const QSignalSpy opened{&item, &StatusNotifierItem::openRequested};

        call(TrayMenu::path(), menuInterface, QStringLiteral("Event"),
             {1, QStringLiteral("hovered"), QVariant::fromValue(QDBusVariant{0}), 0U});

        QCOMPARE(opened.count(), 0);
    }

    void anUnknownEntryIsAnError()
    {
        const StatusNotifierItem item{QDBusConnection::sessionBus()};

        const QDBusMessage answer = call(TrayMenu::path(), menuInterface,
                                         QStringLiteral("GetLayout"), {7, -1, QStringList{}});

        QCOMPARE(answer.errorName(), QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"));
    }
};

NORVANE_GUI_TEST(TestStatusNotifierItem)
#include "tst_StatusNotifierItem.moc"
