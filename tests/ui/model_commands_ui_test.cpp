// Copy and Delete in the real program, through its dialogs, and what they make of the file.
//
// Golden files: models.ve2 holds a section, a bulkhead arrangement and a torsion model;
// models_copied.ve2 what it is after each of them was copied, in this order; models_deleted.ve2
// what that is after the first three were deleted. A line in "<...>" of a golden file stands for
// one that differs from run to run and from user to user: who wrote a block, when, and the
// identifier that a copy gets. All other bytes must be the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::Narrow;

constexpr wchar_t kInputBox[] = L"InputBox";
constexpr wchar_t kMessageBox[] = L"#32770";

std::string Golden(const char* name) {
    return test::ReadFileBytes(test::DataPath(std::string("golden/") + name));
}

// The lines of a text, each with its end.
std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        lines.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return lines;
}

bool IsPlaceholder(const std::string& line) {
    const size_t begin = line.find('<');
    return begin != std::string::npos && line.ends_with(">\r\n") &&
           (begin == 0 || line.starts_with("* "));
}

// What a line has before its placeholder is compared.
void ExpectGolden(const std::string& text, const std::string& golden) {
    const std::vector<std::string> lines = LinesOf(text);
    const std::vector<std::string> expected = LinesOf(golden);
    ASSERT_EQ(lines.size(), expected.size());
    for (size_t i = 0; i < lines.size(); ++i) {
        if (!IsPlaceholder(expected[i])) {
            EXPECT_EQ(lines[i], expected[i]) << "line " << i + 1;
            continue;
        }
        const std::string fixed = expected[i].substr(0, expected[i].find('<'));
        EXPECT_TRUE(lines[i].starts_with(fixed)) << "line " << i + 1 << ": " << lines[i];
        EXPECT_GT(lines[i].size(), fixed.size() + 2) << "line " << i + 1 << " is empty";
        EXPECT_TRUE(lines[i].ends_with("\r\n")) << "line " << i + 1;
    }
}

// Replies to the input box of Copy.
bool AnswerName(const Program& program, const std::wstring& name) {
    const HWND box = program.Window(kInputBox);
    if (box == nullptr) return false;
    Send(GetDlgItem(box, TX_Answer), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    return PressButton(box, IDOK);
}

struct ModelCommandsUi : testing::Test {
    Settings settings;
    Installation installation;
    std::wstring path = installation.File(L"ship of tests.ve2");
    std::wstring backup = installation.File(L"ship of tests.bak");
    std::string before;

    void Put(const std::string& bytes) {
        before = bytes;
        test::WriteFileBytes(path, bytes);
    }
    void SetUp() override {
        Put(Golden("models.ve2"));
        KeepBackups(false);
    }
    static void KeepBackups(bool keep) { Settings::Write(L"IntegerSetting", keep ? L"1" : L"0"); }

    std::string FileBytes() const { return test::ReadFileBytes(path); }
    bool HasBackup() const { return std::filesystem::exists(std::filesystem::path(backup)); }
    void ExpectUntouched() const {
        EXPECT_EQ(FileBytes(), before);
        EXPECT_FALSE(HasBackup());
    }
};

// The program with the test's file open.
struct OpenProgram : Program {
    HWND main;
    HWND list;

    explicit OpenProgram(const ModelCommandsUi& test)
        : Program(test.installation, L"\"" + test.path + L"\""),
          main(Main()),
          list(GetDlgItem(main, LI_Sections)) {}

    void Run(int row, CommandId command) const {
        SelectRow(*this, list, row);
        Choose(main, command);
    }
    // Copies a row under a name, and waits for the copy in the list.
    void Copy(int row, const std::wstring& name) const {
        const auto rows = static_cast<int>(Send(list, LVM_GETITEMCOUNT, 0, 0));
        Run(row, ME_SectionCopy);
        EXPECT_TRUE(AnswerName(*this, name)) << Narrow(name);
        EXPECT_TRUE(RowCountBecomes(list, rows + 1)) << Narrow(name);
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(list) == rows; })) << Narrow(name);
    }
    void Delete(int row) const {
        const auto rows = static_cast<int>(Send(list, LVM_GETITEMCOUNT, 0, 0));
        Run(row, ME_SectionRemove);
        const Box question = WaitForBox(*this);
        EXPECT_TRUE(Press(question, IDYES)) << row;
        EXPECT_TRUE(RowCountBecomes(list, rows - 1)) << row;
    }
    // Reads the warning box that comes next, and closes it.
    std::string Warning() const {
        const Box box = WaitForBox(*this);
        EXPECT_TRUE(Press(box, IDOK));
        EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(main); }));
        return Narrow(box.text);
    }
    std::string Cell(int row, size_t column) const {
        const std::vector<Row> rows = Rows(*this, list);
        const auto index = static_cast<size_t>(row);
        return index < rows.size() ? Narrow(rows[index].cells[column]) : "no such row";
    }
};

// ---- Copy --------------------------------------------------------------------------------------

TEST_F(ModelCommandsUi, CopyOfEachKindGivesTheGoldenFile) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Copy(0, L"Copied section");
    program.Copy(1, L"  Copied bulkhead ");
    program.Copy(2, L"is not used");
    ExpectGolden(FileBytes(), Golden("models_copied.ve2"));
    EXPECT_EQ(program.Cell(3, 0), "Copied section");
    EXPECT_EQ(program.Cell(4, 0), "Copied bulkhead");
    EXPECT_EQ(program.Cell(5, 0), program.Cell(2, 0)) << "a torsion model keeps its name";
}

TEST_F(ModelCommandsUi, CopyKeepsTheOldFileAsBackup) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    for (const int row : {0, 1, 2}) {
        const std::string old = FileBytes();
        program.Copy(row, L"copy");
        EXPECT_EQ(test::ReadFileBytes(backup), old) << row;
    }
}

TEST_F(ModelCommandsUi, InputBoxIsModalInTheMiddleOfTheMainWindowAndProposesTheName) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Run(1, ME_SectionCopy);
    const HWND box = program.Window(kInputBox);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(GetWindow(box, GW_OWNER), program.main);
    EXPECT_FALSE(IsWindowEnabled(program.main));
    EXPECT_EQ(Narrow(TextOf(box)), "Copy Bulkhead");
    EXPECT_EQ(Narrow(TextOf(GetDlgItem(box, LB_Question))), "Input the name of the copy");
    EXPECT_EQ(Narrow(TextOf(GetDlgItem(box, TX_Answer))), "Copy of " + program.Cell(1, 0));
    RECT inner{};
    RECT outer{};
    GetWindowRect(box, &inner);
    GetWindowRect(program.main, &outer);
    EXPECT_NEAR(inner.left + inner.right, outer.left + outer.right, 8);
    EXPECT_NEAR(inner.top + inner.bottom, outer.top + outer.bottom, 60) << "but for the title bars";
    EXPECT_TRUE(PressButton(box, IDCANCEL));
    EXPECT_TRUE(IsWindowEnabled(program.main));
    ExpectUntouched();
}

TEST_F(ModelCommandsUi, CopyByKeyboardAlone) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Run(0, ME_SectionCopy);
    const HWND box = program.Window(kInputBox);
    ASSERT_NE(box, nullptr);
    ASSERT_TRUE(WaitUntil([&] { return FocusOf(box) == GetDlgItem(box, TX_Answer); }));
    Type(FocusOf(box), L"Typed é 1");
    PressKey(FocusOf(box), VK_RETURN);
    EXPECT_TRUE(HasClosed(box));
    EXPECT_TRUE(RowCountBecomes(program.list, 4));
    EXPECT_EQ(program.Cell(3, 0), Narrow(L"Typed é 1"));
}

TEST_F(ModelCommandsUi, CancelledAndEmptyNamesCopyNothing) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    const auto open = [&] {
        program.Run(0, ME_SectionCopy);
        return program.Window(kInputBox);
    };
    EXPECT_TRUE(PressButton(open(), IDCANCEL));
    HWND box = open();
    PressKey(GetDlgItem(box, TX_Answer), VK_ESCAPE);
    EXPECT_TRUE(HasClosed(box));
    box = open();
    PostMessageW(box, WM_CLOSE, 0, 0);
    EXPECT_TRUE(HasClosed(box));
    for (const wchar_t* empty : {L"", L"     "}) {
        program.Run(0, ME_SectionCopy);
        EXPECT_TRUE(AnswerName(program, empty));
    }
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(program.main); }));
    // A later command shows that the ones before have come to their end.
    box = open();
    EXPECT_TRUE(PressButton(box, IDCANCEL));
    EXPECT_EQ(Rows(program, program.list).size(), 3U);
    ExpectUntouched();
}

TEST_F(ModelCommandsUi, NamesWithSpecialCharactersMakeOneModelEach) {
    const struct {
        std::wstring typed;
        std::string listed;
    } cases[] = {{L"Höhe é", Narrow(L"Höhe é")},
                 {L"* star", "* star"},
                 {L"------ dashes", "------ dashes"},
                 {L"====== CORVANE MODEL ======", "====== CORVANE MODEL ======"},
                 {L"a & b, \"c\"; d", "a & b, \"c\"; d"},
                 {L"日本", "??"}};
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    int row = 3;
    for (const auto& example : cases) {
        program.Copy(0, example.typed);
        EXPECT_EQ(program.Cell(row++, 0), example.listed);
    }
    EXPECT_EQ(FileBytes().substr(0, before.size()), before) << "the models before are as they were";
}

TEST_F(ModelCommandsUi, NameOfAThousandCharactersIsKept) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Copy(0, std::wstring(1000, L'n'));
    EXPECT_NE(FileBytes().find("\r\n" + std::string(1000, 'n') + "\r\n"), std::string::npos);
    // The proposal is longer than a name may be; the copy's is cut.
    const int rows = 4;
    program.Run(3, ME_SectionCopy);
    const HWND box = program.Window(kInputBox);
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(PressButton(box, IDOK));
    EXPECT_TRUE(RowCountBecomes(program.list, rows + 1));
    EXPECT_NE(FileBytes().find("\r\nCopy of " + std::string(992, 'n') + "\r\n"), std::string::npos);
}

// ---- Delete ------------------------------------------------------------------------------------

TEST_F(ModelCommandsUi, DeleteOfEachKindGivesTheGoldenFile) {
    Put(Golden("models_copied.ve2"));
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Delete(1);
    program.Delete(1);
    program.Delete(0);
    EXPECT_EQ(FileBytes(), Golden("models_deleted.ve2"));
    EXPECT_FALSE(HasBackup());
    EXPECT_EQ(program.Cell(0, 0), "Copied section");
    EXPECT_EQ(program.Cell(2, 2), " 3");
}

TEST_F(ModelCommandsUi, QuestionNamesKindNameAndFileAndEnterMeansNo) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    const char* const kinds[] = {"Section", "Bulkhead", "Torsion"};
    for (int row = 0; row < 3; ++row) {
        program.Run(row, ME_SectionRemove);
        const Box box = WaitForBox(program);
        EXPECT_EQ(Narrow(box.title), "Corvane");
        EXPECT_EQ(Message(box), std::string("Are you sure to remove ") + kinds[row] + " " +
                                    program.Cell(row, 0) + " from " + Narrow(path) + " ?");
        ASSERT_TRUE(WaitUntil([&] { return FocusOf(box.window) != nullptr; }));
        EXPECT_EQ(GetDlgCtrlID(FocusOf(box.window)), IDNO);
        PressKey(FocusOf(box.window), VK_RETURN);
        EXPECT_TRUE(HasClosed(box.window));
    }
    ExpectUntouched();
}

// ---- Numbers that are not the place in the list ------------------------------------------------

// The golden file's text with another number for one of its models.
std::string WithNumber(std::string text, const char* number, const char* keyword,
                       const char* other) {
    const std::string old = std::string("\r\n ") + number + " \r\n" + keyword + "\r\n";
    const size_t at = text.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return text.replace(at, old.size(), std::string("\r\n") + other + "\r\n" + keyword + "\r\n");
}

TEST_F(ModelCommandsUi, ModelsOutOfOrderAreDeletedByTheirNumbers) {
    Put(WithNumber(WithNumber(before, "2", "BHA", " 3 "), "3", "TORSION", " 2 "));
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    EXPECT_EQ(program.Cell(1, 2), " 3");
    EXPECT_EQ(program.Cell(2, 2), " 2");
    const std::string section = program.Cell(0, 0);
    const std::string torsion = program.Cell(2, 0);
    program.Run(1, ME_SectionRemove);
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find("Bulkhead " + program.Cell(1, 0) + " from"), std::string::npos);
    EXPECT_TRUE(Press(box, IDYES));
    EXPECT_TRUE(RowCountBecomes(program.list, 2));
    EXPECT_EQ(program.Cell(0, 0), section);
    EXPECT_EQ(program.Cell(1, 0), torsion);
}

TEST_F(ModelCommandsUi, CopyInAFileWithAGapIsSelected) {
    Put(WithNumber(before, "3", "TORSION", " 9 "));
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Copy(0, L"Behind the gap");
    EXPECT_EQ(program.Cell(3, 0), "Behind the gap");
    EXPECT_EQ(program.Cell(3, 2), "10");
}

TEST_F(ModelCommandsUi, DoubleNumberIsRefusedAndNothingIsAsked) {
    Put(WithNumber(before, "3", "TORSION", " 2 "));
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    for (const auto command : {ME_SectionRemove, ME_SectionCopy}) {
        program.Run(1, command);
        EXPECT_NE(program.Warning().find("does not belong to one model alone"), std::string::npos);
    }
    ExpectUntouched();
}

TEST_F(ModelCommandsUi, DatabaseThatIsGoneIsNotCalledAnotherKindOfFile) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    ASSERT_TRUE(DeleteFileW(path.c_str()));
    SelectRow(program, program.list, 1);
    EXPECT_NE(program.Warning().find("is no longer there"), std::string::npos);
    EXPECT_TRUE(TextBecomes(GetDlgItem(program.main, LB_X), L""));
    EXPECT_TRUE(TextBecomes(GetDlgItem(program.main, LB_Frame), L""));
}

TEST_F(ModelCommandsUi, DeleteKeepsABackupWhenTheSettingIsNotZero) {
    KeepBackups(true);
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Delete(1);
    EXPECT_EQ(test::ReadFileBytes(backup), before);
    EXPECT_NE(FileBytes(), before);
}

TEST_F(ModelCommandsUi, AfterDeleteOfTheLastRowNothingIsSelected) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Delete(2);
    EXPECT_TRUE(TextBecomes(GetDlgItem(program.main, LB_X), L""));
    EXPECT_EQ(SelectedRow(program.list), -1);
    // Without a selection the command does nothing: the box that comes is that of the next one.
    Choose(program.main, ME_SectionRemove);
    Choose(program.main, ME_HelpAbout);
    const HWND about = program.Window(L"FM_About");
    EXPECT_EQ(program.FindNow(kMessageBox), nullptr);
    EXPECT_TRUE(PressButton(about, BT_Ok));
    EXPECT_EQ(Rows(program, program.list).size(), 2U);
}

TEST_F(ModelCommandsUi, QuestionNamesWhatTheFileHasNow) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    std::string changed = before;
    const std::string name = "\r\n" + program.Cell(1, 0) + "\r\n";
    ASSERT_NE(changed.find(name), std::string::npos);
    changed.replace(changed.find(name), name.size(), "\r\nRenamed elsewhere\r\n");
    Put(changed);
    program.Run(1, ME_SectionRemove);
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find("Bulkhead Renamed elsewhere from"), std::string::npos);
    EXPECT_TRUE(Press(box, IDNO));
    ExpectUntouched();
}

TEST_F(ModelCommandsUi, ModelThatIsExchangedDuringTheQuestionStays) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Run(1, ME_SectionRemove);
    const Box box = WaitForBox(program);
    std::string changed = before;
    const std::string name = "\r\n" + program.Cell(1, 0) + "\r\n";
    changed.replace(changed.find(name), name.size(), "\r\nExchanged\r\n");
    Put(changed);
    EXPECT_TRUE(Press(box, IDYES));
    EXPECT_NE(program.Warning().find("Another program has changed"), std::string::npos);
    EXPECT_TRUE(WaitUntil([&] { return program.Cell(1, 0) == "Exchanged"; }));
    ExpectUntouched();
}

// ---- Files that can't be written ---------------------------------------------------------------

// A file that is held by another program, as long as this lives.
struct Held {
    HANDLE file;
    Held(const std::wstring& path, DWORD share)
        : file(CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(file, INVALID_HANDLE_VALUE);
    }
    ~Held() { CloseHandle(file); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
};

TEST_F(ModelCommandsUi, CopyOfAReadOnlyDatabaseGoesToAnotherFileWhichIsOpenThen) {
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    const std::wstring other = installation.File(L"other.ve2");
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Run(0, ME_SectionCopy);
    EXPECT_TRUE(AnswerName(program, L"Copied section"));
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find(Narrow(path)), std::string::npos) << Narrow(box.text);
    EXPECT_TRUE(Press(box, IDOK));
    EXPECT_TRUE(AnswerFilePrompt(program, other));
    EXPECT_TRUE(RowCountBecomes(program.list, 4));
    EXPECT_TRUE(TextBecomes(GetDlgItem(program.main, TX_DataBase), other));
    EXPECT_TRUE(WaitUntil(
        [&] { return Narrow(TextOf(program.main)).find("other.ve2") != std::string::npos; }));
    EXPECT_TRUE(WaitUntil([&] { return SelectedRow(program.list) == 3; }));
    ExpectUntouched();
    EXPECT_EQ(test::ReadFileBytes(other).substr(0, before.size()), before);
    EXPECT_EQ(GetFileAttributesW(other.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(ModelCommandsUi, ReadOnlyDatabaseAndACancelledPromptChangeNothing) {
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Run(0, ME_SectionCopy);
    EXPECT_TRUE(AnswerName(program, L"Copied section"));
    EXPECT_TRUE(Press(WaitForBox(program), IDOK));
    EXPECT_TRUE(AnswerFilePrompt(program, L""));
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(program.main); }));
    EXPECT_EQ(Narrow(TextOf(GetDlgItem(program.main, TX_DataBase))), Narrow(path));
    EXPECT_EQ(Rows(program, program.list).size(), 3U);
    ExpectUntouched();
}

TEST_F(ModelCommandsUi, DeleteInAReadOnlyDatabaseIsRefusedWithoutAQuestion) {
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    program.Run(0, ME_SectionRemove);
    // At once, without a question.
    EXPECT_NE(program.Warning().find(Narrow(path)), std::string::npos);
    EXPECT_EQ(Rows(program, program.list).size(), 3U);
    ExpectUntouched();
}

TEST_F(ModelCommandsUi, DatabaseThatIsHeldWithoutSharingIsReportedBeforeAnythingIsAsked) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    {
        const Held held(path, 0);
        for (const CommandId command : {ME_SectionCopy, ME_SectionRemove}) {
            Choose(program.main, command);
            EXPECT_NE(program.Warning().find("another program is using it"), std::string::npos);
            EXPECT_EQ(program.FindNow(kInputBox), nullptr);
        }
    }
    ExpectUntouched();
}

// The new text is kept for the user; the test takes it away.
void RemoveKeptText(const std::string& warning) {
    const size_t end = warning.rfind('\'');
    const size_t begin = warning.rfind('\'', end - 1) + 1;
    const std::string kept = warning.substr(begin, end - begin);
    const std::wstring path(kept.begin(), kept.end());
    EXPECT_TRUE(DeleteFileW(path.c_str())) << warning;
}

TEST_F(ModelCommandsUi, DatabaseThatIsHeldByAReaderStaysAsItIs) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    {
        const Held held(path, FILE_SHARE_READ);
        program.Run(1, ME_SectionRemove);
        EXPECT_TRUE(Press(WaitForBox(program), IDYES));
        const std::string warning = program.Warning();
        EXPECT_NE(warning.find(Narrow(path)), std::string::npos);
        RemoveKeptText(warning);
    }
    ExpectUntouched();
    EXPECT_EQ(Rows(program, program.list).size(), 3U);
    program.Delete(1);
    EXPECT_EQ(program.Cell(1, 3), "Torsion");
}

}  // namespace
}  // namespace corvane::ui
