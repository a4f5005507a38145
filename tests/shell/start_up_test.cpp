#include "shell/start_up.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "files/paths.h"
#include "platform/bsdvelk.h"
#include "platform/grvelk.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "shell/rule_set.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeFunction;
using test::FakeView;
using test::FreshSettingsFile;
using test::KeepCurrentDirectory;
using test::Narrow;
using test::RecordedReports;
using test::TemporaryFolder;
using test::WriteFileBytes;
using Events = std::vector<std::string>;

constexpr char kRegionalQuestion[] =
    "ask irreversible Decimal symbol and/or digit grouping symbol are not set correctly in your "
    "Windows "
    "Regional Settings.\rDo you want to adjust them automatically ?\r\r(Program will be closed "
    "if you choose 'No'.)\r\rCorvane and its suite need '.' as the decimal symbol. The change is "
    "for "
    "your whole Windows account: all your programs will use it.";

// A database whose ship has this short name.
std::string DatabaseBytes(const std::string& shortName) {
    return "------------------ BSD ------------------\r\n5\r\nDISPLAY NAME\r\n\r\n\r\n\r\n" +
           shortName + "\r\n";
}

class StartUpTest : public testing::Test {
protected:
    FakeView screen;
    KeepCurrentDirectory directory;
    FreshSettingsFile settingsFile;
    TemporaryFolder folder;
    // What the regional settings are, and whether they can be changed.
    static inline bool regionalFine, regionalCanChange;
    FakeFunction<decltype(IsRegionalOK)> isRegionalOk{
        IsRegionalOK, [] { return static_cast<int16_t>(regionalFine ? -1 : 0); }};
    FakeFunction<decltype(SetRegionalOK)> setRegionalOk{
        SetRegionalOK, [] {
            RecordedReports::events.push_back("regional set");
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
    // What the user sees of the start: windows, boxes, captions and lists.
    static Events Steps() {
        Events steps;
        for (const std::string& event : RecordedReports::events) {
            for (const char* word : {"main ", "splash ", "title ", "rows ", "plain "}) {
                if (event.starts_with(word)) steps.push_back(event);
            }
        }
        return steps;
    }
    static size_t Place(const std::string& event) {
        const auto& events = RecordedReports::events;
        return static_cast<size_t>(std::ranges::find(events, event) - events.begin());
    }
};

// ---- The order of the steps --------------------------------------------------------------------

TEST_F(StartUpTest, UsualStartShowsItsWindowsInOrder) {
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(Steps(), (Events{"main load", "splash show Corvane", "title Corvane", "rows 0",
                               "title Corvane", "main show", "splash unload"}));
    EXPECT_EQ(Place("pending"), Place("splash show Corvane") + 1);
    EXPECT_FALSE(shell.debugMode);
    EXPECT_FALSE(shell.milMode);
    EXPECT_FALSE(shell.jbpMode);
}

TEST_F(StartUpTest, SettingsAreReadBeforeTheMainWindowIsLoaded) {
    static std::wstring workDirectory;
    workDirectory.clear();
    Configure(kMsgWorkDirectoryKey, folder.path);
    shell.view.loadMainWindow = [] {
        workDirectory = shell.settings.WorkDirectory;
        // Not written yet.
        EXPECT_EQ(StartEntry(), "(none)");
    };
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(workDirectory, folder.path);
}

TEST_F(StartUpTest, StartEntryIsWrittenBetweenTheFirstMessagesAndTheDatabase) {
    shell.view.showSplash = [](const std::wstring&) { EXPECT_EQ(StartEntry(), "(none)"); };
    shell.view.setLines = [](int) {
        EXPECT_EQ(StartEntry(), "1");
        RecordedReports::events.push_back("entry seen");
    };
    EXPECT_TRUE(StartUp(L""));
    EXPECT_LT(Place("entry seen"), Place("main show"));
}

TEST_F(StartUpTest, TheMainWindowIsRefreshedInTheWorkDirectory) {
    static std::wstring atLoad, atRefresh;
    ASSERT_EQ(system::SetCurrentTo(directory.path), system::kErrorNone);
    Configure(kMsgWorkDirectoryKey, folder.path);
    shell.view.loadMainWindow = [] { atLoad = Here(); };
    shell.view.setLines = [](int) { atRefresh = Here(); };
    const std::wstring before = system::CurrentDirectory();
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(atLoad, before + L'\\');
    EXPECT_EQ(atRefresh, folder.path);
    EXPECT_EQ(shell.startDirectory, before);
}

// ---- Second instance ---------------------------------------------------------------------------

TEST_F(StartUpTest, SecondInstanceHandsItsFileOverAndHasAnotherTitle) {
    EXPECT_TRUE(GiveWayToRunningInstance(L"/mil " + Quoted(database)));
    EXPECT_EQ(RecordedReports::events,
              Events{"hand over " + Narrow(database) + " from ...duplicate instance"});
}

TEST_F(StartUpTest, SecondInstanceAsksWhenTheFirstShowsNoWindow) {
    FakeView::handOver = HandOver::kNoWindow;
    for (const bool startsAnother : {false, true}) {
        FakeView::answerYes = startsAnother;
        EXPECT_NE(GiveWayToRunningInstance(L""), startsAnother);
        EXPECT_EQ(RecordedReports::events.back().rfind("ask Corvane is already running", 0), 0U);
        EXPECT_EQ(shell.title, L"Corvane");
    }
}

TEST_F(StartUpTest, SecondInstanceNamesTheFileThatTheFirstDoesNotTake) {
    FakeView::handOver = HandOver::kFileNotTaken;
    EXPECT_TRUE(GiveWayToRunningInstance(Quoted(database)));
    EXPECT_EQ(RecordedReports::Of("warning"),
              Events{"The file '" + Narrow(database) +
                     "' was not opened: Corvane is already running, but cannot open a file now.\r\r"
                     "Answer the box that it shows, or wait until it is ready. Then open the file "
                     "again."});
    EXPECT_TRUE(RecordedReports::Of("ask").empty());
}

TEST_F(StartUpTest, MainStartsTheFirstInstanceAndEndsAnother) {
    // Another process of the tests may be the first one just now.
    const bool first = system::ClaimSingleInstance();
    EXPECT_EQ(Main(L""), first);
    if (first) {
        EXPECT_EQ(RecordedReports::Of("main"), (Events{"load", "show"}));
    } else {
        EXPECT_EQ(RecordedReports::events, Events{"hand over  from ...duplicate instance"});
    }
}

TEST_F(StartUpTest, FileThatWasHandedOverIsOpenedOrAskedAboutAfterWork) {
    EXPECT_TRUE(StartUp(L""));
    RecordedReports::events.clear();
    OpenHandedOver({database}, true);
    EXPECT_EQ(RecordedReports::Of("ask"),
              Events{"Corvane was started again with '" + Narrow(database) +
                     "' while it was at work.\r\rDo you want to open this file now?"});
    EXPECT_EQ(shell.database.path, L"") << "No";
    OpenHandedOver({database}, false);
    EXPECT_EQ(shell.database.path, database);
    OpenHandedOver({folder.File(L"gone.ve2")}, false);
    EXPECT_EQ(shell.database.path, database);
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

// ---- The check that a start asks for -----------------------------------------------------------

TEST_F(StartUpTest, CheckIsShownAfterTheDatabase) {
    std::vector<std::wstring> shown;
    FakeView::showReport = [&shown](Report& report) {
        EXPECT_FALSE(RecordedReports::Of("main").empty()) << "the main window comes first";
        shown.push_back(report.title);
        return false;
    };
    EXPECT_TRUE(StartUp(L"/check " + Quoted(database)));
    EXPECT_EQ(shown, std::vector<std::wstring>{L"Check of my ship.ve2"});
    OpenHandedOver({database, true}, false);
    EXPECT_EQ(shown.size(), 2U);
}

TEST_F(StartUpTest, NoOtherDatabaseIsCheckedForTheOneThatIsNotThere) {
    Configure(kMsgDatabasePathKey, database);
    FakeView::showReport = [](Report&) {
        ADD_FAILURE() << "a check is shown";
        return false;
    };
    EXPECT_TRUE(StartUp(L"/check " + Quoted(folder.File(L"gone.ve2"))));
    EXPECT_EQ(shell.database.path, database);
    OpenHandedOver({folder.File(L"gone.ve2"), true}, false);
    EXPECT_TRUE(StartUp(L"/check"));
}

TEST_F(StartUpTest, SecondInstanceHandsOverThatItsFileIsToBeChecked) {
    EXPECT_TRUE(GiveWayToRunningInstance(Quoted(database) + L" /CHECK"));
    EXPECT_EQ(RecordedReports::events,
              Events{"hand over " + Narrow(database) + " to check from ...duplicate instance"});
}

// ---- The command line --------------------------------------------------------------------------

TEST_F(StartUpTest, UpperCaseDebugSwitchAndADatabaseName) {
    ASSERT_EQ(system::SetCurrentTo(folder.path), system::kErrorNone);
    WriteFileBytes(folder.File(L"ship.ve2"), DatabaseBytes("BETA"));
    EXPECT_TRUE(StartUp(L"/D ship.ve2"));
    EXPECT_TRUE(shell.debugMode);
    EXPECT_EQ(shell.database.path, folder.File(L"ship.ve2"));
    EXPECT_EQ(shell.database.currentModel, 1);
}

TEST_F(StartUpTest, DirIsNoDebugSwitch) {
    EXPECT_TRUE(StartUp(L"/dir"));
    EXPECT_FALSE(shell.debugMode);
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1u);
}

TEST_F(StartUpTest, DebugSwitchWithOneLastCharacterSetsDebugMode) {
    EXPECT_TRUE(StartUp(Quoted(database) + L" /dx"));
    EXPECT_TRUE(shell.debugMode);
    EXPECT_EQ(shell.database.path, database);
}

TEST_F(StartUpTest, QuotedPathWithBlanksAndMil) {
    EXPECT_TRUE(StartUp(Quoted(database) + L" /mil"));
    EXPECT_TRUE(shell.milMode);
    EXPECT_EQ(shell.database.path, database);
    EXPECT_EQ(shell.title, L"Corvane MIL");
    EXPECT_EQ(RecordedReports::Of("title"),
              (Events{"Corvane MIL", "Corvane MIL - my ship.ve2 - ALPHA"}));
}

TEST_F(StartUpTest, SingleQuotedNameAfterAWordIsOpened) {
    EXPECT_TRUE(StartUp(L"other.ve2 '" + database + L"'"));
    EXPECT_EQ(shell.database.path, database);
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(StartUpTest, JbpIsRemovedBeforeTheFileIsRead) {
    EXPECT_TRUE(StartUp(L"/jbp " + Quoted(database)));
    EXPECT_TRUE(shell.jbpMode);
    EXPECT_EQ(shell.database.path, database);
    EXPECT_EQ(shell.title, L"Corvane JBP");
}

TEST_F(StartUpTest, BothRuleSetsAreInTheTitle) {
    EXPECT_TRUE(StartUp(L"/mil /JBP"));
    EXPECT_EQ(RecordedReports::Of("title"), (Events{"Corvane JBP MIL", "Corvane JBP MIL"}));
    // The splash was shown before, with the bare title.
    EXPECT_EQ(RecordedReports::Of("splash"), (Events{"show Corvane", "unload"}));
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
    EXPECT_EQ(shell.database.path, database);
    EXPECT_EQ(shell.startDirectory + L"\\", elsewhere.path);
}

// ---- The database ------------------------------------------------------------------------------

TEST_F(StartUpTest, ConfiguredDatabaseIsOpened) {
    Configure(kMsgDatabasePathKey, database);
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(shell.database.path, database);
    EXPECT_EQ(shell.database.currentModel, 1);
    EXPECT_EQ(shell.database.bsd.Titles(1).Trimmed(), L"DISPLAY NAME");
    EXPECT_EQ(shell.database.bsd.Titles(5).Trimmed(), L"ALPHA");
}

TEST_F(StartUpTest, CommandLineGoesBeforeTheConfiguration) {
    const std::wstring other = folder.File(L"other.ve2");
    WriteFileBytes(other, DatabaseBytes("OTHER"));
    Configure(kMsgDatabasePathKey, other);
    EXPECT_TRUE(StartUp(Quoted(database)));
    EXPECT_EQ(shell.database.path, database);
    EXPECT_EQ(shell.database.bsd.Titles(5).Trimmed(), L"ALPHA");
}

TEST_F(StartUpTest, MissingFileIsReportedAndTheConfiguredDatabaseOpens) {
    Configure(kMsgDatabasePathKey, database);
    EXPECT_TRUE(StartUp(Quoted(folder.File(L"gone.ve2"))));
    EXPECT_EQ(
        RecordedReports::Of("warning"),
        Events{test::AdvisedText(kMsgFileMissing, {folder.File(L"gone.ve2")}, kMsgFileAdvice)});
    EXPECT_EQ(shell.database.path, database);
    EXPECT_EQ(shell.database.bsd.Titles(5).Trimmed(), L"ALPHA");
    EXPECT_EQ(shell.database.currentModel, 1);
    // The box comes before the main window, and the splash is out of its way.
    EXPECT_LT(Place("splash unload"), Place("title Corvane"));
}

TEST_F(StartUpTest, FileThatAnEditLeftIsRefusedAndTheConfiguredDatabaseOpens) {
    Configure(kMsgDatabasePathKey, database);
    const std::wstring leftOver = folder.File(L"Cor12AB.tmp");
    WriteFileBytes(leftOver, GetMessageBytes(kMsgSignature) + "\r\n" + DatabaseBytes("OTHER"));
    EXPECT_TRUE(StartUp(Quoted(leftOver)));
    const Events warnings = RecordedReports::Of("warning");
    ASSERT_EQ(warnings.size(), 2U);
    EXPECT_EQ(warnings.front(), Narrow(BoxText(kMsgIsLeftOver, {leftOver})));
    EXPECT_NE(warnings.back().find(Narrow(leftOver)), std::string::npos);
    EXPECT_EQ(shell.database.path, database);
    // The database that was edited when it came to be is on the screen before it is named.
    EXPECT_LT(Place("main show"), Place("warning " + warnings.back()));
}

TEST_F(StartUpTest, ShipDataAloneAreRefusedAndTheConfiguredDatabaseOpens) {
    Configure(kMsgDatabasePathKey, database);
    const std::wstring shipData = folder.File(L"ship.bsd");
    WriteFileBytes(shipData, test::ReadFileBytes(test::DataPath("golden/standalone.bsd")));
    EXPECT_TRUE(StartUp(Quoted(shipData)));
    EXPECT_EQ(RecordedReports::Of("warning"),
              Events{Narrow(BoxText(kMsgShipDataAlone, {shipData}))});
    EXPECT_EQ(shell.database.path, database);
}

TEST_F(StartUpTest, AFolderOnTheCommandLineIsNoFile) {
    EXPECT_TRUE(StartUp(Quoted(folder.path)));
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1u);
    EXPECT_EQ(shell.database.path, L"");
}

TEST_F(StartUpTest, MissingConfiguredDatabaseIsClearedSilently) {
    Configure(kMsgDatabasePathKey, folder.File(L"gone.ve2"));
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(shell.database.path, L"");
    EXPECT_EQ(shell.database.currentModel, 0);
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(StartUpTest, DatabaseOutOfReachIsNamedInTheStatusLineAndRemembered) {
    const std::wstring path = folder.File(L"offline\\ship.ve2");
    Configure(kMsgDatabasePathKey, path);
    EXPECT_TRUE(StartUp(L""));
    EXPECT_FALSE(IsDatabaseOpen());
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgDatabaseOutOfReach, {path}));
    ShutDown();
    ShellSettings written;
    ReadSettings(kSettingsFile, written);
    EXPECT_EQ(written.DatabasePath, path);
    // When it can be reached again, the next start opens it.
    ASSERT_EQ(system::MakeDirectory(folder.File(L"offline")), system::kErrorNone);
    WriteFileBytes(path, DatabaseBytes("ALPHA"));
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(shell.database.path, path);
}

TEST_F(StartUpTest, DeviceOnTheCommandLineIsRefusedInWords) {
    Configure(kMsgDatabasePathKey, database);
    EXPECT_TRUE(StartUp(L"nul.ve2"));
    ASSERT_EQ(RecordedReports::Of("warning").size(), 1U);
    EXPECT_NE(RecordedReports::Of("warning")[0].find("Windows reserves it for a device"),
              std::string::npos);
    EXPECT_EQ(shell.database.path, database);
}

TEST_F(StartUpTest, FileWithoutShipDataLoadsIntoAFreshRecord) {
    WriteFileBytes(database, "no database\r\n");
    shell.database.bsd.Titles(5).Assign(L"ANOTHER");
    shell.database.bsd.MainData(1) = 100;
    EXPECT_TRUE(StartUp(Quoted(database)));
    EXPECT_EQ(shell.database.bsd.Titles(5).Trimmed(), L"");
    EXPECT_EQ(shell.database.bsd.MainData(1), 0);
    EXPECT_EQ(shell.database.path, database);
    EXPECT_EQ(shell.database.currentModel, 1);
}

// ---- Legacy database ---------------------------------------------------------------------------

TEST_F(StartUpTest, UpperCaseVelTakesTheLegacyPathWithoutSuffixes) {
    Configure(kMsgWorkDirectoryKey, folder.path);
    const std::wstring legacy = folder.File(L"OLD.VEL");
    WriteFileBytes(legacy, test::ReadFileBytes(test::DataPath("../samples/aurora_bay.vel")));
    EXPECT_TRUE(StartUp(L"/JBP " + Quoted(legacy)));
    EXPECT_EQ(RecordedReports::Of("warning"), Events{});
    EXPECT_EQ(Place("main show") + 1, Place("splash unload"));
    EXPECT_LT(Place("splash unload"), Place("rows 9")) << "converted when the window is there";
    EXPECT_TRUE(shell.jbpMode);
    EXPECT_EQ(shell.title, L"Corvane");
    EXPECT_EQ(FileNameOf(shell.database.path), L"old.ve2");
    EXPECT_EQ(shell.database.currentModel, 1);
    EXPECT_EQ(system::CurrentDirectory() + L'\\', folder.path) << "the work directory";
    EXPECT_EQ(StartEntry(), "1");
}

TEST_F(StartUpTest, LegacyFileThatOpensNothingLeavesTheConfiguredDatabase) {
    Configure(kMsgDatabasePathKey, database);
    const std::wstring legacy = folder.File(L"STAR.VEL");
    WriteFileBytes(legacy, "");
    EXPECT_TRUE(StartUp(Quoted(legacy)));
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
    EXPECT_EQ(shell.database.path, database);
    EXPECT_EQ(shell.database.bsd.Titles(5).Trimmed(), L"ALPHA") << "with its ship record";
}

TEST_F(StartUpTest, MissingVelFileIsReported) {
    EXPECT_TRUE(StartUp(L"gone.vel"));
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1u);
    EXPECT_TRUE(RecordedReports::Of("legacy").empty());
    EXPECT_EQ(RecordedReports::Of("main"), (Events{"load", "show"}));
}

// ---- Debug mode --------------------------------------------------------------------------------

TEST_F(StartUpTest, DebugModeShowsTheDirectoryAndNoSplash) {
    ASSERT_EQ(system::WriteProfileText("Config", "Velk_Path", system::AnsiFromWide(folder.path),
                                       kSettingsFile),
              system::kErrorNone);
    EXPECT_TRUE(StartUp(L"/d"));
    EXPECT_EQ(Steps(),
              (Events{"plain Debug : change dir to exe dir : " + Narrow(folder.path), "main load",
                      "title Corvane", "rows 0", "title Corvane", "main show", "splash unload"}));
    EXPECT_EQ(shell.startDirectory + L"\\", folder.path);
}

TEST_F(StartUpTest, DebugModeWithoutAPathGoesToTheRoot) {
    EXPECT_TRUE(StartUp(L"/d"));
    EXPECT_EQ(RecordedReports::Of("plain"), Events{"Debug : change dir to exe dir : "});
    EXPECT_EQ(shell.startDirectory, directory.path.substr(0, 3));
}

TEST_F(StartUpTest, DebugDirectoryIsSetBeforeTheLibrariesAreChecked) {
    FakeFunction old(GetGrVelkDataVersion, [] {
        RecordedReports::events.push_back("check");
        return 0.0f;
    });
    EXPECT_FALSE(StartUp(L"/d"));
    EXPECT_EQ(RecordedReports::events[0], "plain Debug : change dir to exe dir : ");
    EXPECT_EQ(RecordedReports::events[1], "check");
}

// ---- What ends the process ---------------------------------------------------------------------

TEST_F(StartUpTest, WrongLibraryEndsTheProcess) {
    FakeFunction old(GetBsdVelkVersion, [] { return 1.0f; });
    regionalFine = false;
    EXPECT_FALSE(StartUp(Quoted(database)));
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1u);
    EXPECT_TRUE(RecordedReports::Of("ask").empty());
    EXPECT_TRUE(RecordedReports::Of("main").empty());
    EXPECT_EQ(StartEntry(), "(none)");
}

TEST_F(StartUpTest, RefusedRegionalSettingsEndTheProcess) {
    regionalFine = false;
    FakeView::answerYes = false;
    EXPECT_FALSE(StartUp(L""));
    EXPECT_EQ(RecordedReports::events, Events{kRegionalQuestion});
    EXPECT_EQ(StartEntry(), "(none)");
}

TEST_F(StartUpTest, AdjustedRegionalSettingsLetItStart) {
    regionalFine = false;
    FakeView::answerYes = true;
    EXPECT_TRUE(StartUp(L""));
    EXPECT_EQ(RecordedReports::events[0], kRegionalQuestion);
    EXPECT_EQ(RecordedReports::events[1], "regional set");
    EXPECT_EQ(RecordedReports::events[2], "main load");
}

TEST_F(StartUpTest, RegionalSettingsThatCannotBeAdjustedEndTheProcess) {
    regionalFine = false;
    regionalCanChange = false;
    FakeView::answerYes = true;
    EXPECT_FALSE(StartUp(L""));
    EXPECT_EQ(RecordedReports::Of("warning"),
              Events{"Automatic adjustment for Regional Settings failed"});
    EXPECT_TRUE(RecordedReports::Of("main").empty());
}

TEST_F(StartUpTest, FineRegionalSettingsAskNothing) {
    EXPECT_TRUE(CheckRegionalSettings());
    EXPECT_TRUE(RecordedReports::events.empty());
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

TEST_F(StartUpTest, SettingsThatCannotBeWrittenAreReportedAndTheProgramEnds) {
    const std::wstring before = system::CurrentDirectory();
    Configure(kMsgWorkDirectoryKey, folder.path);
    EXPECT_TRUE(StartUp(L""));
    ASSERT_EQ(system::RemoveFile(settingsFile.path), system::kErrorNone);
    ASSERT_EQ(system::MakeDirectory(settingsFile.path), system::kErrorNone);
    for (const bool sessionEnds : {false, true}) {
        RecordedReports::events.clear();
        ShutDown(sessionEnds);
        EXPECT_EQ(system::CurrentDirectory(), before);
        EXPECT_EQ(RecordedReports::caption, GetMessage(kMsgSettingsNotWritten) + L"...");
        EXPECT_EQ(RecordedReports::Of("warning").size(), sessionEnds ? 0U : 1U);
    }
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
