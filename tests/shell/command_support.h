// For the tests of commands: a window that records, a file prompt that answers, programs that do
// what the test says, and small databases.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/model_kind.h"
#include "platform/ztutil32.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane::test {

// A file prompt that gives these answers, one after the other, and then cancels. A test may look
// at what was asked.
struct FakePrompt {
    struct Question {
        std::wstring extension, types, proposed, caption;
        int32_t flags = 0;
        std::wstring directory;  // the current one
        bool suppressListEvents = false;
    };
    static std::vector<std::wstring> answers;
    static std::vector<Question> questions;
    FakeFunction<decltype(ZTUtilPromptForName)> fake;
    explicit FakePrompt(std::initializer_list<std::wstring> given = {});
};

// Replaces every program: notes the command line and the window's lock, and does what the test
// says.
struct FakeProgram {
    static std::vector<std::wstring> commandLines;
    static int16_t windowStyle;
    static int16_t result;
    static bool wasLocked;
    static std::wstring statusLine;
    static void (*deed)();
    FakeFunction<decltype(ShellAndWait)> fake;
    explicit FakeProgram(void (*what)() = [] {});
};

// A test of commands: its own folders for programs, work, browsing and databases, each ending
// with "\".
struct CommandTest : testing::Test {
    FakeView view;
    TemporaryFolder folder;
    KeepCurrentDirectory keeper;
    std::wstring programs = folder.File(L"Velk data\\");
    std::wstring work = folder.File(L"work\\");
    std::wstring browse = folder.File(L"browse\\");

    CommandTest();

    // The path of a file in the test's folder.
    std::wstring File(std::wstring_view name) const { return folder.File(name); }
    // Makes a database of these models in the test's folder, and returns its path.
    std::wstring Make(std::wstring_view name, const std::vector<ModelKind>& kinds = {}) const;
    // The same, and opens it, with valid data of a ship named "SHIP".
    void MakeOpen(std::wstring_view name, const std::vector<ModelKind>& kinds = {}) const;
    // An empty file in the programs' folder, so that the program is there.
    void Install(std::wstring_view program) const;

    // The warning boxes that were shown, and whether there was exactly one that holds `text`.
    static std::vector<std::string> Warnings() { return RecordedReports::Of("warning"); }
    static testing::AssertionResult OnlyWarning(std::string_view text);
};

// What a command that does nothing leaves as it is.
struct Before {
    std::wstring databasePath = shell.database.path;
    std::wstring browseDirectory = shell.settings.BrowseDirectory;
    BasicShipData bsd = shell.database.bsd;
    int32_t currentModel = shell.database.currentModel;

    bool IsUnchanged() const {
        return shell.database.path == databasePath && shell.database.bsd == bsd &&
               shell.settings.BrowseDirectory == browseDirectory &&
               shell.database.currentModel == currentModel && RecordedReports::Of("rows").empty();
    }
};

// A block of a model as text.
std::string ModelText(int number, ModelKind kind);
// Appends text to a file.
void Append(const std::wstring& path, const std::string& text);

}  // namespace corvane::test
