#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/single_instance.h"
#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane::system {
namespace {

TEST(Process, SecondProcessOfTheSameProgramIsRefused) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const bool first = ClaimSingleInstance();
    EXPECT_EXIT(std::exit(ClaimSingleInstance() ? 4 : 7), testing::ExitedWithCode(7), "");
    EXPECT_TRUE(first);
    EXPECT_TRUE(ClaimSingleInstance());
}

TEST(Process, ProgramThatRunsIsFoundAndOthersAreNot) {
    const test::TemporaryFolder folder;
    test::WriteFileBytes(folder.File(L"idle.exe"), "never started");
    EXPECT_TRUE(IsProgramRunning(ProgramPath()));
    EXPECT_FALSE(IsProgramRunning(folder.File(L"idle.exe")));
    EXPECT_FALSE(IsProgramRunning(folder.File(L"none.exe")));
    EXPECT_FALSE(IsProgramRunning(L""));
}

TEST(Process, SystemHasANameAndAVersion) {
    const std::string text = test::Narrow(SystemVersion());
    const size_t blank = text.find(' ');
    ASSERT_NE(blank, std::string::npos) << text;
    EXPECT_GT(blank, 0U);
    EXPECT_GE(std::atoi(text.c_str() + blank), 4) << text;
    EXPECT_NE(text.find('.', blank), std::string::npos) << text;
}

TEST(Process, InstanceNameDistinguishesPrograms) {
    EXPECT_EQ(InstanceName(L"c:\\a\\corvane.exe"), InstanceName(L"c:\\a\\corvane.exe"));
    EXPECT_NE(InstanceName(L"c:\\a\\corvane.exe"), InstanceName(L"c:\\b\\corvane.exe"));
    EXPECT_EQ(InstanceName(std::wstring(400, L'x')).find(L'\\'), std::wstring::npos);
    EXPECT_LT(InstanceName(std::wstring(400, L'x')).size(), 60U);
}

}  // namespace
}  // namespace corvane::system
