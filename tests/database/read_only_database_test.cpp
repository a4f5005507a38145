// Edits of a read-only database: the user is asked for another file, which then has the text.
#include <vector>

#include "files/file_system.h"
#include "tests/database/editing_fixture.h"
#include "tests/support/recorded_reports.h"

namespace corvane {
namespace {

using test::BlockText;
using test::DatabaseText;
using test::FiveBlocks;
using test::Narrow;
using test::SampleHead;
using test::WithoutStamps;

// The names that were proposed to the user, and what the user answers to one question after the
// other; "" cancels.
std::vector<std::wstring> proposals;
std::vector<std::wstring> answers;
// Done while the question is open.
void (*duringQuestion)() = nullptr;
std::wstring originalPath;

std::wstring Ask(const std::wstring& proposed) {
    proposals.push_back(proposed);
    if (duringQuestion != nullptr) duringQuestion();
    return proposals.size() > answers.size() ? std::wstring() : answers[proposals.size() - 1];
}

constexpr EditOptions kAsking{.ask = Ask};

struct ReadOnlyDatabaseTest : test::EditingTest {
    const std::wstring original = path;
    const std::wstring other = folder.File(L"other.ve2");
    std::string text = DatabaseText(FiveBlocks());

    void SetUp() override {
        proposals.clear();
        answers = {other};
        duringQuestion = nullptr;
        originalPath = original;
        WriteReadOnly(original, text);
    }
    static void WriteReadOnly(const std::wstring& file, std::string_view bytes) {
        test::WriteFileBytes(file, bytes);
        ASSERT_EQ(system::SetReadOnly(file, true), system::kErrorNone);
    }
    void ExpectOriginalUntouched() {
        EXPECT_EQ(test::ReadFileBytes(original), text);
        EXPECT_TRUE(IsReadOnlyFile(original));
    }
    static std::string ReadOnlyMessage(const std::wstring& file) {
        return Narrow(FormatMessage(kMsgReadOnly, {file}));
    }
    // The same before another file is asked for.
    static std::string AskingMessage(const std::wstring& file) {
        return test::AdvisedText(kMsgReadOnly, {file}, kMsgCopyAskedNext);
    }
    static std::vector<std::string> Warnings() { return test::RecordedReports::Of("warning"); }
};

TEST_F(ReadOnlyDatabaseTest, ReadOnlyFileIsReportedAndAnotherOneAskedFor) {
    EXPECT_TRUE(ReplaceSection(path, section, 1, kAsking));
    EXPECT_EQ(Warnings(), std::vector<std::string>{AskingMessage(original)});
    EXPECT_EQ(proposals, std::vector<std::wstring>{original});
}

TEST_F(ReadOnlyDatabaseTest, EditWithoutAQuestionEndsWithTheReport) {
    EXPECT_FALSE(ReplaceSection(path, section, 1));
    EXPECT_EQ(path, original);
    EXPECT_EQ(Warnings(), std::vector<std::string>{ReadOnlyMessage(original)});
    ExpectOriginalUntouched();
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

TEST_F(ReadOnlyDatabaseTest, TextIsCopiedToTheOtherFileAndReplacedThere) {
    EXPECT_TRUE(ReplaceSection(path, section, 2, kAsking));
    EXPECT_EQ(path, other);
    ExpectOriginalUntouched();
    EXPECT_FALSE(IsReadOnlyFile(other));
    const std::wstring expected = folder.File(L"expected.ve2");
    test::WriteFileBytes(expected, text);
    path = expected;
    EXPECT_TRUE(ReplaceSection(path, section, 2, kAsking));
    EXPECT_EQ(WithoutStamps(test::ReadFileBytes(other)), WithoutStamps(Text()));
    EXPECT_EQ(proposals.size(), 1U);
}

TEST_F(ReadOnlyDatabaseTest, ModelIsCopiedInTheOtherFile) {
    for (const auto& [number, kind] :
         {std::pair(1, ModelKind::kSection), std::pair(4, ModelKind::kTorsion)}) {
        path = original;
        proposals.clear();
        EXPECT_EQ(CopyModel(path, {number, kind, L"Copy", kAsking}), 6);
        EXPECT_EQ(path, other);
        ExpectOriginalUntouched();
        EXPECT_EQ(proposals.size(), 1U);
        EXPECT_EQ(CountModels(other), 6);
        EXPECT_FALSE(IsReadOnlyFile(other));
    }
}

TEST_F(ReadOnlyDatabaseTest, FileThatTheUserNamesIsOverwritten) {
    test::WriteFileBytes(other, "an old file, longer than nothing");
    EXPECT_TRUE(ReplaceSection(path, section, 6, kAsking));
    EXPECT_EQ(CountModels(other), 6);
    EXPECT_EQ(path, other);
}

TEST_F(ReadOnlyDatabaseTest, CancelledQuestionEndsTheEdit) {
    for (const bool copy : {false, true}) {
        answers.clear();
        proposals.clear();
        test::RecordedReports::events.clear();
        if (copy) {
            EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L"Copy", {true, Ask}}), 0);
        } else {
            EXPECT_FALSE(ReplaceSection(path, section, 1, {true, Ask}));
        }
        EXPECT_EQ(path, original);
        ExpectOriginalUntouched();
        EXPECT_EQ(proposals.size(), 1U);
        EXPECT_EQ(Warnings(), std::vector<std::string>{AskingMessage(original)});
        EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
    }
}

TEST_F(ReadOnlyDatabaseTest, QuestionIsAskedAgainForAFileThatIsReadOnlyToo) {
    const std::wstring alsoReadOnly = folder.File(L"also.ve2");
    WriteReadOnly(alsoReadOnly, "also");
    answers = {alsoReadOnly, original, other};
    EXPECT_TRUE(ReplaceSection(path, section, 1, kAsking));
    EXPECT_EQ(path, other);
    EXPECT_EQ(Warnings(),
              (std::vector<std::string>{AskingMessage(original), AskingMessage(alsoReadOnly),
                                        AskingMessage(original)}));
    EXPECT_EQ(proposals.size(), 3U);
    EXPECT_EQ(proposals[1], alsoReadOnly);
    EXPECT_EQ(test::ReadFileBytes(alsoReadOnly), "also");
    ExpectOriginalUntouched();
    EXPECT_EQ(CountModels(other), 5);
}

TEST_F(ReadOnlyDatabaseTest, FileMadeWritableMeanwhileIsEditedItself) {
    answers = {folder.path + L".\\ship.ve2"};
    duringQuestion = [] { system::SetReadOnly(originalPath, false); };
    EXPECT_TRUE(ReplaceSection(path, section, 6, kAsking));
    EXPECT_EQ(CountModels(original), 6);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

TEST_F(ReadOnlyDatabaseTest, TextThatCannotBeCopiedThereIsReported) {
    answers = {folder.File(L"no folder\\other.ve2")};
    EXPECT_FALSE(ReplaceSection(path, section, 1, {true, Ask}));
    EXPECT_EQ(path, original);
    ASSERT_EQ(Warnings().size(), 2U);
    EXPECT_NE(Warnings()[1].find(Narrow(answers[0])), std::string::npos);
    ExpectOriginalUntouched();
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

TEST_F(ReadOnlyDatabaseTest, OnlyADatabaseIsCopiedElsewhere) {
    ASSERT_EQ(system::SetReadOnly(original, false), system::kErrorNone);
    WriteReadOnly(original, "a letter\r\n");
    EXPECT_FALSE(ReplaceSection(path, section, 1, {true, Ask}));
    EXPECT_TRUE(proposals.empty());
    ExpectRefusal("a letter\r\n", kMsgNoDatabase, {path});
}

TEST_F(ReadOnlyDatabaseTest, DeletingAsksNothing) {
    EXPECT_FALSE(DeleteModel(path, 1, true));
    EXPECT_TRUE(proposals.empty());
    EXPECT_EQ(Warnings(), std::vector<std::string>{ReadOnlyMessage(original)});
    ExpectOriginalUntouched();
}

}  // namespace
}  // namespace corvane
