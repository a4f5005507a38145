#include <gtest/gtest.h>

#include "bsd/bsd_file.h"
#include "bsd/labels.h"
#include "platform/system.h"
#include "report/messages.h"
#include "tests/bsd/bsd_support.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using namespace test;

const std::string kHead = "SIGNATURE\r\n* a comment\r\nfile head\r\n";
const std::string kHeader = std::string(kBsdHeaderLine) + "\r\n";
const std::string kLastLine = "25.1\t25.2\t25.3\t25.4\r\n";

std::string Model() {
    return GetMessageBytes(kMsgModelMarker) + "\r\n* rule\r\n 1 \r\nSECTION\r\n";
}

std::string Golden() {
    return ReadFileBytes(DataPath("golden/bsd_block.txt"));
}

// A record other than the golden one, and its block in a file.
BasicShipData OtherBsd() {
    BasicShipData bsd = DistinctBsdFromFile();
    bsd.Titles(1).Assign(L"Other ship");
    bsd.MainData(1) = 300;
    return bsd;
}

std::string BlockOf(BasicShipData bsd) {
    return kHeader + "*\r\n" + RecordsWritten(bsd);
}

// One database file, and the screen on which its faults show.
struct BsdBlock : testing::Test {
    RecordedReports screen;
    TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");

    void Write(const std::string& bytes) { WriteFileBytes(path, bytes); }
    std::string Text() { return ReadFileBytes(path); }
    BasicShipData Loaded() {
        BasicShipData bsd;
        EXPECT_TRUE(LoadBsdFromDatabase(path, bsd));
        return bsd;
    }
    // Saves the other record into a database with this text, and gives the new text.
    std::string Saved(const std::string& bytes) {
        Write(bytes);
        BasicShipData bsd = OtherBsd();
        EXPECT_TRUE(SaveBsdToDatabase(path, bsd));
        return Text();
    }
    static std::vector<std::string> Warnings() { return RecordedReports::Of("warning"); }
};

using BsdLoad = BsdBlock;
using BsdSave = BsdBlock;
using BsdImport = BsdBlock;

// ---- Loading -----------------------------------------------------------------------------------

TEST_F(BsdLoad, BlockIsFoundAfterTheFileHead) {
    Write(kHead + Golden() + Model());
    EXPECT_EQ(Loaded(), DistinctBsdFromFile());
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(BsdLoad, MissingFileDoesNothing) {
    BasicShipData bsd = DistinctBsd();
    EXPECT_FALSE(LoadBsdFromDatabase(folder.File(L"none.ve2"), bsd));
    EXPECT_FALSE(LoadBsdFromDatabase(L"", bsd));
    EXPECT_EQ(bsd, DistinctBsd());
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(BsdLoad, FileWithoutBlockIsReportedAndTheRecordKeepsItsContents) {
    for (const std::string& text : {std::string(), kHead, kHead + Model()}) {
        RecordedReports::events.clear();
        Write(text);
        BasicShipData bsd = DistinctBsd();
        EXPECT_FALSE(LoadBsdFromDatabase(path, bsd));
        EXPECT_EQ(bsd, DistinctBsd());
        EXPECT_EQ(Warnings(), std::vector{test::AdvisedText(path + L" : not a valid Corvane file",
                                                            kMsgForeignFileAdvice)});
    }
}

TEST_F(BsdLoad, HeaderLineIsComparedExactly) {
    for (const char* header :
         {"------------------  BSD ------------------",
          "------------------ BSD ------------------ ",
          " ------------------ BSD ------------------", "------------------ bsd ------------------",
          "----------------- BSD ------------------",
          "*------------------ BSD ------------------"}) {
        Write(kHead + header + "\r\n*\r\n" + GoldenRecords());
        BasicShipData bsd;
        EXPECT_FALSE(LoadBsdFromDatabase(path, bsd)) << header;
    }
}

TEST_F(BsdLoad, CommentLinesBetweenHeaderAndRecordsAreSkipped) {
    for (const char* comments : {"", "*\r\n", "*\r\n* second, 1 2 3\r\n**\r\n"}) {
        Write(kHead + kHeader + comments + GoldenRecords());
        EXPECT_EQ(Loaded(), DistinctBsdFromFile()) << comments;
    }
}

TEST_F(BsdLoad, CommentLinesInsideTheRecordsBreakTheParse) {
    Write(kHead + kHeader + WithLine(2, "* comment"));
    EXPECT_EQ(Loaded().Titles(1).Trimmed(), L"* comment");
}

TEST_F(BsdLoad, FirstTitleIsTrimmed) {
    Write(kHead + kHeader + WithLine(2, "   Name of ship   "));
    EXPECT_EQ(Loaded().Titles(1).Whole(), L"Name of ship                  ");
}

TEST_F(BsdLoad, EmptyFirstTitleBecomesALabel) {
    for (const char* title : {"", "        "}) {
        Write(kHead + kHeader + WithLine(2, title));
        const BasicShipData bsd = Loaded();
        EXPECT_FALSE(bsd.Titles(1).Trimmed().empty());
        EXPECT_EQ(bsd.Titles(1).Trimmed(), BsdLabel(kLabelNoName));
        EXPECT_EQ(bsd.Titles(2).Trimmed(), L"Title two");
    }
}

TEST_F(BsdLoad, TruncatedBlockReadsNothingOfTheModelAfterIt) {
    Write(kHead + Golden().substr(0, 500) + "\r\n" + Model() + "1\r\n2\r\n3\r\n");
    const BasicShipData bsd = Loaded();
    EXPECT_EQ(bsd.MainData(1), 5.01f);
    EXPECT_EQ(bsd.ReductionFactor, 0.85f);
    EXPECT_EQ(bsd.ExtraData(1), 0);
    EXPECT_EQ(bsd.Remark.Trimmed(), L"");
}

TEST_F(BsdLoad, EmptyBlockAtTheEndLoadsNothingButTheLabel) {
    Write(kHead + kHeader);
    const BasicShipData bsd = Loaded();
    EXPECT_EQ(bsd.Titles(1).Trimmed(), BsdLabel(kLabelNoName));
    EXPECT_EQ(bsd.MainData(1), 0);
}

TEST_F(BsdLoad, HeaderLineAfterTheFirstModelIsNoBlock) {
    Write(kHead + Model() + Golden());
    BasicShipData bsd = DistinctBsd();
    EXPECT_FALSE(LoadBsdFromDatabase(path, bsd));
    EXPECT_EQ(bsd, DistinctBsd());
    EXPECT_EQ(Warnings(), std::vector{Narrow(WithAdvice(path + L" : not a valid Corvane file",
                                                        BoxText(kMsgForeignFileAdvice)))});
}

TEST_F(BsdLoad, FileThatCannotBeReadIsReportedAndTheRecordKeepsItsContents) {
    BasicShipData bsd = DistinctBsd();
    EXPECT_FALSE(LoadBsdFromDatabase(kUnreadableFile, bsd));
    EXPECT_EQ(bsd, DistinctBsd());
    EXPECT_EQ(Warnings().size(), 1u);
}

TEST_F(BsdLoad, FirstBlockOfTwoIsRead) {
    Write(kHead + Golden() + BlockOf(OtherBsd()));
    EXPECT_EQ(Loaded().Titles(1).Trimmed(), L"Title one");
}

// ---- Saving ------------------------------------------------------------------------------------

TEST_F(BsdSave, BlockIsReplacedAndEverythingElseStays) {
    EXPECT_EQ(Saved(kHead + Golden() + Model()), kHead + BlockOf(OtherBsd()) + Model());
    EXPECT_EQ(Loaded(), OtherBsd());
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(BsdSave, OldTextIsKeptAsABackup) {
    const std::string text = kHead + Golden() + Model();
    Saved(text);
    EXPECT_EQ(ReadFileBytes(folder.File(L"ship.bak")), text);
    EXPECT_EQ(FilesIn(folder.path).size(), 2u);
}

TEST_F(BsdSave, BlockEndsAtTheNextHeaderLine) {
    const std::string next = "  ------ NEXT ------\r\n* comment\r\n1\r\n";
    EXPECT_EQ(Saved(kHead + Golden() + next), kHead + BlockOf(OtherBsd()) + next);
}

TEST_F(BsdSave, CommentLinesOfTheOldBlockAreDroppedAndThoseBeforeItStay) {
    const std::string old = kHeader + "*\r\n* one\r\n" + GoldenRecords() + "* two\r\n";
    EXPECT_EQ(Saved(kHead + "* kept\r\n" + old + Model()),
              kHead + "* kept\r\n" + BlockOf(OtherBsd()) + Model());
}

TEST_F(BsdSave, LastLineOfABlockAtTheEndOfTheFileIsRepeated) {
    EXPECT_EQ(Saved(kHead + Golden()), kHead + BlockOf(OtherBsd()) + kLastLine);
}

TEST_F(BsdSave, RepeatedSavesAddNoFurtherCopy) {
    const std::string once = Saved(kHead + Golden());
    EXPECT_EQ(Saved(once), once);
    EXPECT_EQ(Saved(once), once);
    EXPECT_EQ(Loaded(), OtherBsd());
}

TEST_F(BsdSave, LastLineWithoutItsEndGetsOne) {
    std::string text = kHead + Golden();
    text.resize(text.size() - 2);
    EXPECT_EQ(Saved(text), kHead + BlockOf(OtherBsd()) + kLastLine);
}

TEST_F(BsdSave, EmptyBlockAtTheEndHasNoLineToRepeat) {
    EXPECT_EQ(Saved(kHead + kHeader), kHead + BlockOf(OtherBsd()));
}

TEST_F(BsdSave, LinesWithLineFeedsOnlyAreKeptAsTheyAre) {
    const std::string model = GetMessageBytes(kMsgModelMarker) + "\n 1 \nSECTION\n";
    const std::string text = "SIGNATURE\n" + std::string(kBsdHeaderLine) + "\n*\n5\nname\n" + model;
    EXPECT_EQ(Saved(text), "SIGNATURE\n" + BlockOf(OtherBsd()) + model);
}

TEST_F(BsdSave, BytesOutsideOfTheBlockPassUnchanged) {
    std::string head;
    for (int c = 1; c < 256; ++c) head += static_cast<char>(c);
    head += std::string("\0\r\n", 3) + std::string(100000, 'x') + "\r\n";
    const std::string tail = Model() + std::string(300000, '\xE9');
    EXPECT_EQ(Saved(head + Golden() + tail), head + BlockOf(OtherBsd()) + tail + "\r\n");
}

TEST_F(BsdSave, HeaderLineAfterTheFirstModelIsNoBlock) {
    const std::string text = kHead + Model() + Golden() + Model();
    Write(text);
    BasicShipData bsd = OtherBsd();
    EXPECT_FALSE(SaveBsdToDatabase(path, bsd));
    EXPECT_EQ(Warnings(), std::vector{Narrow(WithAdvice(path + L" : not a valid Corvane file",
                                                        BoxText(kMsgForeignFileAdvice)))});
    EXPECT_EQ(Text(), text);
}

TEST_F(BsdSave, SecondBlockStays) {
    EXPECT_EQ(Saved(kHead + Golden() + Golden()), kHead + BlockOf(OtherBsd()) + Golden());
}

TEST_F(BsdSave, TextsOfTheOldBlockThatLookLikeHeaderLinesArePartOfIt) {
    for (const char* text : {"------ dashes", "------------------ BSD ------------------"}) {
        for (const int line : {1, 2, 4, 6, 69}) {
            for (const std::string& next :
                 {Model(), std::string("------ NEXT\r\n1\r\n") + Model()}) {
                EXPECT_EQ(Saved(kHead + kHeader + "*\r\n" + WithLine(line, text) + next),
                          kHead + BlockOf(OtherBsd()) + next)
                    << line;
            }
        }
    }
}

TEST_F(BsdSave, RecordWithTextsThatLookLikeHeaderLinesIsSavedAgainAndAgain) {
    BasicShipData bsd = DistinctBsdFromFile();
    for (FixedText<30>& title : bsd.Titles.elements) title.Assign(L"------ title");
    bsd.Remark.Assign(L"------------------ BSD ------------------");
    Write(kHead + Golden() + Model());
    for (int save = 1; save <= 3; ++save) {
        EXPECT_TRUE(SaveBsdToDatabase(path, bsd));
        EXPECT_EQ(Text(), kHead + BlockOf(bsd) + Model()) << save;
        EXPECT_EQ(Loaded(), bsd);
    }
}

TEST_F(BsdSave, FourthDimensionChangesInTheCallersRecord) {
    Write(kHead + Golden());
    BasicShipData bsd = OtherBsd();
    bsd.MainData(4) = 0;
    EXPECT_TRUE(SaveBsdToDatabase(path, bsd));
    EXPECT_EQ(bsd.MainData(4), bsd.MainData(3));
}

TEST_F(BsdSave, EmptyPathAndMissingFileDoNothing) {
    BasicShipData bsd = OtherBsd();
    EXPECT_FALSE(SaveBsdToDatabase(L"", bsd));
    EXPECT_FALSE(SaveBsdToDatabase(path, bsd));
    EXPECT_TRUE(RecordedReports::events.empty());
    EXPECT_TRUE(FilesIn(folder.path).empty());
}

TEST_F(BsdSave, ReadOnlyFileIsReportedAndUntouched) {
    const std::string text = kHead + Golden() + Model();
    Write(text);
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    BasicShipData bsd = OtherBsd();
    EXPECT_FALSE(SaveBsdToDatabase(path, bsd));
    EXPECT_EQ(Warnings(),
              std::vector{test::AdvisedText(path + L" is read only!", kMsgReadOnlyAdvice)});
    system::SetReadOnly(path, false);
    EXPECT_EQ(Text(), text);
}

TEST_F(BsdSave, FileWithoutBlockIsReportedAndUntouched) {
    Write(kHead + Model());
    BasicShipData bsd = OtherBsd();
    EXPECT_FALSE(SaveBsdToDatabase(path, bsd));
    EXPECT_EQ(Warnings(), std::vector{test::AdvisedText(path + L" : not a valid Corvane file",
                                                        kMsgForeignFileAdvice)});
    EXPECT_EQ(Text(), kHead + Model());
    EXPECT_EQ(FilesIn(folder.path).size(), 1u);
}

// The report of a save that failed has the path, the reason, the temporary file that holds the new
// text, and what to do. The catalogue's text is kFailedSave.
const char kFailedSave[] = "\xA4|\xA4|\xA4|\xA4";

void ExpectReportOfFailedSave(const std::wstring& path, const std::string& newText) {
    const auto warnings = RecordedReports::Of("warning");
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_TRUE(warnings[0].starts_with(Narrow(path) + "|")) << warnings[0];
    const size_t end = warnings[0].rfind('|');
    const size_t begin = warnings[0].rfind('|', end - 1) + 1;
    const std::string kept = warnings[0].substr(begin, end - begin);
    const std::wstring temporary(kept.begin(), kept.end());
    EXPECT_EQ(ReadFileBytes(temporary), newText);
    EXPECT_EQ(system::RemoveFile(temporary), system::kErrorNone);
}

// Where a file that is held open can't be replaced.
TEST_F(BsdSave, DatabaseHeldByAnotherProgramIsReportedAndUntouched) {
    const FakeCatalogue catalogue({{kMsgFileNotWritten, kFailedSave}});
    const std::string text = kHead + Golden();
    system::File held;
    ASSERT_EQ(system::CreateForWriting(path, held), system::kErrorNone);
    ASSERT_EQ(system::WriteBytes(held, text.data(), text.size()), system::kErrorNone);
    BasicShipData bsd = OtherBsd();
    const bool saved = SaveBsdToDatabase(path, bsd);
    system::CloseFile(held);
    if (saved) GTEST_SKIP() << "files that are open can be replaced on this system";
    EXPECT_EQ(Text(), text);
    ExpectReportOfFailedSave(path, kHead + BlockOf(OtherBsd()) + kLastLine);
    EXPECT_EQ(ReadFileBytes(folder.File(L"ship.bak")), text);
    EXPECT_EQ(FilesIn(folder.path).size(), 2u);
}

// The host lists open files in a folder where nobody can create one.
TEST_F(BsdSave, FolderThatTakesNoNewFileIsReported) {
    const FakeCatalogue catalogue({{kMsgFolderNotWritable, "\xA4|\xA4"}});
    const std::string text = kHead + Golden();
    Write(text);
    system::File open;
    ASSERT_EQ(system::OpenForReading(path, open), system::kErrorNone);
    const std::wstring link = L"Z:\\proc\\self\\fd\\" + std::to_wstring(open.handle);
    BasicShipData bsd = OtherBsd();
    const bool saved = SaveBsdToDatabase(link, bsd);
    system::CloseFile(open);
    EXPECT_FALSE(saved);
    EXPECT_EQ(Text(), text);
    if (Warnings().empty()) GTEST_SKIP() << "this system has no such folder";
    ASSERT_EQ(Warnings().size(), 1u);
    EXPECT_TRUE(Warnings()[0].starts_with(Narrow(link) + "|")) << Warnings()[0];
}

// ---- Importing ---------------------------------------------------------------------------------

TEST_F(BsdImport, StandaloneFileIsRead) {
    BasicShipData bsd;
    EXPECT_TRUE(ImportBsdFile(DataPath("golden/standalone.bsd"), bsd));
    EXPECT_EQ(bsd.Titles(5).Trimmed(), L"EMERAUDE");
    EXPECT_EQ(bsd.FormatVersion.Trimmed(), L"5");
    EXPECT_EQ(bsd.FrameNumbers(3), 248);
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(BsdImport, MissingFileDoesNothing) {
    BasicShipData bsd = DistinctBsd();
    EXPECT_FALSE(ImportBsdFile(path, bsd));
    EXPECT_EQ(bsd, DistinctBsd());
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(BsdImport, GarbageIsReportedAndTheRecordKeepsItsContents) {
    for (const char* text :
         {"", "\r\n", "garbage", "0", "6\r\ntitle\r\n", "-1", "a\nb\nc\nd\ne\nf\ng h i",
          "------------------ BSD ------------------\r\n*\r\n5\r\n"}) {
        RecordedReports::events.clear();
        Write(text);
        BasicShipData bsd = DistinctBsdFromFile();
        EXPECT_FALSE(ImportBsdFile(path, bsd)) << text;
        EXPECT_EQ(bsd, DistinctBsdFromFile()) << text;
        EXPECT_EQ(Warnings(), std::vector{test::AdvisedText(path + L" : not a valid Corvane file",
                                                            kMsgForeignFileAdvice)});
    }
}

TEST_F(BsdImport, VersionOrOneNumberIsEnough) {
    for (const char* text : {"5", "1\r\n", "4,", "garbage\r\n1\r\n2\r\n3\r\n4\r\n5\r\nx 7"}) {
        Write(text);
        BasicShipData bsd;
        EXPECT_TRUE(ImportBsdFile(path, bsd)) << text;
    }
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(BsdImport, NothingOfTheOldRecordIsLeft) {
    Write("5\r\nNew name\r\n");
    BasicShipData bsd = DistinctBsd();
    EXPECT_TRUE(ImportBsdFile(path, bsd));
    BasicShipData expected;
    expected.FormatVersion.Assign(L"5");
    expected.Titles(1).Assign(L"New name");
    expected.ReductionFactor = 0.85f;
    EXPECT_EQ(bsd, expected);
}

TEST_F(BsdImport, TitleOfDashesDoesNotEndTheRecord) {
    Write(WithLine(3, "------ dashes"));
    BasicShipData bsd;
    EXPECT_TRUE(ImportBsdFile(path, bsd));
    BasicShipData expected = DistinctBsdFromFile();
    expected.Titles(2).Assign(L"------ dashes");
    EXPECT_EQ(bsd, expected);
}

TEST_F(BsdImport, FileThatCannotBeReadIsReportedAndTheRecordKeepsItsContents) {
    BasicShipData bsd = DistinctBsd();
    EXPECT_FALSE(ImportBsdFile(kUnreadableFile, bsd));
    EXPECT_EQ(bsd, DistinctBsd());
    EXPECT_EQ(Warnings().size(), 1u);
}

TEST_F(BsdImport, FirstTitleIsReadAsItIs) {
    Write("5\r\n  Name\r\n");
    BasicShipData bsd;
    EXPECT_TRUE(ImportBsdFile(path, bsd));
    EXPECT_EQ(bsd.Titles(1).Whole().substr(0, 6), L"  Name");
}

}  // namespace
}  // namespace corvane
