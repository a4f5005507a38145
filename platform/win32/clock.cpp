#include "platform/system.h"
#include "platform/win32/win32.h"

namespace corvane::system {
namespace {

// No locale's date or time is longer.
constexpr int kLongestText = 256;

SYSTEMTIME SystemTimeOf(const LocalTime& time) {
    SYSTEMTIME result{};
    result.wYear = static_cast<WORD>(time.year);
    result.wMonth = static_cast<WORD>(time.month);
    result.wDay = static_cast<WORD>(time.day);
    result.wHour = static_cast<WORD>(time.hour);
    result.wMinute = static_cast<WORD>(time.minute);
    result.wSecond = static_cast<WORD>(time.second);
    return result;
}

LocalTime LocalTimeFrom(const SYSTEMTIME& time) {
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

}  // namespace

LocalTime Now() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return LocalTimeFrom(now);
}

LocalTime LocalTimeOf(int64_t modified) {
    const FILETIME written{static_cast<DWORD>(modified), static_cast<DWORD>(modified >> 32)};
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    FileTimeToSystemTime(&written, &universal);
    SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
    return LocalTimeFrom(local);
}

std::wstring ShortDateText(const LocalTime& time) {
    const SYSTEMTIME date = SystemTimeOf(time);
    wchar_t text[kLongestText] = L"";
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &date, nullptr, text, kLongestText,
                    nullptr);
    return text;
}

std::wstring LongTimeText(const LocalTime& time) {
    const SYSTEMTIME moment = SystemTimeOf(time);
    wchar_t text[kLongestText] = L"";
    GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &moment, nullptr, text, kLongestText);
    return text;
}

int64_t Milliseconds() {
    return static_cast<int64_t>(GetTickCount64());
}

void SleepFor(int milliseconds) {
    Sleep(static_cast<DWORD>(milliseconds));
}

}  // namespace corvane::system
