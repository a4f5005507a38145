// Copy and Delete in the real program, through its dialogs, and what they make of the file.
//
// Golden files: models.ve2 holds a section, a bulkhead arrangement and a torsion model;
// models_copied.ve2 what it is after each of them was copied, in this order; models_deleted.ve2
// what that is after the first three were deleted. A line in "<...>" of a golden file replaces
// one that differs from run to run and from user to user: who wrote a block, when, and the
// identifier that a copy gets. All other bytes must be the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "tests/ui/keyboard.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::Narrow;

constexpr wchar_t kInputBox[] = L"InputBox";

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
        Settings::Write(L"IntegerSetting", L"0");  // Delete keeps no backup
    }

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

TEST_F(ModelCommandsUi, InputBoxIsModalInTheMiddleOfTheMainWindowAndProposesTheName) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    HWND box = nullptr;
    const auto open = [&] {
        if (box != nullptr) PressButton(box, IDCANCEL);
        program.Run(1, ME_SectionCopy);
        box = program.Window(kInputBox);
    };
    // But for the title bars.
    const auto isInTheMiddle = [&] {
        RECT inner{};
        RECT outer{};
        return GetWindowRect(box, &inner) && GetWindowRect(program.main, &outer) &&
               std::abs(inner.left + inner.right - outer.left - outer.right) <= 8 &&
               std::abs(inner.top + inner.bottom - outer.top - outer.bottom) <= 60;
    };
    // A display that is still placing the main window may place the box elsewhere.
    ASSERT_TRUE(RepeatUntil(open, isInTheMiddle));
    EXPECT_EQ(GetWindow(box, GW_OWNER), program.main);
    EXPECT_FALSE(IsWindowEnabled(program.main));
    EXPECT_EQ(Narrow(TextOf(box)), "Copy Bulkhead");
    EXPECT_EQ(Narrow(TextOf(GetDlgItem(box, LB_Question))), "Input the name of the copy");
    EXPECT_EQ(Narrow(TextOf(GetDlgItem(box, TX_Answer))), "Copy of " + program.Cell(1, 0));
    EXPECT_TRUE(PressButton(box, IDCANCEL));
    EXPECT_TRUE(IsWindowEnabled(program.main));
    ExpectUntouched();
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

// ---- Files that can't be written ---------------------------------------------------------------

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

TEST_F(ModelCommandsUi, DatabaseThatIsHeldWithoutSharingIsReportedBeforeAnythingIsAsked) {
    const OpenProgram program(*this);
    ASSERT_NE(program.main, nullptr);
    const HANDLE held =
        CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    for (const CommandId command : {ME_SectionCopy, ME_SectionRemove}) {
        Choose(program.main, command);
        EXPECT_NE(program.Warning().find("another program is using it"), std::string::npos);
        EXPECT_EQ(program.FindNow(kInputBox), nullptr);
    }
    CloseHandle(held);
    ExpectUntouched();
}

}  // namespace
}  // namespace corvane::ui
