// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <array>
#include <csignal>
#include <functional>
#include <optional>

#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace norvane {

/// Runs a piece of a test in a copy of the process: as another user, or because it is to die.
class ForkedChild {
public:
    /// Nobody: owns no file. Where the tests are not run by root they are an ordinary user already.
    static constexpr uid_t ordinaryUser = 65'534;

    struct Outcome {
        QByteArray output;         ///< What it wrote to standard output and error.
        std::optional<int> status; ///< What the work returned; none after a signal.
        int signal = 0;            ///< What killed it.
    };

    /// Returns when the work has ended. Root becomes `user` for it.
    [[nodiscard]] static Outcome run(const std::function<int()> &work,
                                     std::optional<uid_t> user = std::nullopt)
    {
        std::array<int, 2> pipe{};
        if (::pipe(pipe.data()) != 0) {
            return {};
        }
        const pid_t child = ::fork();
        if (child == 0) {
            ::dup2(pipe[1], STDOUT_FILENO);
            ::dup2(pipe[1], STDERR_FILENO);
            ::close(pipe[0]);
            std::signal(SIGABRT, SIG_DFL); // Qt Test's would write a report.
            const rlimit none{0, 0};
            ::setrlimit(RLIMIT_CORE, &none);
            ::_exit(become(user) ? work() : 255);
        }
        ::close(pipe[1]);
        return outcomeOf(child, pipe[0]);
    }

private:
    [[nodiscard]] static bool become(std::optional<uid_t> user)
    {
        return !user || ::geteuid() != 0 ||
               (::setgroups(0, nullptr) == 0 && ::setresgid(*user, *user, *user) == 0 &&
                ::setresuid(*user, *user, *user) == 0);
    }

    [[nodiscard]] static Outcome outcomeOf(pid_t child, int output)
    {
        Outcome outcome;
        std::array<char, 4096> buffer{};
        for (ssize_t count = 1; count > 0;) {
            count = ::read(output, buffer.data(), buffer.size());
            outcome.output.append(buffer.data(), count > 0 ? count : 0);
        }
        ::close(output);
        int status = 0;
        ::waitpid(child, &status, 0);
        if (WIFEXITED(status)) {
            outcome.status = WEXITSTATUS(status);
        } else if (WIFSIGNALED(status)) {
            outcome.signal = WTERMSIG(status);
        }
        return outcome;
    }
};

} // namespace norvane
