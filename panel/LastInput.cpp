// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/LastInput.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace norvane {

namespace {

bool isModifier(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
        return true;
    default:
        return false;
    }
}

} // namespace

LastInput::LastInput(QObject *parent) : QObject{parent}
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool LastInput::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!isModifier(*static_cast<QKeyEvent *>(event))) {
            take(true);
        }
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        take(false);
        break;
    case QEvent::Hide:
        if (watched->isWindowType()) {
            take(false);
        }
        break;
    default:
        break;
    }
    return false;
}

void LastInput::take(bool isKey)
{
    if (isKey != isKey_) {
        isKey_ = isKey;
        emit changed();
    }
}

} // namespace norvane
