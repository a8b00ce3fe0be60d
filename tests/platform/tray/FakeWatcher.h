// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>

namespace norvane {

/// A watcher of status items on a connection of its own, which notes who registers.
class FakeWatcher final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

public:
    /// `connection` names the connection. Answers, but does not own the name yet.
    explicit FakeWatcher(const QString &connection)
        : name_{connection},
          bus_{QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection)}
    {
        if (!bus_.registerObject(path(), this,
                                 QDBusConnection::ExportAllSlots |
                                     QDBusConnection::ExportAllProperties)) {
            qFatal("The watcher cannot be put on the bus");
        }
    }
    ~FakeWatcher() override { QDBusConnection::disconnectFromBus(name_); }

    /// Asks the bus for the watchers' name with these flags; whether it is ours now.
    bool own(uint flags = allowReplacement)
    {
        QDBusMessage call = onBus(QStringLiteral("RequestName"));
        call << service() << flags;
        constexpr uint ours = 1;
        return bus_.call(call).arguments().value(0).toUInt() == ours;
    }
    void release() { bus_.unregisterService(service()); }
    void setHost(bool hasHost)
    {
        hasHost_ = hasHost;
        bus_.send(
            QDBusMessage::createSignal(path(), service(),
                                       hasHost ? QStringLiteral("StatusNotifierHostRegistered")
                                               : QStringLiteral("StatusNotifierHostUnregistered")));
    }

    /// While refusing it answers like a watcher that has its name and nothing else yet.
    void setRefusing(bool refusing) { refusing_ = refusing; }
    [[nodiscard]] int refusals() const noexcept { return refusals_; }

    [[nodiscard]] bool hasHost() const noexcept { return hasHost_; }
    /// What was registered, each time it was.
    [[nodiscard]] const QStringList &registrations() const noexcept { return registrations_; }

    static constexpr uint allowReplacement = 1;
    static constexpr uint replaceExisting = 2;

public slots:
    void RegisterStatusNotifierItem(const QString &service)
    {
        if (refusing_) {
            ++refusals_;
            sendErrorReply(QDBusError::UnknownObject, QStringLiteral("Not ready."));
        } else {
            registrations_.append(service);
        }
    }

private:
    [[nodiscard]] static QString path() { return QStringLiteral("/StatusNotifierWatcher"); }
    [[nodiscard]] static QString service()
    {
        return QStringLiteral("org.kde.StatusNotifierWatcher");
    }
    [[nodiscard]] static QDBusMessage onBus(const QString &method)
    {
        return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                              QStringLiteral("/org/freedesktop/DBus"),
                                              QStringLiteral("org.freedesktop.DBus"), method);
    }

    QString name_;
    QDBusConnection bus_;
    bool hasHost_ = false;
    bool refusing_ = false;
    int refusals_ = 0;
    QStringList registrations_;
};

} // namespace norvane
