#include "ui/base/system_services.h"

// After windows.h.
#include <objbase.h>
#include <shellapi.h>

#include <cstring>

namespace corvane {
namespace {

// Another program may use the clipboard for a moment.
bool OpenClipboardOf(HWND owner) {
    constexpr int kTries = 10;
    constexpr int kPause = 20;  // milliseconds
    for (int i = 0; i < kTries; ++i) {
        if (OpenClipboard(owner) != 0) return true;
        system::SleepFor(kPause);
    }
    return false;
}

// The system owns the memory once it has taken it.
bool SetClipboardText(const std::wstring& text) {
    const size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    if (memory == nullptr) return false;
    std::memcpy(GlobalLock(memory), text.c_str(), size);
    GlobalUnlock(memory);
    if (SetClipboardData(CF_UNICODETEXT, memory) != nullptr) return true;
    GlobalFree(memory);
    return false;
}

}  // namespace

ComScope::ComScope() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}

ComScope::~ComScope() {
    if (SUCCEEDED(result_)) CoUninitialize();
}

system::ErrorNumber OpenDocument(const std::wstring& path) {
    const ComScope com;
    SHELLEXECUTEINFOW execution{};
    execution.cbSize = sizeof(execution);
    // The program reports what went wrong itself.
    execution.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    execution.lpFile = path.c_str();
    execution.nShow = SW_SHOWNORMAL;
    if (ShellExecuteExW(&execution) != 0) return system::kErrorNone;
    const DWORD error = GetLastError();
    return error == ERROR_SUCCESS ? system::kErrorFileNotFound : error;
}

bool CopyText(HWND owner, const std::wstring& text) {
    if (!OpenClipboardOf(owner)) return false;
    const bool isCopied = EmptyClipboard() != 0 && SetClipboardText(text);
    CloseClipboard();
    return isCopied;
}

}  // namespace corvane
