#include "shell/start_up.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "platform/bsdvelk.h"
#include "platform/grvelk.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "shell/state.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeFunction;
using test::FreshSettingsFile;
using test::KeepCurrentDirectory;
using test::Narrow;
using test::RecordingScreen;
using test::TemporaryFolder;
using test::WriteFileBytes;
using Events = std::vector<std::string>;

constexpr char kRegionalQuestion[] =
    "ask Decimal symbol and/or digit grouping symbol are not set correctly in your Windows "
    "Regional Settings.\rDo you want to adjust them automatically ?\r\r(Program will be closed "
    "if you choose 'No'.)";

// A database whose ship has this short name.
std::string DatabaseBytes(const std::string& shortName) {
    return "------------------ BSD ------------------\r\n5\r\nDISPLAY NAME\r\n\r\n\r\n\r\n" +
           shortName + "\r\n";
}

class StartUpTest : public testing::Test {
protected:
    RecordingScreen screen;
    KeepCurrentDirectory directory;
    FreshSettingsFile settingsFile;
    TemporaryFolder folder;
    // What the regional settings are, and whether they can be changed.
    static inline bool regionalFine, regionalCanChange;
    FakeFunction<decltype(IsRegionalOK)> isRegionalOk{
        IsRegionalOK, [] { return static_cast<int16_t>(regionalFine ? -1 : 0); }};
    FakeFunction<decltype(SetRegionalOK)> setRegionalOk{
        SetRegionalOK, [] {
            RecordingScreen::events.push_back("regional set");
            return static_cast<int16_t>(regionalCanChange ? -1 : 0);
        }};
    std::wstring database = folder.File(L"my ship.ve2");

    StartUpTest() {
        regionalFine = true;
        regionalCanChange = true;
        WriteFileBytes(database, DatabaseBytes("ALPHA"));
    }

    static std::wstring Quoted(const std::wstring& text) { return L"\"" + text + L"\""; }
    static void Configure(MessageNumber key, const std::wstring& value) {
        EXPECT_EQ(
            system::WriteProfileText(GetMessageBytes(kMsgSettingsSection), GetMessageBytes(key),
                                     system::AnsiFromWide(value), kSettingsFile),
            system::kErrorNone);
    }
    static std::string StartEntry() {
        return system::ReadProfileText(GetMessageBytes(kMsgStartSection),
                                       GetMessageBytes(kMsgStartKey), "(none)", kSettingsFile, 99);
    }
    // The current directory with a trailing backslash.
    static std::wstring Here() {
        const std::wstring here = system::CurrentDirectory();
        return here.ends_with(L'\\') ? here : here + L'\\';
    }
    static size_t Place(const std::string& event) {
        const auto& events = RecordingScreen::events;
        return static_cast<size_t>(std::ranges::find(events, event) - events.begin());
    }
};

// ---- The order of the steps --------------------------------------------------------------------

TEST_F(StartUpTest, UsualStartShowsItsWindowsInOrder) {
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(RecordingScreen::events,
              (Events{"main load", "splash show Corvane", "pending", "title Corvane",
                      "main refresh", "main show", "splash unload"}));
    EXPECT_FALSE(shell.debugMode);
    EXPECT_FALSE(shell.milMode);
    EXPECT_FALSE(shell.jbpMode);
}

TEST_F(StartUpTest, SettingsAreReadBeforeTheMainWindowIsLoaded) {
    static std::wstring workDirectory;
    workDirectory.clear();
    Configure(kMsgWorkDirectoryKey, folder.path);
    shell.screen.loadMainWindow = [] {
        workDirectory = shell.settings.WorkDirectory;
        // Not written yet.
        EXPECT_EQ(StartEntry(), "(none)");
    };
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(workDirectory, folder.path);
}

TEST_F(StartUpTest, StartEntryIsWrittenBetweenTheFirstMessagesAndTheDatabase) {
    shell.screen.processPendingMessages = [] { EXPECT_EQ(StartEntry(), "(none)"); };
    shell.screen.refreshMainWindow = [] {
        EXPECT_EQ(StartEntry(), "1");
        RecordingScreen::events.push_back("entry seen");
    };
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(RecordingScreen::events.size(), Place("entry seen") + 3);
}

TEST_F(StartUpTest, TheMainWindowIsRefreshedInTheWorkDirectory) {
    static std::wstring atLoad, atRefresh;
    ASSERT_EQ(system::SetCurrentTo(directory.path), system::kErrorNone);
    Configure(kMsgWorkDirectoryKey, folder.path);
    shell.screen.loadMainWindow = [] { atLoad = Here(); };
    shell.screen.refreshMainWindow = [] { atRefresh = Here(); };
    const std::wstring before = system::CurrentDirectory();
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(atLoad, before + L'\\');
    EXPECT_EQ(atRefresh, folder.path);
    EXPECT_EQ(shell.startDirectory, before);
}

// ---- Second instance ---------------------------------------------------------------------------

TEST_F(StartUpTest, SecondInstanceActivatesTheFirstUnderAnotherTitleOfItsOwn) {
    shell.screen.activateRunningInstance = [](const std::wstring& title) {
        RecordingScreen::events.push_back("activate " + Narrow(title) + " from " +
                                          Narrow(shell.title));
    };
    GiveWayToRunningInstance();
    EXPECT_EQ(RecordingScreen::events, Events{"activate Corvane from ...duplicate instance"});
}

TEST_F(StartUpTest, MainStartsTheFirstInstanceAndEndsAnother) {
    // Another process of the tests may be the first one just now.
    const bool first = system::ClaimSingleInstance();
    EXPECT_EQ(Main(L""), first);
    if (first) {
        EXPECT_EQ(RecordingScreen::Of("main"), (Events{"load", "refresh", "show"}));
    } else {
        EXPECT_EQ(RecordingScreen::events, Events{"activate Corvane"});
    }
}

// ---- The command line --------------------------------------------------------------------------

TEST_F(StartUpTest, UpperCaseDebugSwitchAndADatabaseName) {
    ASSERT_EQ(system::SetCurrentTo(folder.path), system::kErrorNone);
    WriteFileBytes(folder.File(L"ship.ve2"), DatabaseBytes("BETA"));
    EXPECT_TRUE(StartUp(L"/D ship.ve2"));
    EXPECT_TRUE(shell.debugMode);
    EXPECT_EQ(shell.settings.DatabasePath, folder.File(L"ship.ve2"));
    EXPECT_EQ(shell.currentModel, 1);
}

TEST_F(StartUpTest, DirIsNoDebugSwitch) {
    EXPECT_TRUE(StartUp(L"/dir"));
    EXPECT_FALSE(shell.debugMode);
    EXPECT_EQ(RecordingScreen::Of("warning").size(), 1u);
}

TEST_F(StartUpTest, DebugSwitchWithOneLastCharacterSetsDebugMode) {
    EXPECT_TRUE(StartUp(Quoted(database) + L" /dx"));
    EXPECT_TRUE(shell.debugMode);
    EXPECT_EQ(shell.settings.DatabasePath, database);
}

TEST_F(StartUpTest, QuotedPathWithBlanksAndMil) {
    EXPECT_TRUE(StartUp(Quoted(database) + L" /mil"));
    EXPECT_TRUE(shell.milMode);
    EXPECT_EQ(shell.settings.DatabasePath, database);
    EXPECT_EQ(shell.title, L"Corvane MIL");
    EXPECT_EQ(RecordingScreen::Of("title"), Events{"Corvane MIL"});
}

TEST_F(StartUpTest, SingleQuotedNameBehindAWordIsOpened) {
    EXPECT_TRUE(StartUp(L"other.ve2 '" + database + L"'"));
    EXPECT_EQ(shell.settings.DatabasePath, database);
    EXPECT_TRUE(RecordingScreen::Of("warning").empty());
}

TEST_F(StartUpTest, JbpIsTakenOffBeforeTheFileIsRead) {
    EXPECT_TRUE(StartUp(L"/jbp " + Quoted(database)));
    EXPECT_TRUE(shell.jbpMode);
    EXPECT_EQ(shell.settings.DatabasePath, database);
    EXPECT_EQ(shell.title, L"Corvane JBP");
}

TEST_F(StartUpTest, BothRuleSetsStandInTheTitle) {
    EXPECT_TRUE(StartUp(L"/mil /JBP"));
    EXPECT_EQ(RecordingScreen::Of("title"), Events{"Corvane JBP MIL"});
    // The splash was shown before, with the bare title.
    EXPECT_EQ(RecordingScreen::Of("splash"), (Events{"show Corvane", "unload"}));
}

TEST_F(StartUpTest, SuffixesAreNotDoubled) {
    shell.title = L"Corvane JBP MIL";
    EXPECT_TRUE(StartUp(L"/mil /JBP"));
    EXPECT_EQ(shell.title, L"Corvane JBP MIL");
}

TEST_F(StartUpTest, SuffixesGoWithoutSwitches) {
    shell.title = L"Corvane MIL JBP";
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(shell.title, L"Corvane");
}

TEST_F(StartUpTest, RelativeDatabasePathIsFixedBeforeTheDirectoryChanges) {
    ASSERT_EQ(system::SetCurrentTo(folder.path), system::kErrorNone);
    TemporaryFolder elsewhere;
    ASSERT_EQ(system::WriteProfileText("Config", "Velk_Path", system::AnsiFromWide(elsewhere.path),
                                       kSettingsFile),
              system::kErrorNone);
    EXPECT_TRUE(StartUp(L"/d \"my ship.ve2\""));
    EXPECT_EQ(shell.settings.DatabasePath, database);
    EXPECT_EQ(shell.startDirectory + L"\\", elsewhere.path);
}

// ---- The database ------------------------------------------------------------------------------

TEST_F(StartUpTest, ConfiguredDatabaseIsOpened) {
    Configure(kMsgDatabasePathKey, database);
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(shell.settings.DatabasePath, database);
    EXPECT_EQ(shell.currentModel, 1);
    EXPECT_EQ(shell.bsd.Titles(1).Trimmed(), L"DISPLAY NAME");
    EXPECT_EQ(shell.bsd.Titles(5).Trimmed(), L"ALPHA");
}

TEST_F(StartUpTest, CommandLineGoesBeforeTheConfiguration) {
    const std::wstring other = folder.File(L"other.ve2");
    WriteFileBytes(other, DatabaseBytes("OTHER"));
    Configure(kMsgDatabasePathKey, other);
    EXPECT_TRUE(StartUp(Quoted(database)));
    EXPECT_EQ(shell.settings.DatabasePath, database);
    EXPECT_EQ(shell.bsd.Titles(5).Trimmed(), L"ALPHA");
}

TEST_F(StartUpTest, MissingFileIsReportedAndTheConfiguredDatabaseOpens) {
    Configure(kMsgDatabasePathKey, database);
    EXPECT_TRUE(StartUp(Quoted(folder.File(L"gone.ve2"))));
    EXPECT_EQ(RecordingScreen::Of("warning"),
              Events{Narrow(FormatMessage(kMsgFileMissing, {folder.File(L"gone.ve2")}))});
    EXPECT_EQ(shell.settings.DatabasePath, database);
    EXPECT_EQ(shell.bsd.Titles(5).Trimmed(), L"ALPHA");
    EXPECT_EQ(shell.currentModel, 1);
    // The box comes before the main window, and the splash is out of its way.
    EXPECT_LT(Place("splash unload"), Place("title Corvane"));
}

TEST_F(StartUpTest, AFolderOnTheCommandLineIsNoFile) {
    EXPECT_TRUE(StartUp(Quoted(folder.path)));
    EXPECT_EQ(RecordingScreen::Of("warning").size(), 1u);
    EXPECT_EQ(shell.settings.DatabasePath, L"");
}

TEST_F(StartUpTest, MissingConfiguredDatabaseIsClearedSilently) {
    Configure(kMsgDatabasePathKey, folder.File(L"gone.ve2"));
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(shell.settings.DatabasePath, L"");
    EXPECT_EQ(shell.currentModel, 0);
    EXPECT_TRUE(RecordingScreen::Of("warning").empty());
}

TEST_F(StartUpTest, FileWithoutShipDataLoadsIntoAFreshRecord) {
    WriteFileBytes(database, "no database\r\n");
    shell.bsd.Titles(5).Assign(L"ANOTHER");
    shell.bsd.MainData(1) = 100;
    EXPECT_TRUE(StartUp(Quoted(database)));
    EXPECT_EQ(shell.bsd.Titles(5).Trimmed(), L"");
    EXPECT_EQ(shell.bsd.MainData(1), 0);
    EXPECT_EQ(shell.settings.DatabasePath, database);
    EXPECT_EQ(shell.currentModel, 1);
}

// ---- Legacy database ---------------------------------------------------------------------------

TEST_F(StartUpTest, UpperCaseVelTakesTheLegacyPathWithoutSuffixes) {
    Configure(kMsgWorkDirectoryKey, folder.path);
    const std::wstring before = system::CurrentDirectory();
    const std::wstring legacy = folder.File(L"STAR.VEL");
    WriteFileBytes(legacy, "");
    EXPECT_TRUE(StartUp(L"/JBP " + Quoted(legacy)));
    EXPECT_EQ(RecordingScreen::events,
              (Events{"main load", "splash show Corvane", "pending", "main show", "splash unload",
                      "legacy " + Narrow(legacy)}));
    EXPECT_TRUE(shell.jbpMode);
    EXPECT_EQ(shell.title, L"Corvane");
    EXPECT_EQ(shell.settings.DatabasePath, L"");
    EXPECT_EQ(shell.currentModel, 0);
    EXPECT_EQ(system::CurrentDirectory(), before);
    EXPECT_EQ(StartEntry(), "1");
}

TEST_F(StartUpTest, MissingVelFileIsReported) {
    EXPECT_TRUE(StartUp(L"gone.vel"));
    EXPECT_EQ(RecordingScreen::Of("warning").size(), 1u);
    EXPECT_TRUE(RecordingScreen::Of("legacy").empty());
    EXPECT_EQ(RecordingScreen::Of("main"), (Events{"load", "refresh", "show"}));
}

// ---- Debug mode --------------------------------------------------------------------------------

TEST_F(StartUpTest, DebugModeShowsTheDirectoryAndNoSplash) {
    ASSERT_EQ(system::WriteProfileText("Config", "Velk_Path", system::AnsiFromWide(folder.path),
                                       kSettingsFile),
              system::kErrorNone);
    EXPECT_TRUE(StartUp(L"/d"));
    EXPECT_EQ(RecordingScreen::events,
              (Events{"plain Debug : change dir to exe dir : " + Narrow(folder.path), "main load",
                      "pending", "title Corvane", "main refresh", "main show", "splash unload"}));
    EXPECT_EQ(shell.startDirectory + L"\\", folder.path);
}

TEST_F(StartUpTest, DebugModeWithoutAPathGoesToTheRoot) {
    EXPECT_TRUE(StartUp(L"/d"));
    EXPECT_EQ(RecordingScreen::Of("plain"), Events{"Debug : change dir to exe dir : "});
    EXPECT_EQ(shell.startDirectory, directory.path.substr(0, 3));
}

TEST_F(StartUpTest, DebugDirectoryIsSetBeforeTheLibrariesAreChecked) {
    FakeFunction old(GetGrVelkDataVersion, [] {
        RecordingScreen::events.push_back("check");
        return 0.0f;
    });
    EXPECT_FALSE(StartUp(L"/d"));
    EXPECT_EQ(RecordingScreen::events[0], "plain Debug : change dir to exe dir : ");
    EXPECT_EQ(RecordingScreen::events[1], "check");
}

// ---- What ends the process ---------------------------------------------------------------------

TEST_F(StartUpTest, WrongLibraryEndsTheProcess) {
    FakeFunction old(GetBsdVelkVersion, [] { return 1.0f; });
    regionalFine = false;
    EXPECT_FALSE(StartUp(Quoted(database)));
    EXPECT_EQ(RecordingScreen::Of("warning").size(), 1u);
    EXPECT_TRUE(RecordingScreen::Of("ask").empty());
    EXPECT_TRUE(RecordingScreen::Of("main").empty());
    EXPECT_EQ(StartEntry(), "(none)");
}

TEST_F(StartUpTest, RefusedRegionalSettingsEndTheProcess) {
    regionalFine = false;
    RecordingScreen::answerYes = false;
    EXPECT_FALSE(StartUp(L""));
    EXPECT_EQ(RecordingScreen::events, Events{kRegionalQuestion});
    EXPECT_EQ(StartEntry(), "(none)");
}

TEST_F(StartUpTest, AdjustedRegionalSettingsLetItStart) {
    regionalFine = false;
    RecordingScreen::answerYes = true;
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(RecordingScreen::events[0], kRegionalQuestion);
    EXPECT_EQ(RecordingScreen::events[1], "regional set");
    EXPECT_EQ(RecordingScreen::events[2], "main load");
}

TEST_F(StartUpTest, RegionalSettingsThatCanNotBeAdjustedEndTheProcess) {
    regionalFine = false;
    regionalCanChange = false;
    RecordingScreen::answerYes = true;
    EXPECT_FALSE(StartUp(L""));
    EXPECT_EQ(RecordingScreen::Of("warning"),
              Events{"Automatic adjustment for Regional Settings failed"});
    EXPECT_TRUE(RecordingScreen::Of("main").empty());
}

TEST_F(StartUpTest, FineRegionalSettingsAskNothing) {
    EXPECT_TRUE(CheckRegionalSettings());
    EXPECT_TRUE(RecordingScreen::events.empty());
}

// ---- Shutdown ----------------------------------------------------------------------------------

TEST_F(StartUpTest, ShutDownWritesTheSettingsAndRestoresTheDirectory) {
    const std::wstring before = system::CurrentDirectory();
    Configure(kMsgWorkDirectoryKey, folder.path);
    EXPECT_TRUE(StartUp(Quoted(database)));
    EXPECT_EQ(Here(), folder.path);
    shell.settings.IntegerSetting = 7;
    ShutDown();
    EXPECT_EQ(system::CurrentDirectory(), before);
    ShellSettings written;
    ReadSettings(kSettingsFile, written);
    EXPECT_EQ(written.DatabasePath, database);
    EXPECT_EQ(written.IntegerSetting, 7);
}

TEST_F(StartUpTest, SettingsThatCanNotBeWrittenDoNotKeepItFromEnding) {
    const std::wstring before = system::CurrentDirectory();
    Configure(kMsgWorkDirectoryKey, folder.path);
    EXPECT_TRUE(StartUp(L""));
    ASSERT_EQ(system::RemoveFile(settingsFile.path), system::kErrorNone);
    ASSERT_EQ(system::MakeDirectory(settingsFile.path), system::kErrorNone);
    RecordingScreen::events.clear();
    ShutDown();
    EXPECT_EQ(system::CurrentDirectory(), before);
    EXPECT_EQ(RecordingScreen::caption, GetMessage(kMsgSettingsNotWritten) + L"...");
    ASSERT_EQ(system::RemoveEmptyDirectory(settingsFile.path), system::kErrorNone);
}

// ---- The title ---------------------------------------------------------------------------------

TEST(WithoutRuleSetSuffixes, Table) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"Corvane", L"Corvane"},
        {L"Corvane JBP", L"Corvane"},
        {L"Corvane MIL", L"Corvane"},
        {L"Corvane JBP MIL", L"Corvane"},
        {L"Corvane MIL JBP", L"Corvane"},
        {L"Corvane JBP MIL JBP", L"Corvane"},
        {L"Corvane MIL MIL JBP JBP MIL", L"Corvane"},
        {L"Corvane jbp", L"Corvane jbp"},
        {L"CorvaneJBP", L"CorvaneJBP"},
        {L"Corvane JBP ", L"Corvane JBP "},
        {L"Corvane JBP - ship", L"Corvane JBP - ship"},
        {L"Corvane  MIL", L"Corvane "},
        {L" JBP", L""},
        {L"JBP", L"JBP"},
        {L"", L""},
    };
    for (const auto& [title, bare] : cases) {
        EXPECT_EQ(Narrow(WithoutRuleSetSuffixes(title)), Narrow(bare)) << Narrow(title);
    }
}

}  // namespace
}  // namespace corvane
