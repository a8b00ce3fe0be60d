// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

namespace norvane {

/// Whoever shows notifications on this desktop. It may come and go while the program runs.
class NotificationServer : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Hands one notification over: title and body as they are to read, whatever they hold. Exactly
    /// one of shown() and refused() follows, from the event loop, within a bounded time; until then
    /// the next must not be handed over.
    virtual void show(const QString &title, const QString &body, const QString &sound) = 0;
    /// Whether something that was shown may still be on the screen.
    [[nodiscard]] virtual bool isShowing() const = 0;

signals:
    void shown();
    /// It did not take the notification, or nobody knows whether it did: try again later.
    void refused();
    /// A server is there that was not there before.
    void appeared();
    /// The server is there no more, or no longer the one that is asked.
    void vanished();
    /// isShowing() has become false.
    void screenCleared();
};

} // namespace norvane
