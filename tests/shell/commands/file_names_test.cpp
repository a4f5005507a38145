// Names that New and Save As refuse.
#include "shell/commands/file_commands.h"

#include <gtest/gtest.h>

#include "database/model_kind.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "shell/state.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"

namespace corvane {
namespace {

using test::Before;
using test::CommandTest;
using test::FakePrompt;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::WriteFileBytes;

struct FileNames : CommandTest {};

struct BadName {
    const char* name;
    int32_t message;
    std::wstring (*path)(const CommandTest& test);
};

const BadName kBadNames[] = {
    {"QuestionMark", kMsgNameNotUsable, [](const CommandTest& t) { return t.File(L"a?.ve2"); }},
    {"Star", kMsgNameNotUsable, [](const CommandTest& t) { return t.File(L"a*.ve2"); }},
    {"Quote", kMsgNameNotUsable, [](const CommandTest& t) { return t.File(L"a\".ve2"); }},
    {"Less", kMsgNameNotUsable, [](const CommandTest& t) { return t.File(L"a<.ve2"); }},
    {"Greater", kMsgNameNotUsable, [](const CommandTest& t) { return t.File(L"a>.ve2"); }},
    {"Bar", kMsgNameNotUsable, [](const CommandTest& t) { return t.File(L"a|.ve2"); }},
    {"Colon", kMsgNameNotUsable, [](const CommandTest& t) { return t.File(L"a:b.ve2"); }},
    {"Device", kMsgDeviceName, [](const CommandTest& t) { return t.File(L"nul.ve2"); }},
    {"Port", kMsgDeviceName, [](const CommandTest& t) { return t.File(L"COM1.ship.ve2"); }},
    // It separates folders, as a backslash does.
    {"Slash", kMsgFolderMissing, [](const CommandTest& t) { return t.File(L"a/b.ve2"); }},
    {"Backslash", kMsgFolderMissing, [](const CommandTest& t) { return t.File(L"a\\b.ve2"); }},
    {"Tab", kMsgNameNotUsable, [](const CommandTest& t) { return t.File(L"a\tb.ve2"); }},
    {"GreekLetters", kMsgNameNotUsable,
     [](const CommandTest& t) { return t.File(L"\u03A9\u03BC\u03AD\u03B3\u03B1.ve2"); }},
    {"ChineseLetters", kMsgNameNotUsable,
     [](const CommandTest& t) { return t.File(L"\u8239.ve2"); }},
    {"Path260", kMsgPathTooLong,
     [](const CommandTest& t) {
         return t.folder.path + std::wstring(256 - t.folder.path.size(), L'a') + L".ve2";
     }},
    {"BufferFull", kMsgPathTooLong,
     [](const CommandTest& t) {
         return t.folder.path + std::wstring(400 - t.folder.path.size(), L'a');
     }},
    {"Folder", kMsgNameOfFolder,
     [](const CommandTest& t) { return StripTrailingBackslash(t.work); }},
    {"FolderWithBackslash", kMsgNameOfFolder, [](const CommandTest& t) { return t.work; }},
    {"MissingFolder", kMsgFolderMissing,
     [](const CommandTest& t) { return t.File(L"none\\a.ve2"); }},
    {"MissingDrive", kMsgFolderMissing,
     [](const CommandTest&) { return std::wstring(L"Q:\\a.ve2"); }},
    {"ReadOnlyFile", kMsgReadOnly,
     [](const CommandTest& t) {
         const std::wstring path = t.File(L"fixed.ve2");
         WriteFileBytes(path, "fixed");
         EXPECT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
         return path;
     }},
};

struct BadNames : CommandTest, testing::WithParamInterface<BadName> {
    // Runs the command with the bad name as the prompt's answer: one message, and nothing has
    // happened.
    void ExpectRefused(void (*command)(), const char* types) {
        MakeOpen(L"open.ve2", {ModelKind::kSection});
        const std::wstring path = GetParam().path(*this);
        const auto files = test::FilesIn(folder.path);
        const std::string database = ReadFileBytes(File(L"open.ve2"));
        const Before before;
        const FakePrompt prompt{path};
        command();
        EXPECT_EQ(Narrow(FakePrompt::questions.at(0).types), types);
        const std::string message = Narrow(GetMessage(GetParam().message));
        EXPECT_TRUE(OnlyWarning(message.substr(0, message.find("\xC2\xA4"))));
        EXPECT_TRUE(before.IsUnchanged());
        EXPECT_EQ(test::FilesIn(folder.path), files);
        EXPECT_EQ(ReadFileBytes(File(L"open.ve2")), database);
        EXPECT_EQ(system::SetReadOnly(path, false) == system::kErrorNone &&
                      FileExists(File(L"fixed.ve2")),
                  GetParam().message == kMsgReadOnly);
    }
};

TEST_P(BadNames, AreRefusedByNew) {
    ExpectRefused(ME_FileNew_Click, "Corvane databases (*.ve2)|*.ve2|");
}

TEST_P(BadNames, AreRefusedBySaveAs) {
    ExpectRefused(ME_FileSaveAs_Click, "Corvane databases (*.ve2)|*.ve2|");
}

INSTANTIATE_TEST_SUITE_P(FilePrompt, BadNames, testing::ValuesIn(kBadNames),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(FileNames, LongestUsablePathIsUsed) {
    const std::wstring path = folder.path + std::wstring(255 - folder.path.size(), L'a') + L".ve2";
    ASSERT_EQ(path.size(), 259U);
    const FakePrompt prompt{path};
    ME_FileNew_Click();
    EXPECT_EQ(shell.database.path, path);
    EXPECT_TRUE(FileExists(path));
}

// A folder in which nobody can make a file: the reason is reported.
struct UnwritableFolder : CommandTest {
    void ExpectNotMade(void (*command)()) {
        // The host has one, also under Wine.
        if (!IsDirectory(L"Z:\\proc")) GTEST_SKIP() << "this system has no such folder";
        MakeOpen(L"open.ve2", {ModelKind::kSection});
        const Before before;
        const FakePrompt prompt{L"Z:\\proc\\new.ve2"};
        command();
        EXPECT_TRUE(OnlyWarning("The file 'Z:\\proc\\new.ve2' cannot be written:\r"));
        EXPECT_EQ(shell.database.path, before.databasePath);
        EXPECT_EQ(shell.database.bsd, before.bsd);
        EXPECT_TRUE(RecordedReports::Of("rows").empty());
    }
};

TEST_F(UnwritableFolder, IsReportedByNew) {
    ExpectNotMade(ME_FileNew_Click);
}

TEST_F(UnwritableFolder, IsReportedBySaveAs) {
    ExpectNotMade(ME_FileSaveAs_Click);
}

}  // namespace
}  // namespace corvane
