#include "shell/command_line.h"

#include <gtest/gtest.h>

#include "tests/support/support.h"

namespace corvane {
namespace {

using test::Narrow;

struct SwitchCase {
    const char* behaviour;
    const wchar_t* line;
    const wchar_t* switchText;
    bool present;
    const wchar_t* rest;  // the line afterwards
};

TEST(SwitchPresent, Table) {
    const SwitchCase cases[] = {
        {"alone", L"/d", L"/d", true, L""},
        {"a blank after it", L"/d ship.ve2", L"/d", true, L"ship.ve2"},
        {"at the end", L"ship.ve2 /d", L"/d", true, L"ship.ve2"},
        {"between words", L"a /d b", L"/d", true, L"a    b"},
        {"upper case on the line", L"/D a", L"/d", true, L"a"},
        {"lower case on the line", L"/jbp", L"/JBP", true, L""},
        {"mixed case", L"a /MiL", L"/mil", true, L"a"},
        {"empty line", L"", L"/d", false, L""},
        {"not there", L"ship.ve2", L"/mil", false, L"ship.ve2"},
        {"the slash alone", L"/", L"/d", false, L"/"},
        {"one letter after it at the end", L"/dx", L"/d", true, L"x"},
        {"a name, and one letter after the switch", L"ship /dx", L"/d", true, L"ship   x"},
        {"a slash after it at the end", L"/d/", L"/d", true, L"/"},
        {"two letters after it", L"/dir", L"/d", false, L"/dir"},
        {"a letter and a blank after it", L"/dx ", L"/d", false, L"/dx "},
        {"a tab after it", L"/mil\tship", L"/mil", false, L"/mil\tship"},
        {"one tab after it at the end", L"/mil\t", L"/mil", true, L"\t"},
        {"two switches without a blank", L"/d/mil", L"/d", false, L"/d/mil"},
        {"nothing is required in front of it", L"ship/d a", L"/d", true, L"ship   a"},
        {"inside a path with a blank after it", L"C:/data/mil x", L"/mil", true, L"C:/data     x"},
        {"inside a path with backslashes", L"C:\\data\\mil\\x.ve2", L"/mil", false,
         L"C:\\data\\mil\\x.ve2"},
        {"inside a path with slashes", L"C:/data/mil/x.ve2", L"/mil", false, L"C:/data/mil/x.ve2"},
        {"first one judged alone", L"/dir /d", L"/d", false, L"/dir /d"},
        {"twice: the first goes", L"/mil a /mil", L"/mil", true, L"a /mil"},
        {"inside quotes", L"\"a /d b\"", L"/d", true, L"\"a    b\""},
        {"before a quote", L"\"ship /d\"", L"/d", true, L"\"ship   \""},
        {"blanks at both ends stay when it is absent", L"  a  ", L"/d", false, L"  a  "},
        {"blanks at both ends go with it", L"  a /d  ", L"/d", true, L"a"},
        {"letters beyond ASCII around it", L"É /d é", L"/d", true, L"É    é"},
    };
    for (const SwitchCase& each : cases) {
        SCOPED_TRACE(each.behaviour);
        std::wstring line = each.line;
        EXPECT_EQ(SwitchPresent(line, each.switchText), each.present);
        EXPECT_EQ(Narrow(line), Narrow(each.rest));
    }
}

struct ParseCase {
    const char* behaviour;
    const wchar_t* line;
    const wchar_t* file;
    bool debug;
    bool mil;
};

TEST(ParseCommandLine, Table) {
    const ParseCase cases[] = {
        {"nothing", L"", L"", false, false},
        {"only blanks", L"    ", L"", false, false},
        {"one word", L"ship.ve2", L"ship.ve2", false, false},
        {"blanks around a word", L"   ship.ve2   ", L"ship.ve2", false, false},
        {"two words", L"one.ve2 two.ve2", L"one.ve2", false, false},
        {"double quotes", L"\"C:\\my ships\\a.ve2\"", L"C:\\my ships\\a.ve2", false, false},
        {"single quotes", L"'C:\\my ships\\a.ve2'", L"C:\\my ships\\a.ve2", false, false},
        {"a word and a quoted one", L"one.ve2 \"two.ve2\"", L"two.ve2", false, false},
        {"double quotes before single ones", L"'one' \"two\"", L"two", false, false},
        {"a single quote between double ones", L"\"the captain's ship\"", L"the captain's ship",
         false, false},
        {"double closed by single", L"\"one' two", L"one", false, false},
        {"single opened, double closed: the double one counts", L"'one\" two", L" two", false,
         false},
        {"unclosed double quote", L"\"C:\\my ships\\a.ve2", L"C:\\my ships\\a.ve2", false, false},
        {"unclosed single quote", L"'my ship", L"my ship", false, false},
        {"unclosed quote after a word", L"one \"two three", L"two three", false, false},
        {"a lone quote", L"\"", L"", false, false},
        {"empty quotes", L"\"\"", L"", false, false},
        {"empty quotes before a word", L"\"\" one", L"", false, false},
        {"empty quotes before quotes", L"\"\"\"one\"", L"", false, false},
        {"quotes without a blank between", L"\"one\"\"two\"", L"one", false, false},
        {"quotes around a word's end", L"C:\\\"my ships\"\\a.ve2", L"my ships", false, false},
        {"blanks inside quotes stay", L"\"  a  \"", L"  a  ", false, false},
        {"a tab does not part words", L"one\ttwo", L"one\ttwo", false, false},
        {"debug", L"/d ship.ve2", L"ship.ve2", true, false},
        {"mil", L"ship.ve2 /mil", L"ship.ve2", false, true},
        {"both", L"/mil /d ship.ve2", L"ship.ve2", true, true},
        {"debug is removed before mil is judged", L"/mil/d", L"", true, true},
        {"both without a blank between are a word", L"/d/mil", L"/d", false, true},
        {"JBP is a word here", L"/JBP", L"/JBP", false, false},
        {"a longer switch is a word", L"/dir", L"/dir", false, false},
        {"mil twice: the second is a word", L"/mil /mil", L"/mil", false, true},
        {"a switch inside a path", L"C:\\data\\mil\\x.ve2", L"C:\\data\\mil\\x.ve2", false, false},
        {"a switch inside quotes", L"\"a /mil b\"", L"a      b", false, true},
        {"a letter after the switch is a word", L"/dx", L"x", true, false},
        {"letters beyond ASCII", L"\"C:\\Œuvre été\\ß.ve2\" /MIL", L"C:\\Œuvre été\\ß.ve2", false,
         true},
    };
    for (const ParseCase& each : cases) {
        SCOPED_TRACE(each.behaviour);
        bool debug = !each.debug;
        bool mil = !each.mil;
        std::vector<std::wstring> none;
        EXPECT_EQ(Narrow(ParseCommandLine(each.line, debug, mil, none)), Narrow(each.file));
        EXPECT_EQ(debug, each.debug);
        EXPECT_EQ(mil, each.mil);
        EXPECT_TRUE(none.empty());
    }
}

struct Parsed {
    bool debug = false;
    bool mil = false;
    std::wstring file;
    std::vector<std::wstring> further;
};

Parsed Parse(const std::wstring& line, size_t room = 0) {
    Parsed parsed;
    parsed.further.assign(room, L"untouched");
    parsed.file = ParseCommandLine(line, parsed.debug, parsed.mil, parsed.further);
    return parsed;
}

TEST(ParseCommandLine, UpperCaseSwitchSetsDebugModeAndTheNameIsOpened) {
    const Parsed parsed = Parse(L"/D ship.ve2");
    EXPECT_TRUE(parsed.debug);
    EXPECT_EQ(parsed.file, L"ship.ve2");
}

TEST(ParseCommandLine, SwitchFollowedByLettersIsNotFound) {
    EXPECT_FALSE(Parse(L"/dir").debug);
}

TEST(ParseCommandLine, SwitchFollowedByOneLastCharacterIsFound) {
    const Parsed parsed = Parse(L"ship.ve2 /dx");
    EXPECT_TRUE(parsed.debug);
    EXPECT_EQ(parsed.file, L"ship.ve2");
    EXPECT_TRUE(Parse(L"ship.ve2 /milx").mil);
}

TEST(ParseCommandLine, QuotedPathWithBlanksBeforeMil) {
    const Parsed parsed = Parse(L"\"C:\\my ships\\one two.ve2\" /mil");
    EXPECT_TRUE(parsed.mil);
    EXPECT_EQ(parsed.file, L"C:\\my ships\\one two.ve2");
}

TEST(ParseCommandLine, SingleQuotedNameAfterAWordWins) {
    EXPECT_EQ(Parse(L"one.ve2 'two.ve2'").file, L"two.ve2");
}

TEST(ParseCommandLine, FurtherArgumentsFillTheRoomThereIs) {
    const Parsed parsed = Parse(L"a \"b b\" c 'd'", 2);
    // Quoted ones first, double quotes before single ones, then the words.
    EXPECT_EQ(parsed.file, L"b b");
    EXPECT_EQ(parsed.further, (std::vector<std::wstring>{L"d", L"a"}));
}

TEST(ParseCommandLine, RoomWithoutAnArgumentStaysUntouched) {
    EXPECT_EQ(Parse(L"a b", 3).further,
              (std::vector<std::wstring>{L"b", L"untouched", L"untouched"}));
    EXPECT_EQ(Parse(L"", 1).further, (std::vector<std::wstring>{L"untouched"}));
}

TEST(ParseCommandLine, TheCallersLineIsNotChanged) {
    const std::wstring line = L"/d 'a' b";
    Parse(line);
    EXPECT_EQ(line, L"/d 'a' b");
}

TEST(ParseCommandLine, LongestLineOfTheSystemEnds) {
    EXPECT_EQ(Parse(std::wstring(32767, L'"')).file, L"");
    EXPECT_EQ(Parse(std::wstring(32767, L'a')).file.size(), 32767u);
    std::wstring words;
    while (words.size() < 32766) words += L"b ";
    EXPECT_EQ(Parse(words).file, L"b");
}

}  // namespace
}  // namespace corvane
