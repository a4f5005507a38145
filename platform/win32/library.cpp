#include <string>
#include <string_view>

#include "platform/companion.h"
#include "platform/win32/win32.h"

namespace corvane {
namespace {

// A damaged library is the caller's to report: Windows is not to show its own box.
HMODULE LoadCompanion(const std::wstring& name, uint32_t& error) {
    DWORD oldMode = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &oldMode);
    const HMODULE module = LoadLibraryExW(
        name.c_str(), nullptr, LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
    error = module == nullptr ? GetLastError() : 0;
    SetThreadErrorMode(oldMode, nullptr);
    return module;
}

}  // namespace

// Windows 7 has the function since an update of 2011.
void RestrictLibrarySearch() {
    const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
    const auto set =
        AsFunction<BOOL WINAPI(DWORD)>(GetProcAddress(kernel, "SetDefaultDllDirectories"));
    if (set != nullptr) set(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
}

void* FindLibraryFunction(const char* library, const char* function, uint32_t& error) {
    const std::string_view name = library;
    const HMODULE module = LoadCompanion(std::wstring(name.begin(), name.end()), error);
    if (module == nullptr) return nullptr;
    const FARPROC address = GetProcAddress(module, function);
    error = address == nullptr ? GetLastError() : 0;
    return reinterpret_cast<void*>(address);
}

}  // namespace corvane
