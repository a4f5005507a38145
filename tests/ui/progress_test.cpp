// What takes long: the box with the per cent, and the ways out of it.
#include <gtest/gtest.h>
#include <objbase.h>

#include <string>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/accessible.h"
#include "tests/ui/driver.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

constexpr int kModels = 15;

// The sample ship with one model more, whose block goes on to the file's end: bytes that nobody has
// written, which take no room on the disk and are read one by one all the same.
struct ProgressUiTest : testing::Test {
    Settings settings;
    Installation installation;
    std::wstring path = installation.File(L"ship.ve2");
    std::string head;

    ProgressUiTest() {
        head = test::ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2"));
        head += head.substr(head.rfind("====== CORVANE MODEL ======"));
        head.replace(head.rfind("\r\n 14 \r\n"), 8, "\r\n 15 \r\n");
        test::WriteFileBytes(path, head);
        constexpr LONGLONG kSize = 6'000'000'000;
        const HANDLE file =
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        LARGE_INTEGER size{};
        size.QuadPart = kSize;
        SetFilePointerEx(file, size, nullptr, FILE_BEGIN);
        SetEndOfFile(file);
        CloseHandle(file);
    }

    // Size, time and the bytes that were written.
    std::string Look() const {
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, 0, nullptr);
        std::string text(head.size(), '\0');
        DWORD count = 0;
        FILETIME written{};
        LARGE_INTEGER size{};
        ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
        GetFileTime(file, nullptr, nullptr, &written);
        GetFileSizeEx(file, &size);
        CloseHandle(file);
        return text + std::to_string(size.QuadPart) + ' ' + std::to_string(written.dwLowDateTime) +
               ' ' + std::to_string(written.dwHighDateTime);
    }
};

TEST_F(ProgressUiTest, EscWhileADatabaseIsOpenedOpensNothing) {
    const Program program(installation, L"\"" + path + L"\"");
    const HWND box = program.Window(kProgressClass);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(program.FindNow(kSplashClass), nullptr) << "it would hide the box";
    CoInitialize(nullptr);
    ExpectNamedControls(box);
    CoUninitialize();
    PressKey(GetDlgItem(box, IDCANCEL), VK_ESCAPE);
    EXPECT_TRUE(HasClosed(box));
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    EXPECT_TRUE(TextBecomes(GetDlgItem(main, TX_DataBase), L"No database selected"));
    EXPECT_TRUE(
        TextBecomes(GetDlgItem(main, PAN_Help), L"Cancelled. '" + path + L"' was not read."));
    EXPECT_TRUE(RowCountBecomes(GetDlgItem(main, LI_Sections), 0));
}

TEST_F(ProgressUiTest, CancelOfADeletionLeavesFileAndListAsTheyWere) {
    const std::string before = Look();
    const Program program(installation, L"\"" + path + L"\"");
    ASSERT_NE(program.Window(kProgressClass), nullptr);
    // A slow machine reads as long as it needs.
    while (program.FindNow(kProgressClass) != nullptr) Sleep(50);
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    const HWND list = GetDlgItem(main, LI_Sections);
    ASSERT_TRUE(RowCountBecomes(list, kModels));
    ASSERT_EQ(program.FindNow(kProgressClass), nullptr) << "it goes with the operation";
    const auto files = test::FilesIn(installation.folder);
    Choose(main, ME_SectionRemove);
    ASSERT_TRUE(Press(WaitForBox(program), IDYES));
    const HWND box = program.Window(kProgressClass);
    ASSERT_NE(box, nullptr);
    EXPECT_FALSE(IsWindowEnabled(main));
    EXPECT_EQ(GetWindow(box, GW_OWNER), main);
    EXPECT_TRUE(WaitUntil([&] {
        return TextOf(GetDlgItem(box, LB_Progress)).ends_with(L" %") &&
               Send(GetDlgItem(box, PB_Progress), PBM_GETPOS, 0, 0) > 0;
    }));
    EXPECT_EQ(FocusOf(box), GetDlgItem(box, IDCANCEL));
    EXPECT_TRUE(PressButton(box, IDCANCEL));
    EXPECT_TRUE(
        TextBecomes(GetDlgItem(main, PAN_Help), L"Cancelled. '" + path + L"' is as it was."));
    EXPECT_TRUE(IsWindowEnabled(main));
    EXPECT_TRUE(RowCountBecomes(list, kModels));
    EXPECT_EQ(Look(), before);
    EXPECT_EQ(test::FilesIn(installation.folder), files);
}

}  // namespace
}  // namespace corvane::ui
