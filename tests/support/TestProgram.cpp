// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/TestProgram.h"

#include <QGuiApplication>
#include <QTest>

#include <cstdio>
#include <map>
#include <string>

namespace norvane {

namespace {

struct Entry {
    RegisteredTest::Application application;
    std::function<std::unique_ptr<QObject>()> make;
};

std::map<std::string_view, Entry> &registry()
{
    static std::map<std::string_view, Entry> entries;
    return entries;
}

} // namespace

RegisteredTest::RegisteredTest(std::string_view name, Application application,
                               std::function<std::unique_ptr<QObject>()> make)
{
    registry().insert({name, {application, std::move(make)}});
}

} // namespace norvane

/// Usage: <program> <class> [what Qt Test takes: test functions, -v2, ...]
int main(int argc, char **argv)
{
    using namespace norvane;
    const auto entry = registry().find(argc > 1 ? argv[1] : "");
    if (entry == registry().end()) {
        std::puts("The first argument names one of these test classes:");
        for (const auto &[name, unused] : registry()) {
            std::puts(std::string{name}.c_str());
        }
        return EXIT_FAILURE;
    }
    argv[1] = argv[0];
    int count = argc - 1;
    const std::unique_ptr<QCoreApplication> application =
        entry->second.application == RegisteredTest::Application::Gui
            ? std::make_unique<QGuiApplication>(count, argv + 1)
            : std::make_unique<QCoreApplication>(count, argv + 1);
    return QTest::qExec(entry->second.make().get(), count, argv + 1);
}
