// CopyModel.
#include "database/listing.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "platform/ztutil32.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

using test::BlockText;
using test::CopiedBlockText;
using test::DatabaseText;
using test::FiveBlocks;
using test::RecordedReports;
using test::SampleBlock;
using test::SampleHead;
using test::WithoutStamps;

constexpr char kNewIdentifier[] = "A-NEW-IDENTIFIER";

void CORVANE_STDCALL GiveIdentifier(char* buffer, int32_t) {
    std::string(kNewIdentifier).copy(buffer, sizeof kNewIdentifier);
}

struct CopyModelTest : test::EditingTest {
    test::FakeFunction<decltype(GenerateID)> generate{GenerateID, GiveIdentifier};

    // The section, and after it the blocks 2 to 5.
    std::string SectionAndOthers() {
        std::string text = SampleHead() + BlockText(section, 1);
        for (size_t i = 1; i < 5; ++i) text += CopiedBlockText(FiveBlocks()[i], 0);
        return text;
    }
    int32_t Copy(int32_t number, ModelKind kind, bool keepBackup = false) {
        return CopyModel(path, {number, kind, L"  Copy ", {keepBackup}});
    }
    void ExpectRefusedCopy(std::string_view text, int32_t number, ModelKind kind) {
        EXPECT_EQ(Copy(number, kind, true), 0);
        ExpectRefusal(text, kMsgModelMissing, {number, path});
    }
};

// ---- Several models ----------------------------------------------------------------------------

TEST_F(CopyModelTest, SeveralModelsAreCopiedInOneRewriteAsOneAfterTheOther) {
    const std::string text = SectionAndOthers();
    Write(text);
    EXPECT_EQ(CopyModel(path, {4, ModelKind::kTorsion, L"T", {true}}), 6);
    EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L"A", {true}}), 7);
    EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L"B", {true}}), 8);
    const std::string expected = WithoutStamps(Text());
    Write(text);
    EXPECT_EQ(CopyAllModels(path, {{4, ModelKind::kTorsion, L"T", {true}},
                                   {1, ModelKind::kSection, L"A", {}},
                                   {1, ModelKind::kSection, L" B ", {}}}),
              8);
    EXPECT_EQ(WithoutStamps(Text()), expected);
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), text) << "one backup";
}

TEST_F(CopyModelTest, NoneOfSeveralModelsIsCopiedWhereOneCannotBe) {
    const std::string text = SectionAndOthers();
    Write(text);
    EXPECT_EQ(CopyAllModels(path, {{1, ModelKind::kSection, L"A", {true}},
                                   {9, ModelKind::kSection, L"B", {true}}}),
              0);
    ExpectRefusal(text, kMsgModelMissing, {9, path});
    EXPECT_EQ(CopyAllModels(path, {}), 0);
    EXPECT_EQ(Text(), text);
}

// ---- Sections ----------------------------------------------------------------------------------

TEST_F(CopyModelTest, SectionGetsTheNextNumberTheNewNameAndANewIdentifier) {
    const std::string text = SectionAndOthers();
    Write(text);
    EXPECT_EQ(Copy(1, ModelKind::kSection), 6);
    SectionModel copy = section;
    copy.name = L"Copy";
    copy.identifier = kNewIdentifier;
    EXPECT_EQ(WithoutStamps(Text()), WithoutStamps(text + BlockText(copy, 6)));
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
}

TEST_F(CopyModelTest, CopyCanBeCopiedAndDeletedAgain) {
    const std::string text = SectionAndOthers();
    Write(text);
    EXPECT_EQ(Copy(1, ModelKind::kSection), 6);
    EXPECT_EQ(Copy(6, ModelKind::kSection), 7);
    EXPECT_TRUE(DeleteModel(path, 6, false));
    EXPECT_TRUE(DeleteModel(path, 6, false));
    EXPECT_EQ(Text(), text);
}

TEST_F(CopyModelTest, NumberThatNoBlockHasIsReportedAndNothingWritten) {
    const std::string text = SectionAndOthers();
    Write(text);
    for (const int32_t number : {6, 0, -3}) {
        ExpectRefusedCopy(text, number, ModelKind::kSection);
        ExpectRefusedCopy(text, number, ModelKind::kTorsion);
    }
}

TEST_F(CopyModelTest, ModelOfAnotherKindIsNotCopied) {
    const std::string text = SectionAndOthers();
    Write(text);
    EXPECT_EQ(Copy(2, ModelKind::kSection), 0);
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              std::vector<std::string>{"Can not read BulkHead Arrangement"});
    test::RecordedReports::events.clear();
    ExpectRefusedCopy(text, 1, ModelKind::kTorsion);
    EXPECT_EQ(Copy(4, ModelKind::kSection), 0);
    EXPECT_EQ(Text(), text);
}

TEST_F(CopyModelTest, CopyGetsTheNumberAboveAllOthers) {
    for (const auto& [numbers, expected] :
         {std::pair(std::vector<const char*>{" 1 ", " 1 ", " 1 ", " 4 ", " 1 "}, 6),
          std::pair(std::vector<const char*>{" 1 ", " 77 ", " 3 ", " 4 ", "-5 "}, 78)}) {
        const std::vector<SampleBlock> blocks = Numbered(numbers);
        Write(DatabaseText(blocks));
        EXPECT_EQ(Copy(4, ModelKind::kTorsion), expected);
        std::string text = SampleHead();
        for (const SampleBlock& block : blocks) text += CopiedBlockText(block, 0);
        EXPECT_EQ(Text(), text + CopiedBlockText(blocks[3], expected - 4));
        EXPECT_EQ(Copy(expected, ModelKind::kTorsion), expected + 1);
        EXPECT_EQ(ListModels(path).size(), 7U);
    }
}

TEST_F(CopyModelTest, FileThatHasTheLargestNumberTakesNoOther) {
    const std::string text = DatabaseText(Numbered({" 1 ", " 2 ", " 2147483647 ", " 4 ", " 5 "}));
    Write(text);
    for (const auto& [number, kind] :
         {std::pair(1, ModelKind::kSection), std::pair(4, ModelKind::kTorsion)}) {
        EXPECT_EQ(Copy(number, kind), 0);
        ExpectRefusal(text, kMsgNoModelNumberLeft, {path, GetMessage(kMsgModelMarker)});
    }
}

// ---- Bulkhead arrangements ---------------------------------------------------------------------

TEST_F(CopyModelTest, BulkheadArrangementGetsTheNextNumberTheNewNameAndANewIdentifier) {
    BulkheadArrangement arrangement = test::FullArrangement();
    const std::string text =
        Copied({FiveBlocks()[0]}) + BlockText(arrangement, 2) + CopiedBlockText(FiveBlocks()[2], 0);
    Write(text);
    EXPECT_EQ(Copy(2, ModelKind::kBulkhead), 4);
    arrangement.name = L"Copy";
    arrangement.identifier = kNewIdentifier;
    EXPECT_EQ(WithoutStamps(Text()), WithoutStamps(text + BlockText(arrangement, 4)));
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
}

TEST_F(CopyModelTest, OnlyABulkheadArrangementIsCopiedAsOne) {
    const std::string text = SectionAndOthers();
    Write(text);
    for (const int32_t number : {1, 4, 9}) {
        EXPECT_EQ(Copy(number, ModelKind::kBulkhead), 0);
        EXPECT_EQ(test::RecordedReports::Of("warning").size(), 1U);
        test::RecordedReports::events.clear();
        EXPECT_EQ(Text(), text);
    }
}

// ---- Other programs ----------------------------------------------------------------------------

// Another program puts a new version of the database in place while a copy is being written.
struct Meanwhile {
    inline static std::wstring path;
    inline static std::string text;
    inline static int times = 0;
    // Windows replaces no file that is open, as the database is meanwhile.
    inline static bool isPossible = true;

    static void CORVANE_STDCALL ReplaceDatabase(char* buffer, int32_t size) {
        GiveIdentifier(buffer, size);
        if (times-- <= 0) return;
        const std::wstring theirs = path + L".new";
        test::WriteFileBytes(theirs, text);
        isPossible = system::RenameOver(theirs, path) == system::kErrorNone;
        if (!isPossible) system::RemoveFile(theirs);
    }
};

TEST_F(CopyModelTest, ModelThatAnotherProgramAppendsMeanwhileStaysAndTheCopyComesAfterIt) {
    const std::string theirs = SectionAndOthers() + CopiedBlockText(FiveBlocks()[3], 2);
    for (const auto& [times, expected] : {std::pair(1, 7), std::pair(2, 7)}) {
        Write(SectionAndOthers());
        Meanwhile::path = path;
        Meanwhile::text = theirs;
        Meanwhile::times = times;
        generate.function.pointer = Meanwhile::ReplaceDatabase;
        const int32_t number = Copy(1, ModelKind::kSection);
        if (!Meanwhile::isPossible) GTEST_SKIP() << "here no open file is replaced";
        EXPECT_EQ(number, expected);
        SectionModel copy = section;
        copy.name = L"Copy";
        copy.identifier = kNewIdentifier;
        EXPECT_EQ(WithoutStamps(Text()), WithoutStamps(theirs + BlockText(copy, 7)));
        EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), theirs);
        EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
        EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
    }
}

TEST_F(CopyModelTest, FileThatIsReplacedAgainAndAgainIsReportedAndLeftAlone) {
    const std::string theirs = SectionAndOthers() + CopiedBlockText(FiveBlocks()[3], 2);
    Write(SectionAndOthers());
    Meanwhile::path = path;
    Meanwhile::text = theirs;
    Meanwhile::times = 100;
    generate.function.pointer = Meanwhile::ReplaceDatabase;
    const int32_t number = Copy(1, ModelKind::kSection);
    if (!Meanwhile::isPossible) GTEST_SKIP() << "here no open file is replaced";
    EXPECT_EQ(number, 0);
    EXPECT_EQ(Meanwhile::times, 97);
    EXPECT_EQ(Text(), theirs);
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              std::vector<std::string>{test::ShownText(kMsgChangedTooOften, {path})});
}

// ---- Torsion models ----------------------------------------------------------------------------

TEST_F(CopyModelTest, TorsionCopyHasTheNextNumberAndOtherwiseTheSameLines) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[3].betweenMarkerAndNumber = "* between marker\r\n* and number\r\n";
    Write(DatabaseText(blocks));
    EXPECT_EQ(Copy(4, ModelKind::kTorsion), 6);
    std::string expected = SampleHead();
    for (const SampleBlock& block : blocks) expected += CopiedBlockText(block, 0);
    // The lines before its marker are its own.
    EXPECT_EQ(Text(), expected + CopiedBlockText(blocks[3], 2));
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    ASSERT_EQ(entries.size(), 6U);
    EXPECT_EQ(entries[5].kind, ModelKind::kTorsion);
    EXPECT_EQ(entries[5].name, L"Girder");
    EXPECT_EQ(entries[5].x, -1);
}

TEST_F(CopyModelTest, OnlyTorsionModelIsCopied) {
    SampleBlock block;
    block.keyword = "TORSION";
    block.body = "------------------ HOLDS ------------------\r\n 1 \t 2 \r\n\r\n  text";
    Write(DatabaseText({block}));
    EXPECT_EQ(Copy(1, ModelKind::kTorsion), 2);
    block.body += "\r\n";
    EXPECT_EQ(Text(), Copied({block}) + CopiedBlockText(block, 1));
}

TEST_F(CopyModelTest, DoubleNumberIsRefused) {
    const std::string text = DatabaseText(Numbered({" 1 ", " 4 ", " 1 ", " 4 ", " 5 "}));
    Write(text);
    for (const auto& [number, kind] :
         {std::pair(1, ModelKind::kSection), std::pair(4, ModelKind::kTorsion)}) {
        EXPECT_EQ(Copy(number, kind, true), 0);
        ExpectRefusalOfNumber(text, number);
    }
}

TEST_F(CopyModelTest, TorsionModelBetweenBlocksOutOfOrderIsCopiedAlone) {
    // No number comes after the other.
    std::vector<SampleBlock> blocks = Numbered({" 8 ", " 5 ", " 2 ", " 4 ", " 3 "});
    blocks[3].beforeMarker.clear();
    Write(DatabaseText(blocks));
    EXPECT_EQ(Copy(4, ModelKind::kTorsion), 9);
    std::string expected = SampleHead();
    for (const SampleBlock& block : blocks) expected += CopiedBlockText(block, 0);
    EXPECT_EQ(Text(), expected + CopiedBlockText(blocks[3], 5));
}

// ---- Refusals and messages ---------------------------------------------------------------------

TEST_F(CopyModelTest, StatusLabelIsClearedAfterTheCopy) {
    Write(SectionAndOthers());
    const std::string writing = test::Narrow(FormatMessage(kMsgWritingDatabase, {path})) + "...";
    for (const auto& [number, kind] :
         {std::pair(1, ModelKind::kSection), std::pair(4, ModelKind::kTorsion)}) {
        test::RecordedReports::events.clear();
        EXPECT_NE(Copy(number, kind), 0);
        ASSERT_GE(Captions().size(), 2U);
        EXPECT_EQ(Captions().front(), writing);
        EXPECT_EQ(Captions().back(), "");
    }
}

TEST_F(CopyModelTest, NothingHappensForAnEmptyPathAndOtherFilesAreReported) {
    std::wstring empty;
    EXPECT_EQ(CopyModel(empty, {1, ModelKind::kSection, L"Copy", {true}}), 0);
    EXPECT_TRUE(test::RecordedReports::events.empty());
    EXPECT_EQ(Copy(1, ModelKind::kTorsion), 0);
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              std::vector<std::string>{test::Narrow(FormatMessage(kMsgFileMissing, {path}))});
    test::RecordedReports::events.clear();
    Write("a letter\r\n");
    EXPECT_EQ(Copy(1, ModelKind::kTorsion), 0);
    ExpectRefusal("a letter\r\n", kMsgNoDatabase, {path});
}

}  // namespace
}  // namespace corvane
