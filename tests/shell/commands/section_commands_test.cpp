#include "shell/commands/section_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "database/listing.h"
#include "database/scanning.h"
#include "platform/system.h"
#include "shell/commands/commands.h"
#include "shell/open_database.h"
#include "shell/state.h"
#include "tests/database/sample_database.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"
#include "text/text.h"

namespace corvane {
namespace {

using test::FakeView;
using test::Narrow;
using test::RecordedReports;
using Events = std::vector<std::string>;
using Names = std::vector<std::wstring>;

constexpr char kCopyQuestion[] = "Input the name of the copy";

// A database of five models (section, bulkhead arrangement, section, torsion model, section), open,
// with the third as the current one.
struct ModelCommandsTest : testing::Test {
    FakeView screen;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    std::string before;

    // What another program does while a question is on the screen.
    static std::function<void()> meanwhile;

    ModelCommandsTest() {
        Open(test::FiveBlocks());
        shell.database.currentModel = 3;
    }

    void Open(const std::vector<test::SampleBlock>& blocks) {
        before = test::DatabaseText(blocks);
        test::WriteFileBytes(path, before);
        shell.database.path = path;
    }

    Names ModelNames() const {
        Names names;
        for (const ModelEntry& model : ListModels(shell.database.path)) {
            names.push_back(model.name);
        }
        return names;
    }
    std::vector<int32_t> Numbers() const {
        std::vector<int32_t> numbers;
        for (const ModelEntry& model : ListModels(shell.database.path)) {
            numbers.push_back(model.number);
        }
        return numbers;
    }
    // Nothing was asked or shown but `warning`, and file and state are as they were.
    void ExpectRefused(const std::wstring& warning, int32_t current = 3) {
        EXPECT_EQ(RecordedReports::Of("warning"), Events{Narrow(warning)});
        EXPECT_EQ(RecordedReports::Of("ask"), Events{});
        ExpectUntouched(current);
    }
    // The model that has gone was reported, nothing was asked, and the list was read again.
    void ExpectMissing(int32_t number) {
        EXPECT_EQ(RecordedReports::Of("warning"),
                  Events{test::AdvisedText(kMsgModelMissing, {number, path}, kMsgModelGoneAdvice)});
        EXPECT_EQ(RecordedReports::Of("ask"), Events{});
        EXPECT_FALSE(RecordedReports::Of("rows").empty());
        EXPECT_EQ(test::ReadFileBytes(path), before);
        EXPECT_EQ(shell.database.path, path);
    }
    void ExpectUntouched(int32_t current = 3) {
        EXPECT_EQ(test::ReadFileBytes(path), before);
        EXPECT_EQ(test::FilesIn(folder.path), Names{L"ship.ve2"});
        EXPECT_EQ(shell.database.path, path);
        EXPECT_EQ(shell.database.currentModel, current);
        EXPECT_FALSE(RecordedReports::Happened("clear preview"));
    }

    static void AnswerWhileTheFileChanges(std::function<void()> change) {
        meanwhile = std::move(change);
        shell.view.askIrreversible = [](const std::wstring&) {
            meanwhile();
            return true;
        };
        shell.view.askText = [](const std::wstring&, const std::wstring&, std::wstring&) {
            meanwhile();
            return true;
        };
    }
};

std::function<void()> ModelCommandsTest::meanwhile;

// What the warning box shows of a message.
std::wstring WarningText(int32_t number, MessageArguments arguments) {
    return SubstituteArguments(ExpandLineBreaks(GetMessage(number)), arguments);
}

// Lines of a block, from one marker to the next.
std::string BlockAt(const std::string& bytes, int place) {
    const std::string marker = FetchStructuralLines().modelMarker + "\r\n";
    size_t begin = bytes.find(marker);
    for (int i = 1; i < place && begin != std::string::npos; ++i) {
        begin = bytes.find(marker, begin + 1);
    }
    if (begin == std::string::npos) return {};
    return bytes.substr(begin, bytes.find(marker, begin + 1) - begin);
}

// Both commands, for what holds for either.
struct BothCommands : ModelCommandsTest, testing::WithParamInterface<void (*)()> {};
INSTANTIATE_TEST_SUITE_P(Commands, BothCommands,
                         testing::Values(ME_SectionCopy_Click, ME_SectionRemove_Click));

// ---- Copy --------------------------------------------------------------------------------------

TEST_F(ModelCommandsTest, CopyProposesCopyOfAndTheTrimmedName) {
    for (const auto& [model, kind, name] :
         {std::tuple(2, "Bulkhead", "Bulkhead 40"), std::tuple(4, "Torsion", "Girder")}) {
        RecordedReports::events.clear();
        shell.database.currentModel = model;
        ME_SectionCopy_Click();
        EXPECT_EQ(RecordedReports::events, Events{std::string("ask text Copy ") + kind + ": " +
                                                  kCopyQuestion + " [Copy of " + name + "]"});
    }
}

TEST_F(ModelCommandsTest, CopyOfEachKindIsTheLastModelAndTheCurrentOne) {
    const struct {
        int16_t model;
        const wchar_t* name;
    } cases[] = {{1, L"New"}, {2, L"New"}, {4, L"Girder"}};
    for (const auto& item : cases) {
        Open(test::FiveBlocks());
        shell.database.currentModel = item.model;
        FakeView::answerYes = true;
        FakeView::answerText = L"New";
        ME_SectionCopy_Click();
        EXPECT_EQ(RecordedReports::Of("warning"), Events{});
        EXPECT_EQ(ModelNames(),
                  (Names{L"Frame 10", L"Bulkhead 40", L"Frame 20", L"Girder", L"Aft", item.name}));
        EXPECT_EQ(shell.database.currentModel, 6);
    }
}

TEST_F(ModelCommandsTest, CopyOfEachKindKeepsABackup) {
    FakeView::answerYes = true;
    FakeView::answerText = L"New";
    for (const int32_t model : {3, 2, 4}) {
        const std::string old = test::ReadFileBytes(path);
        shell.database.currentModel = model;
        ME_SectionCopy_Click();
        EXPECT_EQ(test::FilesIn(folder.path), (Names{L"ship.bak", L"ship.ve2"}));
        EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), old) << model;
    }
}

TEST_F(ModelCommandsTest, AnswerIsTrimmed) {
    FakeView::answerYes = true;
    FakeView::answerText = L"  Frame 21   ";
    ME_SectionCopy_Click();
    EXPECT_EQ(ModelNames().at(5), L"Frame 21");
}

TEST_F(ModelCommandsTest, CancelledOrEmptyNameCopiesNothing) {
    ME_SectionCopy_Click();
    for (const wchar_t* name : {L"", L"    "}) {
        FakeView::answerYes = true;
        FakeView::answerText = name;
        ME_SectionCopy_Click();
    }
    EXPECT_EQ(RecordedReports::Of("ask").size(), 3U);
    EXPECT_EQ(RecordedReports::events.size(), 3U);
    ExpectUntouched();
}

TEST_F(ModelCommandsTest, CopyShowsTheHourglassAndRefreshes) {
    FakeView::answerYes = true;
    FakeView::answerText = L"New";
    ME_SectionCopy_Click();
    EXPECT_TRUE(RecordedReports::Happened("pointer busy"));
    EXPECT_EQ(RecordedReports::Of("rows"), Events{"6"});
    EXPECT_EQ(RecordedReports::events.back(), "pointer reset");
}

TEST_F(ModelCommandsTest, OddNamesOfCopiesStayOneModelEach) {
    const std::string marker = FetchStructuralLines().modelMarker;
    const std::wstring names[] = {L"H\u00F6he \u00E9",
                                  L"* star",
                                  L"------ dashes",
                                  std::wstring(marker.begin(), marker.end()),
                                  L"a & b, \"c\"; d",
                                  std::wstring(1000, L'x'),
                                  L"Copy of " + std::wstring(1000, L'x'),
                                  L"\u65E5\u672C"};
    FakeView::answerYes = true;
    for (const std::wstring& name : names) {
        shell.database.currentModel = 1;
        FakeView::answerText = name;
        ME_SectionCopy_Click();
    }
    EXPECT_EQ(RecordedReports::Of("warning"), Events{});
    const Names listed = ModelNames();
    ASSERT_EQ(listed.size(), 13U);
    for (size_t i = 0; i < 6; ++i) EXPECT_EQ(listed[i + 5], names[i]);
    EXPECT_EQ(listed[11], names[6].substr(0, 1000)) << "the longest that a file holds";
    EXPECT_EQ(listed[12], L"??");
}

TEST_F(ModelCommandsTest, ReadOnlyDatabaseIsCopiedToAnotherFileWhichBecomesTheOpenOne) {
    shell.database.bsd.FrameZoneCount = 7;
    shell.settings.BrowseDirectory = L"X:\\";
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    const std::wstring other = folder.File(L"other.ve2");
    const test::FakePrompt prompt{other};
    FakeView::answerYes = true;
    FakeView::answerText = L"New";
    ME_SectionCopy_Click();
    EXPECT_EQ(test::ReadFileBytes(path), before);
    EXPECT_EQ(shell.database.path, other);
    EXPECT_EQ(shell.settings.BrowseDirectory, folder.path);
    EXPECT_EQ(shell.database.currentModel, 6);
    EXPECT_EQ(ModelNames().size(), 6U);
    EXPECT_EQ(shell.database.bsd.FrameZoneCount, 0)
        << "the data are those of the file that is open";
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

TEST_F(ModelCommandsTest, ReadOnlyDatabaseAndNoOtherFileChangesNothing) {
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    const test::FakePrompt prompt;
    FakeView::answerYes = true;
    FakeView::answerText = L"New";
    ME_SectionCopy_Click();
    ExpectUntouched();
    EXPECT_EQ(RecordedReports::Of("rows"), Events{});
    EXPECT_EQ(RecordedReports::events.back(), "pointer reset");
}

TEST_F(ModelCommandsTest, CopyInAFileWithAGapGetsANumberAboveAll) {
    std::vector<test::SampleBlock> blocks = test::FiveBlocks();
    blocks[4].number = " 9 ";
    Open(blocks);
    FakeView::answerYes = true;
    FakeView::answerText = L"New";
    ME_SectionCopy_Click();
    EXPECT_EQ(Numbers(), (std::vector<int32_t>{1, 2, 3, 4, 9, 10}));
    EXPECT_EQ(shell.database.currentModel, 10);
}

// ---- Delete ------------------------------------------------------------------------------------

TEST_F(ModelCommandsTest, DeleteAsksWithKindNameAndPathAndSaysWhetherABackupIsKept) {
    const wchar_t* const expected[] = {L"Section Frame 10", L"Bulkhead Bulkhead 40",
                                       L"Section Frame 20", L"Torsion Girder"};
    for (int16_t model = 1; model <= 4; ++model) {
        const bool keepsBackup = model % 2 == 0;
        RecordedReports::events.clear();
        shell.database.currentModel = model;
        shell.settings.IntegerSetting = keepsBackup ? -1 : 0;
        ME_SectionRemove_Click();
        const std::wstring question = L"Are you sure to remove " +
                                      std::wstring(expected[model - 1]) + L" from " + path + L" ?";
        EXPECT_EQ(RecordedReports::Of("ask irreversible"),
                  Events{keepsBackup ? test::AdvisedText(question, kMsgBackupKept, {L"ship.bak"})
                                     : test::AdvisedText(question, kMsgNoBackupKept)});
        ExpectUntouched(model);
    }
}

TEST_F(ModelCommandsTest, DeleteRemovesTheModelAndRenumbers) {
    FakeView::answerYes = true;
    ME_SectionRemove_Click();
    EXPECT_EQ(ModelNames(), (Names{L"Frame 10", L"Bulkhead 40", L"Girder", L"Aft"}));
    EXPECT_EQ(Numbers(), (std::vector<int32_t>{1, 2, 3, 4}));
    EXPECT_EQ(shell.database.currentModel, 3);
    EXPECT_TRUE(RecordedReports::Happened("clear preview"));
    EXPECT_TRUE(RecordedReports::Happened("pointer busy"));
    EXPECT_EQ(RecordedReports::Of("rows"), Events{"4"});
    EXPECT_EQ(RecordedReports::events.back(), "pointer reset");
}

TEST_F(ModelCommandsTest, DeleteKeepsABackupWhenTheIntegerSettingIsNotZero) {
    FakeView::answerYes = true;
    ME_SectionRemove_Click();
    EXPECT_EQ(test::FilesIn(folder.path), Names{L"ship.ve2"});
    const std::string second = test::ReadFileBytes(path);
    for (const int32_t setting : {1, -1}) {
        shell.settings.IntegerSetting = setting;
        test::WriteFileBytes(path, second);
        ME_SectionRemove_Click();
        EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), second) << setting;
    }
}

TEST_F(ModelCommandsTest, DeleteOfAReadOnlyFileIsRefusedBeforeTheQuestion) {
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    FakeView::answerYes = true;
    ME_SectionRemove_Click();
    EXPECT_EQ(RecordedReports::Of("warning"),
              Events{test::AdvisedText(kMsgReadOnly, {path}, kMsgReadOnlyAdvice)});
    EXPECT_EQ(RecordedReports::Of("ask"), Events{});
    ExpectUntouched();
    EXPECT_EQ(RecordedReports::Of("rows"), Events{});
}

TEST_F(ModelCommandsTest, AfterDeleteOfTheLastRowNothingIsSelectedAndTheNumberStays) {
    shell.database.currentModel = 5;
    test::FakeView::selected = 4;
    FakeView::answerYes = true;
    ME_SectionRemove_Click();
    EXPECT_EQ(ModelNames().size(), 4U);
    EXPECT_EQ(shell.database.currentModel, 5);
    EXPECT_EQ(test::FakeView::selected, -1);
    for (const uint16_t id :
         {ME_SectionInput, ME_SectionVelkRule, ME_SectionCopy, ME_SectionRemove}) {
        EXPECT_FALSE(IsEnabled(*FindCommand(id))) << id;
    }
}

TEST_F(ModelCommandsTest, AfterDeleteOfAnotherRowTheNextOneIsSelected) {
    test::FakeView::selected = 2;
    FakeView::answerYes = true;
    ME_SectionRemove_Click();
    EXPECT_EQ(test::FakeView::selected, 2);
    EXPECT_TRUE(IsEnabled(*FindCommand(ME_SectionRemove)));
}

// ---- Both: what is refused ---------------------------------------------------------------------

TEST_P(BothCommands, MissingDatabaseIsReported) {
    shell.database.path = folder.File(L"gone.ve2");
    GetParam()();
    EXPECT_EQ(
        RecordedReports::Of("warning"),
        Events{test::AdvisedText(kMsgFileMissing, {folder.File(L"gone.ve2")}, kMsgFileAdvice)});
    EXPECT_EQ(RecordedReports::Of("ask"), Events{});
}

TEST_P(BothCommands, NoCurrentModelIsReported) {
    for (const int16_t none : {int16_t{0}, int16_t{-1}, int16_t{-2}, int16_t{6}}) {
        RecordedReports::events.clear();
        shell.database.currentModel = none;
        GetParam()();
        ExpectMissing(none);
    }
}

TEST_P(BothCommands, NumberThatNoBlockHasIsReported) {
    std::vector<test::SampleBlock> blocks = test::FiveBlocks();
    blocks[2].number = " 7 ";
    Open(blocks);
    GetParam()();
    ExpectMissing(3);
}

TEST_P(BothCommands, NumberThatDoesNotLeadToOneModelAloneIsRefused) {
    const struct {
        const char* second;
        const char* third;
        int32_t number;
    } cases[] = {{" 3 ", " 3 ", 3}, {" 2 ", "none", 0}, {" 2 ", "-1 ", -1}};
    for (const auto& item : cases) {
        RecordedReports::events.clear();
        std::vector<test::SampleBlock> blocks = test::FiveBlocks();
        blocks[1].number = item.second;
        blocks[2].number = item.third;
        Open(blocks);
        shell.database.currentModel = item.number;
        GetParam()();
        ExpectRefused(
            WarningText(kMsgNumberNotOwn, {item.number, path, GetMessage(kMsgModelMarker)}),
            item.number);
    }
}

// Rows 1, 3, 2, 4, 5: what the command does is done to the model whose row it was.
TEST_P(BothCommands, ModelsOutOfOrderAreKnownByTheirNumbers) {
    std::vector<test::SampleBlock> blocks = test::FiveBlocks();
    blocks[1].number = " 3 ";
    blocks[2].number = " 2 ";
    Open(blocks);
    RefreshMainWindow();
    SelectLine(1);
    RecordedReports::events.clear();
    GetParam()();
    ASSERT_EQ(RecordedReports::Of("ask").size(), 1U);
    EXPECT_NE(RecordedReports::Of("ask").front().find("Bulkhead 40"), std::string::npos);
}

TEST_P(BothCommands, DamagedBlockElsewhereDoesNoHarm) {
    std::vector<test::SampleBlock> blocks = test::FiveBlocks();
    blocks[1].number = "broken";
    blocks[3].beforeMarker.clear();
    Open(blocks);
    FakeView::answerYes = true;
    FakeView::answerText = L"New";
    GetParam()();
    EXPECT_EQ(RecordedReports::Of("warning"), Events{});
    const std::string after = test::ReadFileBytes(path);
    EXPECT_EQ(BlockAt(after, 1), BlockAt(before, 1));
    EXPECT_EQ(BlockAt(after, 2), BlockAt(before, 2));
}

TEST_P(BothCommands, AnotherModelOrKindInItsPlaceAfterTheQuestionIsLeftAlone) {
    for (const bool otherKind : {false, true}) {
        RecordedReports::events.clear();
        std::vector<test::SampleBlock> blocks = test::FiveBlocks();
        Open(blocks);
        shell.database.currentModel = 3;
        (otherKind ? blocks[2].keyword : blocks[2].name) =
            otherKind ? "BHA" : "Put there meanwhile";
        const std::string changed = test::DatabaseText(blocks);
        AnswerWhileTheFileChanges([&] { test::WriteFileBytes(path, changed); });
        GetParam()();
        EXPECT_EQ(RecordedReports::Of("warning"),
                  Events{Narrow(WarningText(kMsgModelChanged, {path}))});
        EXPECT_EQ(RecordedReports::Of("rows"), Events{"5"}) << "the list has what the file has now";
        EXPECT_EQ(test::ReadFileBytes(path), changed);
        EXPECT_EQ(test::FilesIn(folder.path), Names{L"ship.ve2"});
    }
}

TEST_P(BothCommands, ModelsRemovedMeanwhileAreReported) {
    const std::string changed = test::DatabaseText({test::FiveBlocks().front()});
    AnswerWhileTheFileChanges([&] { test::WriteFileBytes(path, changed); });
    GetParam()();
    EXPECT_EQ(RecordedReports::Of("warning"),
              Events{test::AdvisedText(kMsgModelMissing, {3, path}, kMsgModelGoneAdvice)});
    EXPECT_EQ(test::ReadFileBytes(path), changed);
}

TEST_P(BothCommands, ModelsAddedMeanwhileStay) {
    std::vector<test::SampleBlock> blocks = test::FiveBlocks();
    blocks.push_back(blocks[4]);
    blocks[5].number = " 6 ";
    blocks[5].name = "Added";
    const std::string changed = test::DatabaseText(blocks);
    AnswerWhileTheFileChanges([&] { test::WriteFileBytes(path, changed); });
    GetParam()();
    EXPECT_EQ(RecordedReports::Of("warning"), Events{});
    const Names names = ModelNames();
    EXPECT_NE(std::find(names.begin(), names.end(), L"Added"), names.end());
}

}  // namespace
}  // namespace corvane
