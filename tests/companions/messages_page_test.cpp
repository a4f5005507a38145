// docs/messages.md is composed from the sources of the two catalogues; this test keeps it so.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

// A text as a code span in a cell of a table.
std::string CodeSpan(std::string_view text) {
    std::string span = "`";
    for (const char character : text) {
        switch (character) {
            case '|':
                span += "\\|";
                break;
            case '\t':
                span += "\\t";
                break;
            case '\r':
                span += "\\r";
                break;
            case '\n':
                span += "\\n";
                break;
            default:
                span += character;
        }
    }
    return span + '`';
}

std::string MessageRow(int32_t number, const char* meaning, const char* arguments,
                       const char* text) {
    return "| " + std::to_string(number) + " | " + meaning + " | " + arguments + " | " +
           CodeSpan(text) + " |\n";
}

std::string LabelRow(int32_t number, const char* meaning, const char* text) {
    return "| " + std::to_string(number) + " | " + meaning + " | " + CodeSpan(text) + " |\n";
}

std::string ComposePage() {
    std::string page =
        "# Messages and labels\n"
        "\n"
        "The texts of our own `GrVelk.dll` and `BsdVelk.dll`, from "
        "`companions/grvelk/messages.txt` and `companions/bsdvelk/labels.txt`. Change them there; "
        "a unit test then writes this page again and reports where it is.\n"
        "\n"
        "In a text `¤` is the mark of the next argument, `²` a line break and `§` a tab; a doubled "
        "`²` or `§` is the character itself. `\\t` is a real tab, in lines of files only.\n"
        "\n"
        "## Messages\n"
        "\n"
        "| Number | What it is for | Arguments | Text |\n"
        "|---|---|---|---|\n";
#define MESSAGE(number, meaning, arguments, text) \
    page += MessageRow(number, meaning, arguments, text);
#include "companions/grvelk/messages.txt"
#undef MESSAGE
    page +=
        "\n"
        "## Labels of the Basic Ship Data\n"
        "\n"
        "| Number | What it is for | Text |\n"
        "|---|---|---|\n";
#define LABEL(number, meaning, text) page += LabelRow(number, meaning, text);
#include "companions/bsdvelk/labels.txt"
#undef LABEL
    return page;
}

TEST(MessagesPageTest, IsWhatTheCataloguesSay) {
    const std::string expected = ComposePage();
    if (test::ReadFileBytes(test::DataPath("../docs/messages.md")) == expected) return;
    const std::wstring path = system::TemporaryDirectory() + L"messages.md";
    test::WriteFileBytes(path, expected);
    FAIL() << "docs/messages.md is out of date; the page as it should be is " << test::Narrow(path);
}

}  // namespace
}  // namespace corvane
