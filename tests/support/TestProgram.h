// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <string_view>

namespace norvane {

/// One test class of a test program.
///
/// The classes of a folder share one program, because linking a program for each takes longer than
/// compiling it. `NORVANE_TEST(TestTrial)` at the end of a file adds its class; the program runs
/// the class that its first argument names, so that each class still has a process of its own.
class RegisteredTest {
public:
    enum class Application { Core, Gui };

    RegisteredTest(std::string_view name, Application application,
                   std::function<std::unique_ptr<QObject>()> make);
};

} // namespace norvane

/// Adds a test class that needs a QCoreApplication.
#define NORVANE_TEST(TestClass)                                                                    \
    static const norvane::RegisteredTest registered##TestClass{                                    \
        #TestClass, norvane::RegisteredTest::Application::Core,                                    \
        [] { return std::make_unique<TestClass>(); }};

/// Adds a test class that needs a QGuiApplication.
#define NORVANE_GUI_TEST(TestClass)                                                                \
    static const norvane::RegisteredTest registered##TestClass{                                    \
        #TestClass, norvane::RegisteredTest::Application::Gui,                                     \
        [] { return std::make_unique<TestClass>(); }};
