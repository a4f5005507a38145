#include "shell/settings.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeCatalogue;
using test::FakeFunction;
using test::FakeView;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::TemporaryFolder;
using test::WriteFileBytes;

std::string AnsiBytes(const std::wstring& text) {
    return system::AnsiFromWide(text);
}

class SettingsTest : public testing::Test {
protected:
    FakeView screen;
    FakeCatalogue catalogue{{{300, "Shell"},
                             {400, "Data"},
                             {401, "Work"},
                             {402, "Browse"},
                             {403, "Database"},
                             {404, "First"},
                             {405, "Integer"},
                             {406, "Second"},
                             {430, "Third"},
                             {431, "User"},
                             {619, "Settings not written"}}};
    FakeFunction<decltype(LoginName)> login{LoginName, [](char* buffer, int32_t size) {
                                                ASSERT_GE(size, 400);
                                                std::string_view("jane\0rest", 9).copy(buffer, 9);
                                            }};
    TemporaryFolder folder;
    std::wstring file = folder.File(L"test.ini");
    // The program's own folder.
    std::wstring program = MakeFolder(L"program");

    std::wstring MakeFolder(const std::wstring& name) {
        EXPECT_EQ(system::MakeDirectory(folder.File(name)), system::kErrorNone);
        return folder.File(name) + L"\\";
    }
    // Writes an INI file with this section, and reads it.
    ShellSettings Read(const std::string& keys) {
        WriteFileBytes(file, "[Shell]\r\n" + keys);
        ShellSettings settings;
        ReadSettings(file, program, settings);
        return settings;
    }
    // The value that the file has, as the suite's other programs see it.
    std::string Written(const char* key) {
        return system::ReadProfileText("Shell", key, "(none)", file, 1000);
    }
};

// ---- Reading: what is missing ------------------------------------------------------------------

TEST_F(SettingsTest, MissingFileGivesTheDefaults) {
    ShellSettings settings;
    ReadSettings(file, program, settings);
    EXPECT_EQ(settings.DataDirectory, program);
    EXPECT_EQ(settings.WorkDirectory, program);
    EXPECT_EQ(settings.BrowseDirectory, program);
    EXPECT_EQ(settings.DatabasePath, L"");
    EXPECT_EQ(settings.FirstLimit, 1.5f);
    EXPECT_EQ(settings.IntegerSetting, -1);
    EXPECT_EQ(settings.SecondLimit, 3.0f);
    EXPECT_EQ(settings.ThirdLimit, 1.5f);
    EXPECT_FALSE(settings.KeepDatabasePath);
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(SettingsTest, MissingSectionGivesTheDefaults) {
    WriteFileBytes(file, "[Other]\r\nFirst=9\r\nInteger=9\r\n");
    ShellSettings settings;
    ReadSettings(file, program, settings);
    EXPECT_EQ(settings.FirstLimit, 1.5f);
    EXPECT_EQ(settings.IntegerSetting, -1);
    EXPECT_EQ(settings.WorkDirectory, program);
}

TEST_F(SettingsTest, TheProgramsOwnFolderIsTheDefault) {
    ShellSettings settings;
    ReadSettings(file, settings);
    const std::wstring path = system::ProgramPath();
    EXPECT_EQ(settings.WorkDirectory, path.substr(0, path.rfind(L'\\') + 1));
}

TEST_F(SettingsTest, KeepDatabasePathIsLeftAlone) {
    ShellSettings settings;
    settings.KeepDatabasePath = true;
    ReadSettings(file, program, settings);
    EXPECT_TRUE(settings.KeepDatabasePath);
}

TEST_F(SettingsTest, KeysAreAskedForInTheirOrder) {
    Read("");
    std::vector<int32_t> keys;
    for (const int32_t number : FakeCatalogue::asked) {
        if (number != kMsgSettingsSection) keys.push_back(number);
    }
    EXPECT_EQ(keys, (std::vector<int32_t>{400, 401, 402, 403, 404, 405, 406, 430}));
}

// ---- Reading: directories ----------------------------------------------------------------------

TEST_F(SettingsTest, DataDirectoryKeyIsReadWithoutBulafn) {
    const std::wstring data = MakeFolder(L"data");
    EXPECT_EQ(Read("Data=" + AnsiBytes(data) + "\r\n").DataDirectory, data);
}

TEST_F(SettingsTest, DataDirectoryKeyIsNotReadBesideBulafn) {
    WriteFileBytes(program + L"Bulafn.dat", "");
    const ShellSettings settings = Read("Data=" + AnsiBytes(MakeFolder(L"data")) + "\r\n");
    EXPECT_EQ(settings.DataDirectory, program);
    EXPECT_EQ(std::ranges::count(FakeCatalogue::asked, int32_t{kMsgDataDirectoryKey}), 0);
}

TEST_F(SettingsTest, DataDirectoryGetsItsBackslashAndNeedNotExist) {
    EXPECT_EQ(Read("Data=C:\\no such folder\r\n").DataDirectory, L"C:\\no such folder\\");
    EXPECT_EQ(Read("Data=C:\\data\\\r\n").DataDirectory, L"C:\\data\\");
}

TEST_F(SettingsTest, EmptyDataDirectoryIsTheProgramsFolder) {
    EXPECT_EQ(Read("Data=\r\n").DataDirectory, program);
}

TEST_F(SettingsTest, WorkDirectoryGetsItsBackslash) {
    const std::wstring work = MakeFolder(L"work");
    EXPECT_EQ(Read("Work=" + AnsiBytes(folder.File(L"work")) + "\r\n").WorkDirectory, work);
    EXPECT_EQ(Read("Work=" + AnsiBytes(work) + "\r\n").BrowseDirectory, work) << "the default";
    EXPECT_EQ(Read("Work=" + AnsiBytes(work) + "\r\n").WorkDirectory, work);
}

TEST_F(SettingsTest, WorkDirectoryThatIsNotThereBecomesTheDataDirectory) {
    const std::string data = AnsiBytes(MakeFolder(L"data"));
    WriteFileBytes(folder.File(L"a file"), "");
    for (const std::string& work :
         {AnsiBytes(folder.File(L"gone")), std::string(), AnsiBytes(folder.File(L"a file")),
          AnsiBytes(folder.path) + std::string(500, 'x')}) {
        const ShellSettings settings = Read("Data=" + data + "\r\nWork=" + work + "\r\n");
        EXPECT_EQ(AnsiBytes(settings.WorkDirectory), data) << work;
        EXPECT_EQ(AnsiBytes(settings.BrowseDirectory), data) << work;
    }
}

TEST_F(SettingsTest, BrowseDirectoryIsUsedAsItIsWritten) {
    MakeFolder(L"browse");
    const std::wstring browse = folder.File(L"browse");
    EXPECT_EQ(Read("Browse=" + AnsiBytes(browse) + "\r\n").BrowseDirectory, browse);
}

TEST_F(SettingsTest, BlanksThatTheFileWouldLoseAreNotRead) {
    MakeFolder(L"browse");
    const std::wstring browse = folder.File(L"browse");
    EXPECT_EQ(Read("Browse=\" " + AnsiBytes(browse) + " \"\r\n").BrowseDirectory, browse);
}

TEST_F(SettingsTest, DeletedBrowseDirectoryBecomesTheCorrectedWorkDirectory) {
    const std::wstring data = MakeFolder(L"data");
    const std::wstring gone = folder.File(L"gone");
    const ShellSettings settings = Read("Data=" + AnsiBytes(data) + "\r\nWork=" + AnsiBytes(gone) +
                                        "\r\nBrowse=" + AnsiBytes(gone) + "\r\n");
    EXPECT_EQ(settings.BrowseDirectory, data);
}

TEST_F(SettingsTest, FoldersWithLettersOfTheAnsiRangeAreFound) {
    const std::wstring work = MakeFolder(L"Œuvre été ß");
    EXPECT_EQ(Read("Work=" + AnsiBytes(work) + "\r\n").WorkDirectory, work);
}

TEST_F(SettingsTest, ProgramFolderOutsideTheAnsiRangeSurvivesAsDefault) {
    program = MakeFolder(L"кириллица");
    const ShellSettings settings = Read("");
    EXPECT_EQ(settings.DataDirectory, program);
    EXPECT_EQ(settings.WorkDirectory, program);
    EXPECT_EQ(settings.BrowseDirectory, program);
}

TEST_F(SettingsTest, ValuesAreCutAt400Characters) {
    WriteFileBytes(file, "[Shell]\r\nlong=" + std::string(399, 'a') +
                             "bcd\r\nexact=" + std::string(400, 'e') + "\r\n");
    EXPECT_EQ(GetIniString(L"Shell", L"long", L"", file), std::wstring(399, L'a') + L'b');
    EXPECT_EQ(GetIniString(L"Shell", L"exact", L"", file), std::wstring(400, L'e'));
    EXPECT_EQ(GetIniString(L"Shell", L"none", std::wstring(500, L'd'), file).size(), 400u);
}

// ---- Reading: one value ------------------------------------------------------------------------

TEST_F(SettingsTest, IniStringTable) {
    WriteFileBytes(file, "[Config]\r\nVelk_Path=C:\\suite\r\nempty=\r\nquoted=\"a b\"\r\n");
    EXPECT_EQ(GetIniString(L"Config", L"Velk_Path", L"x", file), L"C:\\suite");
    EXPECT_EQ(GetIniString(L"CONFIG", L"velk_path", L"x", file), L"C:\\suite");
    EXPECT_EQ(GetIniString(L"Config", L"empty", L"x", file), L"");
    EXPECT_EQ(GetIniString(L"Config", L"quoted", L"x", file), L"a b");
    EXPECT_EQ(GetIniString(L"Config", L"missing", L"x", file), L"x");
    EXPECT_EQ(GetIniString(L"Missing", L"Velk_Path", L"x", file), L"x");
    EXPECT_EQ(GetIniString(L"Config", L"Velk_Path", L"x", folder.File(L"none.ini")), L"x");
    EXPECT_EQ(GetIniString(L"Config", L"missing", std::wstring(L"a\0b", 3), file), L"a");
}

// ---- Reading: the database and the numbers -----------------------------------------------------

TEST_F(SettingsTest, DatabaseThatExistsIsKept) {
    const std::wstring database = folder.File(L"ship.ve2");
    WriteFileBytes(database, "");
    EXPECT_EQ(Read("Database=" + AnsiBytes(database) + "\r\n").DatabasePath, database);
}

TEST_F(SettingsTest, DatabaseThatIsGoneIsReadAsEmptyAndWrittenBackEmpty) {
    const ShellSettings settings = Read("Database=" + AnsiBytes(folder.File(L"gone.ve2")) + "\r\n");
    EXPECT_EQ(settings.DatabasePath, L"");
    EXPECT_TRUE(WriteSettings(file, settings));
    EXPECT_EQ(Written("Database"), "");
}

TEST_F(SettingsTest, DatabaseOutOfReachIsKept) {
    for (const std::wstring& path :
         {std::wstring(L"Q:\\ships\\ship.ve2"), folder.File(L"offline\\ship.ve2")}) {
        EXPECT_EQ(Read("Database=" + AnsiBytes(path) + "\r\n").DatabasePath, path);
    }
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(SettingsTest, RelativeDatabaseIsMadeAbsoluteWhenItIsRead) {
    const test::KeepCurrentDirectory keeper;
    WriteFileBytes(folder.File(L"ship.ve2"), "");
    ASSERT_EQ(system::SetCurrentTo(folder.path), system::kErrorNone);
    EXPECT_EQ(Read("Database=ship.ve2\r\n").DatabasePath, folder.File(L"ship.ve2"));
    EXPECT_EQ(Read("Database=none\\..\\ship.ve2\r\n").DatabasePath, folder.File(L"ship.ve2"));
    const std::string slashes = Narrow(folder.path.substr(2)) + "x/../ship.ve2";
    EXPECT_EQ(Read("Database=" + slashes + "\r\n").DatabasePath.substr(2),
              folder.File(L"ship.ve2").substr(2));
}

TEST_F(SettingsTest, ADeviceIsNoDatabase) {
    EXPECT_EQ(Read("Database=nul.ve2\r\n").DatabasePath, L"");
}

TEST_F(SettingsTest, AFolderIsNoDatabase) {
    EXPECT_EQ(Read("Database=" + AnsiBytes(program) + "\r\n").DatabasePath, L"");
}

struct LimitCase {
    const char* value;
    float limit;
};

TEST_F(SettingsTest, LimitTable) {
    const LimitCase cases[] = {{"2", 2},    {"2.5", 2.5f}, {"2,5", 2},        {"-0.25", -0.25f},
                               {"  7 ", 7}, {"1 2", 12},   {"", 0},           {"text", 0},
                               {"3 m", 3},  {"1E2", 100},  {"1.5D-1", 0.15f}, {"1.2.3", 1.2f},
                               {"+4", 4},   {"&H10", 0},   {"1e-60", 0}};
    for (const LimitCase& each : cases) {
        const std::string value = each.value;
        const ShellSettings settings =
            Read("First=" + value + "\r\nSecond=" + value + "\r\nThird=" + value + "\r\n");
        EXPECT_EQ(settings.FirstLimit, each.limit) << value;
        EXPECT_EQ(settings.SecondLimit, each.limit) << value;
        EXPECT_EQ(settings.ThirdLimit, each.limit) << value;
    }
}

TEST_F(SettingsTest, FirstLimitWithACommaStopsThere) {
    EXPECT_EQ(Read("First=2,5\r\n").FirstLimit, 2.0f);
}

TEST_F(SettingsTest, ALimitOutOfRangeEndsTheReading) {
    WriteFileBytes(file, "[Shell]\r\nFirst=7\r\nInteger=8\r\nSecond=1E39\r\nThird=9\r\n");
    ShellSettings settings;
    settings.SecondLimit = 20;
    settings.ThirdLimit = 30;
    ReadSettings(file, program, settings);
    EXPECT_EQ(settings.FirstLimit, 7.0f);
    EXPECT_EQ(settings.IntegerSetting, 8);
    EXPECT_EQ(settings.SecondLimit, 20.0f);
    EXPECT_EQ(settings.ThirdLimit, 30.0f);
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(SettingsTest, TheLargestLimitIsRead) {
    EXPECT_EQ(Read("First=3.402823E+38\r\n").FirstLimit, 3.402823e38f);
    EXPECT_EQ(Read("First=-1E+400\r\n").FirstLimit, 0.0f);
}

TEST_F(SettingsTest, IntegerTable) {
    EXPECT_EQ(Read("Integer=0\r\n").IntegerSetting, 0);
    EXPECT_EQ(Read("Integer=12\r\n").IntegerSetting, 12);
    EXPECT_EQ(Read("Integer=-12\r\n").IntegerSetting, -12);
    EXPECT_EQ(Read("Integer=12abc\r\n").IntegerSetting, 12);
    EXPECT_EQ(Read("Integer=abc\r\n").IntegerSetting, 0);
    EXPECT_EQ(Read("Integer=2147483647\r\n").IntegerSetting, 2147483647);
}

// ---- Reading: garbage --------------------------------------------------------------------------

TEST_F(SettingsTest, GarbageFilesGiveDefaultsAndNoCrash) {
    std::string binary;
    for (int i = 0; i < 20000; ++i) binary += static_cast<char>(i * 7919 >> 3);
    const std::string files[] = {
        "",
        binary,
        std::string(5000, '\0'),
        std::string(1000000, 'x'),
        std::string(1000000, '['),
        "no section at all\r\nWork=C:\\\r\nFirst=9\r\n",
        "[Shell\r\nFirst=9\r\n",
        "]Shell[\r\nFirst=9\r\n",
        "[]\r\nFirst=9\r\n",
        "First=9",
        "\r\n\r\n\n\n\r",
        "[Other]\n" + std::string(300000, 'k') + "=1\n",
    };
    for (size_t i = 0; i < std::size(files); ++i) {
        WriteFileBytes(file, files[i]);
        ShellSettings settings;
        ReadSettings(file, program, settings);
        EXPECT_EQ(settings.WorkDirectory, program) << i;
        EXPECT_EQ(settings.DatabasePath, L"") << i;
        EXPECT_EQ(settings.IntegerSetting, -1) << i;
    }
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(SettingsTest, LineFeedsAloneEndLinesToo) {
    WriteFileBytes(file, "[Shell]\nFirst=2\nSecond=4");
    ShellSettings settings;
    ReadSettings(file, program, settings);
    EXPECT_EQ(settings.FirstLimit, 2.0f);
    EXPECT_EQ(settings.SecondLimit, 4.0f);
}

TEST_F(SettingsTest, AFolderInTheFilesPlaceGivesTheDefaults) {
    ShellSettings settings;
    ReadSettings(program, program, settings);
    EXPECT_EQ(settings.FirstLimit, 1.5f);
}

// ---- Writing -----------------------------------------------------------------------------------

ShellSettings SomeSettings() {
    ShellSettings settings;
    settings.DataDirectory = L"C:\\data\\";
    settings.WorkDirectory = L"C:\\work\\";
    settings.BrowseDirectory = L"C:\\browse été\\";
    settings.DatabasePath = L"C:\\work\\my ship.ve2";
    settings.FirstLimit = 0.1f;
    settings.IntegerSetting = -3;
    settings.SecondLimit = 1e10f;
    settings.ThirdLimit = -2.5f;
    return settings;
}

TEST_F(SettingsTest, WritesEveryKeyInItsOrder) {
    EXPECT_TRUE(WriteSettings(file, SomeSettings()));
    EXPECT_EQ(ReadFileBytes(file),
              "[Shell]\r\nWork=C:\\work\\\r\nBrowse=C:\\browse \xE9t\xE9\\\r\nUser=jane\r\n"
              "Database=C:\\work\\my ship.ve2\r\nFirst=0.1\r\nInteger=-3\r\nSecond=1E+10\r\n"
              "Third=-2.5\r\n");
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(SettingsTest, DataDirectoryIsNeverWritten) {
    EXPECT_TRUE(WriteSettings(file, SomeSettings()));
    EXPECT_EQ(Written("Data"), "(none)");
    EXPECT_EQ(std::ranges::count(FakeCatalogue::asked, int32_t{kMsgDataDirectoryKey}), 0);
}

TEST_F(SettingsTest, WhatOthersWroteStays) {
    WriteFileBytes(file, "; a remark\r\n[Other]\r\nWork=theirs\r\n[Shell]\r\nData=C:\\d\r\n");
    EXPECT_TRUE(WriteSettings(file, SomeSettings()));
    EXPECT_EQ(Written("Data"), "C:\\d");
    EXPECT_EQ(system::ReadProfileText("Other", "Work", "", file, 100), "theirs");
    EXPECT_EQ(ReadFileBytes(file).find("; a remark"), 0u);
}

TEST_F(SettingsTest, KeepDatabasePathKeepsTheFilesValue) {
    WriteFileBytes(file, "[Shell]\r\nDatabase=C:\\old.ve2\r\n");
    ShellSettings settings = SomeSettings();
    settings.KeepDatabasePath = true;
    EXPECT_TRUE(WriteSettings(file, settings));
    EXPECT_EQ(Written("Database"), "C:\\old.ve2");
    EXPECT_EQ(Written("Third"), "-2.5");
}

TEST_F(SettingsTest, WhatIsWrittenIsReadBack) {
    ShellSettings settings = SomeSettings();
    settings.DataDirectory = program;
    settings.WorkDirectory = MakeFolder(L"work");
    settings.BrowseDirectory = MakeFolder(L"browse");
    settings.DatabasePath = folder.File(L"ship.ve2");
    WriteFileBytes(settings.DatabasePath, "");
    EXPECT_TRUE(WriteSettings(file, settings));
    ShellSettings again;
    ReadSettings(file, program, again);
    EXPECT_EQ(again.DataDirectory, settings.DataDirectory);
    EXPECT_EQ(again.WorkDirectory, settings.WorkDirectory);
    EXPECT_EQ(again.BrowseDirectory, settings.BrowseDirectory);
    EXPECT_EQ(again.DatabasePath, settings.DatabasePath);
    EXPECT_EQ(again.FirstLimit, settings.FirstLimit);
    EXPECT_EQ(again.IntegerSetting, settings.IntegerSetting);
    EXPECT_EQ(again.SecondLimit, settings.SecondLimit);
    EXPECT_EQ(again.ThirdLimit, settings.ThirdLimit);
}

TEST_F(SettingsTest, UnknownUserIsAnEmptyName) {
    FakeFunction missing(LoginName, nullptr);
    LoginName.fileName = "NoSuchLibrary.dll";
    EXPECT_TRUE(WriteSettings(file, SomeSettings()));
    EXPECT_EQ(Written("User"), "");
    EXPECT_EQ(Written("Third"), "-2.5");
}

TEST_F(SettingsTest, AUserNameThatFillsTheBufferIsUsedWhole) {
    FakeFunction full(LoginName,
                      [](char* buffer, int32_t size) { std::fill_n(buffer, size, 'n'); });
    EXPECT_TRUE(WriteSettings(file, SomeSettings()));
    EXPECT_EQ(Written("User"), std::string(400, 'n'));
}

// ---- Writing that fails ------------------------------------------------------------------------

TEST_F(SettingsTest, FirstWriteThatFailsIsReportedAndEndsTheWriting) {
    EXPECT_FALSE(WriteSettings(folder.File(L"no folder\\test.ini"), SomeSettings()));
    EXPECT_EQ(RecordedReports::Of("caption"), std::vector<std::string>{"Settings not written..."});
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
    // After the first key no other one was asked for.
    std::ranges::sort(FakeCatalogue::asked);
    EXPECT_EQ(FakeCatalogue::asked, (std::vector<int32_t>{300, 401, 619}));
}

TEST_F(SettingsTest, AWriteThatFailsInBetweenEndsTheWriting) {
    static std::wstring iniFile;
    iniFile = file;
    // While the user's name is asked for, a folder replaces the file.
    FakeFunction login2(LoginName, [](char* buffer, int32_t) {
        EXPECT_EQ(system::RemoveFile(iniFile), system::kErrorNone);
        EXPECT_EQ(system::MakeDirectory(iniFile), system::kErrorNone);
        *buffer = '\0';
    });
    EXPECT_FALSE(WriteSettings(file, SomeSettings()));
    EXPECT_EQ(RecordedReports::Of("caption"), std::vector<std::string>{"Settings not written..."});
    EXPECT_EQ(std::ranges::count(FakeCatalogue::asked, int32_t{kMsgDatabasePathKey}), 0);
}

TEST_F(SettingsTest, ReadOnlyFileIsReportedAndStaysAsItWas) {
    if (!test::ReadOnlyHasEffect()) GTEST_SKIP() << "this user may write read-only files";
    WriteFileBytes(file, "[Shell]\r\nFirst=9\r\n");
    ASSERT_EQ(system::SetReadOnly(file, true), system::kErrorNone);
    EXPECT_FALSE(WriteSettings(file, SomeSettings()));
    EXPECT_EQ(RecordedReports::caption, L"Settings not written...");
    EXPECT_EQ(ReadFileBytes(file), "[Shell]\r\nFirst=9\r\n");
}

TEST_F(SettingsTest, ReadOnlyFileIsRead) {
    WriteFileBytes(file, "[Shell]\r\nFirst=9\r\n");
    ASSERT_EQ(system::SetReadOnly(file, true), system::kErrorNone);
    ShellSettings settings;
    ReadSettings(file, program, settings);
    EXPECT_EQ(settings.FirstLimit, 9.0f);
}

}  // namespace
}  // namespace corvane
