// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QQuickWindow>

/// The least that a Qt program can do to have an icon and a window: what Norvane is measured by.
class BareItem final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")

public:
    BareItem()
    {
        QDBusConnection bus = QDBusConnection::sessionBus();
        if (!bus.registerObject(QStringLiteral("/StatusNotifierItem"), this,
                                QDBusConnection::ExportAllSlots)) {
            qFatal("There is no session bus to put the icon on.");
        }
        QDBusMessage call =
            QDBusMessage::createMethodCall(QStringLiteral("org.kde.StatusNotifierWatcher"),
                                           QStringLiteral("/StatusNotifierWatcher"),
                                           QStringLiteral("org.kde.StatusNotifierWatcher"),
                                           QStringLiteral("RegisterStatusNotifierItem"));
        call << bus.baseService();
        bus.send(call);
        window_.setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        window_.setColor(Qt::white);
        window_.resize(360, 420);
        window_.setPosition(460, 130);
        window_.create();
    }

public slots:
    void Activate(int /*x*/, int /*y*/)
    {
        window_.show();
        window_.requestActivate();
    }

private:
    QQuickWindow window_;
};

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application{argc, argv};
    const BareItem item;
    return QGuiApplication::exec();
}

#include "bare_tray_program.moc"
