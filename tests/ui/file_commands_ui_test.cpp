// New, Open, Save As and the import of Basic Ship Data, through the real file dialogs and boxes.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "tests/ui/file_dialog.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::Narrow;
using test::ReadFileBytes;
using test::WriteFileBytes;

std::string Sample() {
    return ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2"));
}

std::string Golden(const char* name) {
    return ReadFileBytes(test::DataPath(std::string("golden/") + name));
}

// The program without a database.
struct FileCommandsTest : testing::Test {
    Settings settings;
    Installation installation;
    Program program{installation};
    HWND main = program.Main();
    HWND list = GetDlgItem(main, LI_Sections);
    HWND database = GetDlgItem(main, TX_DataBase);

    void SetUp() override { ASSERT_NE(main, nullptr); }
    std::wstring File(const wchar_t* name) const { return installation.File(name); }

    // Chooses a command and answers its file dialog, whose caption is `caption`.
    void Give(int command, const wchar_t* caption, const std::wstring& name) {
        Choose(main, command);
        const FileDialog dialog = WaitForFileDialog(program);
        ASSERT_NE(dialog.window, nullptr);
        EXPECT_EQ(dialog.caption, caption);
        EXPECT_TRUE(AnswerFilePrompt(program, name));
    }
    void Open(const std::wstring& name) { Give(ME_FileOpen, L"Open database", name); }
    // Presses a button of the box that comes, and gives the box's message.
    std::string PressInBox(int button) {
        const Box box = WaitForPlainBox(program);
        EXPECT_TRUE(Press(box, button));
        return Message(box);
    }
    bool DatabaseBecomes(const std::wstring& path) const { return TextBecomes(database, path); }
    bool HasRows(int count) const { return RowCountBecomes(list, count); }
};

TEST_F(FileCommandsTest, NewAsksBeforeItReplacesAFile) {
    WriteFileBytes(File(L"old.ve2"), "old");
    Choose(main, ME_FileNew);
    const FileDialog dialog = WaitForFileDialog(program);
    const Box box = AnswerWithBox(program, dialog, File(L"old.ve2"));
    ASSERT_NE(box.window, nullptr);
    EXPECT_TRUE(Press(box, IDNO));
    EXPECT_TRUE(IsWindow(dialog.window));
    EXPECT_TRUE(PressButton(dialog.window, IDCANCEL));
    EXPECT_TRUE(DatabaseBecomes(L"No database selected"));
    EXPECT_EQ(ReadFileBytes(File(L"old.ve2")), "old");
}

// Whether the system's prompt reports it or the program: a box comes, and nothing has happened.
// ("?" and "*" make a name a filter for the prompt's list, and quotes a list of names; Wine's
// prompt crashes over a path of more than 260 characters.)
TEST_F(FileCommandsTest, NamesThatCannotBeAreReportedAndNothingChanges) {
    WriteFileBytes(File(L"ship.ve2"), Sample());
    Open(File(L"ship.ve2"));
    ASSERT_TRUE(DatabaseBecomes(File(L"ship.ve2")));
    const std::vector<std::wstring> files = test::FilesIn(installation.folder);
    const struct {
        const char* name;
        std::wstring path;
    } cases[] = {{"less", File(L"a<b.ve2")},
                 {"bar", File(L"a|b.ve2")},
                 {"colon", File(L"a:b.ve2")},
                 {"chinese letters", File(L"\u8239\u4F53.ve2")},
                 {"missing folder", File(L"none\\a.ve2")},
                 {"missing drive", L"Q:\\a.ve2"},
                 {"folder that takes no file", L"Z:\\proc\\a.ve2"}};
    for (const auto& [name, path] : cases) {
        SCOPED_TRACE(name);
        Choose(main, ME_FileSaveAs);
        const FileDialog dialog = WaitForFileDialog(program);
        ASSERT_NE(dialog.window, nullptr);
        const Box box = AnswerWithBox(program, dialog, path);
        ASSERT_NE(box.window, nullptr);
        EXPECT_NE(box.text, L"");
        EXPECT_TRUE(Press(box, IDOK));
        // A prompt that has reported it itself is still there; letters that the code page lacks are
        // reported after it, and it comes again.
        const bool comesAgain = std::string_view(name) == "chinese letters";
        const HWND left = comesAgain ? WaitForFileDialog(program).window : dialog.window;
        if (IsWindow(left)) PressButton(left, IDCANCEL);
        EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(main) != FALSE; }));
        EXPECT_TRUE(DatabaseBecomes(File(L"ship.ve2")));
        EXPECT_EQ(test::FilesIn(installation.folder), files);
        EXPECT_EQ(ReadFileBytes(File(L"ship.ve2")), Sample());
    }
}

TEST_F(FileCommandsTest, OpenShowsTheDatabase) {
    WriteFileBytes(File(L"ship.ve2"), Sample());
    Open(L"ship.ve2");
    ASSERT_TRUE(DatabaseBecomes(File(L"ship.ve2")));
    EXPECT_TRUE(HasRows(14));
    EXPECT_TRUE(TextBecomes(GetDlgItem(main, PAN_Help), L""));
    // The next prompt proposes the open file.
    Choose(main, ME_FileOpen);
    const FileDialog dialog = WaitForFileDialog(program);
    EXPECT_EQ(Narrow(dialog.proposed), "ship.ve2");
    EXPECT_TRUE(PressButton(dialog.window, IDCANCEL));
}

constexpr char kCopyQuestion[] =
    "This file has an old Velk extension. Do you want to make a copy ?";

TEST_F(FileCommandsTest, OldExtensionIsCopiedOnYes) {
    WriteFileBytes(File(L"SHIP.VEW"), Sample());
    Open(File(L"SHIP.VEW"));
    EXPECT_EQ(PressInBox(IDYES), kCopyQuestion);
    const FileDialog dialog = WaitForFileDialog(program);
    EXPECT_EQ(Narrow(dialog.proposed), "SHIP.ve2");
    EXPECT_TRUE(AnswerFilePrompt(program, File(L"copy.ve2")));
    ASSERT_TRUE(DatabaseBecomes(File(L"copy.ve2")));
    EXPECT_EQ(ReadFileBytes(File(L"copy.ve2")), Sample());
    EXPECT_TRUE(HasRows(14));
}

TEST_F(FileCommandsTest, SaveAsOpensTheCopy) {
    WriteFileBytes(File(L"ship.ve2"), Sample());
    Open(File(L"ship.ve2"));
    ASSERT_TRUE(DatabaseBecomes(File(L"ship.ve2")));
    Give(ME_FileSaveAs, L"Save database as", File(L"other name.ve2"));
    ASSERT_TRUE(DatabaseBecomes(File(L"other name.ve2")));
    EXPECT_EQ(ReadFileBytes(File(L"other name.ve2")), Sample());
    EXPECT_EQ(ReadFileBytes(File(L"ship.ve2")), Sample());
    EXPECT_TRUE(HasRows(14));
}

TEST_F(FileCommandsTest, OpenDatabaseSpelledAnotherWayIsNotReplaced) {
    WriteFileBytes(File(L"ship.ve2"), Sample());
    Open(File(L"ship.ve2"));
    ASSERT_TRUE(DatabaseBecomes(File(L"ship.ve2")));
    ASSERT_TRUE(CreateHardLinkW(File(L"link.vel").c_str(), File(L"ship.ve2").c_str(), nullptr));
    for (const auto& [command, name] :
         {std::pair{ME_FileSaveLegacy, L"link.vel"}, {ME_FileNew, L"SHIP.ve2"}}) {
        Choose(main, command);
        const FileDialog dialog = WaitForFileDialog(program);
        ASSERT_NE(dialog.window, nullptr);
        const Box overwrite = AnswerWithBox(program, dialog, File(name));
        ASSERT_TRUE(Press(overwrite, IDYES));
        const std::string text = PressInBox(IDOK);
        EXPECT_NE(text.find("is the open database itself."), std::string::npos) << text;
        EXPECT_EQ(ReadFileBytes(File(L"ship.ve2")), Sample());
    }
}

TEST_F(FileCommandsTest, ImportAsksBeforeItErasesData) {
    WriteFileBytes(File(L"ship.ve2"), Sample());
    WriteFileBytes(File(L"data.bsd"), Golden("standalone.bsd"));
    Open(File(L"ship.ve2"));
    ASSERT_TRUE(DatabaseBecomes(File(L"ship.ve2")));
    Give(ME_FileImportBSD, L"Import", File(L"data.bsd"));
    const Box box = WaitForPlainBox(program);
    EXPECT_EQ(Message(box), "You will erase the current BSD !");
    EXPECT_NE(Narrow(box.text).find("'ship.ve2' are replaced by those of 'data.bsd'"),
              std::string::npos);
    ASSERT_TRUE(WaitUntil([&] { return FocusOf(box.window) != nullptr; }));
    EXPECT_EQ(GetDlgCtrlID(FocusOf(box.window)), IDCANCEL) << "what Enter presses loses nothing";
    EXPECT_TRUE(Press(box, IDCANCEL));
    EXPECT_EQ(ReadFileBytes(File(L"ship.ve2")), Sample());
    Give(ME_FileImportBSD, L"Import", File(L"data.bsd"));
    EXPECT_EQ(PressInBox(IDOK), "You will erase the current BSD !");
    EXPECT_TRUE(TextBecomes(GetDlgItem(main, PAN_Help),
                            L"The Basic Ship Data were read from '" + File(L"data.bsd") + L"'"));
    EXPECT_TRUE(TextBecomes(main, L"Corvane - ship.ve2 - EMERAUDE"));
    EXPECT_TRUE(HasRows(14));
}

}  // namespace
}  // namespace corvane::ui
