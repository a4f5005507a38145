// Edits of a read-only database: another file is asked for, and takes the text.
#include <vector>

#include "files/file_system.h"
#include "platform/ztutil32.h"
#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

using test::BlockText;
using test::DatabaseText;
using test::FiveBlocks;
using test::Narrow;
using test::SampleHead;
using test::WithoutDates;

// The prompt's texts, and what the user answers to one prompt after the other; "" cancels.
struct SeenPrompt {
    std::string extension;
    std::string title;
    std::string name;
    std::string caption;
    int32_t flags = 0;
};
std::vector<SeenPrompt> prompts;
std::vector<std::wstring> answers;
// Done while the prompt is open.
void (*duringPrompt)() = nullptr;
std::wstring originalPath;

int16_t CORVANE_STDCALL Answer(char* extension, char* title, char* buffer, int32_t size,
                               int32_t flags, char* caption) {
    prompts.push_back({extension, title, buffer, caption, flags});
    if (duringPrompt != nullptr) duringPrompt();
    if (prompts.size() > answers.size() || answers[prompts.size() - 1].empty()) return 0;
    const std::string answer = system::AnsiFromWide(answers[prompts.size() - 1]);
    buffer[answer.copy(buffer, static_cast<size_t>(size) - 1)] = '\0';
    return -1;
}

struct ReadOnlyDatabaseTest : test::EditingTest {
    test::FakeFunction<decltype(ZTUtilPromptForName)> fake{ZTUtilPromptForName, Answer};
    const std::wstring original = path;
    const std::wstring other = folder.File(L"other.ve2");
    std::string text = DatabaseText(FiveBlocks());

    void SetUp() override {
        prompts.clear();
        answers = {other};
        duringPrompt = nullptr;
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
    static std::vector<std::string> Warnings() { return test::RecordingScreen::Of("warning"); }
};

TEST_F(ReadOnlyDatabaseTest, UserIsToldAndAskedForAnotherFile) {
    EXPECT_TRUE(ReplaceSection(path, section, 1, false));
    EXPECT_EQ(Warnings(), std::vector<std::string>{ReadOnlyMessage(original)});
    ASSERT_EQ(prompts.size(), 1U);
    EXPECT_EQ(prompts[0].extension, "ve2");
    EXPECT_EQ(prompts[0].title, GetMessageBytes(kMsgDatabaseFiles));
    EXPECT_EQ(prompts[0].name, system::AnsiFromWide(original));
    EXPECT_EQ(prompts[0].caption, "Save DB as...");
    EXPECT_EQ(prompts[0].flags, -1);
}

TEST_F(ReadOnlyDatabaseTest, TextIsTakenToTheOtherFileAndReplacedThere) {
    EXPECT_TRUE(ReplaceSection(path, section, 2, false));
    EXPECT_EQ(path, other);
    ExpectOriginalUntouched();
    EXPECT_FALSE(IsReadOnlyFile(other));
    const std::wstring expected = folder.File(L"expected.ve2");
    test::WriteFileBytes(expected, text);
    path = expected;
    EXPECT_TRUE(ReplaceSection(path, section, 2, false));
    EXPECT_EQ(WithoutDates(test::ReadFileBytes(other)), WithoutDates(Text()));
    EXPECT_EQ(prompts.size(), 1U);
}

TEST_F(ReadOnlyDatabaseTest, ModelIsCopiedInTheOtherFile) {
    for (const auto& [number, kind] :
         {std::pair(1, ModelKind::kSection), std::pair(4, ModelKind::kTorsion)}) {
        path = original;
        prompts.clear();
        EXPECT_EQ(CopyModel(path, {number, kind, L"Copy", false}), 6);
        EXPECT_EQ(path, other);
        ExpectOriginalUntouched();
        EXPECT_EQ(prompts.size(), 1U);
        EXPECT_EQ(CountModels(other), 6);
        EXPECT_FALSE(IsReadOnlyFile(other));
    }
}

TEST_F(ReadOnlyDatabaseTest, FileThatTheUserNamesIsOverwritten) {
    test::WriteFileBytes(other, "an old file, longer than nothing");
    EXPECT_TRUE(ReplaceSection(path, section, 6, false));
    EXPECT_EQ(CountModels(other), 6);
    EXPECT_EQ(path, other);
}

TEST_F(ReadOnlyDatabaseTest, CancelledPromptEndsTheEdit) {
    for (const bool copy : {false, true}) {
        answers.clear();
        prompts.clear();
        test::RecordingScreen::events.clear();
        if (copy) {
            EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L"Copy", true}), 0);
        } else {
            EXPECT_FALSE(ReplaceSection(path, section, 1, true));
        }
        EXPECT_EQ(path, original);
        ExpectOriginalUntouched();
        EXPECT_EQ(prompts.size(), 1U);
        EXPECT_EQ(Warnings(), std::vector<std::string>{ReadOnlyMessage(original)});
        EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
    }
}

TEST_F(ReadOnlyDatabaseTest, FileThatIsReadOnlyTooIsAskedAboutAgain) {
    const std::wstring alsoReadOnly = folder.File(L"also.ve2");
    WriteReadOnly(alsoReadOnly, "also");
    answers = {alsoReadOnly, original, other};
    EXPECT_TRUE(ReplaceSection(path, section, 1, false));
    EXPECT_EQ(path, other);
    EXPECT_EQ(Warnings(),
              (std::vector<std::string>{ReadOnlyMessage(original), ReadOnlyMessage(alsoReadOnly),
                                        ReadOnlyMessage(original)}));
    EXPECT_EQ(prompts.size(), 3U);
    EXPECT_EQ(prompts[1].name, system::AnsiFromWide(alsoReadOnly));
    EXPECT_EQ(test::ReadFileBytes(alsoReadOnly), "also");
    ExpectOriginalUntouched();
    EXPECT_EQ(CountModels(other), 5);
}

TEST_F(ReadOnlyDatabaseTest, FileMadeWritableMeanwhileIsEditedItself) {
    answers = {folder.path + L".\\ship.ve2"};
    duringPrompt = [] { system::SetReadOnly(originalPath, false); };
    EXPECT_TRUE(ReplaceSection(path, section, 6, false));
    EXPECT_EQ(CountModels(original), 6);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

TEST_F(ReadOnlyDatabaseTest, TextThatCanNotBeTakenThereIsReported) {
    answers = {folder.File(L"no folder\\other.ve2")};
    EXPECT_FALSE(ReplaceSection(path, section, 1, true));
    EXPECT_EQ(path, original);
    ASSERT_EQ(Warnings().size(), 2U);
    EXPECT_NE(Warnings()[1].find(Narrow(answers[0])), std::string::npos);
    ExpectOriginalUntouched();
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

TEST_F(ReadOnlyDatabaseTest, OnlyADatabaseIsTakenElsewhere) {
    ASSERT_EQ(system::SetReadOnly(original, false), system::kErrorNone);
    WriteReadOnly(original, "a letter\r\n");
    EXPECT_FALSE(ReplaceSection(path, section, 1, true));
    EXPECT_TRUE(prompts.empty());
    ExpectRefusal("a letter\r\n", kMsgNoDatabase, {path});
}

TEST_F(ReadOnlyDatabaseTest, DeletingAsksForNothing) {
    EXPECT_FALSE(DeleteModel(path, 1, true));
    EXPECT_TRUE(prompts.empty());
    EXPECT_EQ(Warnings(), std::vector<std::string>{ReadOnlyMessage(original)});
    ExpectOriginalUntouched();
}

}  // namespace
}  // namespace corvane
