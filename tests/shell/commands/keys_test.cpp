// The keys of the commands, and the table of them in docs/keyboard.md.
#include "shell/commands/keys.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/system.h"
#include "shell/commands/commands.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"
#include "text/text.h"

namespace corvane {
namespace {

using test::Narrow;

TEST(Keys, TextNamesModifiersAndKey) {
    EXPECT_EQ(KeyText({}), L"");
    EXPECT_EQ(KeyText({.code = 'S', .control = true}), L"Ctrl+S");
    EXPECT_EQ(KeyText({.code = 'S', .control = true, .shift = true}), L"Ctrl+Shift+S");
    EXPECT_EQ(KeyText({.code = kEnterKey, .alt = true}), L"Alt+Enter");
    EXPECT_EQ(KeyText({.code = kDeleteKey}), L"Del");
    EXPECT_EQ(KeyText({.code = kF1Key}), L"F1");
    EXPECT_EQ(KeyText({.code = kF6Key, .shift = true}), L"Shift+F6");
}

TEST(Keys, KeyOfTheListActsThereAlone) {
    const Key key{.code = kDeleteKey, .reach = KeyReach::kList};
    EXPECT_TRUE(Acts(key, FocusOn::kList));
    EXPECT_FALSE(Acts(key, FocusOn::kTextField));
    EXPECT_FALSE(Acts(key, FocusOn::kOther));
}

TEST(Keys, KeyThatFieldsUseDoesNotActInThem) {
    const Key key{.code = 'Z', .control = true, .reach = KeyReach::kNotText};
    EXPECT_TRUE(Acts(key, FocusOn::kList));
    EXPECT_FALSE(Acts(key, FocusOn::kTextField));
    EXPECT_TRUE(Acts(key, FocusOn::kOther));
}

// What a field does with Ctrl and a letter, and with Delete and Enter, no command takes from it.
TEST(Keys, NoCommandTakesTheKeysOfTextFields) {
    const Key own[] = {{.code = 'A', .control = true}, {.code = 'C', .control = true},
                       {.code = 'V', .control = true}, {.code = 'X', .control = true},
                       {.code = 'Y', .control = true}, {.code = 'Z', .control = true},
                       {.code = kDeleteKey},           {.code = kEnterKey}};
    for (const Key& key : own) {
        const Command* command = FindCommand(key);
        if (command == nullptr) continue;
        EXPECT_FALSE(Acts(command->key, FocusOn::kTextField)) << command->name;
    }
}

TEST(Keys, EachKeyHasOneCommand) {
    EXPECT_EQ(FindCommand(Key{}), nullptr);
    for (const Command& command : Commands()) {
        if (command.key.code == kNoKey) continue;
        EXPECT_EQ(FindCommand(command.key), &command) << command.name;
    }
}

TEST(Keys, ModifiersAreCompared) {
    EXPECT_EQ(FindCommand(Key{.code = 'N', .control = true})->id, ME_FileNew);
    EXPECT_EQ(FindCommand(Key{.code = 'N'}), nullptr);
    EXPECT_EQ(FindCommand(Key{.code = 'N', .control = true, .shift = true}), nullptr);
    EXPECT_EQ(FindCommand(Key{.code = kEnterKey})->id, ME_SectionInput);
    EXPECT_EQ(FindCommand(Key{.code = kEnterKey, .alt = true})->id, ME_SectionProperties);
}

TEST(Keys, MenusShowTheKeyAfterTheCaption) {
    const test::FakeView screen;
    EXPECT_EQ(CaptionNow(*FindCommand(ME_FileNew)), L"&New database...\tCtrl+N");
    EXPECT_EQ(CaptionNow(*FindCommand(ME_FileQuit)), L"&Quit");
    shell.history.undoName = L"Delete of 'A & B'";
    EXPECT_EQ(CaptionNow(*FindCommand(ME_EditUndo)), L"&Undo Delete of 'A && B'\tCtrl+Z");
}

TEST(Keys, F6GoesToTheNextPaneAndWithShiftToTheOneBefore) {
    const test::FakeView screen;
    RunCommand(FindCommand(Key{.code = kF6Key})->id);
    RunCommand(FindCommand(Key{.code = kF6Key, .shift = true})->id);
    EXPECT_TRUE(test::RecordedReports::Happened("next pane"));
    EXPECT_TRUE(test::RecordedReports::Happened("previous pane"));
}

// ---- docs/keyboard.md --------------------------------------------------------------------------

const char* Where(KeyReach reach) {
    if (reach == KeyReach::kList) return "in the list of models";
    return reach == KeyReach::kNotText ? "everywhere but in a field for typing" : "everywhere";
}

std::string MenuOf(const Command& command) {
    if (command.menu == Menu::kNone) return "";
    return Narrow(MenuCaptionText(MenuCaption(command.menu))) + " > ";
}

std::string ComposeTable() {
    std::string table = "| Key | Command | Where |\n|---|---|---|\n";
    for (const Command& command : Commands()) {
        if (command.key.code == kNoKey) continue;
        table += "| " + Narrow(KeyText(command.key)) + " | " + MenuOf(command) +
                 Narrow(MenuCaptionText(command.caption)) + " | " + Where(command.key.reach) +
                 " |\n";
    }
    return table;
}

TEST(Keys, PageHasTheTableOfTheCommands) {
    const std::string page = test::ReadFileBytes(test::DataPath("../docs/keyboard.md"));
    const std::string table = ComposeTable();
    if (page.find("\n\n" + table + "\n") != std::string::npos) return;
    const std::wstring path = system::TemporaryDirectory() + L"keys.md";
    test::WriteFileBytes(path, table);
    FAIL() << "docs/keyboard.md has another table of keys; it should be as in " << Narrow(path);
}

}  // namespace
}  // namespace corvane
