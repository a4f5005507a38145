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

// With the NUL at the end.
template <class Text>
std::span<const std::byte> BytesOf(const Text& text) {
    return std::as_bytes(std::span(text.c_str(), text.size() + 1));
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

void SetRestart(const std::wstring& arguments) {
    const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
    const auto set = AsFunction<HRESULT WINAPI(PCWSTR, DWORD)>(
        GetProcAddress(kernel, "RegisterApplicationRestart"));
    if (set != nullptr && FAILED(set(arguments.c_str(), 0))) set(L"", 0);
}

OwnClipboard::OwnClipboard(HWND owner) : isOpen_(OpenClipboardOf(owner)) {
    if (isOpen_) EmptyClipboard();
}

OwnClipboard::~OwnClipboard() {
    if (isOpen_) CloseClipboard();
}

// The system owns the memory once it has taken it.
bool OwnClipboard::Put(UINT format, std::span<const std::byte> bytes) const {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (memory == nullptr) return false;
    std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
    GlobalUnlock(memory);
    if (SetClipboardData(format, memory) != nullptr) return true;
    GlobalFree(memory);
    return false;
}

bool CopyText(HWND owner, const std::wstring& text, const std::string& html) {
    const OwnClipboard clipboard(owner);
    if (!clipboard.IsOpen() || !clipboard.Put(CF_UNICODETEXT, BytesOf(text))) return false;
    return html.empty() || clipboard.Put(RegisterClipboardFormatW(L"HTML Format"), BytesOf(html));
}

}  // namespace corvane
