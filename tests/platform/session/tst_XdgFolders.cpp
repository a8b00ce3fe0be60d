// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/XdgFolders.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/TestProgram.h"

#include <QTest>

#include <pwd.h>
#include <unistd.h>

using namespace norvane;
using std::filesystem::path;

class TestXdgFolders final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        qputenv("HOME", "/home/ada");
        qunsetenv("XDG_DATA_HOME");
        qunsetenv("XDG_STATE_HOME");
    }

    void withoutTheVariablesTheFoldersLieInTheHome()
    {
        QCOMPARE(XdgFolders::dataFolder(), path{"/home/ada/.local/share"});
        QCOMPARE(XdgFolders::stateFolder(), path{"/home/ada/.local/state"});
    }

    void anAbsolutePathInAVariableIsTheFolder()
    {
        qputenv("XDG_DATA_HOME", "/data/ada");
        qputenv("XDG_STATE_HOME", "/state/ada");

        QCOMPARE(XdgFolders::dataFolder(), path{"/data/ada"});
        QCOMPARE(XdgFolders::stateFolder(), path{"/state/ada"});
    }

    void anythingElseInAVariableIsIgnored_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("empty") << QByteArray{""};
        QTest::newRow("relative") << QByteArray{"data"};
        QTest::newRow("relative with a dot") << QByteArray{"./data"};
        QTest::newRow("an unexpanded home") << QByteArray{"~/data"};
        QTest::newRow("built into a program") << QByteArray{":/data"};
    }
    void anythingElseInAVariableIsIgnored()
    {
        QFETCH(const QByteArray, value);
        qputenv("XDG_DATA_HOME", value);
        qputenv("XDG_STATE_HOME", value);

        QCOMPARE(XdgFolders::dataFolder(), path{"/home/ada/.local/share"});
        QCOMPARE(XdgFolders::stateFolder(), path{"/home/ada/.local/state"});
    }

    void aPathMayHoldBlanksAndLettersOfAnyScript()
    {
        qputenv("XDG_DATA_HOME", "/home/ada/Daten für alle");

        QCOMPARE(XdgFolders::dataFolder(), path{"/home/ada/Daten für alle"});
    }

    void aPathNeedNotBeUnicode()
    {
        qputenv("XDG_DATA_HOME", "/home/ada/Donn\xE9"
                                 "es");
        qputenv("HOME", "/home/\xE9ric");

        QCOMPARE(XdgFolders::dataFolder(), path{"/home/ada/Donn\xE9"
                                                "es"});
        QCOMPARE(XdgFolders::stateFolder(), path{"/home/\xE9ric/.local/state"});
    }

    void withoutTheHomeVariableTheUserDatabaseKnowsTheHome_data()
    {
        QTest::addColumn<QByteArray>("home");
        QTest::newRow("unset") << QByteArray{};
        QTest::newRow("empty") << QByteArray{""};
        QTest::newRow("relative") << QByteArray{"home/ada"};
        QTest::newRow("built into a program") << QByteArray{":/home/ada"};
    }
    void withoutTheHomeVariableTheUserDatabaseKnowsTheHome()
    {
        QFETCH(const QByteArray, home);
        if (home.isNull()) {
            qunsetenv("HOME");
        } else {
            qputenv("HOME", home);
        }
        const passwd *const user = ::getpwuid(::getuid());
        QVERIFY(user != nullptr);

        QCOMPARE(XdgFolders::dataFolder(), path{user->pw_dir} / ".local/share");
    }

    void aUserWithoutAHomeHasNoFolders()
    {
        if (::geteuid() != 0) {
            QSKIP("Only root can become a user that the user database does not know.");
        }
        qunsetenv("HOME");
        constexpr uid_t unknownUser = 54'321;

        const auto outcome = ForkedChild::run(
            [] {
                return XdgFolders::dataFolder().empty() && XdgFolders::stateFolder().empty() ? 0
                                                                                             : 1;
            },
            unknownUser);

        QCOMPARE(outcome.status, 0);
    }
};

NORVANE_TEST(TestXdgFolders)
#include "tst_XdgFolders.moc"
