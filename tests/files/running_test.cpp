#include "files/running.h"

#include <gtest/gtest.h>

#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/reporters.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeFunction;
using test::KeepCurrentDirectory;
using test::Narrow;
using test::RecordedReports;
using test::TemporaryFolder;
using Events = std::vector<std::string>;

// ---- Running a program -------------------------------------------------------------------------

// What the library's procedure saw when it was called.
struct SeenCall {
    std::string commandLine;
    int16_t windowStyle = -99;
    bool childRunning = false;
    std::wstring directory;
    Events events;
};
SeenCall seen;

// Whether a program runs, as RunAndWait has it.
bool childRunning = false;

RunResult RunProgram(const std::wstring& commandLine, int16_t windowStyle,
                     const std::wstring& workDir = {}) {
    return RunAndWait(commandLine, windowStyle, childRunning, workDir);
}

// The letters that these bytes are on the system's code page, whichever it is.
std::wstring Word() {
    return system::WideFromAnsi("\xE9t\xE9");
}

template <int16_t result>
int16_t CORVANE_STDCALL Witness(const char* commandLine, int16_t windowStyle) {
    seen = {commandLine, windowStyle, childRunning, system::CurrentDirectory(),
            RecordedReports::events};
    return result;
}

TEST(RunAndWait, LibraryGetsTheCommandLineAsAnsiAndTheWindowStyle) {
    const RecordedReports screen;
    const FakeFunction fake(ShellAndWait, Witness<-1>);
    EXPECT_TRUE(RunProgram(L"C:\\My " + Word() + L"\\bhm.exe \"a b\" 12", 7).HasRun());
    EXPECT_EQ(seen.commandLine, "C:\\My \xE9t\xE9\\bhm.exe \"a b\" 12");
    EXPECT_EQ(seen.windowStyle, 7);
}

TEST(RunAndWait, AnyNonZeroResultIsTrue) {
    const RecordedReports screen;
    const FakeFunction fake(ShellAndWait, Witness<1>);
    const RunResult result = RunProgram(L"a.exe", 0);
    EXPECT_TRUE(result.HasRun());
    EXPECT_FALSE(result.crashed);
}

TEST(RunAndWait, CrashIsDistinguishedFromAnEnd) {
    const RecordedReports screen;
    const FakeFunction fake(ShellAndWait, Witness<kProgramCrashed>);
    const RunResult result = RunProgram(L"a.exe", 0);
    EXPECT_TRUE(result.HasRun());
    EXPECT_TRUE(result.crashed);
    EXPECT_FALSE(childRunning);
}

// A library that leaves the system's reason, as ours does: it fails to make a file again.
std::wstring takenName;
int16_t CORVANE_STDCALL FailWithAReason(const char*, int16_t) {
    system::File file;
    EXPECT_EQ(system::CreateNewForWriting(takenName, file), system::kErrorFileExists);
    return 0;
}

TEST(RunAndWait, ReasonOfTheSystemIsReported) {
    const RecordedReports screen;
    const TemporaryFolder folder;
    takenName = folder.File(L"taken");
    test::WriteFileBytes(takenName, "");
    const FakeFunction fake(ShellAndWait, FailWithAReason);
    EXPECT_EQ(RunProgram(L"a.exe", 0).error, system::kErrorFileExists);
}

TEST(RunAndWait, LibraryThatGivesNoReasonHasNotFoundTheProgram) {
    const RecordedReports screen;
    const FakeFunction fake(ShellAndWait, Witness<0>);
    EXPECT_EQ(RunProgram(L"a.exe", 0).error, system::kErrorFileNotFound);
}

TEST(RunAndWait, ChildIsRunningAndPointerBusyExactlyDuringTheRun) {
    const RecordedReports screen;
    const FakeFunction fake(ShellAndWait, Witness<-1>);
    EXPECT_TRUE(RunProgram(L"a.exe", 1).HasRun());
    EXPECT_TRUE(seen.childRunning);
    EXPECT_EQ(seen.events, (Events{"pointer busy"}));
    EXPECT_FALSE(childRunning);
    EXPECT_EQ(RecordedReports::events, (Events{"pointer busy", "pointer reset"}));
}

TEST(RunAndWait, WorkDirIsCurrentDuringTheRunOnly) {
    const RecordedReports screen;
    const KeepCurrentDirectory keeper;
    const TemporaryFolder start;
    const TemporaryFolder folder;
    ChangeToDirectory(start.path);
    const FakeFunction fake(ShellAndWait, Witness<-1>);
    EXPECT_TRUE(RunProgram(L"a.exe", 1, folder.path).HasRun());
    EXPECT_EQ(Narrow(seen.directory), Narrow(StripTrailingBackslash(folder.path)));
    EXPECT_EQ(Narrow(system::CurrentDirectory()), Narrow(StripTrailingBackslash(start.path)));
}

TEST(RunAndWait, WithoutWorkDirTheCurrentDirectoryStays) {
    const RecordedReports screen;
    const FakeFunction fake(ShellAndWait, Witness<-1>);
    const std::wstring before = system::CurrentDirectory();
    EXPECT_TRUE(RunProgram(L"a.exe", 1).HasRun());
    EXPECT_EQ(seen.directory, before);
    EXPECT_EQ(system::CurrentDirectory(), before);
}

TEST(RunAndWait, MissingWorkDirRunsTheProgramWhereItIs) {
    const RecordedReports screen;
    const KeepCurrentDirectory keeper;
    const TemporaryFolder folder;
    ChangeToDirectory(folder.path);
    const FakeFunction fake(ShellAndWait, Witness<-1>);
    const std::wstring before = system::CurrentDirectory();
    EXPECT_TRUE(RunProgram(L"a.exe", 1, folder.File(L"none")).HasRun());
    EXPECT_EQ(seen.directory, before);
    EXPECT_EQ(system::CurrentDirectory(), before);
}

TEST(RunAndWait, FailureShowsNothingAndPutsEverythingBack) {
    const RecordedReports screen;
    const TemporaryFolder folder;
    const FakeFunction fake(ShellAndWait, Witness<0>);
    const std::wstring before = system::CurrentDirectory();
    childRunning = true;  // left over
    EXPECT_FALSE(RunProgram(L"a.exe", 1, folder.path).HasRun());
    EXPECT_EQ(RecordedReports::events, (Events{"pointer busy", "pointer reset"}));
    EXPECT_FALSE(childRunning);
    EXPECT_EQ(system::CurrentDirectory(), before);
}

TEST(RunAndWait, FailureIsReportedInDebugMode) {
    const RecordedReports screen;
    const FakeFunction fake(ShellAndWait, Witness<0>);
    RecordedReports::debugMode = true;
    EXPECT_FALSE(RunProgram(L"C:\\none\\none.exe /d a b", 1).HasRun());
    ASSERT_EQ(RecordedReports::Of("plain").size(), 1U);
    const std::string expected = "ExShell (C:\\none\\none.exe /d a b) 2 ";
    EXPECT_EQ(RecordedReports::Of("plain")[0].substr(0, expected.size()), expected);
    EXPECT_EQ(RecordedReports::events.back().substr(0, 5), "plain");
}

TEST(RunAndWait, ProgramThatIsMissingIsNotStarted) {
    const RecordedReports screen;
    const TemporaryFolder folder;
    EXPECT_FALSE(RunProgram(folder.File(L"none.exe") + L" a b", 1).HasRun());
    EXPECT_FALSE(RunProgram(L"", 0).HasRun());
    EXPECT_FALSE(childRunning);
}

// ---- The file prompt ---------------------------------------------------------------------------

struct SeenPrompt {
    std::string defaultExtension, title, name, caption;
    int32_t size = 0, flags = 0;
};
SeenPrompt seenPrompt;

int16_t CORVANE_STDCALL AnswerWithName(char* defaultExtension, char* title, char* buffer,
                                       int32_t size, int32_t flags, char* caption) {
    seenPrompt = {defaultExtension, title, buffer, caption, size, flags};
    const std::string name("C:\\d\xE9\\ship.ve2\0behind", 22);
    name.copy(buffer, name.size());
    std::string("ve3\0", 4).copy(defaultExtension, 4);
    std::string("New title\0", 10).copy(title, 10);
    std::string("New caption\0", 12).copy(caption, 12);
    return 1;
}

int16_t CORVANE_STDCALL Cancel(char*, char*, char*, int32_t, int32_t, char*) {
    return 0;
}

// Fills everything that it was given, as a careless library would.
int16_t CORVANE_STDCALL FillTheBuffer(char*, char*, char* buffer, int32_t size, int32_t, char*) {
    std::fill_n(buffer, size, 'n');
    return -1;
}

std::wstring AnsweredName() {
    return system::WideFromAnsi("C:\\d\xE9\\ship.ve2");
}

FilePrompt SavePrompt() {
    return {L"ve2", L"C:\\" + Word() + L".ve2", L"Save DB as...", L"Hull databases", -1};
}

TEST(PromptForFileName, LibraryGetsAllTextsAsAnsi) {
    const FakeFunction fake(ZTUtilPromptForName, AnswerWithName);
    FilePrompt prompt = SavePrompt();
    EXPECT_EQ(Narrow(PromptForFileName(prompt)), Narrow(AnsweredName()));
    EXPECT_EQ(seenPrompt.defaultExtension, "ve2");
    EXPECT_EQ(seenPrompt.name, "C:\\\xE9t\xE9.ve2");
    EXPECT_EQ(seenPrompt.caption, "Save DB as...");
    EXPECT_EQ(seenPrompt.title, "Hull databases");
    EXPECT_EQ(seenPrompt.size, 400);
    EXPECT_EQ(seenPrompt.flags, -1);
}

TEST(PromptForFileName, WhatTheLibraryChangedComesBack) {
    const FakeFunction fake(ZTUtilPromptForName, AnswerWithName);
    FilePrompt prompt = SavePrompt();
    PromptForFileName(prompt);
    EXPECT_EQ(prompt.defaultExtension, L"ve3");
    EXPECT_EQ(prompt.title, L"New title");
    EXPECT_EQ(prompt.caption, L"New caption");
    EXPECT_EQ(Narrow(prompt.fileName), Narrow(AnsweredName()));
}

TEST(PromptForFileName, CancelGivesAnEmptyName) {
    const FakeFunction fake(ZTUtilPromptForName, Cancel);
    FilePrompt prompt = SavePrompt();
    EXPECT_EQ(PromptForFileName(prompt), L"");
    EXPECT_EQ(prompt.fileName, SavePrompt().fileName);
    EXPECT_EQ(prompt.title, L"Hull databases");
}

TEST(PromptForFileName, TextsOfAnyLengthFit) {
    const FakeFunction fake(ZTUtilPromptForName, Cancel);
    FilePrompt prompt = SavePrompt();
    prompt.title = std::wstring(1000, L't');
    prompt.fileName = std::wstring(1000, L'f');
    EXPECT_EQ(PromptForFileName(prompt), L"");
    EXPECT_EQ(prompt.title, std::wstring(1000, L't'));
    EXPECT_EQ(prompt.fileName, std::wstring(399, L'f'));  // the buffer has room for the NUL besides
}

TEST(PromptForFileName, BufferWithoutANulIsUsedWhole) {
    const FakeFunction fake(ZTUtilPromptForName, FillTheBuffer);
    FilePrompt prompt = SavePrompt();
    EXPECT_EQ(PromptForFileName(prompt), std::wstring(400, L'n'));
}

}  // namespace
}  // namespace corvane
