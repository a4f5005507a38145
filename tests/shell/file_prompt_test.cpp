#include "shell/file_prompt.h"

#include <gtest/gtest.h>

#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

struct SeenPrompt {
    std::string extension;
    std::string title;
    std::string name;
    std::string caption;
    int32_t flags = 0;
};
SeenPrompt seen;
std::string answer;  // "" cancels

int16_t CORVANE_STDCALL Answer(char* extension, char* title, char* buffer, int32_t size,
                               int32_t flags, char* caption) {
    seen = {extension, title, buffer, caption, flags};
    if (answer.empty()) return 0;
    buffer[answer.copy(buffer, static_cast<size_t>(size) - 1)] = '\0';
    return -1;
}

struct AskForWritableDatabaseTest : testing::Test {
    test::FakeFunction<decltype(ZTUtilPromptForName)> fake{ZTUtilPromptForName, Answer};
};

TEST_F(AskForWritableDatabaseTest, PromptAsksWhereToSaveTheDatabase) {
    const test::TemporaryFolder folder;
    answer = system::AnsiFromWide(folder.File(L"other.ve2"));
    EXPECT_EQ(AskForWritableDatabase(L"C:\\ships\\ship.ve2"), folder.File(L"other.ve2"));
    EXPECT_EQ(seen.extension, "ve2");
    EXPECT_EQ(seen.title, GetMessageBytes(kMsgDatabaseFiles));
    EXPECT_EQ(seen.name, "C:\\ships\\ship.ve2");
    EXPECT_EQ(seen.caption, "Save DB as...");
    EXPECT_EQ(seen.flags, -1);
}

TEST_F(AskForWritableDatabaseTest, CancelledPromptGivesNoName) {
    const test::RecordedReports screen;
    for (const char* const cancel : {"", "Cancel"}) {
        answer = cancel;
        EXPECT_EQ(AskForWritableDatabase(L"C:\\ships\\ship.ve2"), L"");
    }
    EXPECT_TRUE(test::RecordedReports::events.empty());
}

TEST_F(AskForWritableDatabaseTest, UnusableNameIsReportedAndGivesNone) {
    const test::TemporaryFolder folder;
    for (const wchar_t* const name : {L"nul.ve2", L"a|b.ve2", L"none\\ship.ve2"}) {
        const test::RecordedReports screen;
        answer = system::AnsiFromWide(folder.File(name));
        EXPECT_EQ(AskForWritableDatabase(L"C:\\ships\\ship.ve2"), L"");
        EXPECT_EQ(test::RecordedReports::Of("warning").size(), 1U) << test::Narrow(name);
    }
}

}  // namespace
}  // namespace corvane
