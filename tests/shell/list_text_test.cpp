// The list as text, as HTML and as comma separated values: what is shown, in the order in which it
// is shown.
#include "shell/list_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/list_order.h"
#include "shell/new_file.h"
#include "shell/open_database.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/shown_database.h"

namespace corvane {
namespace {

using test::Block;
using test::FakeView;

// Three models: a section with the marks of all formats in its name, a bulkhead arrangement, and a
// torsion model without a position.
struct ThreeModels : test::ShownDatabase {
    ThreeModels() {
        test::DefineBsd();
        Open("DATABASE\r\n" + Block(1, "SECTION", "Hold 4, \"x\" <b> & \xE9\ty", " 5.5 ") +
             Block(2, "BHA", "Aft", " 30 ") + Block(3, "TORSION", "T", " -1 "));
        RefreshMainWindow();
    }
    std::string Csv() const {
        const std::wstring path = folder.File(L"list.csv");
        EXPECT_EQ(WriteTextFile(path, WriteListAsCsv), system::kErrorNone);
        return test::ReadFileBytes(path);
    }
};

// The value of a line of the clipboard's head.
size_t OffsetOf(const std::string& html, const std::string& name) {
    return std::stoul(html.substr(html.find(name + ':') + name.size() + 1, 10));
}

TEST(ListTextTest, TextHasTitlesAndTabs) {
    const ThreeModels window;
    EXPECT_EQ(ListAsText(),
              L"Name\tX\tId\tType\tFrame\r\n"
              L"Hold 4, \"x\" <b> & \u00E9 y\t5.500\t1\tSection\t\r\n"
              L"Aft\t30.000\t2\tBulkhead\t\r\n"
              L"T\t\t3\tTorsion\t\r\n");
    EXPECT_EQ(ListedCount(), 3);
}

TEST(ListTextTest, LinesAreThoseThatAreShownInTheirOrder) {
    const ThreeModels window;
    RunCommand(ME_ViewSortName);
    EXPECT_TRUE(ListAsText().starts_with(L"Name\tX\tId\tType\tFrame\r\nAft\t"));
    SetListFilter(L"torsion");
    ArrangeLines();
    EXPECT_EQ(ListAsText(), L"Name\tX\tId\tType\tFrame\r\nT\t\t3\tTorsion\t\r\n");
}

TEST(ListTextTest, OfSeveralSelectedLinesTheseAloneAreListed) {
    const ThreeModels window;
    FakeView::selected = 2;
    EXPECT_EQ(ListedCount(), 3) << "one selected line is where the user is, no choice";
    FakeView::alsoSelected = {0};
    EXPECT_EQ(ListedCount(), 2);
    EXPECT_EQ(ListAsText().find(L"Aft"), std::wstring::npos);
}

TEST(ListTextTest, CsvQuotesWhatNeedsIt) {
    const ThreeModels window;
    EXPECT_EQ(window.Csv(),
              "\xEF\xBB\xBF"
              "Name,X,Id,Type,Frame\r\n"
              "\"Hold 4, \"\"x\"\" <b> & \xC3\xA9\ty\",5.500,1,Section,\r\n"
              "Aft,30.000,2,Bulkhead,\r\n"
              "T,,3,Torsion,\r\n");
}

TEST(ListTextTest, HtmlIsATableWithTheOffsetsOfTheClipboard) {
    const ThreeModels window;
    const std::string html = ListAsHtml();
    const size_t start = OffsetOf(html, "StartFragment");
    const std::string fragment = html.substr(start, OffsetOf(html, "EndFragment") - start);
    EXPECT_EQ(fragment,
              "<table>\r\n"
              "<tr><th>Name</th><th>X</th><th>Id</th><th>Type</th><th>Frame</th></tr>\r\n"
              "<tr><td>Hold 4, \"x\" &lt;b&gt; &amp; \xC3\xA9 y</td><td>5.500</td><td>1</td>"
              "<td>Section</td><td></td></tr>\r\n"
              "<tr><td>Aft</td><td>30.000</td><td>2</td><td>Bulkhead</td><td></td></tr>\r\n"
              "<tr><td>T</td><td></td><td>3</td><td>Torsion</td><td></td></tr>\r\n"
              "</table>");
    EXPECT_TRUE(html.starts_with("Version:0.9\r\nStartHTML:"));
    EXPECT_EQ(html.substr(OffsetOf(html, "StartHTML"), 6), "<html>");
    EXPECT_EQ(OffsetOf(html, "EndHTML"), html.size());
    EXPECT_TRUE(html.substr(0, start).ends_with("<!--StartFragment-->"));
    EXPECT_EQ(html.substr(OffsetOf(html, "EndFragment"), 18), "<!--EndFragment-->");
}

// ---- The commands ------------------------------------------------------------------------------

struct ListCommands : test::CommandTest {
    ListCommands() {
        MakeOpen(L"ship.ve2", {ModelKind::kSection, ModelKind::kTorsion});
        RefreshMainWindow();
    }
};

TEST_F(ListCommands, CopyPutsTextAndHtmlOnTheClipboardAndSaysSo) {
    RunCommand(ME_EditCopyList);
    EXPECT_EQ(FakeView::copied, ListAsText());
    EXPECT_EQ(FakeView::copiedHtml, ListAsHtml());
    EXPECT_EQ(test::RecordedReports::caption, L"On the clipboard: 2 lines of the list");
    shell.view.copyText = [](const std::wstring&, const std::string&) { return false; };
    RunCommand(ME_EditCopyList);
    EXPECT_TRUE(OnlyWarning("another program is using the clipboard"));
}

TEST_F(ListCommands, ExportWritesTheFileThatIsAskedForAndSaysSo) {
    const test::FakePrompt prompt{File(L"list.csv")};
    RunCommand(ME_FileExportList);
    const test::FakePrompt::Question& asked = test::FakePrompt::questions.at(0);
    EXPECT_EQ(asked.proposed, L"ship.csv");
    EXPECT_EQ(asked.extension, L"csv");
    EXPECT_EQ(asked.caption, L"Export list");
    EXPECT_EQ(asked.flags, -1);
    const std::string bytes = test::ReadFileBytes(File(L"list.csv"));
    EXPECT_TRUE(bytes.starts_with("\xEF\xBB\xBFName,X,Id,Type,Frame\r\n"));
    EXPECT_EQ(std::ranges::count(bytes, '\n'), 3);
    EXPECT_EQ(test::RecordedReports::caption,
              L"2 lines of the list written to '" + File(L"list.csv") + L"'");
}

TEST_F(ListCommands, ExportThatFailsLeavesTheOldFile) {
    test::WriteFileBytes(File(L"list.csv"), "old");
    {
        const test::NoTemporaryFolder none;
        const test::FakePrompt prompt{File(L"list.csv")};
        RunCommand(ME_FileExportList);
    }
    EXPECT_TRUE(OnlyWarning("list.csv"));
    EXPECT_EQ(test::ReadFileBytes(File(L"list.csv")), "old");
}

TEST_F(ListCommands, ExportNeverReplacesTheOpenDatabase) {
    const std::string before = test::ReadFileBytes(File(L"ship.ve2"));
    const test::FakePrompt prompt{File(L"ship.ve2")};
    RunCommand(ME_FileExportList);
    EXPECT_EQ(Warnings().size(), 1U);
    EXPECT_EQ(test::ReadFileBytes(File(L"ship.ve2")), before);
}

TEST_F(ListCommands, CancelledExportWritesNothing) {
    const test::FakePrompt prompt;
    const std::vector<std::wstring> before = test::FilesIn(folder.path);
    RunCommand(ME_FileExportList);
    EXPECT_EQ(test::FilesIn(folder.path), before);
    EXPECT_TRUE(Warnings().empty());
}

}  // namespace
}  // namespace corvane
