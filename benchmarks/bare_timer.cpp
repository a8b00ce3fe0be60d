// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

// How soon a program can know that a minute has begun: waits with the kernel's wall-clock timer and
// nothing else. Argument: how many minutes. Prints the moment at which it woke up for each, in
// seconds since 1970.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <sys/timerfd.h>
#include <unistd.h>

int main(int argc, char **argv)
{
    using namespace std::chrono;

    const int timer = ::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC);
    auto minute = ceil<minutes>(system_clock::now());
    for (int left = argc > 1 ? std::atoi(argv[1]) : 1; left > 0; --left, minute += 1min) {
        const itimerspec when{
            .it_interval = {},
            .it_value = {.tv_sec = duration_cast<seconds>(minute.time_since_epoch()).count(),
                         .tv_nsec = 0}};
        std::uint64_t expirations = 0;
        if (::timerfd_settime(timer, TFD_TIMER_ABSTIME, &when, nullptr) != 0 ||
            ::read(timer, &expirations, sizeof expirations) != sizeof expirations) {
            return EXIT_FAILURE;
        }
        const auto woken = duration<double>{system_clock::now().time_since_epoch()};
        std::printf("%.6f\n", woken.count());
        std::fflush(stdout);
    }
    return EXIT_SUCCESS;
}
