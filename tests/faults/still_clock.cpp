// A clock that does not run, instead of the program's own: an edit made twice gives the same
// text. Nobody waits, but where a test says so.
#include "tests/faults/still_clock.h"

#include <chrono>
#include <thread>

#include "platform/system.h"

namespace corvane::faults {

bool& WaitsForReal() {
    static bool waits = false;
    return waits;
}

}  // namespace corvane::faults

namespace corvane::system {

LocalTime Now() {
    return {2024, 2, 29, 12, 30, 45};
}

LocalTime LocalTimeOf(int64_t) {
    return Now();
}

std::wstring ShortDateText(const LocalTime&) {
    return L"29/02/2024";
}

std::wstring LongTimeText(const LocalTime&) {
    return L"12:30:45";
}

int64_t Milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

void SleepFor(int milliseconds) {
    if (!faults::WaitsForReal()) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace corvane::system
