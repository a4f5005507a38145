// The user's regional settings.
#include <array>
#include <string_view>

#include "companions/ztutil32/boolean.h"
#include "platform/win32/win32.h"
#include "platform/ztutil32.h"

namespace {

// Windows has at most three characters and a NUL for a symbol.
using Symbol = std::array<wchar_t, 16>;

bool IsPoint(LCTYPE symbol) {
    Symbol text{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, symbol, text.data(), static_cast<int>(text.size()));
    return std::wstring_view(text.data()) == L".";
}

bool IsSuitable() {
    return IsPoint(LOCALE_SDECIMAL) && !IsPoint(LOCALE_STHOUSAND);
}

// Tells all programs that the settings changed; one that hangs is not waited for.
void TellAllWindows() {
    constexpr UINT kMilliseconds = 500;
    static const wchar_t kArea[] = L"intl";
    SendMessageTimeoutW(HWND_BROADCAST, WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(kArea),
                        SMTO_ABORTIFHUNG, kMilliseconds, nullptr);
}

}  // namespace

CORVANE_EXPORT int16_t CORVANE_STDCALL IsRegionalOK() {
    return corvane::ztutil::Boolean(IsSuitable());
}

CORVANE_EXPORT int16_t CORVANE_STDCALL SetRegionalOK() {
    if (IsPoint(LOCALE_STHOUSAND)) SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, L",");
    if (!IsPoint(LOCALE_SDECIMAL)) SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L".");
    TellAllWindows();
    return corvane::ztutil::Boolean(IsSuitable());
}
