// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/notifier/SimulatedWorld.h"
#include "tests/support/TestProgram.h"

#include <QTest>

#include <algorithm>

using namespace norvane;

namespace {

constexpr int steps = 300;

/// A number from the environment.
int numberFrom(const char *variable, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : otherwise;
}

} // namespace

/// NORVANE_FIRST_SEED and NORVANE_SEEDS choose the seeds; 1 to 200 unless told.
class TestSimulation final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { before = qInstallMessageHandler(dropWarnings); }

    /// Fifty seeds a row, so that a run of many shows how far it is.
    void whateverHappensTheCentresDoWhatTheModelDoes_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("end");
        const int first = numberFrom("NORVANE_FIRST_SEED", 1);
        const int end = first + numberFrom("NORVANE_SEEDS", 200);
        for (int seed = first; seed < end; seed += 50) {
            const int rowEnd = std::min(seed + 50, end);
            QTest::addRow("seeds %d to %d", seed, rowEnd - 1) << seed << rowEnd;
        }
    }

    void whateverHappensTheCentresDoWhatTheModelDoes()
    {
        QFETCH(const int, first);
        QFETCH(const int, end);
        for (int seed = first; seed < end; ++seed) {
            simulation::SimulatedWorld world{static_cast<unsigned>(seed)};
            for (int step = 1; step <= steps; ++step) {
                const QString wrong = world.step();
                QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("seed %1, step %2: %3\n%4")
                                                         .arg(seed)
                                                         .arg(step)
                                                         .arg(wrong, world.history())));
            }
        }
    }

    void cleanupTestCase() { qInstallMessageHandler(before); }

private:
    /// The ledger's warnings of a disk that fails, which it does on purpose.
    static void dropWarnings(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        if (type != QtWarningMsg) {
            before(type, context, text);
        }
    }

    static inline QtMessageHandler before = nullptr;
};

NORVANE_TEST(TestSimulation)
#include "tst_Simulation.moc"
