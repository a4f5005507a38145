// The time of day does not run: an edit made twice gives the same text.
#include "tests/faults/still_clock.h"

#include <chrono>

#include "platform/system.h"

namespace corvane::faults {
namespace {

int64_t pausedSoFar_ms = 0;

}  // namespace

int64_t Paused_ms() {
    return pausedSoFar_ms;
}

std::function<void()>& AtPause() {
    static std::function<void()> atPause;
    return atPause;
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
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count() + faults::Paused_ms();
}

void SleepFor(int milliseconds) {
    faults::pausedSoFar_ms += milliseconds;
    if (faults::AtPause()) faults::AtPause()();
}

}  // namespace corvane::system
