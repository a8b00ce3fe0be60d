// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/LegacyTray.h"

#include <QRect>

#include <chrono>
#include <utility>

namespace norvane {

namespace {

using namespace std::chrono_literals;

/// A panel with both kinds of tray starts this one first; the other one appears within this time.
constexpr auto timeForOtherTray = 500ms;
constexpr int timeToEnd = 1000;
constexpr int startAttempts = 10;

} // namespace

LegacyTray::LegacyTray(QString program) : program_{std::move(program)}
{
    startDelay_.setSingleShot(true);
    startDelay_.setInterval(timeForOtherTray);
    connect(&startDelay_, &QTimer::timeout, this, &LegacyTray::startIcon);
    connect(&watch_, &X11TrayWatch::changed, this, &LegacyTray::renew);
    renew();
}

LegacyTray::~LegacyTray()
{
    endIcon();
}

bool LegacyTray::isShown() const
{
    return icon_ && icon_->state() == QProcess::Running;
}

void LegacyTray::renew()
{
    startDelay_.stop();
    endIcon();
    attemptsLeft_ = startAttempts;
    if (watch_.hasTray()) {
        startDelay_.start();
    }
}

void LegacyTray::startIcon()
{
    --attemptsLeft_;
    icon_ = std::make_unique<QProcess>();
    icon_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    connect(icon_.get(), &QProcess::readyReadStandardOutput, this, &LegacyTray::readPresses);
    connect(icon_.get(), &QProcess::stateChanged, this, [this](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning && attemptsLeft_ > 0) {
            startDelay_.start(); // It was killed, or did not come up.
        }
    });
    icon_->start(program_, {iconName_});
}

/// Blocks until the process has ended, normally a few milliseconds, so that a tray never shows two
/// icons.
void LegacyTray::endIcon()
{
    if (icon_) {
        icon_->disconnect(this);
        icon_->closeWriteChannel();
        if (!icon_->waitForFinished(timeToEnd)) {
            icon_->kill();
            icon_->waitForFinished(timeToEnd);
        }
        icon_.reset();
    }
}

void LegacyTray::readPresses()
{
    while (icon_->canReadLine()) {
        const QList<QByteArray> numbers = icon_->readLine().simplified().split(' ');
        if (numbers.size() == 4) {
            const QRect icon{numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(),
                             numbers[3].toInt()};
            emit pressed({.icon = icon, .place = {}, .activationToken = {}});
        }
    }
}

} // namespace norvane
