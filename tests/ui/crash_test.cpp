// Crashes of the real program: the dump and the entry of the log that they leave, and the box of
// the next start.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "report/message_numbers.h"
#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "tests/ui/minidump.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::Narrow;

constexpr uint32_t kAccessViolation = 0xC0000005;
constexpr uint32_t kStackOverflow = 0xC00000FD;
// Wine takes ten seconds for a dump, alone on the machine.
constexpr DWORD kPatienceWithDump = 120'000;

// A variable of the environment that programs inherit while it lives.
struct Variable {
    const wchar_t* name;
    Variable(const wchar_t* itsName, const wchar_t* value) : name(itsName) {
        SetEnvironmentVariableW(name, value);
    }
    ~Variable() { SetEnvironmentVariableW(name, nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
};

struct CrashFixture : testing::Test {
    Settings settings;
    Installation installation;
    std::wstring folder = installation.File(L"Corvane\\");  // of the log

    // Full paths of the dumps.
    std::vector<std::wstring> Dumps() const {
        std::vector<std::wstring> dumps;
        for (const std::wstring& name : test::FilesIn(folder)) {
            if (name.ends_with(L".dmp")) dumps.push_back(folder + name);
        }
        return dumps;
    }
    std::string LastEntry() const {
        const std::string log = test::ReadFileBytes(folder + L"corvane.log");
        return log.substr(log.rfind('\n', log.size() - 2) + 1);
    }
    // A run with the sample ship that crashes in this way.
    struct Crashing {
        Variable variable;
        Program program;
        Crashing(const Installation& installation, const wchar_t* way)
            : variable(L"CORVANE_CRASH", way),
              program(installation,
                      L"/d \"" + test::DataPath("../samples/aurora_bay.ve2") + L"\"") {
            EXPECT_TRUE(Press(WaitForBox(program), IDOK)) << "the box of debug mode";
        }
    };
    void Crash(const wchar_t* way) const {
        const Crashing crashing(installation, way);
        ASSERT_TRUE(crashing.program.HasEnded(kPatienceWithDump));
    }
    void ExpectDumpOf(const Program& program, uint32_t code) const {
        ASSERT_EQ(Dumps().size(), 1U);
        EXPECT_NE(Dumps()[0].find(L" " + std::to_wstring(program.id) + L".new.dmp"),
                  std::wstring::npos);
        ExpectDump(code);
    }
    void ExpectDump(uint32_t code) const {
        ASSERT_EQ(Dumps().size(), 1U);
        EXPECT_TRUE(Dumps()[0].ends_with(L".new.dmp"));
        const Dump dump = ReadDump(Dumps()[0]);
        EXPECT_TRUE(dump.isWhole);
        EXPECT_EQ(dump.exceptionCode, code);
        EXPECT_GE(dump.threads, 1U);
        for (const wchar_t* file : {L"Corvane.exe", L"GrVelk.dll"}) {
            EXPECT_EQ(std::ranges::count_if(
                          dump.modules,
                          [&](const std::wstring& module) {
                              return _wcsicmp(module.c_str(), installation.File(file).c_str()) == 0;
                          }),
                      1)
                << Narrow(file);
        }
        // The stack is a part of it; a full one has two megabytes.
        const uintmax_t most = code == kStackOverflow ? 8U << 20 : 1U << 20;
        EXPECT_LT(std::filesystem::file_size(Dumps()[0]), most);
    }
};

struct Way {
    const wchar_t* name;
    uint32_t code;
    const char* entry;  // what the log says
};

struct CrashTest : CrashFixture, testing::WithParamInterface<Way> {};

TEST_P(CrashTest, LeavesADumpAndAnEntryAndTheNextStartSaysSoOnce) {
    const Way& way = GetParam();
    Crash(way.name);
    if (HasFatalFailure()) return;
    ExpectDump(way.code);
    const std::string entry = LastEntry();
    EXPECT_NE(entry.find(way.entry), std::string::npos) << entry;
    const std::wstring crashed = Dumps().at(0);
    EXPECT_NE(entry.find("dump '" + Narrow(crashed.substr(folder.size())) + "'"), std::string::npos)
        << entry;
    const std::wstring kept = crashed.substr(0, crashed.size() - 8) + L".dmp";
    {
        const Program next(installation);
        const Box box = WaitForBox(next);
        ASSERT_NE(box.window, nullptr);
        EXPECT_NE(Narrow(box.text).find("'" + Narrow(kept) + "'"), std::string::npos)
            << Narrow(box.text);
        EXPECT_EQ(Message(box).rfind("Corvane ended unexpectedly when it was last in use (", 0),
                  0U);
        ASSERT_TRUE(Press(box, IDOK));
        const HWND main = next.Main();
        ASSERT_NE(main, nullptr);
        PostMessageW(main, WM_CLOSE, 0, 0);
        ASSERT_TRUE(next.HasEnded());
    }
    EXPECT_EQ(Dumps(), std::vector{kept});
    const Program third(installation);
    ASSERT_NE(third.Main(), nullptr);
    EXPECT_EQ(third.FindNow(L"#32770"), nullptr) << "the box came twice";
}

INSTANTIATE_TEST_SUITE_P(
    Ways, CrashTest,
    testing::Values(Way{L"memory", kAccessViolation, " crash exception C0000005 at the program + "},
                    Way{L"stack", kStackOverflow, " crash exception C00000FD at the program + "}),
    [](const auto& instance) { return Narrow(instance.param.name); });

struct End {
    const wchar_t* name;
    const char* entry;
};

struct EndTest : CrashFixture, testing::WithParamInterface<End> {};

// The entry comes before the dump, for which nobody waits here.
TEST_P(EndTest, OfTheLibrarysMakingIsCaughtAsACrashIs) {
    const End& end = GetParam();
    const Crashing crashing(installation, end.name);
    EXPECT_TRUE(WaitUntil([&] { return LastEntry().find(end.entry) != std::string::npos; }))
        << LastEntry();
    ASSERT_EQ(Dumps().size(), 1U);
    EXPECT_NE(LastEntry().find(Narrow(Dumps()[0].substr(folder.size()))), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Ways, EndTest,
                         testing::Values(End{L"abort", " crash abort E0000001 at "},
                                         End{L"terminate", " crash terminate E0000002 at "},
                                         End{L"pure", " crash terminate E0000002 at "}),
                         [](const auto& instance) { return Narrow(instance.param.name); });

TEST_F(CrashFixture, VariableWithoutDebugModeDoesNothing) {
    const Variable variable(L"CORVANE_CRASH", L"memory");
    const Program program(installation);
    EXPECT_NE(program.Main(), nullptr);
    EXPECT_TRUE(Dumps().empty());
}

// A fault of the system's list, inside of a window's procedure.
TEST_F(CrashFixture, CrashOfAnotherPartOfTheProcessLeavesADumpToo) {
    const Program program(installation,
                          L"\"" + test::DataPath("../samples/aurora_bay.ve2") + L"\"");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    PostMessageW(GetDlgItem(main, LI_Sections), LVM_GETITEMRECT, 0, 16);
    ASSERT_TRUE(program.HasEnded(kPatienceWithDump));
    ExpectDumpOf(program, kAccessViolation);
    EXPECT_NE(LastEntry().find(" crash exception C0000005 at "), std::string::npos) << LastEntry();
}

TEST_F(CrashFixture, CrashOfAStandInIsNotedInTheLog) {
    const std::wstring ship = installation.File(L"ship crash.ve2");
    CopyFileW(test::DataPath("../samples/aurora_bay.ve2").c_str(), ship.c_str(), FALSE);
    installation.Add(L"child_program.exe");
    MoveFileW(installation.File(L"child_program.exe").c_str(),
              installation.File(L"SectInput.exe").c_str());
    const Program program(installation, L"\"" + ship + L"\"");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    Choose(main, ME_SectionInput);
    ASSERT_TRUE(Press(WaitForBox(program), IDOK));
    EXPECT_TRUE(
        LastEntry().ends_with(" fault message " + std::to_string(kMsgProgramCrashed) + "\r\n"))
        << LastEntry();
    EXPECT_TRUE(Dumps().empty());
}

TEST_F(CrashFixture, PortableProgramLeavesAllBesideItself) {
    test::WriteFileBytes(installation.File(L"Corvane.ini"), "");
    folder = installation.folder;
    Crash(L"memory");
    if (HasFatalFailure()) return;
    ExpectDump(kAccessViolation);
    EXPECT_NE(LastEntry().find(" crash exception "), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(installation.File(L"Corvane")));
    const Program next(installation);
    const Box box = WaitForBox(next);
    ASSERT_EQ(Dumps().size(), 1U);
    EXPECT_NE(Narrow(box.text).find("'" + Narrow(Dumps()[0]) + "'"), std::string::npos);
}

TEST_F(CrashFixture, DumpFolderWithLettersOfAnyLanguageWorks) {
    folder = installation.File(L"\u0141\u00F3d\u017A \u03A9 \u4E2D\\Corvane\\");
    const std::wstring data = installation.File(L"\u0141\u00F3d\u017A \u03A9 \u4E2D");
    std::filesystem::create_directory(data);
    const Variable variable(L"LOCALAPPDATA", data.c_str());
    Crash(L"memory");
    if (!HasFatalFailure()) ExpectDump(kAccessViolation);
}

TEST_F(CrashFixture, WithoutAFolderTheCrashIsAnOrdinaryOne) {
    test::WriteFileBytes(installation.File(L"Corvane"), "a file in the way");
    folder = installation.folder;
    Crash(L"memory");
    EXPECT_TRUE(Dumps().empty());
    const Program next(installation);
    EXPECT_NE(next.Main(), nullptr);
}

}  // namespace
}  // namespace corvane::ui
