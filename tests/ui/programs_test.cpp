// Edit, Rule, Create and BSD > Open with a program that does what its database's name says
// (tests/ui/child_program.cc): the lock meanwhile, and what is then in the file.
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

    // In debug mode a box shows the current directory first.
    static HWND Begin(const Program& program, const std::wstring& switches) {
        if (switches.find(L"/d") != std::wstring::npos) Press(WaitForBox(program), IDOK);
        return program.Main();
    }

    HWND Control(int id) const { return GetDlgItem(main, id); }
    std::wstring File(const std::wstring& name) const { return installation.File(name); }
    // Waits until a program has run, and returns the command line that it has seen.
    std::string Ran(const wchar_t* name) const {
        const std::wstring path = File(name) + L".times";
        EXPECT_TRUE(WaitUntil([&] { return Exists(path); }));
        const std::string ran = ReadFileBytes(File(name) + L".ran");
        return ran.substr(ran.find('\n') + 1);
    }
    bool BecomesLocked(bool locked) const {
        return WaitUntil([&] { return (IsWindowEnabled(Control(TX_DataBase)) == 0) == locked; });
    }
    // Presses OK in the box that comes, and returns its text.
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

TEST(SiblingProgram, ThatCrashesIsReported) {
    const Session session(L"x crash.ve2");
    ASSERT_NE(session.main, nullptr);
    Choose(session.main, ME_SectionVelkRule);
    const std::string text = session.PressOk();
    EXPECT_EQ(text.substr(0, text.find('\r')), "SectRule.exe stopped working.");
    EXPECT_TRUE(session.BecomesLocked(false));
    EXPECT_TRUE(session.RowCountBecomes(14));
}

TEST(SiblingProgram, ThatEndsWithAnotherCodeIsNotReported) {
    for (const wchar_t* const name : {L"x code -1 .ve2", L"x code -3 .ve2", L"x code 255 .ve2"}) {
        const Session session(name);
        ASSERT_NE(session.main, nullptr);
        Choose(session.main, ME_SectionInput);
        EXPECT_TRUE(WaitUntil([&] { return Exists(session.File(L"SectInput.exe.ran")); }));
        EXPECT_TRUE(session.BecomesLocked(false));
        EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(session.main) != FALSE; }));
        EXPECT_TRUE(TextBecomes(session.Control(PAN_Help), L""));
    }
}

// The shell is killed while a program runs: the next one knows of it.
TEST(SiblingProgram, ThatOutlivesTheShellIsAskedAboutBeforeAnEdit) {
    const Settings settings;
    const Installation installation;
    const std::wstring path = Session::Prepare(installation, L"x wait.ve2", Sample());
    const std::wstring quoted = L"\"" + path + L"\"";
    {
        // Ended at the end of the block; what it started continues.
        const Program killed(installation, quoted);
        ASSERT_NE(killed.Main(), nullptr);
        Choose(killed.Main(), ME_SectionInput);
        ASSERT_TRUE(WaitUntil([&] { return Exists(installation.File(L"SectInput.exe.ran")); }));
        TerminateProcess(killed.process, 1);
        ASSERT_TRUE(killed.HasEnded());
        const Program again(installation, quoted);
        const HWND main = again.Main();
        ASSERT_NE(main, nullptr);
        Choose(main, ME_SectionRemove);
        const Box box = WaitForPlainBox(again);
        EXPECT_NE(Narrow(box.text).find("SectInput.exe is still working on 'x wait.ve2'"),
                  std::string::npos)
            << Narrow(box.text);
        ASSERT_TRUE(WaitUntil([&] { return FocusOf(box.window) != nullptr; }));
        EXPECT_EQ(GetDlgCtrlID(FocusOf(box.window)), IDNO);
        EXPECT_TRUE(Press(box, IDNO));
        EXPECT_EQ(ReadFileBytes(path), Sample());
        WriteFileBytes(installation.File(L"SectInput.exe.go"), "");
        EXPECT_TRUE(WaitUntil([&] { return Exists(installation.File(L"SectInput.exe.times")); }));
        // Once that program has ended, only the usual question comes.
        EXPECT_TRUE(WaitUntil([&] {
            Choose(main, ME_SectionRemove);
            const Box usual = WaitForPlainBox(again);
            Press(usual, IDNO);
            return Narrow(usual.text).starts_with("Are you sure to remove");
        }));
    }
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
    // Each run adds a model, so that the old list differs from the new one.
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
        ASSERT_TRUE(session.RowCountBecomes(14 + i))
            << "run " << i << ": " << (Exists(program + L".times") ? "has run, " : "has not run, ")
            << ReadFileBytes(session.database).size() - bytes.size()
            << " bytes added; status: " << Narrow(TextOf(session.Control(PAN_Help)));
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
