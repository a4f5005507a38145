#include "ui/main_window/running_instance.h"

#include <string_view>
#include <utility>

#include "ui/base/control_ids.h"

namespace corvane {
namespace {

// Marks of the messages in which a file is handed over.
constexpr ULONG_PTR kOpenFile = 0x436F7276;
constexpr ULONG_PTR kCheckFile = 0x436F7277;
constexpr size_t kLongestPath = 32767;

// Milliseconds: how long a start may keep its windows away, how often that is looked at, and how
// long the running instance may take to answer.
constexpr ULONGLONG kPatience = 2000;
constexpr DWORD kPollInterval = 20;
constexpr UINT kAnswerTime = 5000;

// The file that a process runs; empty when the system does not say.
std::wstring ProgramFileOf(DWORD process) {
    const HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
    if (handle == nullptr) return {};
    std::wstring path(kLongestPath + 1, L'\0');
    auto length = static_cast<DWORD>(path.size());
    const BOOL isKnown = QueryFullProcessImageNameW(handle, 0, path.data(), &length);
    CloseHandle(handle);
    path.resize(isKnown != 0 ? length : 0);
    return path;
}

bool IsSameName(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

// The windows of another process that runs this program's file.
struct Instance {
    std::wstring programFile = ProgramFileOf(GetCurrentProcessId());
    HWND main = nullptr;     // FM_Main, visible or not
    HWND visible = nullptr;  // the topmost window that can be seen, or FM_Main when that can be

    bool HasMainInSight() const { return main != nullptr && main == visible; }
};

BOOL CALLBACK CompareWindow(HWND window, LPARAM parameter) {
    auto& instance = *reinterpret_cast<Instance*>(parameter);
    wchar_t className[64] = L"";
    GetClassNameW(window, className, 64);
    const bool isMain = std::wstring_view(className) == kMainWindowClass;
    const bool isVisible = IsWindowVisible(window) != FALSE;
    if (!isMain && !isVisible) return TRUE;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) return TRUE;
    if (!IsSameName(ProgramFileOf(process), instance.programFile)) return TRUE;
    if (isMain) instance.main = window;
    if (isVisible && (isMain || instance.visible == nullptr)) instance.visible = window;
    return TRUE;
}

// Waits for the main window to be shown, as long as a start may take.
Instance FindInstance() {
    const ULONGLONG end = GetTickCount64() + kPatience;
    Instance instance;
    for (;;) {
        instance.main = instance.visible = nullptr;
        EnumWindows(CompareWindow, reinterpret_cast<LPARAM>(&instance));
        if (instance.HasMainInSight() || GetTickCount64() > end) return instance;
        Sleep(kPollInterval);
    }
}

// Whether the main window takes the file.
bool IsTaken(HWND main, StartRequest request) {
    std::wstring& file = request.file;
    COPYDATASTRUCT data{};
    data.dwData = request.check ? kCheckFile : kOpenFile;
    data.cbData = static_cast<DWORD>(file.size() * sizeof(wchar_t));
    data.lpData = file.data();
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(main, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data),
                               SMTO_ABORTIFHUNG, kAnswerTime, &answer) != 0 &&
           answer != FALSE;
}

// "C:\ship.ve2", as AbsolutePath gives it.
bool IsOnDrive(const std::wstring& path) {
    const wchar_t drive = path.empty() ? L' ' : path[0];
    const bool isLetter = (drive >= L'A' && drive <= L'Z') || (drive >= L'a' && drive <= L'z');
    return isLetter && path.size() > 3 && path.compare(1, 2, L":\\") == 0;
}

// "\\machine\share\ship.ve2"; "\\.\" and "\\?\" lead to devices.
bool IsOnShare(const std::wstring& path) {
    if (!path.starts_with(L"\\\\") || path.starts_with(L"\\\\.\\") ||
        path.starts_with(L"\\\\?\\")) {
        return false;
    }
    const size_t machine = path.find(L'\\', 2);
    const size_t share = machine == std::wstring::npos ? machine : path.find(L'\\', machine + 1);
    return machine > 2 && share != std::wstring::npos && share > machine + 1 &&
           share + 1 < path.size();
}

}  // namespace

HandOver HandToRunningInstance(const StartRequest& request) {
    const Instance instance = FindInstance();
    if (instance.visible == nullptr) return HandOver::kNoWindow;
    if (IsIconic(instance.visible)) ShowWindowAsync(instance.visible, SW_RESTORE);
    SetForegroundWindow(GetLastActivePopup(instance.visible));
    if (request.file.empty()) return HandOver::kDone;
    // There is no main window yet while a box is shown at the beginning of the start.
    const bool isTaken = instance.main != nullptr && IsTaken(instance.main, request);
    return isTaken ? HandOver::kDone : HandOver::kFileNotTaken;
}

StartRequest ReadHandedOver(const COPYDATASTRUCT& data) {
    const size_t length = data.cbData / sizeof(wchar_t);
    if (data.dwData != kOpenFile && data.dwData != kCheckFile) return {};
    if (data.lpData == nullptr || data.cbData % sizeof(wchar_t) != 0) return {};
    if (length == 0 || length > kLongestPath) return {};
    std::wstring path(static_cast<const wchar_t*>(data.lpData), length);
    if (path.find(L'\0') != std::wstring::npos) return {};
    if (!IsOnDrive(path) && !IsOnShare(path)) return {};
    return {std::move(path), data.dwData == kCheckFile};
}

}  // namespace corvane
