#include "tests/shell/command_support.h"

#include <cstring>
#include <utility>

#include "bsd/bsd_file.h"
#include "database/creating.h"
#include "files/paths.h"
#include "platform/system.h"
#include "shell/open_database.h"
#include "tests/database/sample_database.h"
#include "tests/shell/fake_view.h"
#include "text/numbers.h"

namespace corvane::test {
namespace {

int16_t CORVANE_STDCALL AnswerPrompt(char* extension, char* title, char* buffer, int32_t size,
                                     int32_t flags, char* caption) {
    FakePrompt::questions.push_back({system::WideFromAnsi(extension), system::WideFromAnsi(title),
                                     system::WideFromAnsi(buffer), system::WideFromAnsi(caption),
                                     flags, system::CurrentDirectory(), shell.suppressListEvents});
    if (FakePrompt::answers.empty()) return 0;
    const std::string answer = system::AnsiFromWide(FakePrompt::answers.front());
    FakePrompt::answers.erase(FakePrompt::answers.begin());
    std::memset(buffer, 0, static_cast<size_t>(size));
    answer.copy(buffer, static_cast<size_t>(size));
    return -1;
}

int16_t CORVANE_STDCALL RunNothing(const char* commandLine, int16_t windowStyle) {
    FakeProgram::commandLines.push_back(system::WideFromAnsi(commandLine));
    FakeProgram::windowStyle = windowStyle;
    FakeProgram::wasLocked = FakeView::locked;
    FakeProgram::statusLine = RecordedReports::caption;
    FakeProgram::deed();
    return FakeProgram::result;
}

}  // namespace

std::vector<std::wstring> FakePrompt::answers;
std::vector<FakePrompt::Question> FakePrompt::questions;

FakePrompt::FakePrompt(std::initializer_list<std::wstring> given)
    : fake(ZTUtilPromptForName, AnswerPrompt) {
    answers = given;
    questions.clear();
}

std::vector<std::wstring> FakeProgram::commandLines;
int16_t FakeProgram::windowStyle;
int16_t FakeProgram::result;
bool FakeProgram::wasLocked;
std::wstring FakeProgram::statusLine;
void (*FakeProgram::deed)();

FakeProgram::FakeProgram(void (*what)()) : fake(ShellAndWait, RunNothing) {
    commandLines.clear();
    windowStyle = -1;
    result = -1;
    wasLocked = false;
    statusLine.clear();
    deed = what;
}

CommandTest::CommandTest() {
    for (const std::wstring& path : {programs, work, browse}) {
        EXPECT_EQ(system::MakeDirectory(StripTrailingBackslash(path)), system::kErrorNone);
    }
    shell.settings.DataDirectory = programs;
    shell.settings.WorkDirectory = work;
    shell.settings.BrowseDirectory = browse;
}

std::wstring CommandTest::Make(std::wstring_view name, const std::vector<ModelKind>& kinds) const {
    const std::wstring path = File(name);
    BasicShipData bsd = NewBasicShipData(L"SHIP");
    for (const int item : {1, 2, 3, 9}) bsd.MainData(item) = 10;
    EXPECT_TRUE(CreateDatabaseFile(path, bsd));
    int number = 0;
    for (const ModelKind kind : kinds) Append(path, ModelText(++number, kind));
    return path;
}

void CommandTest::MakeOpen(std::wstring_view name, const std::vector<ModelKind>& kinds) const {
    shell.database.path = Make(name, kinds);
    EXPECT_TRUE(LoadBsdFromDatabase(shell.database.path, shell.database.bsd));
    shell.database.currentModel = 1;
    RecordedReports::events.clear();
}

void CommandTest::Install(std::wstring_view program) const {
    WriteFileBytes(programs + std::wstring(program), "");
}

testing::AssertionResult CommandTest::OnlyWarning(std::string_view text) {
    const std::vector<std::string> warnings = Warnings();
    if (warnings.size() == 1 && warnings[0].find(text) != std::string::npos) {
        return testing::AssertionSuccess();
    }
    auto failure = testing::AssertionFailure() << warnings.size() << " warnings:";
    for (const std::string& warning : warnings) failure << "\n" << warning;
    return failure << "\nand not one with: " << text;
}

std::string ModelText(int number, ModelKind kind) {
    SampleBlock block;
    block.number = PrintForm(number);
    block.keyword = KeywordOfKind(kind);
    return BlockText(block);
}

void Append(const std::wstring& path, const std::string& text) {
    WriteFileBytes(path, ReadFileBytes(path) + text);
}

}  // namespace corvane::test
