#include "tests/ui/driver.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <functional>

#include "tests/support/support.h"
#include "tests/ui/screenshot.h"

namespace corvane::ui {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kPollInterval = 5;
constexpr UINT kAnswerTime = 10000;

// What EnumWindows looks for: a visible top-level window of one process and class.
struct WindowSearch {
    DWORD process;
    const wchar_t* className;
    HWND found;
};

BOOL CALLBACK CompareWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<WindowSearch*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process || !IsWindowVisible(window)) return TRUE;
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    if (std::wstring_view(name) != search.className) return TRUE;
    search.found = window;
    return FALSE;
}

// Memory of the program for the records that list messages fill in.
struct RemoteMemory {
    HANDLE process;
    char* address;
    explicit RemoteMemory(HANDLE target)
        : process(target),
          address(static_cast<char*>(
              VirtualAllocEx(target, nullptr, 4096, MEM_COMMIT, PAGE_READWRITE))) {}
    ~RemoteMemory() { VirtualFreeEx(process, address, 0, MEM_RELEASE); }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    template <class Record>
    void Put(const Record& record) const {
        WriteProcessMemory(process, address, &record, sizeof record, nullptr);
    }
    template <class Record>
    void Get(Record& record) const {
        ReadProcessMemory(process, address, &record, sizeof record, nullptr);
    }
    // The text after the record.
    wchar_t* TextAddress() const { return reinterpret_cast<wchar_t*>(address + 1024); }
    std::wstring Text() const {
        wchar_t text[1024] = L"";
        ReadProcessMemory(process, TextAddress(), text, sizeof text, nullptr);
        text[1023] = 0;
        return text;
    }
};

std::wstring CellText(const RemoteMemory& memory, HWND list, int row, int column) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = memory.TextAddress();
    item.cchTextMax = 1024;
    memory.Put(item);
    Send(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
         reinterpret_cast<LPARAM>(memory.address));
    return memory.Text();
}

int IconOf(const RemoteMemory& memory, HWND list, int row) {
    LVITEMW item{};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    memory.Put(item);
    Send(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.address));
    memory.Get(item);
    return item.iImage;
}

int ColumnCount(HWND list) {
    const auto header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER, 0, 0));
    return static_cast<int>(Send(header, HDM_GETITEMCOUNT, 0, 0));
}

fs::path OwnFolder() {
    wchar_t path[1024] = L"";
    GetModuleFileNameW(nullptr, path, 1024);
    return fs::path(path).parent_path();
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + kPatience;
    for (;;) {
        if (condition()) return true;
        if (GetTickCount64() > end) return false;
        Sleep(kPollInterval);
    }
}

LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kAnswerTime, &result);
    return static_cast<LRESULT>(result);
}

Installation::Installation() {
    static int counter = 0;
    wchar_t temporary[MAX_PATH + 1] = L"";
    GetTempPathW(MAX_PATH + 1, temporary);
    // A run that was killed may have left a folder.
    do {
        const std::wstring name = L"Corvane test " + std::to_wstring(GetCurrentProcessId()) + L" " +
                                  std::to_wstring(++counter);
        folder = std::wstring(temporary) + name + L"\\";
    } while (fs::exists(folder));
    fs::create_directories(folder);
    // No file of the user decides on the settings.
    SetEnvironmentVariableW(L"APPDATA", (folder + L"no user").c_str());
    // The history of databases is the test's own.
    SetEnvironmentVariableW(L"LOCALAPPDATA", folder.c_str());
    for (const wchar_t* file :
         {L"Corvane.exe", L"GrVelk.dll", L"BsdVelk.dll", L"ztutil32.dll", L"ZTVelk32.dll"}) {
        fs::copy_file(OwnFolder() / file, folder + file);
    }
}

void Installation::Add(const wchar_t* program) const {
    fs::copy_file(OwnFolder() / program, folder + program);
}

void Installation::AddGuide() const {
    fs::copy(OwnFolder() / L"help", folder + L"help", fs::copy_options::recursive);
}

Installation::~Installation() {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    fs::remove_all(folder, ignored);
}

std::wstring Settings::Path() {
    wchar_t folder[MAX_PATH + 1] = L"";
    GetWindowsDirectoryW(folder, MAX_PATH + 1);
    return std::wstring(folder) + L"\\Corvane.ini";
}

void Settings::Remove() {
    SetFileAttributesW(Path().c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(Path().c_str());
}

void Settings::Write(const wchar_t* key, const std::wstring& value) {
    ASSERT_TRUE(WritePrivateProfileStringW(L"Corvane", key, value.c_str(), L"Corvane.ini"));
}

std::wstring Settings::Read(const wchar_t* key) {
    wchar_t value[1024] = L"";
    GetPrivateProfileStringW(L"Corvane", key, L"(none)", value, 1024, L"Corvane.ini");
    return value;
}

Program::Program(const Installation& installation, const std::wstring& arguments,
                 const wchar_t* name, const std::wstring& folder) {
    // Where an earlier test left the pointer, the picture would describe what is under it.
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    const std::wstring file = installation.File(name);
    std::wstring commandLine = L"\"" + file + L"\"";
    if (!arguments.empty()) commandLine += L" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    const BOOL started = CreateProcessW(
        file.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
        (folder.empty() ? installation.folder : folder).c_str(), &startup, &information);
    EXPECT_TRUE(started) << "error " << GetLastError();
    if (started) Adopt(information);
}

Program::Program(const PROCESS_INFORMATION& started) {
    Adopt(started);
}

void Program::Adopt(const PROCESS_INFORMATION& started) {
    job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job, started.hProcess);
    CloseHandle(started.hThread);
    process = started.hProcess;
    id = started.dwProcessId;
}

Program::~Program() {
    if (testing::Test::HasFailure()) KeepScreenshot();
    if (process != nullptr && !HasEnded(0)) {
        TerminateProcess(process, 99);
        HasEnded();
    }
    CloseHandle(process);
    CloseHandle(job);
}

bool Program::HasEnded(DWORD milliseconds) const {
    return WaitForSingleObject(process, milliseconds) == WAIT_OBJECT_0;
}

DWORD Program::ExitCode() const {
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process, &code);
    return code;
}

HWND Program::FindNow(const wchar_t* className) const {
    WindowSearch search{id, className, nullptr};
    EnumWindows(CompareWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND Program::Window(const wchar_t* className) const {
    HWND found = nullptr;
    WaitUntil([&] {
        found = FindNow(className);
        return found != nullptr || HasEnded(0);
    });
    return found;
}

HWND Program::Main() const {
    const HWND main = Window(L"FM_Main");
    if (main == nullptr) return nullptr;
    // The window answers once its start is through, and only then is the splash gone.
    WaitUntil([&] { return FindNow(L"FM_Load") == nullptr && IsWindowEnabled(main); });
    Send(main, WM_NULL, 0, 0);
    return main;
}

Box WaitForBox(const Program& program) {
    Box box;
    box.window = program.Window(L"#32770");
    if (box.window == nullptr) return box;
    box.title = TextOf(box.window);
    WaitUntil([&] { return GetDlgItem(box.window, 0xFFFF) != nullptr; });
    box.text = TextOf(GetDlgItem(box.window, 0xFFFF));
    return box;
}

std::string Message(const Box& box) {
    return test::Narrow(box.text.substr(0, box.text.find(L"\r\r")));
}

bool Press(const Box& box, int button) {
    return PressButton(box.window, button);
}

bool PressButton(HWND dialog, int button) {
    const HWND control = GetDlgItem(dialog, button);
    if (control == nullptr) return false;
    PostMessageW(control, BM_CLICK, 0, 0);
    return HasClosed(dialog);
}

bool HasClosed(HWND window) {
    return WaitUntil([&] { return !IsWindow(window); });
}

void PressKey(HWND control, WPARAM key) {
    PostMessageW(control, WM_KEYDOWN, key, 0);
    PostMessageW(control, WM_KEYUP, key, 0);
}

void Type(HWND control, std::wstring_view text) {
    for (const wchar_t character : text) PostMessageW(control, WM_CHAR, character, 0);
}

HWND FocusOf(HWND window) {
    GUITHREADINFO information{};
    information.cbSize = sizeof information;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &information);
    return information.hwndFocus;
}

bool AnswerFilePrompt(const Program& program, const std::wstring& path) {
    const HWND prompt = program.Window(L"#32770");
    if (prompt == nullptr) return false;
    constexpr int kNameField = 0x47C;
    HWND field = nullptr;
    WaitUntil([&] {
        const HWND combo = GetDlgItem(prompt, kNameField);
        field = reinterpret_cast<HWND>(Send(combo, CBEM_GETEDITCONTROL, 0, 0));
        return field != nullptr;
    });
    if (path.empty()) return PressButton(prompt, IDCANCEL);
    Send(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    return PressButton(prompt, IDOK);
}

std::wstring TextOf(HWND window) {
    wchar_t text[4096] = L"";
    Send(window, WM_GETTEXT, 4096, reinterpret_cast<LPARAM>(text));
    return text;
}

bool TextBecomes(HWND window, std::wstring_view text) {
    return WaitUntil([&] { return TextOf(window) == text; });
}

std::vector<Row> Rows(const Program& program, HWND list) {
    const RemoteMemory memory(program.process);
    const int columns = ColumnCount(list);
    std::vector<Row> rows(static_cast<size_t>(Send(list, LVM_GETITEMCOUNT, 0, 0)));
    for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
        Row& row = rows[static_cast<size_t>(i)];
        for (int column = 0; column < columns; ++column) {
            row.cells.push_back(CellText(memory, list, i, column));
        }
        row.icon = IconOf(memory, list, i);
        row.selected = Send(list, LVM_GETITEMSTATE, static_cast<WPARAM>(i), LVIS_SELECTED) != 0;
    }
    return rows;
}

void SelectRow(const Program& program, HWND list, int row) {
    const RemoteMemory memory(program.process);
    const auto set = [&](int which, UINT mask, UINT state) {
        LVITEMW item{};
        item.stateMask = mask;
        item.state = state;
        memory.Put(item);
        Send(list, LVM_SETITEMSTATE, static_cast<WPARAM>(which),
             reinterpret_cast<LPARAM>(memory.address));
    };
    set(-1, LVIS_SELECTED, 0);
    set(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

int SelectedRow(HWND list) {
    return static_cast<int>(Send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

bool RowCountBecomes(HWND list, int count) {
    return WaitUntil([&] { return Send(list, LVM_GETITEMCOUNT, 0, 0) == count; });
}

std::vector<std::wstring> ColumnTitles(const Program& program, HWND list) {
    const RemoteMemory memory(program.process);
    const auto header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER, 0, 0));
    std::vector<std::wstring> titles;
    for (int i = 0; i < ColumnCount(list); ++i) {
        HDITEMW item{};
        item.mask = HDI_TEXT;
        item.pszText = memory.TextAddress();
        item.cchTextMax = 1024;
        memory.Put(item);
        Send(header, HDM_GETITEMW, static_cast<WPARAM>(i),
             reinterpret_cast<LPARAM>(memory.address));
        titles.push_back(memory.Text());
    }
    return titles;
}

std::wstring ClipboardText() {
    std::wstring text;
    if (OpenClipboard(nullptr) == FALSE) return text;
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const auto* letters = data == nullptr ? nullptr : static_cast<wchar_t*>(GlobalLock(data));
    if (letters != nullptr) text = letters;
    if (letters != nullptr) GlobalUnlock(data);
    CloseClipboard();
    return text;
}

void Choose(HWND main, int command) {
    PostMessageW(main, WM_COMMAND, static_cast<WPARAM>(command), 0);
}

}  // namespace corvane::ui
