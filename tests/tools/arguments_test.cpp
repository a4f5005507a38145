// Arguments as requests.
#include "tools/arguments.h"

#include <gtest/gtest.h>

#include "tests/support/support.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

using test::Narrow;
using Words = std::vector<std::wstring>;

std::string FaultOf(const Words& arguments) {
    const Request request = ReadRequest(arguments);
    return request.kind == RequestKind::kFault ? Narrow(request.fault) : "(none)";
}

TEST(Arguments, OptionsMayBeAnywhereAfterTheCommand) {
    const Words lists[] = {{L"list", L"--format", L"csv", L"a.ve2"},
                           {L"list", L"a.ve2", L"--format", L"csv"},
                           {L"list", L"a.ve2", L"--format=csv"}};
    for (const Words& arguments : lists) {
        const Request request = ReadRequest(arguments);
        EXPECT_EQ(request.kind, RequestKind::kCommand);
        ASSERT_NE(request.command, nullptr);
        EXPECT_EQ(request.command->name, L"list");
        EXPECT_EQ(request.operands, Words{L"a.ve2"});
        EXPECT_EQ(request.Value(Option::kTableFormat), L"csv");
    }
}

TEST(Arguments, AfterTwoDashesAllAreOperands) {
    const Request request = ReadRequest(Words{L"delete", L"-y", L"--", L"a.ve2", L"--force"});
    EXPECT_EQ(request.kind, RequestKind::kCommand);
    EXPECT_EQ(request.operands, (Words{L"a.ve2", L"--force"}));
    EXPECT_TRUE(request.Has(Option::kForce));
    EXPECT_FALSE(request.Has(Option::kNoHistory));
}

TEST(Arguments, CommandsOfTwoWords) {
    const Request request = ReadRequest(Words{L"bsd", L"import", L"a.ve2", L"b.bsd"});
    ASSERT_NE(request.command, nullptr);
    EXPECT_EQ(request.command->name, L"bsd import");
    EXPECT_EQ(request.operands, (Words{L"a.ve2", L"b.bsd"}));
}

TEST(Arguments, HelpNeedsNothingElse) {
    EXPECT_EQ(ReadRequest(Words{L"--help"}).command, nullptr);
    for (const Words& arguments :
         {Words{L"draw", L"--help"}, Words{L"draw", L"a", L"b", L"c", L"d", L"-h"},
          Words{L"--help", L"draw"}}) {
        const Request request = ReadRequest(arguments);
        EXPECT_EQ(request.kind, RequestKind::kHelp);
        ASSERT_NE(request.command, nullptr);
        EXPECT_EQ(request.command->name, L"draw");
    }
    EXPECT_EQ(ReadRequest(Words{L"--version"}).kind, RequestKind::kVersion);
}

TEST(Arguments, WhatIsWrongIsNamed) {
    const std::pair<Words, std::string> cases[] = {
        {{}, "a command is missing"},
        {{L""}, "unknown command ''"},
        {{L"fly"}, "unknown command 'fly'"},
        {{L"LIST", L"a"}, "unknown command 'LIST'"},
        {{L"-x"}, "unknown option '-x' before the command"},
        {{L"--version", L"x"}, "unknown option '--version' before the command"},
        {{L"bsd"}, "'bsd' needs a second word"},
        {{L"bsd", L"fly"}, "unknown command 'bsd fly'"},
        {{L"--help", L"fly"}, "unknown command 'fly'"},
        {{L"--help", L"list", L"x"}, "too many arguments: 'x'"},
        {{L"list"}, "an argument is missing"},
        {{L"list", L"a", L"b"}, "too many arguments: 'b'"},
        {{L"list", L""}, "an argument is empty"},
        {{L"list", L"a", L"--force"}, "unknown option '--force'"},
        {{L"list", L"a", L"-"}, "too many arguments: '-'"},
        {{L"list", L"a", L"--format"}, "'--format' needs a value"},
        {{L"list", L"a", L"--format="}, "'--format' needs a value"},
        {{L"list", L"a", L"--format", L"xml"}, "'--format xml': it must be text|csv|json"},
        {{L"list", L"a", L"--format", L"text csv"},
         "'--format text csv': it must be text|csv|json"},
        {{L"show", L"a", L"1", L"--format=csv"}, "'--format csv': it must be text|json"},
        {{L"list", L"a", L"--format=csv", L"--format=csv"}, "'--format' is given twice"},
        {{L"delete", L"a", L"1", L"--force=yes"}, "'--force' has no value"},
        {{L"draw", L"a", L"f", L"--kind", L"emf"}, "'--kind emf': it must be svg|dxf|png"},
    };
    for (const auto& [arguments, fault] : cases) EXPECT_EQ(FaultOf(arguments), fault);
}

TEST(Arguments, TheTableOfOptionsIsInTheOrderOfTheirNumbers) {
    ASSERT_EQ(OptionTable().size(), size_t{kOptionCount});
    for (int i = 0; i < kOptionCount; ++i) {
        const auto index = static_cast<size_t>(i);
        EXPECT_EQ(static_cast<int>(OptionTable()[index].option), i);
    }
}

// The usage line shows every option that the command has, and no other.
TEST(Arguments, UsageLinesShowTheOptionsOfTheirCommands) {
    for (const ToolCommand& command : ToolCommands()) {
        const std::wstring usage = UsageLine(&command);
        for (const OptionFacts& facts : OptionTable()) {
            const bool has = std::ranges::any_of(command.options, [&facts](Option option) {
                return OptionTable()[static_cast<size_t>(option)].name == facts.name;
            });
            EXPECT_EQ(usage.find(facts.name) != std::wstring::npos, has)
                << Narrow(usage) << Narrow(std::wstring(facts.name));
        }
        EXPECT_NE(HelpText(&command).find(usage), std::wstring::npos);
        EXPECT_NE(HelpText(nullptr).find(std::wstring(command.name)), std::wstring::npos);
    }
}

}  // namespace
}  // namespace corvane
