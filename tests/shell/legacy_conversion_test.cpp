// OpenLegacyDatabase: a legacy database becomes a model database, which is opened.
#include "shell/legacy_conversion.h"

#include <gtest/gtest.h>

#include <cstring>

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "legacy/exchange.h"
#include "platform/system.h"
#include "platform/ztvelk32.h"
#include "report/messages.h"
#include "shell/report.h"
#include "tests/legacy/legacy_support.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "text/text.h"

namespace corvane {
namespace {

using namespace test;

struct LegacyCommand : CommandTest {
    std::wstring ship = File(L"Ships\\Alpha\\");
    std::wstring legacy = ship + L"Aurora.vel";

    LegacyCommand() {
        system::MakeDirectory(File(L"Ships"));
        system::MakeDirectory(ship);
        shell.settings.WorkDirectory = work;
        shell.settings.BrowseDirectory = browse;
        shell.database.path = L"C:\\before.ve2";
        shell.database.bsd.Titles(5).Assign(L"BEFORE");
    }
    ~LegacyCommand() override {
        for (const std::wstring& folderOfTest : {ship, work, browse}) {
            for (const std::wstring& name : FilesIn(folderOfTest)) {
                system::RemoveFile(folderOfTest + name);
            }
        }
        system::RemoveEmptyDirectory(ship);
        system::RemoveEmptyDirectory(File(L"Ships"));
    }

    static bool WasRefreshed() { return !RecordedReports::Of("rows").empty(); }
};

TEST_F(LegacyCommand, DatabaseIsConvertedIntoTheWorkDirectory) {
    WriteLegacyDatabase(legacy, {L"Frame 10", L"Frame 20"});
    OpenLegacyDatabase(legacy);
    const std::wstring path = work + L"Aurora.ve2";
    EXPECT_EQ(shell.database.path, LowerCase(path));
    EXPECT_EQ(shell.settings.BrowseDirectory, ship);
    EXPECT_EQ(shell.database.currentModel, 1);
    const std::vector<ModelEntry> models = ListModelsWithPositions(path);
    ASSERT_EQ(models.size(), 2u);
    EXPECT_EQ(models[0].name, L"Frame 10");
    EXPECT_EQ(models[1].name, L"Frame 20");
    EXPECT_EQ(models[1].x, 2);
    EXPECT_TRUE(Warnings().empty());
    EXPECT_TRUE(WasRefreshed());
    EXPECT_EQ(FilesIn(work), std::vector<std::wstring>{L"Aurora.ve2"});
}

TEST_F(LegacyCommand, ShipIsNamedAfterTheFileInUpperCase) {
    WriteLegacyDatabase(legacy, {});
    OpenLegacyDatabase(legacy);
    BasicShipData bsd;
    ASSERT_TRUE(LoadBsdFromDatabase(work + L"Aurora.ve2", bsd));
    EXPECT_EQ(bsd.Titles(5).Trimmed(), L"AURORA");
    EXPECT_EQ(bsd.Titles(1).Trimmed(), L"\u00C9toile");
    EXPECT_EQ(shell.database.bsd.Titles(5).Trimmed(), L"AURORA");
}

TEST_F(LegacyCommand, DatabaseNamedStarIsNamedAfterItsFolder) {
    WriteLegacyDatabase(ship + L"STAR.VEL", {L"Frame 10"});
    OpenLegacyDatabase(ship + L"STAR.VEL");
    const std::wstring name = CleanFileName(ship);
    EXPECT_TRUE(name.ends_with(L"ShipsAlpha")) << Narrow(name);
    EXPECT_TRUE(FileExists(work + name + L".ve2"));
    EXPECT_EQ(shell.database.bsd.Titles(5).Whole(), UpperCase(name).substr(0, 30));
}

TEST_F(LegacyCommand, WithoutANameTheUserIsAsked) {
    WriteLegacyDatabase(legacy, {L"Frame 10"});
    const FakePrompt prompt{legacy};
    OpenLegacyDatabase();
    ASSERT_EQ(FakePrompt::questions.size(), 1u);
    EXPECT_EQ(FakePrompt::questions[0].extension, L"vel");
    EXPECT_EQ(FakePrompt::questions[0].types, GetMessage(105));
    EXPECT_EQ(FakePrompt::questions[0].flags, 0);
    EXPECT_TRUE(FileExists(work + L"Aurora.ve2"));
}

TEST_F(LegacyCommand, CancelledQuestionChangesNothing) {
    for (const wchar_t* answer : {L"", L"Cancel"}) {
        const FakePrompt prompt{std::wstring(answer)};
        OpenLegacyDatabase();
        EXPECT_EQ(shell.database.path, L"C:\\before.ve2");
        EXPECT_EQ(shell.settings.BrowseDirectory, browse);
    }
    EXPECT_TRUE(FilesIn(work).empty());
}

TEST_F(LegacyCommand, CurrentDirectoryAndPointerComeBack) {
    WriteLegacyDatabase(legacy, {L"Frame 10"});
    ASSERT_EQ(system::SetCurrentTo(browse), system::kErrorNone);
    const std::wstring before = system::CurrentDirectory();
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(system::CurrentDirectory(), before);
    std::vector<std::string> pointers;
    for (const std::string& event : RecordedReports::events) {
        if (event.starts_with("pointer")) pointers.push_back(event);
    }
    ASSERT_GE(pointers.size(), 2u);
    EXPECT_EQ(pointers.front(), "pointer busy");
    EXPECT_EQ(pointers.back(), "pointer reset");
}

TEST_F(LegacyCommand, ExistingFileIsReplacedOnlyWhenTheUserSaysSo) {
    WriteLegacyDatabase(legacy, {L"Frame 10"});
    WriteFileBytes(work + L"Aurora.ve2", "old");
    FakeView::answerYes = false;
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(RecordedReports::Of("ask").size(), 1u);
    EXPECT_EQ(ReadFileBytes(work + L"Aurora.ve2"), "old");
    EXPECT_EQ(shell.database.path, L"C:\\before.ve2");
    FakeView::answerYes = true;
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(CountModels(work + L"Aurora.ve2"), 1);
}

TEST_F(LegacyCommand, OpenDatabaseIsNamedAsSuchBeforeItIsReplaced) {
    WriteLegacyDatabase(legacy, {L"Frame 10"});
    WriteFileBytes(work + L"Aurora.ve2", "old");
    shell.database.path = work + L"..\\work\\aurora.ve2";
    if (!FileExists(shell.database.path)) shell.database.path = work + L"..\\work\\Aurora.ve2";
    shell.database.rows.resize(14);
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(RecordedReports::Of("ask irreversible"),
              std::vector<std::string>{
                  Narrow(BoxText(kMsgReplaceOpenQuestion, {work + L"Aurora.ve2", 14}))});
    EXPECT_EQ(ReadFileBytes(work + L"Aurora.ve2"), "old");
}

TEST_F(LegacyCommand, DamagedDatabaseIsReportedWithItsStatusAndChangesNothing) {
    WriteLegacyDatabase(legacy, {L"Frame 10"});
    std::string bytes = ReadFileBytes(legacy);
    bytes[2000] = static_cast<char>(bytes[2000] ^ 1);
    WriteFileBytes(legacy, bytes);
    ASSERT_EQ(system::SetCurrentTo(browse), system::kErrorNone);
    const std::wstring before = system::CurrentDirectory();
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(Warnings(), std::vector<std::string>{UnreadText(legacy, 3)});
    EXPECT_EQ(shell.database.path, L"C:\\before.ve2");
    EXPECT_EQ(shell.database.bsd.Titles(5).Trimmed(), L"BEFORE");
    EXPECT_TRUE(FilesIn(work).empty());
    EXPECT_EQ(system::CurrentDirectory(), before);
    EXPECT_TRUE(WasRefreshed());
}

TEST_F(LegacyCommand, ForeignFileIsReportedWithItsStatus) {
    WriteFileBytes(legacy, "no legacy database");
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(Warnings(), std::vector<std::string>{UnreadText(legacy, 2)});
}

TEST_F(LegacyCommand, ListThatCannotBeReadLeavesNoFile) {
    const FakeLegacyLibrary library;
    FakeLegacyLibrary::listStatus = 3;
    WriteFileBytes(work + L"Aurora.ve2", "old");
    WriteFileBytes(legacy, "any");
    FakeView::answerYes = true;
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(Warnings(), std::vector<std::string>{UnreadText(legacy, 3)});
    EXPECT_EQ(ReadFileBytes(work + L"Aurora.ve2"), "old");
    EXPECT_EQ(shell.database.path, L"C:\\before.ve2");
}

TEST_F(LegacyCommand, CallsFollowTheDescribedConversation) {
    const FakeLegacyLibrary library;
    FakeLegacyLibrary::listCount = 2;
    WriteFileBytes(legacy, "any");
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(FakeLegacyLibrary::calls,
              (std::vector<std::string>{
                  "importvelknavi Aurora.vel", "getvelksections Aurora.vel",
                  "importvelkmainsec Aurora.vel 1", "importsectiongeometry Aurora.vel 1",
                  "importvelkcompload Aurora.vel 1", "importvelkmainsec Aurora.vel 2",
                  "importsectiongeometry Aurora.vel 2", "importvelkcompload Aurora.vel 2",
                  "getvelksections Aurora.vel"}))
        << "the last call says whether all was read";
    EXPECT_EQ(CountModels(work + L"Aurora.ve2"), 2);
}

struct TwentyFour : LegacyCommand {
    TwentyFour() {
        std::vector<std::wstring> names;
        for (int i = 1; i <= 24; ++i) names.push_back(L"Frame " + std::to_wstring(i));
        WriteLegacyDatabase(legacy, names);
    }
};

TEST_F(TwentyFour, SectionsAreAllConvertedThoseThatAreNotListedByTheirNumbers) {
    OpenLegacyDatabase(legacy);
    EXPECT_TRUE(RecordedReports::Of("ask").empty());
    const std::vector<ModelEntry> models = ListModels(work + L"Aurora.ve2");
    ASSERT_EQ(models.size(), 24U);
    EXPECT_EQ(models[20].name, L"Frame 21");
    EXPECT_EQ(models[23].name, L"Frame 24");
    EXPECT_TRUE(Warnings().empty());
}

// A library that gives a section for any number.
struct AnyNumber : TwentyFour {
    FakeFunction<decltype(importvelkmainsec)> fake{
        importvelkmainsec, [](const char*, int16_t number, LegacyMainSection* record) {
            std::memset(record->name, 'A' + number % 20, 8);
            record->breadth_m = 10;
            return int16_t{0};
        }};
    static inline std::string reported;
    AnyNumber() {
        reported.clear();
        FakeView::showReport = [](Report& report) {
            reported = Narrow(ReportAsText(report));
            return false;
        };
    }
};

TEST_F(AnyNumber, SectionsAreConvertedUpToTheTwentiethAsSaidBeforeAndAfter) {
    FakeView::answerYes = true;
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(CountModels(work + L"Aurora.ve2"), 20);
    const std::vector<std::string> asked = RecordedReports::Of("ask");
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_NE(asked[0].find("may have more sections than the 20"), std::string::npos);
    EXPECT_NE(reported.find("Left out\tSections from number 21 on were left out"),
              std::string::npos)
        << reported;
}

TEST_F(AnyNumber, SectionsAreNotConvertedWhenTheUserSaysNo) {
    FakeView::answerYes = false;
    OpenLegacyDatabase(legacy);
    EXPECT_TRUE(FilesIn(work).empty());
    EXPECT_EQ(shell.database.path, L"C:\\before.ve2");
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(LegacyCommand, TwentySectionsAreConvertedWithoutAQuestion) {
    std::vector<std::wstring> names(20, L"Frame");
    WriteLegacyDatabase(legacy, names);
    OpenLegacyDatabase(legacy);
    EXPECT_EQ(CountModels(work + L"Aurora.ve2"), 20);
    EXPECT_TRUE(RecordedReports::Of("ask").empty());
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(LegacyCommand, MissingTemporaryFolderIsReported) {
    WriteLegacyDatabase(legacy, {L"Frame 10"});
    {
        const NoTemporaryFolder none;
        OpenLegacyDatabase(legacy);
    }
    const std::vector<std::string> warnings = Warnings();
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find("Aurora.ve2' cannot be written"), std::string::npos) << warnings[0];
    EXPECT_TRUE(FilesIn(work).empty());
    EXPECT_EQ(shell.database.path, L"C:\\before.ve2");
}

}  // namespace
}  // namespace corvane
