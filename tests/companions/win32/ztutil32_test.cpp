// What only the Windows twin of ztutil32 has: child programs, messages, regional settings.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include "platform/system.h"
#include "platform/win32/win32.h"
#include "platform/ztutil32.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.rfind(L'\\') + 1);
}

void CopyChild(const std::wstring& to) {
    const std::wstring child = FolderOf(system::ProgramPath()) + L"child_program.exe";
    ASSERT_EQ(system::CopyBytes(child, to, false), system::kErrorNone);
}

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

int16_t RunChild(const std::wstring& commandLine, int16_t windowStyle = 0) {
    return ShellAndWait(system::AnsiFromWide(commandLine).c_str(), windowStyle);
}

// A program in a folder with blanks, and another one where a path that ends at its first blank
// leads to.
struct ChildInFolderWithBlanks {
    test::TemporaryFolder folder;
    std::wstring planted;
    std::wstring program;
    ChildInFolderWithBlanks() {
        planted = folder.File(L"My.exe");
        program = folder.File(L"My Velk data\\Sect Input.exe");
        EXPECT_EQ(system::MakeDirectory(FolderOf(program)), system::kErrorNone);
        CopyChild(planted);
        CopyChild(folder.File(L"My"));
        CopyChild(program);
    }
};

TEST(ChildProgramTest, FolderWithBlanksStartsNoOtherProgram) {
    const ChildInFolderWithBlanks child;
    const std::wstring commandLine = child.program + L" /d \"C:\\My ships\\\u00E9.ve2\"  3 ";
    EXPECT_EQ(RunChild(commandLine), -1);
    EXPECT_FALSE(Exists(child.planted + L".ran"));
    EXPECT_FALSE(Exists(child.folder.File(L"My.ran")));
    EXPECT_EQ(test::ReadFileBytes(child.program + L".ran"), "none\n" + test::Narrow(commandLine))
        << "the child sees the command line as it was given";
}

TEST(ChildProgramTest, QuotedProgramIsStarted) {
    const ChildInFolderWithBlanks child;
    const std::wstring commandLine = L"\"" + child.program + L"\" 3";
    EXPECT_EQ(RunChild(commandLine), -1);
    EXPECT_FALSE(Exists(child.planted + L".ran"));
    EXPECT_EQ(test::ReadFileBytes(child.program + L".ran"), "none\n" + test::Narrow(commandLine));
}

TEST(ChildProgramTest, ReturnsWhenTheProgramHasEnded) {
    const ChildInFolderWithBlanks child;
    EXPECT_EQ(RunChild(child.program + L" sleep"), -1);
    EXPECT_TRUE(Exists(child.program + L".ended"));
}

TEST(ChildProgramTest, FaultOfTheProgramIsDistinguishedFromItsEnd) {
    const ChildInFolderWithBlanks child;
    EXPECT_EQ(RunChild(child.program + L" crash"), kProgramCrashed);
    EXPECT_TRUE(Exists(child.program + L".ran"));
    EXPECT_FALSE(Exists(child.program + L".ended"));
}

TEST(ChildProgramTest, OnlyCodesOfExceptionsAreACrash) {
    const ChildInFolderWithBlanks child;
    for (const wchar_t* code : {L"0", L"1", L"255", L"-1", L"-3", L"0xBFFFFFFF", L"0xD0000000"}) {
        EXPECT_EQ(RunChild(child.program + L" code " + code), -1) << test::Narrow(code);
    }
    for (const wchar_t* code : {L"0xC0000005", L"0xC0000409", L"0xCFFFFFFF", L"0xE06D7363"}) {
        EXPECT_EQ(RunChild(child.program + L" code " + code), kProgramCrashed)
            << test::Narrow(code);
    }
}

TEST(ChildProgramTest, FolderThatLooksLikeAProgramStartsNoOther) {
    const test::TemporaryFolder folder;
    const std::wstring planted = folder.File(L"v1.exe");
    const std::wstring program = folder.File(L"v1.exe files\\Sect Input.exe");
    ASSERT_EQ(system::MakeDirectory(FolderOf(program)), system::kErrorNone);
    CopyChild(planted);
    CopyChild(program);
    EXPECT_EQ(RunChild(program + L" \"C:\\a.exe b.ve2\" 3"), -1);
    EXPECT_FALSE(Exists(planted + L".ran"));
    EXPECT_TRUE(Exists(program + L".ran"));
}

TEST(ChildProgramTest, WindowStyleIsHandedOverUnlessZero) {
    const ChildInFolderWithBlanks child;
    EXPECT_EQ(RunChild(child.program, SW_SHOWMINNOACTIVE), -1);
    EXPECT_EQ(test::ReadFileBytes(child.program + L".ran"),
              std::to_string(SW_SHOWMINNOACTIVE) + "\n" + test::Narrow(child.program));
}

TEST(ChildProgramTest, ErrorOfAFailedStartIsLeftForTheCaller) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(RunChild(folder.File(L"missing.exe")), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(RunChild(folder.File(L"no folder\\missing.exe")), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(RunChild(L"no program"), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    test::WriteFileBytes(folder.File(L"text.exe"), "no program");
    EXPECT_EQ(RunChild(folder.File(L"text.exe")), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_BAD_EXE_FORMAT));
}

// A window that notes the messages which reach it.
struct NotingWindow {
    HWND handle;
    std::vector<UINT> noted;
    NotingWindow() {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = &Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = L"CorvaneNotingWindow";
        RegisterClassW(&windowClass);
        handle = CreateWindowW(windowClass.lpszClassName, L"", WS_POPUP, 0, 0, 100, 100, nullptr,
                               nullptr, windowClass.hInstance, nullptr);
        SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&noted));
    }
    ~NotingWindow() {
        DestroyWindow(handle);
        UnregisterClassW(L"CorvaneNotingWindow", GetModuleHandleW(nullptr));
    }
    NotingWindow(const NotingWindow&) = delete;
    NotingWindow& operator=(const NotingWindow&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* list = reinterpret_cast<std::vector<UINT>*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (list != nullptr) list->push_back(message);
        if (message == WM_APP) return 42;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    bool Noted(UINT message) const {
        return std::find(noted.begin(), noted.end(), message) != noted.end();
    }
    // Removes a posted message from the queue.
    bool IsWaiting(UINT message) const {
        MSG taken;
        return PeekMessageW(&taken, handle, message, message, PM_REMOVE) != 0;
    }
};

TEST(WaitingTest, WindowsPaintMeanwhile) {
    const ChildInFolderWithBlanks child;
    NotingWindow window;
    ShowWindow(window.handle, SW_SHOWNA);
    InvalidateRect(window.handle, nullptr, TRUE);
    if (GetUpdateRect(window.handle, nullptr, FALSE) == 0) GTEST_SKIP() << "no screen";
    EXPECT_EQ(RunChild(child.program + L" sleep"), -1);
    EXPECT_TRUE(window.Noted(WM_PAINT));
}

TEST(WaitingTest, InputIsThrownAway) {
    const ChildInFolderWithBlanks child;
    NotingWindow window;
    PostMessageW(window.handle, WM_KEYDOWN, VK_RETURN, 0);
    PostMessageW(window.handle, WM_LBUTTONDOWN, 0, 0);
    PostMessageW(window.handle, WM_NCLBUTTONDOWN, HTCLOSE, 0);
    EXPECT_EQ(RunChild(child.program + L" sleep"), -1);
    for (const UINT message : {WM_KEYDOWN, WM_LBUTTONDOWN, WM_NCLBUTTONDOWN}) {
        EXPECT_FALSE(window.Noted(message)) << message;
        EXPECT_FALSE(window.IsWaiting(message)) << message;
    }
}

TEST(WaitingTest, OtherPostedMessagesAndTimersWait) {
    const ChildInFolderWithBlanks child;
    NotingWindow window;
    PostMessageW(window.handle, WM_COMMAND, 1, 0);
    SetTimer(window.handle, 1, USER_TIMER_MINIMUM, nullptr);
    EXPECT_EQ(RunChild(child.program + L" sleep"), -1);
    EXPECT_FALSE(window.Noted(WM_COMMAND));
    EXPECT_TRUE(window.IsWaiting(WM_COMMAND));
    EXPECT_FALSE(window.Noted(WM_TIMER));
}

TEST(WaitingTest, MessagesSentByOthersAreAnswered) {
    const ChildInFolderWithBlanks child;
    NotingWindow window;
    LRESULT answer = 0;
    bool answeredInTime = false;
    std::thread other([&] {
        Sleep(100);
        answer = SendMessageW(window.handle, WM_APP, 0, 0);
        answeredInTime = !Exists(child.program + L".ended");
    });
    EXPECT_EQ(RunChild(child.program + L" sleep"), -1);
    // Should the answer not have come in time, it comes now, and the thread can end.
    MSG message;
    PeekMessageW(&message, window.handle, WM_APP, WM_APP, PM_NOREMOVE);
    other.join();
    EXPECT_EQ(answer, 42);
    EXPECT_TRUE(answeredInTime);
}

TEST(WaitingTest, RequestToQuitIsPassedOn) {
    const ChildInFolderWithBlanks child;
    PostQuitMessage(7);
    EXPECT_EQ(RunChild(child.program + L" sleep"), -1);
    EXPECT_TRUE(Exists(child.program + L".ended"));
    MSG message;
    ASSERT_NE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), 0);
    EXPECT_EQ(message.wParam, 7U);
    EXPECT_EQ(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), 0);
}

// Puts a regional setting of the user back at the end.
struct KeepRegionalSetting {
    LCTYPE type;
    std::wstring before;
    explicit KeepRegionalSetting(LCTYPE setting) : type(setting) {
        wchar_t text[16] = {};
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 16);
        before = text;
    }
    ~KeepRegionalSetting() { SetLocaleInfoW(LOCALE_USER_DEFAULT, type, before.c_str()); }
    KeepRegionalSetting(const KeepRegionalSetting&) = delete;
    KeepRegionalSetting& operator=(const KeepRegionalSetting&) = delete;
};

TEST(RegionalTest, DecimalCommaIsCorrected) {
    const KeepRegionalSetting decimal(LOCALE_SDECIMAL);
    const KeepRegionalSetting grouping(LOCALE_STHOUSAND);
    ASSERT_NE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L","), 0);
    ASSERT_NE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, L"."), 0);
    EXPECT_EQ(IsRegionalOK(), 0);
    EXPECT_EQ(SetRegionalOK(), -1);
    EXPECT_EQ(IsRegionalOK(), -1);
}

TEST(RegionalTest, PointAsGroupingSymbolIsCorrected) {
    const KeepRegionalSetting decimal(LOCALE_SDECIMAL);
    const KeepRegionalSetting grouping(LOCALE_STHOUSAND);
    ASSERT_NE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L"."), 0);
    ASSERT_NE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, L"."), 0);
    EXPECT_EQ(IsRegionalOK(), 0);
    EXPECT_EQ(SetRegionalOK(), -1);
    EXPECT_EQ(IsRegionalOK(), -1);
}

TEST(RegionalTest, OtherGroupingSymbolsAreLeftAlone) {
    const KeepRegionalSetting decimal(LOCALE_SDECIMAL);
    const KeepRegionalSetting grouping(LOCALE_STHOUSAND);
    ASSERT_NE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L"."), 0);
    for (const wchar_t* symbol : {L",", L" ", L"'"}) {
        ASSERT_NE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, symbol), 0);
        EXPECT_EQ(IsRegionalOK(), -1) << test::Narrow(symbol);
        EXPECT_EQ(SetRegionalOK(), -1);
        wchar_t text[16] = {};
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, text, 16);
        EXPECT_STREQ(text, symbol);
    }
}

}  // namespace
}  // namespace corvane
