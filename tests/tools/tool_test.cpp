// Requests inside of the test's process, where the system can be made to fail.
#include "tools/tool.h"

#include "platform/bsdvelk.h"
#include "platform/ztutil32.h"
#include "shell/state.h"
#include "tests/support/recorded_reports.h"
#include "tests/tools/program_fixture.h"

namespace corvane {
namespace {

using test::Narrow;
using Words = std::vector<std::wstring>;

struct ToolTest : test::ProgramTest {
    test::RecordedReports reports;  // gives the reporters back at the end
    static inline std::wstring out, err;
    static inline bool isFull = false;

    ToolTest() { isFull = false; }
    ~ToolTest() override { shell = ShellState(); }

    static ExitCode Run(const Words& arguments) {
        out.clear();
        err.clear();
        shell = ShellState();
        return RunTool(arguments, {[](std::wstring_view text) {
                                       out += text;
                                       return !isFull;
                                   },
                                   [](std::wstring_view text) { err += text; }});
    }
};

TEST_F(ToolTest, WithoutATemporaryFolderTheReasonIsReported) {
    const Words commands[] = {{L"append", L"ship.ve2", L"old.vel", L"--all"},
                              {L"extract", L"ship.ve2", L"1", L"--to", L"some.ve2"},
                              {L"convert", L"old.vel", L"new.ve2"},
                              {L"convert", L"ship.ve2", L"new.vel"},
                              {L"draw", L"ship.ve2", L"1", L"a.svg"}};
    for (const Words& command : commands) {
        const test::NoTemporaryFolder none;
        EXPECT_EQ(Run(command), kExitFailed);
        EXPECT_NE(err, L"") << Narrow(command[0]);
        EXPECT_EQ(out, L"");
    }
    EXPECT_EQ(test::FilesIn(folder.path), (std::vector<std::wstring>{L"old.vel", L"ship.ve2"}));
    EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
}

TEST_F(ToolTest, OutputThatCannotBeWrittenIsAFailure) {
    isFull = true;
    EXPECT_EQ(Run({L"list", L"ship.ve2"}), kExitFailed);
    EXPECT_EQ(err, L"corvane: the output cannot be written\n");
}

TEST_F(ToolTest, AnotherDecimalSymbolIsRefused) {
    const test::FakeFunction fake(IsRegionalOK, [] { return int16_t{0}; });
    EXPECT_EQ(Run({L"list", L"ship.ve2"}), kExitFailed);
    EXPECT_EQ(err,
              L"corvane: the decimal symbol of your regional settings is not \".\".\n"
              L"  Start Corvane once: it offers to change that.\n");
}

TEST_F(ToolTest, ALibraryOfAnotherVersionIsRefused) {
    const test::FakeFunction fake(GetBsdVelkVersion, [] { return 1.0F; });
    EXPECT_EQ(Run({L"list", L"ship.ve2"}), kExitFailed);
    EXPECT_NE(err.find(L"BsdVelk"), std::wstring::npos) << Narrow(err);
}

// The change is made, and what is missing is said.
TEST_F(ToolTest, AVersionThatCannotBeKeptIsAFinding) {
    Write(L"file", "");
    test::SetLocalDataDirectory(folder.File(L"file"));
    EXPECT_EQ(Run({L"delete", L"ship.ve2", L"1", L"-y"}), kExitFindings);
    EXPECT_NE(err.find(L"there is no history of it"), std::wstring::npos) << Narrow(err);
    EXPECT_NE(Bytes(L"ship.ve2"), Sample());
    test::SetLocalDataDirectory(history.folder.path);
}

}  // namespace
}  // namespace corvane
