// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

// Feeds bytes to everything that reads what came from outside. Built with NORVANE_FUZZERS it is a
// fuzzer of the library that comes with clang; the environment says what it feeds:
//     cmake --preset fuzz && cmake --build --preset fuzz
//     NORVANE_FUZZ=trials build/fuzz/tests/fuzz/norvane-fuzz CORPUS_FOLDER -max_total_time=60
// Otherwise it feeds every file of a folder:
//     norvane-fuzz trials CORPUS_FOLDER

#include "model/record/Cost.h"
#include "model/record/TrialsFile.h"
#include "notifier/BodyMarkup.h"
#include "notifier/Ledger.h"
#include "notifier/Scheduler.h"
#include "panel/DateTimeFormat.h"
#include "tests/notifier/FakeSurroundings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string_view>

using namespace norvane;
using namespace std::chrono;

namespace {

/// Ends the program, as a fault of memory does.
void require(bool isTrue, const char *what)
{
    if (!isTrue) {
        std::fprintf(stderr, "Not so: %s\n", what);
        std::abort();
    }
}

/// What is read once is read the same from what is written then.
void feedTrialsFile(QByteArrayView bytes)
{
    if (const auto trials = TrialsFile::decode(bytes)) {
        const auto written = TrialsFile::encode(*trials);
        require(written.has_value(), "what was read can be written");
        const auto again = TrialsFile::decode(*written);
        require(again && TrialsFile::encode(*again) == written, "what was written reads the same");
    }
}

void feedCost(QByteArrayView bytes)
{
    const double cost = Cost::fromText(QString::fromUtf8(bytes));
    require(!Cost::text(cost).isEmpty(), "every cost has a text");
}

/// The first byte chooses the locale.
void feedDate(QByteArrayView bytes)
{
    static const QList<QLocale> locales{
        QLocale::c(),
        QLocale{QStringLiteral("en_US")},
        QLocale{QStringLiteral("de_DE")},
        QLocale{QStringLiteral("ar_EG")},
        QLocale{QStringLiteral("fa_IR")},
        QLocale{QStringLiteral("ja_JP")},
        QLocale{QStringLiteral("pl_PL")},
    };
    if (bytes.isEmpty()) {
        return;
    }
    const QLocale &locale = locales[static_cast<uchar>(bytes[0]) % locales.size()];
    const QString typed = QString::fromUtf8(bytes.sliced(1));
    const WallClockMinute before{2026, 2, 28, 12, 30};
    for (const DateTimeFormat &format :
         {DateTimeFormat::ofDay(locale), DateTimeFormat::ofTime(locale)}) {
        if (const auto minute = format.read(typed, before)) {
            require(minute->isValid(), "a day that was understood exists");
            require(!format.shown(*minute).text.isEmpty(), "and can be shown");
        }
    }
}

std::unique_ptr<Ledger> openLedger(const QString &folder)
{
    auto ledger = std::make_unique<Ledger>(folder);
    require(ledger->open(0ms), "the ledger opens");
    return ledger;
}

/// The five texts of a request, parted by newlines, and what the centre does with them.
void feedRequest(QByteArrayView bytes)
{
    static const QTemporaryDir folder;
    static const std::unique_ptr<Ledger> ledger = openLedger(folder.path());
    static const FakeClock clock{sys_days{2026y / July / 1} + 12h};
    static FakeAlarm alarm;
    static const FakeZone zone{"Europe/Berlin"};
    static Scheduler scheduler{*ledger, alarm, zone, clock};

    const QStringList texts = QString::fromUtf8(bytes).split(u'\n');
    const auto minute = WallClockMinute::fromText(texts.value(4));
    if (!minute || texts[0].isEmpty()) {
        return;
    }
    require(WallClockMinute::fromText(minute->text()) == minute, "a minute reads as it is written");
    const NotificationRequest request{.identifier = texts[0],
                                      .title = texts[1],
                                      .body = texts[2],
                                      .sound = texts[3],
                                      .trigger = *minute};
    require(!asMarkup(request.body).contains(u'<'), "no text becomes markup");
    const auto outcomes = scheduler.apply({RemoveAllRequests{}, AddRequest{request}});
    require(outcomes.back() == Scheduler::Outcome::Durable, "a request is kept");
    const auto pending = ledger->pending();
    require(pending && pending->size() <= 1, "and no other");
    require(pending->empty() || pending->front() == request, "as it was asked for");
    std::ignore = scheduler.apply({RemoveRequests{{request.identifier}}});
    require(!ledger->outboxHead(), "what is removed is gone");
}

/// Whatever the file holds, a request can be kept.
void feedLedger(QByteArrayView bytes)
{
    const QTemporaryDir folder;
    QFile file{folder.filePath(QStringLiteral("pending.sqlite"))};
    require(file.open(QFile::WriteOnly) && file.write(bytes.data(), bytes.size()) == bytes.size(),
            "there is a disk");
    file.close();
    const std::unique_ptr<Ledger> ledger = openLedger(folder.path());
    const FakeClock clock{sys_days{2026y / July / 1} + 12h};
    FakeAlarm alarm;
    const FakeZone zone{"UTC"};
    Scheduler scheduler{*ledger, alarm, zone, clock};
    scheduler.start();
    std::ignore = ledger->firstInOutbox([](const OutboxEntry &) { return false; });
    const auto outcomes =
        scheduler.apply({AddRequest{{.identifier = QStringLiteral("new-1h"),
                                     .title = {},
                                     .body = {},
                                     .sound = {},
                                     .trigger = WallClockMinute{2027, 1, 1, 0, 0}}}});
    require(outcomes.front() != Scheduler::Outcome::Refused, "a request is kept");
    require(ledger->isPending(QStringLiteral("new-1h")), "and pending");
}

const std::map<std::string_view, void (*)(QByteArrayView)> subjects{{"trials", feedTrialsFile},
                                                                    {"cost", feedCost},
                                                                    {"date", feedDate},
                                                                    {"request", feedRequest},
                                                                    {"ledger", feedLedger}};

void dropWarnings(QtMsgType /*type*/, const QMessageLogContext & /*context*/,
                  const QString & /*text*/)
{
}

} // namespace

#ifdef NORVANE_FUZZERS

extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments)
{
    static const QCoreApplication application{*count, *arguments};
    qInstallMessageHandler(dropWarnings);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uchar *bytes, std::size_t size)
{
    static const auto feed = subjects.at(std::getenv("NORVANE_FUZZ"));
    feed({bytes, static_cast<qsizetype>(size)});
    return 0;
}

#else

int main(int count, char **arguments)
{
    QCoreApplication application{count, arguments};
    qInstallMessageHandler(dropWarnings);
    const QDir folder{QString::fromLocal8Bit(arguments[2])};
    const QFileInfoList files = folder.entryInfoList(QDir::Files);
    for (const QFileInfo &one : files) {
        std::printf("%s\n", qPrintable(one.fileName()));
        std::fflush(stdout);
        QFile file{one.filePath()};
        require(file.open(QFile::ReadOnly), "the corpus can be read");
        subjects.at(arguments[1])(file.readAll());
    }
    return files.isEmpty() ? EXIT_FAILURE : EXIT_SUCCESS;
}

#endif
