// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

// The floor that the notification centre is measured against: Qt Core and Qt D-Bus, a name on the
// session bus, and nothing to do. Answers every call with an empty reply.
//
//     empty_bus_process NAME

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <cstdlib>

namespace {

class Sink final : public QDBusVirtualObject {
    Q_OBJECT

public:
    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        return connection.send(message.createReply());
    }
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application{argc, argv};
    QDBusConnection bus = QDBusConnection::sessionBus();
    Sink sink;
    const bool ready =
        bus.registerVirtualObject(QStringLiteral("/"), &sink, QDBusConnection::SubPath) &&
        bus.registerService(QCoreApplication::arguments().value(1));
    return ready ? QCoreApplication::exec() : EXIT_FAILURE;
}

#include "empty_bus_process.moc"
