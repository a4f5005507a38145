// Legacy databases in the real program: named on the command line and chosen in the Open dialog.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "tests/ui/file_dialog.h"
#include "tests/ui/screenshot.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::Narrow;
using test::ReadFileBytes;
using test::WriteFileBytes;

std::string LegacySample() {
    return ReadFileBytes(test::DataPath("../samples/aurora_bay.vel"));
}

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// New databases are in the working folder: the program's own one when no settings say otherwise.
struct LegacyTest : testing::Test {
    Settings settings;
    Installation installation;

    std::wstring CopyOfSample(std::wstring_view name) const {
        std::wstring path = installation.File(name);
        WriteFileBytes(path, LegacySample());
        return path;
    }
    // The nine sections, the first one selected and shown with its position and its picture.
    static void ExpectSections(const Program& program, HWND main) {
        const HWND list = GetDlgItem(main, LI_Sections);
        ASSERT_TRUE(RowCountBecomes(list, 9));
        const std::vector<Row> rows = Rows(program, list);
        EXPECT_EQ(Narrow(rows[0].cells.at(0)), "Engine room, frame 30");
        EXPECT_EQ(Narrow(rows[4].cells.at(0)), "Midship section, hold 4");
        EXPECT_EQ(Narrow(rows[8].cells.at(0)), "Fore peak, frame 270");
        for (const Row& row : rows) EXPECT_EQ(Narrow(row.cells.at(3)), "Section");
        EXPECT_EQ(SelectedRow(list), 0);
        EXPECT_TRUE(TextBecomes(GetDlgItem(main, LB_X), L"X = 20.7 m"));
        SetWindowPos(main, HWND_TOPMOST, 0, 0, 1000, 700, 0);
        EXPECT_TRUE(WaitUntil([&] { return ShowsASection(GetDlgItem(main, PIC_Section)); }));
    }
    static void ExpectNothingOpen(const Program& program, HWND main) {
        ASSERT_NE(main, nullptr);
        EXPECT_EQ(Narrow(TextOf(main)), "Corvane");
        EXPECT_EQ(Narrow(TextOf(GetDlgItem(main, TX_DataBase))), "No database selected");
        EXPECT_TRUE(Rows(program, GetDlgItem(main, LI_Sections)).empty());
    }
};

TEST_F(LegacyTest, DatabaseOnTheCommandLineIsConvertedAndShown) {
    const std::wstring path = CopyOfSample(L"Aurora.VEL");
    const Program program(installation, L"\"" + path + L"\"");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    ExpectSections(program, main);
    EXPECT_EQ(Narrow(TextOf(main)), "Corvane - aurora.ve2 - AURORA");
    EXPECT_TRUE(Exists(installation.File(L"Aurora.ve2")));
    EXPECT_EQ(ReadFileBytes(path), LegacySample()) << "a conversion only reads";
    SelectRow(program, GetDlgItem(main, LI_Sections), 4);
    EXPECT_TRUE(TextBecomes(GetDlgItem(main, LB_X), L"X = 108.5 m"));
}

TEST_F(LegacyTest, ExistingDatabaseIsKeptOnNo) {
    const std::wstring path = CopyOfSample(L"Aurora.vel");
    WriteFileBytes(installation.File(L"Aurora.ve2"), "old");
    const Program program(installation, L"\"" + path + L"\"");
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find("Aurora.ve2' already exists"), std::string::npos)
        << Narrow(box.text);
    ASSERT_TRUE(WaitUntil([&] { return FocusOf(box.window) != nullptr; }));
    EXPECT_EQ(GetDlgCtrlID(FocusOf(box.window)), IDNO);
    ASSERT_TRUE(Press(box, IDNO));
    ExpectNothingOpen(program, program.Main());
    EXPECT_EQ(ReadFileBytes(installation.File(L"Aurora.ve2")), "old");
}

// A database that cannot be read, and what the library says of it.
struct LegacyDamage {
    const char* name;
    const char* reason;
    std::string (*bytes)();
};

constexpr char kForeign[] =
    "The file is not a DOS database, or a later version has made it. Choose another file.";
constexpr char kDamaged[] = "The file is damaged. Use an undamaged copy of it.";

const LegacyDamage kLegacyDamages[] = {
    {"Empty", kForeign, [] { return std::string(); }},
    {"Foreign", kForeign, [] { return std::string(5000, 'x'); }},
    {"CutOff", kDamaged,
     [] {
         std::string bytes = LegacySample();
         bytes.pop_back();
         return bytes;
     }},
    {"Flipped", kDamaged,
     [] {
         std::string bytes = LegacySample();
         bytes[bytes.size() / 2] ^= 4;
         return bytes;
     }},
};

struct LegacyDamageTest : LegacyTest, testing::WithParamInterface<LegacyDamage> {
    std::wstring path = installation.File(L"Damaged.vel");
    std::string bytes = GetParam().bytes();
    std::vector<std::wstring> files;

    void SetUp() override {
        WriteFileBytes(path, bytes);
        files = Files();
    }
    // Without the folder of the log.
    std::vector<std::wstring> Files() const {
        std::vector<std::wstring> found = test::FilesIn(installation.folder);
        std::erase(found, L"Corvane");
        return found;
    }
    void ExpectReported(const Box& box) const {
        ASSERT_NE(box.window, nullptr);
        EXPECT_EQ(Narrow(box.text), "The DOS database '" + Narrow(path) +
                                        "' could not be read.\r\r" + GetParam().reason);
        ASSERT_TRUE(Press(box, IDOK));
    }
    void ExpectNothingChanged() const {
        EXPECT_EQ(ReadFileBytes(path), bytes);
        EXPECT_EQ(Files(), files);
    }
};

TEST_P(LegacyDamageTest, IsReportedAtTheStartAndNothingIsOpened) {
    const Program program(installation, L"\"" + path + L"\"");
    ExpectReported(WaitForBox(program));
    ExpectNothingOpen(program, program.Main());
    ExpectNothingChanged();
}

TEST_P(LegacyDamageTest, IsReportedInOpenAndTheOpenDatabaseStays) {
    WriteFileBytes(installation.File(L"ship.ve2"),
                   ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2")));
    files = test::FilesIn(installation.folder);
    const Program program(installation, L"ship.ve2");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    const std::wstring caption = TextOf(main);
    Choose(main, ME_FileOpen);
    ASSERT_TRUE(AnswerFilePrompt(program, path));
    ExpectReported(WaitForPlainBox(program));
    EXPECT_TRUE(RowCountBecomes(GetDlgItem(main, LI_Sections), 14));
    EXPECT_EQ(Narrow(TextOf(main)), Narrow(caption));
    ExpectNothingChanged();
}

INSTANTIATE_TEST_SUITE_P(Each, LegacyDamageTest, testing::ValuesIn(kLegacyDamages),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace corvane::ui
