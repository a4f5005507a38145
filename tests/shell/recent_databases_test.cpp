#include "shell/recent_databases.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/paths.h"
#include "platform/system.h"
#include "shell/commands/commands.h"
#include "shell/commands/file_commands.h"
#include "shell/start_up.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "text/text.h"

namespace corvane {
namespace {

using test::CommandTest;
using test::Narrow;
using test::RecordedReports;
using Paths = std::vector<std::wstring>;

struct RecentTest : CommandTest {
    test::FreshSettingsFile settingsFile;

    static void Note(const Paths& paths) {
        for (const std::wstring& path : paths) NoteRecent(path);
    }
    static std::vector<std::string> Captions() {
        std::vector<std::string> captions;
        for (const RecentItem& item : RecentItems()) captions.push_back(Narrow(item.caption));
        return captions;
    }
};

TEST_F(RecentTest, LastOneIsTheFirst) {
    Note({L"C:\\a.ve2", L"C:\\b.ve2", L"C:\\c.ve2", L"C:\\A.VE2"});
    EXPECT_EQ(shell.recent, (Paths{L"C:\\A.VE2", L"C:\\c.ve2", L"C:\\b.ve2"}));
    EXPECT_EQ(RecordedReports::Of("recent").size(), 4U) << "the system gets each";
    RecordedReports::events.clear();
    Note({L"C:\\A.VE2", L""});
    EXPECT_TRUE(RecordedReports::events.empty()) << "nothing new";
}

TEST_F(RecentTest, NineAreKept) {
    for (int i = 1; i <= 12; ++i) NoteRecent(L"C:\\" + std::to_wstring(i) + L".ve2");
    ASSERT_EQ(shell.recent.size(), kRecentCount);
    EXPECT_EQ(shell.recent.front(), L"C:\\12.ve2");
    EXPECT_EQ(shell.recent.back(), L"C:\\4.ve2");
}

TEST_F(RecentTest, TheyAreThereAtTheNextStart) {
    const Paths paths = {L"C:\\ships\\b&c.ve2", L"\\\\server\\share\\a.ve2"};
    shell.recent = paths;
    ShutDown();
    EXPECT_EQ(ReadRecent(kSettingsFile), paths);
}

TEST_F(RecentTest, PathThatTheSettingsFileCannotHoldIsLeftOut) {
    shell.recent = {L"C:\\\x4E2D.ve2", L"C:\\" + std::wstring(400, L'a') + L".ve2", L"C:\\b.ve2"};
    WriteRecent(kSettingsFile, shell.recent);
    EXPECT_EQ(ReadRecent(kSettingsFile), Paths{L"C:\\b.ve2"});
}

TEST_F(RecentTest, LinesThatAreNoPathsAreLeftOut) {
    const char* const values[] = {"7", "C:\\nul", "ship.ve2", "C:\\a.ve2", "\x01\x02"};
    for (size_t i = 0; i < std::size(values); ++i) {
        system::WriteProfileText("Corvane recent", std::to_string(i + 1), values[i], kSettingsFile);
    }
    system::WriteProfileText("Corvane recent", "Version", "99", kSettingsFile);
    EXPECT_EQ(ReadRecent(kSettingsFile), Paths{L"C:\\a.ve2"});
}

TEST_F(RecentTest, OpenedDatabaseIsRemembered) {
    const std::wstring ship = Make(L"ship.ve2");
    OpenFile(ship);
    EXPECT_EQ(shell.recent, Paths{ship});
    OpenFile(File(L"none.ve2"));
    EXPECT_EQ(shell.recent, Paths{ship});
}

TEST_F(RecentTest, CaptionsHaveDigitsAsLettersAndDoubledMarks) {
    shell.recent = {L"C:\\a.ve2", L"C:\\b & c.ve2"};
    EXPECT_EQ(Captions(), (std::vector<std::string>{"&1 C:\\a.ve2", "&2 C:\\b && c.ve2"}));
}

TEST_F(RecentTest, LongPathKeepsDriveAndFile) {
    const std::wstring longFolder =
        L"C:\\" + std::wstring(40, L'f') + L"\\" + std::wstring(30, L'g');
    shell.recent = {longFolder + L"\\ship.ve2",
                    longFolder + L"\\" + std::wstring(80, L's') + L".ve2"};
    EXPECT_EQ(Captions(),
              (std::vector<std::string>{"&1 C:\\...\\" + std::string(30, 'g') + "\\ship.ve2",
                                        "&2 C:\\...\\" + std::string(80, 's') + ".ve2"}));
}

TEST_F(RecentTest, OneThatHasGoneIsGreyButNotOneThatWouldHaveToBeWaitedFor) {
    shell.recent = {Make(L"ship.ve2"), File(L"gone.ve2"), folder.path, L"Q:\\ship.ve2",
                    L"\\\\nowhere\\share\\ship.ve2"};
    std::vector<bool> areThere;
    for (const RecentItem& item : RecentItems()) areThere.push_back(item.isThere);
    EXPECT_EQ(areThere, (std::vector<bool>{true, false, false, true, true}));
}

TEST_F(RecentTest, CommandOpensItAndReportsOneThatIsNotThere) {
    const std::wstring ship = Make(L"ship.ve2", {ModelKind::kSection});
    shell.recent = {File(L"gone.ve2"), ship};
    RunCommand(ME_FileRecent + 1);
    EXPECT_EQ(shell.database.path, ship);
    EXPECT_EQ(shell.recent.front(), ship);
    RunCommand(ME_FileRecent + 1);
    EXPECT_TRUE(OnlyWarning("gone.ve2"));
    EXPECT_EQ(shell.database.path, ship);
}

TEST_F(RecentTest, CommandDoesNothingWithoutSuchALineAndWhileLocked) {
    RunCommand(ME_FileRecent + kRecentCount - 1);
    shell.recent = {Make(L"ship.ve2")};
    shell.locked = true;
    RunCommand(ME_FileRecent);
    EXPECT_EQ(shell.database.path, L"");
    EXPECT_TRUE(Warnings().empty());
}

// ---- Dropped files -----------------------------------------------------------------------------

TEST_F(RecentTest, DroppedDatabaseIsOpened) {
    const std::wstring ship = Make(L"ship.ve2", {ModelKind::kSection});
    OpenDropped({ship});
    EXPECT_EQ(shell.database.path, ship);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(RecentTest, DroppedDosDatabaseIsConverted) {
    OpenDropped({test::DataPath("../samples/aurora_bay.vel")});
    EXPECT_EQ(Narrow(shell.database.path), Narrow(LowerCase(work + L"aurora_bay.ve2")));
}

TEST_F(RecentTest, DropOfAnythingElseIsRefusedInWords) {
    MakeOpen(L"open.ve2");
    test::WriteFileBytes(File(L"letter.txt"), "Dear Sir");
    struct Case {
        Paths paths;
        const char* text;
    };
    for (const Case& one :
         {Case{{File(L"open.ve2"), File(L"letter.txt")}, "2 files cannot be opened together"},
          Case{{folder.path}, "is a folder"},
          Case{{File(L"letter.txt")}, "letter.txt : not a valid Corvane file"},
          Case{{File(L"gone.ve2")}, "gone.ve2' cannot be opened"}}) {
        RecordedReports::events.clear();
        OpenDropped(one.paths);
        EXPECT_TRUE(OnlyWarning(one.text));
        EXPECT_EQ(shell.database.path, File(L"open.ve2"));
    }
    RecordedReports::events.clear();
    OpenDropped({});
    EXPECT_TRUE(RecordedReports::events.empty());
}

}  // namespace
}  // namespace corvane
