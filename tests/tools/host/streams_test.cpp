// What only the host's program has: arguments as bytes, a full disk, the page of the manual.
#include "tests/tools/program_fixture.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

using test::Narrow;
using test::ProgramRun;

struct HostProgram : test::ProgramTest {};

TEST_F(HostProgram, OutputThatCannotBeWrittenIsAFailure) {
    const ProgramRun run = test::RunProgramOnFullDisk({L"list", L"ship.ve2"});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err, "corvane: the output cannot be written\n");
}

TEST_F(HostProgram, AMissingLibraryIsNamed) {
    const ProgramRun run = test::RunProgramAlone({L"list", L"ship.ve2"});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err,
              "corvane: the library 'GrVelk.dll' is missing, or is not that of Corvane.\n"
              "  It belongs beside this program.\n");
    EXPECT_EQ(test::RunProgramAlone({L"--version"}).status, 0);
}

TEST_F(HostProgram, PathsOfTheHostAreUnderstood) {
    std::string native = Narrow(folder.path).substr(2);
    std::ranges::replace(native, '\\', '/');
    const std::wstring path(native.begin(), native.end());
    EXPECT_NE(Out(0, {L"list", path + L"ship.ve2"}), "");
    EXPECT_NE(Err(3, {L"list", path + L"none.ve2"}).find("'" + native + "none.ve2'"),
              std::string::npos);
}

// Without the folders of settings and history that Windows has.
TEST_F(HostProgram, TheHistoryIsInTheUsersOwnFolder) {
    const char* const home = std::getenv("HOME");
    const std::string usual = home == nullptr ? "" : home;
    std::string native = Narrow(folder.path).substr(2);
    std::ranges::replace(native, '\\', '/');
    unsetenv("LOCALAPPDATA");
    setenv("HOME", native.c_str(), 1);
    unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(Out(0, {L"delete", L"ship.ve2", L"1", L"-y"}), "");
    setenv("HOME", usual.c_str(), 1);
    test::SetLocalDataDirectory(history.folder.path);
    EXPECT_TRUE(IsThere(L".local\\share\\Corvane\\history\\index.txt"));
}

// A page of the manual is text with "\-" for dashes and macros at the beginnings of lines.
std::string ManualPage() {
    std::string page = test::ReadFileBytes(test::DataPath("../tools/corvane.1"));
    for (size_t at = 0; (at = page.find("\\-", at)) != std::string::npos; ++at) page.erase(at, 1);
    return page;
}

std::string SectionOf(const std::string& page, const std::string& heading) {
    const size_t begin = page.find(heading + "\n");
    if (begin == std::string::npos) return {};
    return page.substr(begin, page.find("\n.S", begin + 1) - begin);
}

TEST(ManualPage, HasEveryCommandWithItsUsageAndItsOptions) {
    const std::string page = ManualPage();
    size_t sections = 0;
    for (size_t at = 0; (at = page.find("\n.SS ", at)) != std::string::npos; ++at) ++sections;
    EXPECT_EQ(sections, ToolCommands().size());
    for (const ToolCommand& command : ToolCommands()) {
        const std::string name = Narrow(std::wstring(command.name));
        const std::string section = SectionOf(page, "\n.SS " + name);
        EXPECT_NE(section, "") << name;
        const std::string usage = Narrow(UsageLine(&command));
        const std::string synopsis = usage.substr(std::string("usage: ").size());
        EXPECT_NE(section.find("\n" + synopsis), std::string::npos) << synopsis << section;
    }
    const std::string options = SectionOf(page, "\n.SH OPTIONS");
    for (const OptionFacts& facts : OptionTable()) {
        EXPECT_NE(options.find("\n.B " + Narrow(std::wstring(facts.name))), std::string::npos);
    }
}

}  // namespace
}  // namespace corvane
