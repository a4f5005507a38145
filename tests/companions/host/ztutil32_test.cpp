// What the host's twin of ztutil32 does instead of Windows.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/system.h"
#include "platform/ztutil32.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

// Sets an environment variable for the time of a test.
struct EnvironmentValue {
    std::string name;
    EnvironmentValue(const char* variable, const char* value) : name(variable) {
        setenv(variable, value, 1);
    }
    ~EnvironmentValue() { unsetenv(name.c_str()); }
    EnvironmentValue(const EnvironmentValue&) = delete;
    EnvironmentValue& operator=(const EnvironmentValue&) = delete;
};

TEST(HostRegionalTest, SettingsAreSuitable) {
    EXPECT_EQ(IsRegionalOK(), -1);
    EXPECT_EQ(SetRegionalOK(), -1);
}

TEST(HostRegionalTest, WrongSymbolIsRepaired) {
    const EnvironmentValue symbol("CORVANE_DECIMAL", ",");
    EXPECT_EQ(IsRegionalOK(), 0);
    EXPECT_EQ(SetRegionalOK(), -1);
    EXPECT_EQ(IsRegionalOK(), -1);
}

TEST(HostRegionalTest, FixedSymbolStaysWrong) {
    const EnvironmentValue symbol("CORVANE_DECIMAL", "fixed");
    EXPECT_EQ(SetRegionalOK(), 0);
    EXPECT_EQ(IsRegionalOK(), 0);
}

TEST(HostPromptTest, VariableAnswers) {
    std::array<char, 5> extension = {"ve2"};
    std::array<char, 20> title = {"Databases|*.ve2|"};
    std::array<char, 5> caption = {"Open"};
    std::array<char, 400> name = {"old.ve2"};
    EXPECT_EQ(
        ZTUtilPromptForName(extension.data(), title.data(), name.data(), 400, 0, caption.data()),
        0);
    EXPECT_STREQ(name.data(), "old.ve2");

    const EnvironmentValue answer("CORVANE_PROMPT_ANSWER", "C:\\new.ve2");
    EXPECT_EQ(
        ZTUtilPromptForName(extension.data(), title.data(), name.data(), 400, -1, caption.data()),
        -1);
    EXPECT_STREQ(name.data(), "C:\\new.ve2");
}

// A program in `folder`.
std::string WriteScript(const test::TemporaryFolder& folder, const std::wstring& name,
                        const std::string& script) {
    const std::wstring path = folder.File(name);
    test::WriteFileBytes(path, "#!/bin/sh\n" + script + "\n");
    std::string native = test::Narrow(path).substr(2);
    for (char& character : native) {
        if (character == '\\') character = '/';
    }
    std::filesystem::permissions(native, std::filesystem::perms::owner_all);
    return test::Narrow(path);
}

TEST(HostChildProgramTest, EndByASignalIsACrash) {
    const test::TemporaryFolder folder;
    const std::string program = WriteScript(folder, L"crash.exe", "kill -SEGV $$");
    EXPECT_EQ(ShellAndWait(program.c_str(), 0), kProgramCrashed);
}

TEST(HostChildProgramTest, ExitStatusIsNoCrash) {
    const test::TemporaryFolder folder;
    const std::string program = WriteScript(folder, L"fail.exe", "exit 5");
    EXPECT_EQ(ShellAndWait(program.c_str(), 0), -1);
}

TEST(HostChildProgramTest, ReasonOfAFailedStartIsLeftForTheCaller) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(ShellAndWait(test::Narrow(folder.File(L"missing.exe")).c_str(), 0), 0);
    EXPECT_EQ(system::LastError(), system::kErrorFileNotFound);
    test::WriteFileBytes(folder.File(L"text.exe"), "no program");
    EXPECT_EQ(ShellAndWait(test::Narrow(folder.File(L"text.exe")).c_str(), 0), 0);
    EXPECT_EQ(system::LastError(), system::kErrorAccessDenied);
}

TEST(HostChildProgramTest, RunsToItsEndWithItsArguments) {
    const test::TemporaryFolder folder;
    // Writes its arguments, one a line, into "ran" beside itself.
    const std::string program = WriteScript(folder, L"Sect Input.exe",
                                            "for word; do echo \"$word\"; done > \"${0%/*}/ran\"");
    EXPECT_EQ(ShellAndWait((program + R"( /mil "C:\My ship.ve2" 3)").c_str(), 0), -1);
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ran")), "/mil\nC:\\My ship.ve2\n3\n");
}

}  // namespace
}  // namespace corvane
