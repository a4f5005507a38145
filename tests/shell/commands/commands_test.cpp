#include "shell/commands/commands.h"

#include <gtest/gtest.h>

#include <cwctype>
#include <set>
#include <string>
#include <vector>

#include "shell/open_database.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/shown_database.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

constexpr ModelKind kKinds[] = {ModelKind::kSection, ModelKind::kBulkhead, ModelKind::kTorsion};

// The letter after the first "&", in lower case; 0 without one.
wchar_t KeyboardLetter(const std::wstring& caption) {
    const size_t mark = caption.find(L'&');
    if (mark == std::wstring::npos || mark + 1 >= caption.size()) return 0;
    return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(caption[mark + 1])));
}

void ExpectDifferentLetters(const std::vector<std::wstring>& captions) {
    std::set<wchar_t> letters;
    for (const std::wstring& caption : captions) {
        const wchar_t letter = KeyboardLetter(caption);
        EXPECT_NE(letter, 0) << test::Narrow(caption);
        EXPECT_TRUE(letters.insert(letter).second) << test::Narrow(caption);
    }
}

// Captions of a menu's items, a separator as "-".
std::vector<std::wstring> Items(Menu menu) {
    std::vector<std::wstring> captions;
    for (const Command& command : Commands()) {
        if (command.menu == menu) captions.push_back(command.id == 0 ? L"-" : command.caption);
    }
    return captions;
}

using Captions = std::vector<std::wstring>;

TEST(Commands, MenusHaveTheirItemsInOrder) {
    EXPECT_EQ(Items(Menu::kFile),
              (Captions{L"&New database...", L"&Open database...", L"&Save database as...",
                        L"Save as &Velk Dos...", L"&Earlier versions...", L"&Check database...",
                        L"Co&mpare with...", L"Export &list...", L"Export &picture...",
                        L"E&xport all pictures...", L"Pr&int...", L"Print &all sections...",
                        L"Se&ttings...", L"-", L"&Quit"}));
    EXPECT_EQ(Items(Menu::kEdit), (Captions{L"&Undo", L"&Redo", L"-", L"&Find", L"Select &all",
                                            L"Copy l&ist", L"Copy &picture"}));
    EXPECT_EQ(Items(Menu::kView), (Captions{L"Sort by &name",
                                            L"Sort by &X",
                                            L"Sort by n&umber",
                                            L"Sort by &kind",
                                            L"Sort by &frame",
                                            L"File &order",
                                            L"&Descending",
                                            L"-",
                                            L"&Refresh",
                                            L"-",
                                            L"&Zoom in",
                                            L"Zoom ou&t",
                                            L"Fit to the &window",
                                            L"&Larger preview",
                                            L"-",
                                            L"Scale &bar",
                                            L"&Axes",
                                            L"Le&gend",
                                            L"Names of &panels",
                                            L"Numbers of nodes and &strakes",
                                            L"Th&ickness by colour",
                                            L"Table with pi&ctures",
                                            L"-",
                                            L"N&ext bulkhead"}));
    EXPECT_EQ(Items(Menu::kBsd), (Captions{L"&Open...", L"&Import..."}));
    EXPECT_EQ(Items(Menu::kCreate),
              (Captions{L"&Section...", L"&Bulkhead Arrangement", L"&Model for Torsion"}));
    EXPECT_EQ(
        Items(Menu::kSection),
        (Captions{L"&Edit...", L"&Rule...", L"-", L"&Copy...", L"&Delete...", L"-", L"&Import...",
                  L"E&xport to Velk Dos...", L"-", L"Re&name...", L"&Properties..."}));
    EXPECT_EQ(Items(Menu::kHelp), (Captions{L"&About...", L"Open the &sample ship...", L"-",
                                            L"&Contents", L"Copy &details", L"Open &log folder"}));
}

TEST(Commands, TopMenusAreInOrder) {
    Captions captions;
    for (int i = 0; i < kMenuCount; ++i) captions.emplace_back(MenuCaption(static_cast<Menu>(i)));
    EXPECT_EQ(captions,
              (Captions{L"&File", L"Ed&it", L"&View", L"&BSD", L"&Create", L"&Section", L"&Help"}));
}

TEST(Commands, SectionMenuIsNamedAfterTheKind) {
    for (const ModelKind kind : kKinds) {
        std::wstring caption = SectionMenuCaption(kind);
        std::erase(caption, L'&');
        EXPECT_EQ(caption, KindName(kind));
    }
}

TEST(Commands, LettersOfTopMenusDifferForEveryKind) {
    for (const ModelKind kind : kKinds) {
        Captions captions;
        for (int i = 0; i < kMenuCount; ++i) {
            const auto menu = static_cast<Menu>(i);
            captions.emplace_back(menu == Menu::kSection ? SectionMenuCaption(kind)
                                                         : MenuCaption(menu));
        }
        ExpectDifferentLetters(captions);
    }
}

TEST(Commands, LettersWithinAMenuDiffer) {
    for (int i = 0; i < kMenuCount; ++i) {
        Captions captions = Items(static_cast<Menu>(i));
        std::erase(captions, L"-");
        ExpectDifferentLetters(captions);
    }
}

TEST(Commands, EveryCommandHasItsOwnIdentifierAndNameAndCanBeRun) {
    std::set<std::string> names;
    for (const Command& command : Commands()) {
        if (command.id == 0) continue;
        EXPECT_EQ(FindCommand(command.id), &command) << command.name;
        EXPECT_TRUE(names.insert(command.name).second) << command.name;
        EXPECT_NE(command.run, nullptr) << command.name;
    }
}

TEST(Commands, SeparatorAndUnknownIdentifierAreNoCommands) {
    EXPECT_EQ(FindCommand(0), nullptr);
    EXPECT_EQ(FindCommand(1), nullptr);
    EXPECT_EQ(FindCommand(65535), nullptr);
}

TEST(Commands, QuitClosesTheWindow) {
    const test::FakeView screen;
    FindCommand(ME_FileQuit)->run();
    EXPECT_EQ(test::RecordedReports::events, std::vector<std::string>{"close"});
}

TEST(Commands, LockReachesTheWindow) {
    const test::ShownDatabase window;
    LockShell(true);
    LockShell(false);
    EXPECT_EQ(test::RecordedReports::events, (std::vector<std::string>{"lock", "unlock"}));
}

TEST(Commands, CommandThatIsMissingSaysSo) {
    const test::ShownDatabase window;
    NotImp();
    EXPECT_EQ(test::RecordedReports::Of("plain"), std::vector<std::string>{"not implemented"});
}

TEST(Commands, CommandsAreEnabledByTheState) {
    const test::ShownDatabase window;
    Command command{};
    const auto enabled = [&](EnabledWhen when, bool rowSelected) {
        command.enabledWhen = when;
        test::FakeView::selected = rowSelected ? 0 : -1;
        return IsEnabled(command);
    };
    EXPECT_TRUE(enabled(EnabledWhen::kAlways, false));
    EXPECT_FALSE(enabled(EnabledWhen::kDatabaseOpen, true));
    EXPECT_FALSE(enabled(EnabledWhen::kBsdDefined, true));
    EXPECT_FALSE(enabled(EnabledWhen::kModelSelected, false));
    EXPECT_TRUE(enabled(EnabledWhen::kModelSelected, true));
    shell.database.path = L"C:\\ship.ve2";
    EXPECT_TRUE(enabled(EnabledWhen::kDatabaseOpen, false));
    EXPECT_FALSE(enabled(EnabledWhen::kBsdDefined, false));
    test::DefineBsd();
    EXPECT_TRUE(enabled(EnabledWhen::kBsdDefined, false));
}

TEST(Commands, BsdMenuOpensWithADatabaseAndCreateMenuWithItsBsd) {
    const test::ShownDatabase window;
    EXPECT_TRUE(IsMenuEnabled(Menu::kFile));
    EXPECT_TRUE(IsMenuEnabled(Menu::kSection));
    EXPECT_TRUE(IsMenuEnabled(Menu::kHelp));
    EXPECT_FALSE(IsMenuEnabled(Menu::kBsd));
    EXPECT_FALSE(IsMenuEnabled(Menu::kCreate));
    shell.database.path = L"C:\\ship.ve2";
    EXPECT_TRUE(IsMenuEnabled(Menu::kBsd));
    EXPECT_FALSE(IsMenuEnabled(Menu::kCreate));
    test::DefineBsd();
    EXPECT_TRUE(IsMenuEnabled(Menu::kCreate));
}

}  // namespace
}  // namespace corvane
