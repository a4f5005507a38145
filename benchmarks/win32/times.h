// Times of procedures of the window, by the clock and of the processor.
#pragma once

#include <chrono>

#include "platform/win32/win32.h"

namespace corvane {

// In milliseconds.
struct Times {
    double clock;
    double processor;  // of this process; Wine's server and the screen are others
};

inline double ProcessorMilliseconds() {
    FILETIME created{}, ended{}, kernel{}, user{};
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto milliseconds = [](const FILETIME& time) {
        return (static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime) / 1e4;
    };
    return milliseconds(kernel) + milliseconds(user);
}

template <class Action>
Times MeasureOnce(Action action) {
    const double before = ProcessorMilliseconds();
    const auto begin = std::chrono::steady_clock::now();
    action();
    const std::chrono::duration<double, std::milli> clock =
        std::chrono::steady_clock::now() - begin;
    return {clock.count(), ProcessorMilliseconds() - before};
}

}  // namespace corvane
