#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <thread>

#include "platform/host/native.h"
#include "platform/system.h"

namespace corvane::system {
namespace {

LocalTime LocalTimeAt(std::time_t time) {
    std::tm parts{};
    localtime_r(&time, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
            parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

}  // namespace

LocalTime Now() {
    return LocalTimeAt(std::time(nullptr));
}

LocalTime LocalTimeOf(int64_t modified) {
    return LocalTimeAt(static_cast<std::time_t>(modified / 1'000'000'000));
}

std::wstring ShortDateText(const LocalTime& time) {
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "%02d/%02d/%04d", time.day, time.month, time.year);
    return WideFromUtf8(text.data());
}

std::wstring LongTimeText(const LocalTime& time) {
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", time.hour, time.minute, time.second);
    return WideFromUtf8(text.data());
}

int64_t Milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

void SleepFor(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace corvane::system
