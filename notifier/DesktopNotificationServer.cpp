// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/DesktopNotificationServer.h"

#include "notifier/BodyMarkup.h"
#include "platform/bus/BusNames.h"

#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QVariantMap>
#include <QVersionNumber>

#include <algorithm>
#include <limits>

namespace norvane {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");

constexpr uchar normalUrgency = 1;
constexpr int untilTheServerDecides = -1;

/// Milliseconds, as the bus library takes it: no timeout at all.
constexpr int noTimeout = std::numeric_limits<int>::max();

constexpr std::chrono::minutes longestCheckPause{5};

/// The action of a click on the notification itself. Without a name, servers draw no button.
const QStringList clickAction{QStringLiteral("default"), QString{}};

QDBusMessage message(const QString &method)
{
    return QDBusMessage::createMethodCall(service, path, service, method);
}

/// Whether the answer came from a server; other errors come from the bus or from Qt. Told by the
/// error's name, because Qt 6.8 leaves the sender of a reply empty.
bool isFromServer(const QDBusMessage &answer)
{
    const QString error = answer.errorName();
    const QString family = QStringLiteral("org.freedesktop.DBus.Error.");
    static const QStringList others{
        QStringLiteral("ServiceUnknown"), QStringLiteral("NameHasNoOwner"),
        QStringLiteral("NoReply"),        QStringLiteral("Timeout"),
        QStringLiteral("TimedOut"),       QStringLiteral("Disconnected"),
        QStringLiteral("LimitsExceeded"),
    };
    if (error.startsWith(QLatin1StringView{"org.qtproject.QtDBus."})) {
        return false;
    }
    return !error.startsWith(family + QLatin1StringView{"Spawn."}) &&
           !(error.startsWith(family) && others.contains(error.mid(family.size())));
}

/// Whether the server does not take this notification, though it may take others. LimitsExceeded
/// can also come from the bus, when too many messages wait for the server; to try again later is
/// right in both cases.
bool isRefusal(const QDBusMessage &answer)
{
    return isFromServer(answer) ||
           answer.errorName() == QLatin1StringView{"org.freedesktop.DBus.Error.LimitsExceeded"};
}

/// Whether a server draws a button without text for the action of a click: LXQt's did before its
/// version 1.2, Xfce's does in Debian 13, and no version of it reports a click that hits no button.
bool drawsClickAction(const QString &name, const QString &version)
{
    return name == QLatin1StringView{"Xfce Notify Daemon"} ||
           (name == QLatin1StringView{"lxqt-notificationd"} &&
            QVersionNumber::fromString(version) < QVersionNumber{1, 2});
}

} // namespace

DesktopNotificationServer::DesktopNotificationServer(const QDBusConnection &bus,
                                                     std::chrono::milliseconds timeout,
                                                     QObject *parent)
    : NotificationServer{parent},
      bus_{bus},
      timeout_{timeout},
      watcher_{service, bus, QDBusServiceWatcher::WatchForOwnerChange}
{
    answerTimer_.setSingleShot(true);
    connect(&answerTimer_, &QTimer::timeout, this, &DesktopNotificationServer::askWhetherItLives);
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &oldOwner, const QString &newOwner) {
                ownerChanged(oldOwner, newOwner);
            });
}

void DesktopNotificationServer::show(const NotificationRequest &request)
{
    request_ = request;
    ++attempt_;
    if (abilities_) {
        notify();
    } else {
        askCapabilities();
    }
}

void DesktopNotificationServer::askCapabilities()
{
    call(message(QStringLiteral("GetCapabilities")), static_cast<int>(timeout_.count()),
         [this](const QDBusMessage &answer) {
             if (answer.type() != QDBusMessage::ReplyMessage) {
                 fail(Failure::Unavailable);
                 return;
             }
             const QStringList words = answer.arguments().value(0).toStringList();
             const Abilities abilities{.markup = words.contains(QLatin1StringView{"body-markup"}),
                                       .clicks = words.contains(QLatin1StringView{"actions"})};
             if (abilities.clicks) {
                 askName(abilities);
             } else {
                 abilities_ = abilities;
                 notify();
             }
         });
}

void DesktopNotificationServer::askName(Abilities abilities)
{
    call(message(QStringLiteral("GetServerInformation")), static_cast<int>(timeout_.count()),
         [this, abilities](const QDBusMessage &answer) {
             if (!isFromServer(answer)) {
                 fail(Failure::Unavailable);
                 return;
             }
             // Name, vendor and version; of a server that does not tell them, nothing bad is known.
             const QVariantList information = answer.arguments();
             abilities_ = abilities;
             abilities_->clicks = !drawsClickAction(information.value(0).toString(),
                                                    information.value(2).toString());
             notify();
         });
}

void DesktopNotificationServer::notify()
{
    if (isOnHold_) {
        fail(Failure::Unavailable);
        return;
    }
    QVariantMap hints{
        {QStringLiteral("desktop-entry"), busNames::application},
        {QStringLiteral("urgency"), QVariant::fromValue(normalUrgency)},
    };
    if (request_.sound == NotificationRequest::defaultSound) {
        hints.insert(QStringLiteral("sound-name"), QStringLiteral("message-new-instant"));
    }
    QDBusMessage notify = message(QStringLiteral("Notify"));
    notify << QStringLiteral("Norvane") << 0U << busNames::application << request_.title
           << (abilities_->markup ? asMarkup(request_.body) : request_.body)
           << (abilities_->clicks ? clickAction : QStringList{}) << hints << untilTheServerDecides;

    state_ = State::Notifying;
    answerTimer_.start(timeout_);
    ++unanswered_;
    listenIfNeeded();
    call(notify, noTimeout,
         [this, request = request_, attempt = attempt_, owner = owner_](
             const QDBusMessage &answer) { notifyAnswered(request, attempt, owner, answer); });
}

void DesktopNotificationServer::notifyAnswered(const NotificationRequest &request, int attempt,
                                               int owner, const QDBusMessage &answer)
{
    --unanswered_;
    const bool isTaken = answer.type() == QDBusMessage::ReplyMessage;
    const uint id = answer.arguments().value(0).toUInt();
    if (isTaken && owner == owner_ && !closedMeanwhile_.contains(id)) {
        onScreen_.insert(id);
    }
    if (unanswered_ == 0) {
        closedMeanwhile_.clear();
    }
    listenIfNeeded();
    const bool isCurrent = attempt == attempt_ && state_ != State::Idle;
    if (isTaken) {
        if (isCurrent) {
            state_ = State::Idle;
            answerTimer_.stop();
        }
        emit shown(request);
    } else if (isCurrent) {
        fail(isRefusal(answer) ? Failure::Refused : Failure::Unavailable);
    }
}

/// Asks repeatedly, because such a call can be lost too, and with growing pauses, so that few calls
/// queue up at a server that never answers. One answer is enough, however late.
void DesktopNotificationServer::askWhetherItLives()
{
    state_ = State::Hanging;
    answerTimer_.start(std::min<std::chrono::milliseconds>(answerTimer_.intervalAsDuration() * 2,
                                                           longestCheckPause));
    call(message(QStringLiteral("GetCapabilities")), noTimeout,
         [this, attempt = attempt_](const QDBusMessage &answer) {
             if (isFromServer(answer) && attempt == attempt_ && state_ == State::Hanging) {
                 fail(Failure::Unanswered);
             }
         });
}

void DesktopNotificationServer::fail(Failure failure)
{
    state_ = State::Idle;
    answerTimer_.stop();
    emit failed(failure);
}

/// The signals tell of every program's notifications, and each would wake this one up: they are
/// listened to only as long as there may be something to hear about.
void DesktopNotificationServer::listenIfNeeded()
{
    const bool needed = unanswered_ > 0 || isShowing();
    if (needed == isListening_) {
        return;
    }
    isListening_ = needed;
    const bool isDone =
        listen(needed, QStringLiteral("NotificationClosed"), SLOT(closed(uint))) &&
        listen(needed, QStringLiteral("ActionInvoked"), SLOT(actionInvoked(uint, QString))) &&
        listen(needed, QStringLiteral("ActivationToken"), SLOT(tokenGiven(uint, QString)));
    if (!isDone) {
        qWarning("What becomes of notifications on the screen cannot be followed.");
    }
}

bool DesktopNotificationServer::listen(bool on, const QString &signal, const char *slot)
{
    return on ? bus_.connect(QString{}, path, service, signal, this, slot)
              : bus_.disconnect(QString{}, path, service, signal, this, slot);
}

void DesktopNotificationServer::closed(uint id)
{
    if (unanswered_ > 0) {
        closedMeanwhile_.insert(id); // The answer with this number may not have been handled yet.
    }
    if (onScreen_.remove(id) && onScreen_.isEmpty()) {
        listenIfNeeded();
        emit screenCleared();
    }
}

void DesktopNotificationServer::tokenGiven(uint id, const QString &token)
{
    token_ = {id, token};
}

/// The token, where the server has one, comes just before.
void DesktopNotificationServer::actionInvoked(uint id, const QString &action)
{
    if (onScreen_.contains(id) && action == clickAction.first()) {
        emit clicked(token_.first == id ? token_.second : QString{});
    }
    token_ = {};
}

void DesktopNotificationServer::ownerChanged(const QString &oldOwner, const QString &newOwner)
{
    const bool hasOne = state_ == State::Notifying || state_ == State::Hanging;
    ++owner_;
    abilities_.reset();
    if (!onScreen_.isEmpty()) {
        onScreen_.clear(); // They went with the server that showed them.
        listenIfNeeded();
        emit screenCleared();
    }
    if (!oldOwner.isEmpty()) {
        emit disappeared();
        if (hasOne) {
            fail(newOwner.isEmpty() ? Failure::Died : Failure::Unavailable);
        }
    }
    if (!newOwner.isEmpty()) {
        emit appeared();
    }
}

void DesktopNotificationServer::call(const QDBusMessage &message, int timeout,
                                     const Answered &answered)
{
    auto *const watcher = new QDBusPendingCallWatcher{bus_.asyncCall(message, timeout), this};
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, answered] {
        watcher->deleteLater();
        answered(watcher->reply());
    });
}

} // namespace norvane
