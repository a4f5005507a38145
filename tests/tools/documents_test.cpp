// The page of the documents about the program.
#include <gtest/gtest.h>

#include "tests/support/support.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

TEST(ToolDocuments, ThePageHasEveryCommandWithItsUsage) {
    const std::string page =
        test::WithLineFeeds(test::ReadFileBytes(test::DataPath("../docs/console.md")));
    for (const ToolCommand& command : ToolCommands()) {
        const std::string name = test::Narrow(std::wstring(command.name));
        const std::string usage = test::Narrow(UsageLine(&command)).substr(7);
        const size_t heading = page.find("\n### " + name + "\n");
        ASSERT_NE(heading, std::string::npos) << name;
        EXPECT_LT(page.find("\n    " + usage, heading), page.find("\n### ", heading + 1)) << usage;
    }
}

}  // namespace
}  // namespace corvane
