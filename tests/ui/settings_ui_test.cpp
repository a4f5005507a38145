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
    SendMessageTimeoutW(main, WM_ENDSESSION, FALSE, 0, SMTO_ABORTIFHUNG, kPatience, &answer);
    EXPECT_EQ(Narrow(Settings::Read(L"DatabasePath")), "(none)") << "the session goes on";
    SendMessageTimeoutW(main, WM_ENDSESSION, TRUE, 0, SMTO_ABORTIFHUNG, kPatience, &answer);
    EXPECT_EQ(Narrow(Settings::Read(L"DatabasePath")), Narrow(database));
}

// ---- Where they are ----------------------------------------------------------------------------

// While one of these lives, programs that are started have this folder for application data.
struct UserData {
    std::wstring before;
    explicit UserData(const std::wstring& folder) {
        wchar_t value[1024] = L"";
        GetEnvironmentVariableW(L"APPDATA", value, 1024);
        before = value;
        SetEnvironmentVariableW(L"APPDATA", folder.c_str());
    }
    ~UserData() { SetEnvironmentVariableW(L"APPDATA", before.c_str()); }
    UserData(const UserData&) = delete;
    UserData& operator=(const UserData&) = delete;
};

struct SettingsPlaceTest : SettingsTest {
    std::wstring userFolder = installation.folder + L"user";
    std::wstring userFile = userFolder + L"\\Corvane\\Corvane.ini";
    UserData userData{userFolder};

    void SetUp() override {
        SettingsTest::SetUp();
        ASSERT_TRUE(CreateDirectoryW(userFolder.c_str(), nullptr));
    }
    static std::string ValueIn(const std::wstring& file, const wchar_t* key) {
        wchar_t value[1024] = L"";
        GetPrivateProfileStringW(L"Corvane", key, L"(none)", value, 1024, file.c_str());
        return Narrow(value);
    }
    // Starts the program with a file, if any, quits it, and returns the text of the box that the
    // end brought; empty without one.
    std::string BoxAtTheEnd(const std::wstring& arguments) const {
        const Program program(installation, arguments);
        const HWND main = program.Main();
        EXPECT_NE(main, nullptr);
        Choose(main, ME_FileQuit);
        std::string text;
        EXPECT_TRUE(WaitUntil(
            [&] { return program.HasEnded(0) || program.FindNow(L"#32770") != nullptr; }));
        if (!program.HasEnded(0)) {
            const Box box = WaitForBox(program);
            text = Narrow(box.text);
            EXPECT_TRUE(IsWindowVisible(main)) << "the box is seen over the window";
            PostMessageW(main, WM_CLOSE, 0, 0);
            PostMessageW(GetDlgItem(box.window, IDOK), BM_CLICK, 0, 0);
        }
        EXPECT_TRUE(program.HasEnded());
        EXPECT_EQ(program.ExitCode(), 0U);
        return text;
    }
};

TEST_F(SettingsPlaceTest, FileBesideTheProgramComesFirst) {
    const std::wstring beside = installation.File(L"Corvane.ini");
    test::WriteFileBytes(beside, "[Corvane]\r\nFirstLimit=9.5\r\n");
    Settings::Write(L"DatabasePath", L"C:\\other.ve2");
    EXPECT_EQ(BoxAtTheEnd(L"ship.ve2"), "");
    EXPECT_EQ(ValueIn(beside, L"DatabasePath"), Narrow(database));
    EXPECT_EQ(ValueIn(beside, L"FirstLimit"), "9.5");
    EXPECT_EQ(Narrow(Settings::Read(L"DatabasePath")), "C:\\other.ve2");
    EXPECT_EQ(DatabaseOfTheNextStart(), Narrow(database));
}

TEST_F(SettingsPlaceTest, UsersOwnFileComesBeforeTheSharedOne) {
    ASSERT_TRUE(CreateDirectoryW((userFolder + L"\\Corvane").c_str(), nullptr));
    test::WriteFileBytes(userFile, "[Corvane]\r\nFirstLimit=9.5\r\n");
    Settings::Write(L"DatabasePath", L"C:\\other.ve2");
    EXPECT_EQ(BoxAtTheEnd(L"ship.ve2"), "");
    EXPECT_EQ(ValueIn(userFile, L"DatabasePath"), Narrow(database));
    EXPECT_EQ(ValueIn(userFile, L"FirstLimit"), "9.5");
    EXPECT_EQ(Narrow(Settings::Read(L"DatabasePath")), "C:\\other.ve2");
}

TEST_F(SettingsPlaceTest, WhatTheWindowsFolderRefusesGoesToTheUsersOwnFile) {
    Settings::Write(L"FirstLimit", L"9.5");
    const std::string before = test::ReadFileBytes(Settings::Path());
    ASSERT_TRUE(SetFileAttributesW(Settings::Path().c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(BoxAtTheEnd(L"ship.ve2"), "");
    EXPECT_EQ(test::ReadFileBytes(Settings::Path()), before);
    EXPECT_EQ(ValueIn(userFile, L"DatabasePath"), Narrow(database));
    EXPECT_EQ(ValueIn(userFile, L"FirstLimit"), "9.5") << "made from what was read";
    EXPECT_EQ(DatabaseOfTheNextStart(), Narrow(database));
}

TEST_F(SettingsPlaceTest, SettingsThatNoPlaceTakesAreReportedBeforeTheWindowCloses) {
    Settings::Write(L"DatabasePath", database);
    const std::string before = test::ReadFileBytes(Settings::Path());
    ASSERT_TRUE(SetFileAttributesW(Settings::Path().c_str(), FILE_ATTRIBUTE_READONLY));
    const UserData nowhere(installation.File(L"missing\\folder"));
    EXPECT_EQ(BoxAtTheEnd(L"").rfind(
                  "The settings could not be saved: '" + Narrow(Settings::Path()) + "' cannot", 0),
              0U);
    EXPECT_EQ(test::ReadFileBytes(Settings::Path()), before);
}

}  // namespace
}  // namespace corvane::ui
