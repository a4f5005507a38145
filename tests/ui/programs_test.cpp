// Edit, Rule, Create and BSD > Open with a program that does what its database's name tells
// (tests/ui/child_program.cc): the lock meanwhile, and what it leaves behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "tests/ui/file_dialog.h"
#include "ui/base/control_ids.h"
// windows.h must come first.
#include <tlhelp32.h>

namespace corvane::ui {
namespace {

using test::Narrow;
using test::ReadFileBytes;
using test::WriteFileBytes;

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::wstring ChildProgram() {
    wchar_t path[1024] = L"";
    GetModuleFileNameW(nullptr, path, 1024);
    return (std::filesystem::path(path).parent_path() / L"child_program.exe").wstring();
}

// The process that another one has started; 0 when there is none.
DWORD ChildOf(DWORD parent) {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    DWORD found = 0;
    for (BOOL more = Process32FirstW(snapshot, &entry); more && found == 0;
         more = Process32NextW(snapshot, &entry)) {
        if (entry.th32ParentProcessID == parent) found = entry.th32ProcessID;
    }
    CloseHandle(snapshot);
    return found;
}

std::string Sample() {
    return ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2"));
}

// The program with a database of this name, and the suite's programs beside it.
struct Session {
    Settings settings;
    Installation installation;
    std::wstring database;
    Program program;
    HWND main;

    static std::wstring Prepare(const Installation& installation, const std::wstring& name,
                                const std::string& bytes) {
        WriteFileBytes(installation.File(name), bytes);
        for (const wchar_t* file : {L"SectInput.exe", L"SectRule.exe", L"CsrCheck.exe",
                                    L"BhdInput.exe", L"TorModel.exe", L"BsdEdit.exe"}) {
            std::filesystem::copy_file(ChildProgram(), installation.File(file));
        }
        return installation.File(name);
    }

    explicit Session(const std::wstring& name, const std::string& bytes = Sample(),
                     const std::wstring& switches = L"")
        : database(Prepare(installation, name, bytes)),
          program(installation, switches + L"\"" + name + L"\""),
          main(Begin(program, switches)) {}

    // In debug mode a box tells of the current directory first.
    static HWND Begin(const Program& program, const std::wstring& switches) {
        if (switches.find(L"/d") != std::wstring::npos) Press(WaitForBox(program), IDOK);
        return program.Main();
    }

    HWND Control(int id) const { return GetDlgItem(main, id); }
    std::wstring File(const std::wstring& name) const { return installation.File(name); }
    // Waits until a program has run, and tells the command line that it has seen.
    std::string Ran(const wchar_t* name) const {
        const std::wstring path = File(name) + L".times";
        EXPECT_TRUE(WaitUntil([&] { return Exists(path); }));
        const std::string ran = ReadFileBytes(File(name) + L".ran");
        return ran.substr(ran.find('\n') + 1);
    }
    bool BecomesLocked(bool locked) const {
        return WaitUntil([&] { return (IsWindowEnabled(Control(TX_DataBase)) == 0) == locked; });
    }
    // Presses OK in the box that comes, and tells its text.
    std::string PressOk() const {
        const Box box = WaitForPlainBox(program);
        EXPECT_TRUE(Press(box, IDOK));
        return Narrow(box.text);
    }
    bool RowCountBecomes(int count) const {
        return ui::RowCountBecomes(Control(LI_Sections), count);
    }
};

TEST(SiblingProgram, SeesTheExactCommandLine) {
    const Session session(L"aurora bay.ve2", Sample(), L"/mil /d ");
    ASSERT_NE(session.main, nullptr);
    const std::string quoted = "\"" + Narrow(session.database) + "\"";
    const struct {
        int command;
        const wchar_t* program;
        const char* number;
    } cases[] = {{ME_SectionInput, L"SectInput.exe", " 1"},
                 {ME_SectionVelkRule, L"SectRule.exe", " 1"},
                 {ME_NewTorsion, L"TorModel.exe", ""},
                 {ME_NewBulkhead, L"BhdInput.exe", ""},
                 {ME_FileBSD, L"BsdEdit.exe", ""}};
    for (const auto& [command, program, number] : cases) {
        Choose(session.main, command);
        EXPECT_EQ(session.Ran(program),
                  Narrow(session.File(program)) + " /d /mil " + quoted + number);
        EXPECT_TRUE(session.BecomesLocked(false))
            << Narrow(program) << (ChildOf(session.program.id) != 0 ? " still runs" : " has ended");
    }
    EXPECT_TRUE(session.RowCountBecomes(14));
}

TEST(SiblingProgram, GetsTheNumberOfTheRowsOwnModel) {
    std::string sample = Sample();
    for (const auto& [from, to] : {std::pair("\r\n 2 \r\nSECTION", "\r\n 77 \r\nSECTION"),
                                   std::pair("\r\n 3 \r\nSECTION", "\r\n 2 \r\nSECTION")}) {
        const size_t at = sample.find(from);
        ASSERT_NE(at, std::string::npos);
        sample.replace(at, std::string(from).size(), to);
    }
    const Session session(L"ship.ve2", sample);
    ASSERT_NE(session.main, nullptr);
    SelectRow(session.program, session.Control(LI_Sections), 1);
    Choose(session.main, ME_SectionInput);
    EXPECT_TRUE(session.Ran(L"SectInput.exe").ends_with(" 77"));
    EXPECT_TRUE(session.BecomesLocked(false));
}

TEST(SiblingProgram, PlantedProgramIsNotRun) {
    const Session session(L"ship.ve2");
    ASSERT_NE(session.main, nullptr);
    // The folder's name is "Corvane test <number> <number>": where the path ends at its first
    // blank.
    const std::wstring folder = session.installation.folder;
    const std::wstring planted =
        folder.substr(0, folder.find(L' ', folder.find(L"Corvane test"))) + L".exe";
    std::filesystem::copy_file(ChildProgram(), planted,
                               std::filesystem::copy_options::overwrite_existing);
    Choose(session.main, ME_SectionInput);
    EXPECT_NE(session.Ran(L"SectInput.exe"), "");
    EXPECT_FALSE(Exists(planted + L".ran"));
    EXPECT_TRUE(session.BecomesLocked(false));
    DeleteFileW(planted.c_str());
}

TEST(SiblingProgram, WindowIsLockedAndPaintsWhileItRuns) {
    const Session session(L"x wait.ve2");
    ASSERT_NE(session.main, nullptr);
    Choose(session.main, ME_SectionInput);
    EXPECT_TRUE(TextBecomes(session.Control(PAN_Help), L"SectInput.exe is running..."));
    EXPECT_TRUE(session.BecomesLocked(true));
    for (const int id : {Command1, LI_Sections, BT_Open, BT_Rule, BT_Bsd, OP_Preview, OP_Rule}) {
        EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(session.Control(id)) == 0; })) << id;
    }
    // It answers, paints and can't be closed.
    DWORD_PTR answer = 0;
    EXPECT_NE(SendMessageTimeoutW(session.main, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 2000, &answer), 0);
    PostMessageW(session.main, WM_CLOSE, 0, 0);
    InvalidateRect(session.Control(TX_DataBase), nullptr, TRUE);
    EXPECT_TRUE(WaitUntil(
        [&] { return GetUpdateRect(session.Control(TX_DataBase), nullptr, FALSE) == 0; }));
    WriteFileBytes(session.File(L"SectInput.exe.go"), "");
    EXPECT_TRUE(session.BecomesLocked(false));
    EXPECT_TRUE(TextBecomes(session.Control(PAN_Help), L""));
    EXPECT_TRUE(session.RowCountBecomes(14));
    EXPECT_FALSE(session.program.HasEnded(0));
}

TEST(SiblingProgram, ClickOnARuleOptionMeanwhileHasNoEffect) {
    const Session session(L"x wait.ve2", Sample(), L"/JBP ");
    ASSERT_NE(session.main, nullptr);
    Choose(session.main, ME_SectionInput);
    EXPECT_TRUE(session.BecomesLocked(true));
    RECT area{};
    GetClientRect(session.Control(OP_Rule + 2), &area);
    const LPARAM place = MAKELPARAM(8, area.bottom / 2);
    PostMessageW(session.Control(OP_Rule + 2), WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(session.Control(OP_Rule + 2), WM_LBUTTONUP, 0, place);
    WriteFileBytes(session.File(L"SectInput.exe.go"), "");
    EXPECT_TRUE(session.BecomesLocked(false));
    EXPECT_EQ(SendMessageW(session.Control(OP_Rule + 1), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(session.Control(OP_Rule + 2), BM_GETCHECK, 0, 0), BST_UNCHECKED);
    EXPECT_EQ(TextOf(session.main).substr(0, 11), L"Corvane JBP");
}

TEST(SiblingProgram, ThatIsKilledLetsTheShellGoOn) {
    const Session session(L"x wait.ve2");
    ASSERT_NE(session.main, nullptr);
    Choose(session.main, ME_SectionInput);
    EXPECT_TRUE(session.BecomesLocked(true));
    DWORD id = 0;
    ASSERT_TRUE(WaitUntil([&] { return (id = ChildOf(session.program.id)) != 0; }));
    const HANDLE child = OpenProcess(PROCESS_TERMINATE, FALSE, id);
    EXPECT_TRUE(TerminateProcess(child, 1));
    CloseHandle(child);
    EXPECT_TRUE(session.BecomesLocked(false));
    EXPECT_TRUE(session.RowCountBecomes(14));
}

TEST(SiblingProgram, ThatCrashesIsReported) {
    const Session session(L"x crash.ve2");
    ASSERT_NE(session.main, nullptr);
    Choose(session.main, ME_SectionVelkRule);
    EXPECT_EQ(session.PressOk().substr(0, 50),
              "The program SectRule.exe stopped because of an err");
    EXPECT_TRUE(session.BecomesLocked(false));
    EXPECT_TRUE(session.RowCountBecomes(14));
}

TEST(SiblingProgram, ThatIsNoProgramIsReported) {
    const Session session(L"ship.ve2");
    ASSERT_NE(session.main, nullptr);
    WriteFileBytes(session.File(L"SectInput.exe"), "no program");
    Choose(session.main, ME_SectionInput);
    const std::string text = session.PressOk();
    EXPECT_NE(text.find("SectInput.exe' could not be started"), std::string::npos) << text;
    EXPECT_TRUE(session.BecomesLocked(false));
}

TEST(SiblingProgram, ThatIsMissingIsReported) {
    const Session session(L"ship.ve2");
    ASSERT_NE(session.main, nullptr);
    DeleteFileW(session.File(L"BsdEdit.exe").c_str());
    Choose(session.main, ME_FileBSD);
    const std::string text = session.PressOk();
    EXPECT_NE(text.find(Narrow(session.File(L"BsdEdit.exe"))), std::string::npos) << text;
    EXPECT_TRUE(session.BecomesLocked(false));
}

TEST(SiblingProgram, ThatDeletesTheDatabaseIsReported) {
    const Session session(L"x delete.ve2");
    ASSERT_NE(session.main, nullptr);
    Choose(session.main, ME_SectionInput);
    EXPECT_EQ(session.PressOk(), "The database '" + Narrow(session.database) +
                                     "' has been missing, or in use by another program, since "
                                     "SectInput.exe ran.");
    EXPECT_TRUE(session.BecomesLocked(false));
    EXPECT_TRUE(session.RowCountBecomes(0));
    EXPECT_FALSE(IsWindowEnabled(session.Control(BT_Open)));
}

TEST(SiblingProgram, ThatOverwritesTheDatabaseIsReported) {
    const Session session(L"x overwrite.ve2");
    ASSERT_NE(session.main, nullptr);
    Choose(session.main, ME_SectionInput);
    const std::string text = session.PressOk();
    EXPECT_NE(text.find("is no longer a Corvane database"), std::string::npos) << text;
    EXPECT_TRUE(session.BecomesLocked(false));
    EXPECT_TRUE(session.RowCountBecomes(0));
    // The shell goes on with another database.
    WriteFileBytes(session.File(L"good.ve2"), Sample());
    Choose(session.main, ME_FileOpen);
    EXPECT_TRUE(AnswerFilePrompt(session.program, session.File(L"good.ve2")));
    EXPECT_TRUE(TextBecomes(session.Control(TX_DataBase), session.File(L"good.ve2")));
    EXPECT_TRUE(session.RowCountBecomes(14));
}

TEST(SiblingProgram, ThatLeavesTheDatabaseReadOnlyIsReported) {
    const Session session(L"x lock.ve2");
    ASSERT_NE(session.main, nullptr);
    Choose(session.main, ME_SectionInput);
    const std::string text = session.PressOk();
    EXPECT_NE(text.find("is read-only"), std::string::npos) << text;
    EXPECT_TRUE(session.BecomesLocked(false));
    EXPECT_TRUE(session.RowCountBecomes(14));
}

// ---- Figures for docs/quality.md, printed ------------------------------------------------------

double Milliseconds(long long ticks) {
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(ticks) * 1000 / static_cast<double>(frequency.QuadPart);
}

long long Counter() {
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    return counter.QuadPart;
}

struct Times {
    long long start = 0;
    long long end = 0;
    long long created = 0;  // when the system made the process
};

Times TimesOf(const std::wstring& program) {
    Times times;
    EXPECT_TRUE(WaitUntil([&] {
        if (!Exists(program + L".times")) return false;
        std::istringstream text(ReadFileBytes(program + L".times"));
        return static_cast<bool>(text >> times.start >> times.end >> times.created);
    }));
    return times;
}

// From the click, or the bare call, on; milliseconds of each run.
struct Start {
    std::vector<double> toProcess;      // until the system has made the process
    std::vector<double> toInstruction;  // until the program's first instruction

    void Add(long long begin, const Times& times) {
        toProcess.push_back(Milliseconds(times.created - begin));
        toInstruction.push_back(Milliseconds(times.start - begin));
    }
};

// Starts the program as the utility library does, but without the shell.
void StartAlone(const std::wstring& program, Start& alone) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION child{};
    const long long begin = Counter();
    ASSERT_TRUE(CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &startup, &child));
    WaitForSingleObject(child.hProcess, kPatience);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    alone.Add(begin, TimesOf(program));
    DeleteFileW((program + L".times").c_str());
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void Print(const char* what, const std::vector<double>& values) {
    std::printf("%-50s median %6.1f ms, %6.1f to %6.1f\n", what, Median(values),
                std::ranges::min(values), std::ranges::max(values));
}

// benchmarks/measure_commands runs it by itself. Nothing is judged by a time.
TEST(SiblingProgramSpeed, OfADatabaseOfThreeMegabytes) {
    constexpr int kRuns = 15;
    std::string bytes = Sample();
    const std::string filling = "------------------ OTHER ------------------\r\n 1 \t 2 \t 3 \r\n";
    while (bytes.size() < 3000000) bytes += filling;
    // Each run adds a model, so that the old list is told from the new one.
    const Session session(L"x grow.ve2", bytes);
    ASSERT_NE(session.main, nullptr);
    const std::wstring program = session.File(L"SectInput.exe");
    Start alone;
    Start clicked;
    std::vector<double> shown;
    for (int i = 1; i <= kRuns; ++i) {
        StartAlone(program, alone);
        const long long click = Counter();
        Choose(session.main, ME_SectionInput);
        ASSERT_TRUE(session.RowCountBecomes(14 + i));
        ASSERT_TRUE(WaitUntil([&] {
            return SelectedRow(session.Control(LI_Sections)) == 0 &&
                   GetUpdateRect(session.Control(PIC_Section), nullptr, FALSE) == 0;
        }));
        const long long ready = Counter();
        const Times times = TimesOf(program);
        clicked.Add(click, times);
        shown.push_back(Milliseconds(ready - times.end));
        DeleteFileW((program + L".times").c_str());
    }
    std::printf("%d interleaved runs\n", kRuns);
    Print("bare call, until the process is made", alone.toProcess);
    Print("click, until the process is made", clicked.toProcess);
    Print("bare call, until the program's first instruction", alone.toInstruction);
    Print("click, until the program's first instruction", clicked.toInstruction);
    std::printf("the shell's own time until the process is made, the difference: %.1f ms\n",
                Median(clicked.toProcess) - Median(alone.toProcess));
    Print("program's end, until list and preview are right", shown);
}

}  // namespace
}  // namespace corvane::ui
