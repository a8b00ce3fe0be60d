// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

// How long the store takes to be ready, by the number of trials in its file: reading, planning
// every reminder and writing the file again. The time per trial must not grow with their number.

#include "model/record/TrialsFile.h"
#include "model/store/TrialStore.h"
#include "platform/BackgroundTasks.h"
#include "platform/Clock.h"
#include "platform/Folders.h"
#include "platform/NotificationCenter.h"
#include "platform/Platform.h"
#include "time/Zone.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace norvane;

namespace {

constexpr PointInTime now{757'382'400};

class ClockInBerlin final : public Clock {
public:
    [[nodiscard]] PointInTime now() const override { return ::now; }
    [[nodiscard]] Zone zone() const override { return zone_; }

private:
    Zone zone_{QTimeZone{"Europe/Berlin"}};
};

class ClockOfTheMachine final : public Clock {
public:
    [[nodiscard]] PointInTime now() const override { return ::now; }
    [[nodiscard]] Zone zone() const override { return Zone::ofMachine(); }
};

/// Takes everything and keeps nothing, so that only Norvane's own work is measured.
class SilentCenter final : public NotificationCenter {
public:
    void requestAuthorization(Options /*options*/) override {}
    void addNotificationRequest(const NotificationRequest &request) override
    {
        benchmark::DoNotOptimize(request.identifier.size());
    }
    void removePendingNotificationRequests(const QStringList & /*identifiers*/) override {}
    void removeAllPendingNotificationRequests() override {}
};

class NoTasks final : public BackgroundTasks {
public:
    void detach(std::function<void()> /*work*/) override {}
};

QUuid anyId(qint64 /*number*/)
{
    return QUuid::createUuid();
}

/// As in a file made to harm: Qt's hash of all of them is the same.
QUuid collidingId(qint64 number)
{
    return QUuid::fromString(
        QStringLiteral("%1-0000-4000-8000-0000%1").arg(number, 8, 16, QLatin1Char{'0'}));
}

/// Trials that all get three reminders.
QByteArray fileOf(qint64 count, QUuid (*idOf)(qint64))
{
    QList<Trial> trials;
    for (qint64 number = 0; number < count; ++number) {
        trials.append(Trial::make(QStringLiteral("Trial %1").arg(number),
                                  now.advanced(10 * 86'400.0 + static_cast<double>(number)), 9.99,
                                  QStringLiteral("notes"), now));
        trials.last().id = idOf(number);
    }
    return *TrialsFile::encode(trials);
}

template <typename StoppedClock, QUuid (*idOf)(qint64)>
void storeStart(benchmark::State &state)
{
    const StoppedClock clock;
    const QTemporaryDir folder;
    const std::filesystem::path dataFolder{folder.path().toStdString()};
    SilentCenter center;
    NoTasks tasks;
    QFile file{folder.filePath(QStringLiteral("Norvane/trials.json"))};
    if (!makePrivateFolder(dataFolder / "Norvane") || !file.open(QIODevice::WriteOnly) ||
        file.write(fileOf(state.range(), idOf)) < 0) {
        state.SkipWithError("cannot write the trials file");
    }
    file.close();

    for (auto _ : state) {
        const TrialStore store{{clock, dataFolder, center, tasks}};
        benchmark::DoNotOptimize(store.trials().size());
    }

    state.counters["per_trial"] = benchmark::Counter(static_cast<double>(state.range()),
                                                     benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
    state.SetComplexityN(state.range());
}

BENCHMARK_TEMPLATE(storeStart, ClockInBerlin, anyId)
    ->RangeMultiplier(10)
    ->Range(100, 10'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK_TEMPLATE(storeStart, ClockInBerlin, collidingId)
    ->RangeMultiplier(10)
    ->Range(100, 10'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK_TEMPLATE(storeStart, ClockOfTheMachine, anyId)
    ->RangeMultiplier(10)
    ->Range(100, 10'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

} // namespace

BENCHMARK_MAIN();
