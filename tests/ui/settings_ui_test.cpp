// The settings of the real program: written at the end, however it ends, and read at the next
// start; a settings file that is garbage or read-only.
#include <gtest/gtest.h>

#include <string>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::Narrow;

struct SettingsTest : testing::Test {
    Settings settings;
    Installation installation;
    std::wstring database = installation.File(L"ship.ve2");

    void SetUp() override {
        const std::wstring sample = test::DataPath("../samples/aurora_bay.ve2");
        ASSERT_TRUE(CopyFileW(sample.c_str(), database.c_str(), FALSE)) << GetLastError();
    }

    // What a start without arguments shows as the open database.
    std::string DatabaseOfTheNextStart() const {
        const Program program(installation);
        const HWND main = program.Main();
        EXPECT_NE(main, nullptr);
        return Narrow(TextOf(GetDlgItem(main, TX_DataBase)));
    }
};

TEST_F(SettingsTest, QuitWritesThemAndTheNextStartReadsThem) {
    Settings::Write(L"FirstLimit", L"2.25");
    Settings::Write(L"IntegerSetting", L"7");
    {
        const Program program(installation, L"ship.ve2");
        const HWND main = program.Main();
        ASSERT_NE(main, nullptr);
        Choose(main, ME_FileQuit);
        EXPECT_TRUE(program.HasEnded());
        EXPECT_EQ(program.ExitCode(), 0U);
    }
    EXPECT_EQ(Narrow(Settings::Read(L"DatabasePath")), Narrow(database));
    EXPECT_EQ(Narrow(Settings::Read(L"WorkDirectory")), Narrow(installation.folder));
    EXPECT_EQ(Narrow(Settings::Read(L"BrowseDirectory")), Narrow(installation.folder));
    EXPECT_EQ(Narrow(Settings::Read(L"FirstLimit")), "2.25");
    EXPECT_EQ(Narrow(Settings::Read(L"SecondLimit")), "3");
    EXPECT_EQ(Narrow(Settings::Read(L"ThirdLimit")), "1.5");
    EXPECT_EQ(Narrow(Settings::Read(L"IntegerSetting")), "7");
    EXPECT_NE(Narrow(Settings::Read(L"LoginName")), "(none)");
    EXPECT_EQ(Narrow(Settings::Read(L"DataDirectory")), "(none)") << "never written";
    EXPECT_EQ(DatabaseOfTheNextStart(), Narrow(database));
}

TEST_F(SettingsTest, ClosingTheWindowWritesThem) {
    const Program program(installation, L"ship.ve2");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    PostMessageW(main, WM_CLOSE, 0, 0);
    EXPECT_TRUE(program.HasEnded());
    EXPECT_EQ(Narrow(Settings::Read(L"DatabasePath")), Narrow(database));
}

TEST_F(SettingsTest, EndOfTheWindowsSessionWritesThem) {
    const Program program(installation, L"ship.ve2");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(main, WM_QUERYENDSESSION, 0, 0, SMTO_ABORTIFHUNG, kPatience, &answer);
    EXPECT_EQ(answer, 1U);
    SendMessageTimeoutW(main, WM_ENDSESSION, TRUE, 0, SMTO_ABORTIFHUNG, kPatience, &answer);
    EXPECT_EQ(Narrow(Settings::Read(L"DatabasePath")), Narrow(database));
}

TEST_F(SettingsTest, StartMarkIsWritten) {
    const Program program(installation);
    ASSERT_NE(program.Main(), nullptr);
    wchar_t mark[16] = L"";
    GetPrivateProfileStringW(L"Start", L"Started", L"", mark, 16, L"Corvane.ini");
    EXPECT_EQ(Narrow(mark), "1");
}

TEST_F(SettingsTest, GarbageGivesTheDefaults) {
    std::string garbage;
    for (int i = 0; i < 100000; ++i) garbage += static_cast<char>(i * 7919 >> 3);
    test::WriteFileBytes(Settings::Path(), garbage);
    const Program program(installation, L"ship.ve2");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(Narrow(TextOf(GetDlgItem(main, TX_DataBase))), Narrow(database));
    Choose(main, ME_FileQuit);
    EXPECT_TRUE(program.HasEnded());
}

TEST_F(SettingsTest, ReadOnlyFileStaysAsItIs) {
    Settings::Write(L"DatabasePath", database);
    const std::string before = test::ReadFileBytes(Settings::Path());
    ASSERT_TRUE(SetFileAttributesW(Settings::Path().c_str(), FILE_ATTRIBUTE_READONLY));
    {
        const Program program(installation);
        const HWND main = program.Main();
        ASSERT_NE(main, nullptr);
        EXPECT_EQ(Narrow(TextOf(GetDlgItem(main, TX_DataBase))), Narrow(database));
        Choose(main, ME_FileQuit);
        EXPECT_TRUE(program.HasEnded());
    }
    EXPECT_EQ(test::ReadFileBytes(Settings::Path()), before);
}

}  // namespace
}  // namespace corvane::ui
