#include "text/text.h"

#include <gtest/gtest.h>

#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::Narrow;

TEST(Trim, RemovesBlanksAtBothEndsOnly) {
    EXPECT_EQ(Trim(std::wstring_view(L"  a b  ")), L"a b");
    EXPECT_EQ(Trim(std::wstring_view(L"a")), L"a");
    EXPECT_EQ(Trim(std::wstring_view(L"")), L"");
    EXPECT_EQ(Trim(std::wstring_view(L"   ")), L"");
    EXPECT_EQ(Trim(std::string_view("  a b  ")), "a b");
    EXPECT_EQ(Trim(std::string_view("   ")), "");
}

TEST(Trim, KeepsTabsAndLineEnds) {
    EXPECT_EQ(Trim(std::wstring_view(L" \ta\r\n ")), L"\ta\r\n");
    EXPECT_EQ(Trim(std::string_view(" \ta\r\n ")), "\ta\r\n");
    EXPECT_EQ(Trim(std::wstring_view(L"\u00A0a\u00A0")), L"\u00A0a\u00A0");
}

TEST(LetterCase, AsciiLettersOnlyChangeAmongThemselves) {
    EXPECT_EQ(LowerCase(L"SHIP.VE2 @[`{09"), L"ship.ve2 @[`{09");
    EXPECT_EQ(UpperCase(std::wstring_view(L"ship.ve2 @[`{09")), L"SHIP.VE2 @[`{09");
    EXPECT_EQ(UpperCase(std::string_view("ship.ve2 @[`{09")), "SHIP.VE2 @[`{09");
}

TEST(LetterCase, SignsBetweenTheLettersStayThemselves) {
    for (const wchar_t* sign : {L"×", L"÷", L"ß", L"ª", L"º", L"¤", L"§", L"²"}) {
        EXPECT_EQ(LowerCase(sign), sign) << Narrow(sign);
        EXPECT_EQ(UpperCase(std::wstring_view(sign)), sign) << Narrow(sign);
    }
}

// The code pages of Windows that have one byte for each letter, by their alphabets.
constexpr struct {
    const wchar_t* lower;
    const wchar_t* upper;
} kAlphabets[] = {
    {L"àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþšœžÿ", L"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞŠŒŽŸ"},        // 1252
    {L"ąćęłńóśźżčďěňřšťůžőű", L"ĄĆĘŁŃÓŚŹŻČĎĚŇŘŠŤŮŽŐŰ"},                                    // 1250
    {L"абвгдежзийклмнопрстуфхцчшщъыьэюяёђїќў", L"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЁЂЇЌЎ"},  // 1251
    {L"αβγδεζηθικλμνξοπρστυφχψωάέήίόύώ", L"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΆΈΉΊΌΎΏ"},              // 1253
};

TEST(LetterCase, LettersOfEveryAlphabetHaveTheirOtherCase) {
    for (const auto& [lower, upper] : kAlphabets) {
        EXPECT_EQ(Narrow(UpperCase(std::wstring_view(lower))), Narrow(upper));
        EXPECT_EQ(Narrow(LowerCase(upper)), Narrow(lower));
        EXPECT_TRUE(EqualsIgnoringCase(lower, upper));
    }
}

TEST(LetterCase, BytesHaveTheUpperCaseOfTheCodePagesLetters) {
    int alphabets = 0;
    for (const auto& [lower, upper] : kAlphabets) {
        const std::string bytes = system::AnsiFromWide(lower);
        if (system::WideFromAnsi(bytes) != lower) continue;
        EXPECT_EQ(UpperCase(std::string_view(bytes)), system::AnsiFromWide(upper));
        ++alphabets;
    }
    EXPECT_GT(alphabets, 0) << "a code page that the test does not know";
}

TEST(LetterCase, NoByteIsLost) {
    for (int code = 0; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        const std::string upper = UpperCase(std::string_view(byte));
        EXPECT_EQ(upper.size(), 1U) << code;
        EXPECT_EQ(upper == "?", byte == "?") << code;
    }
}

TEST(LetterCase, ComparingIgnoresTheCaseOfAllLetters) {
    EXPECT_TRUE(EqualsIgnoringCase(L"Vent Été", L"VENT éTÉ"));
    EXPECT_TRUE(EqualsIgnoringCase(L"", L""));
    EXPECT_FALSE(EqualsIgnoringCase(L"ship", L"ships"));
    EXPECT_FALSE(EqualsIgnoringCase(L"ships", L"ship"));
    EXPECT_FALSE(EqualsIgnoringCase(L"×", L"÷"));
    EXPECT_FALSE(EqualsIgnoringCase(L"[", L"{"));
}

TEST(CutAtNul, KeepsWhatIsBeforeTheFirstNul) {
    EXPECT_EQ(CutAtNul(std::wstring_view(L"ab\0cd\0", 6)), L"ab");
    EXPECT_EQ(CutAtNul(std::wstring_view(L"\0ab", 3)), L"");
    EXPECT_EQ(CutAtNul(L"whole text"), L"whole text");
    EXPECT_EQ(CutAtNul(L""), L"");
}

TEST(CleanFileName, RemovesEveryCharacterOfTheSetAndNoOther) {
    const std::wstring set = L" ~*?^}{|><;,:/\\¤¨.§!%µç`@=+\"[]";
    ASSERT_EQ(set.size(), 30U);
    for (wchar_t character = 1; character < 0x180; ++character) {
        const std::wstring text = {L'a', character, L'b'};
        const bool goes = set.find(character) != std::wstring::npos;
        EXPECT_EQ(CleanFileName(text), goes ? L"ab" : text) << static_cast<int>(character);
    }
}

TEST(CleanFileName, KeepsTheOtherCharactersInOrder) {
    EXPECT_EQ(CleanFileName(L"M/V \"Star\" [2].ve2"), L"MVStar2ve2");
    EXPECT_EQ(CleanFileName(L"C:\\data\\my ship.ve2"), L"Cdatamyshipve2");
    EXPECT_EQ(CleanFileName(L"a-b_c(d)#&$'"), L"a-b_c(d)#&$'");
    EXPECT_EQ(CleanFileName(L"Été"), L"Été");
    EXPECT_EQ(CleanFileName(L" .,;"), L"");
    EXPECT_EQ(CleanFileName(L""), L"");
}

TEST(ShortenText, TenLettersInSevenGiveTwoTwoPointsAndTwo) {
    EXPECT_EQ(ShortenText(L"abcdefghij", 7), L"ab..ij");
}

TEST(ShortenText, LengthThreeLeavesTheTextWhole) {
    EXPECT_EQ(ShortenText(L"abcdefghij", 3), L"abcdefghij");
}

TEST(ShortenText, TableOfLengths) {
    struct Case {
        std::wstring text;
        int16_t maxLen;
        std::wstring expected;
    };
    const Case cases[] = {
        {L"abcdefghij", 10, L"abcdefghij"},
        {L"abcdefghij", 9, L"abc..hij"},
        {L"abcdefghij", 8, L"ab..ij"},
        {L"abcdefghij", 6, L"a..j"},
        {L"abcdefghij", 5, L"a..j"},
        {L"abcdefghij", 4, L".."},
        {L"abcdefghij", 0, L"abcdefghij"},
        {L"abcdefghij", -1, L"abcdefghij"},
        {L"", 0, L""},
        {L"", 7, L""},
        {L"abcdefghij", 32767, L"abcdefghij"},
        {L"abcdefghij", -32768, L"abcdefghij"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(ShortenText(each.text, each.maxLen), each.expected) << each.maxLen;
    }
}

TEST(ShortenText, BothEndsAreTrimmed) {
    EXPECT_EQ(ShortenText(L"ab cdefg hi", 9), L"ab..hi");
    EXPECT_EQ(ShortenText(L"a         b", 7), L"a..b");
}

TEST(MenuCaptionText, AmpersandAndEllipsisGo) {
    EXPECT_EQ(MenuCaptionText(L"&Open..."), L"Open");
}

TEST(MenuCaptionText, AmpersandInsideGoes) {
    EXPECT_EQ(MenuCaptionText(L"Save &As"), L"Save As");
}

TEST(MenuCaptionText, DoubledAmpersandBetweenLettersBecomesOne) {
    EXPECT_EQ(MenuCaptionText(L"a&&b"), L"a&b");
}

TEST(MenuCaptionText, CaptionWithoutAmpersandAndEllipsisStays) {
    EXPECT_EQ(MenuCaptionText(L"Close"), L"Close");
    EXPECT_EQ(MenuCaptionText(L""), L"");
}

TEST(MenuCaptionText, ThreeAmpersandsYieldTwo) {
    EXPECT_EQ(MenuCaptionText(L"a&&&b"), L"a&&b");
    EXPECT_EQ(MenuCaptionText(L"&&&&"), L"&&&");
}

TEST(MenuCaptionText, EverythingAfterTheEllipsisGoes) {
    EXPECT_EQ(MenuCaptionText(L"&Save database as...\tCtrl+S"), L"Save database as");
    EXPECT_EQ(MenuCaptionText(L"..."), L"");
    EXPECT_EQ(MenuCaptionText(L"a....b"), L"a");
}

TEST(MenuCaptionText, TwoPointsAndATrailingAmpersandAreNoEllipsisAndNoCharacter) {
    EXPECT_EQ(MenuCaptionText(L"a..b"), L"a..b");
    EXPECT_EQ(MenuCaptionText(L"a.."), L"a..");
    EXPECT_EQ(MenuCaptionText(L"end&"), L"end");
    EXPECT_EQ(MenuCaptionText(L"&"), L"");
}

TEST(WithLineFeeds, EveryLineEndBecomesCrLf) {
    EXPECT_EQ(WithLineFeeds(L"one\rtwo\r\nthree m²\r\r"), L"one\r\ntwo\r\nthree m²\r\n\r\n");
    EXPECT_EQ(WithLineFeeds(L""), L"");
}

TEST(ExpandLineBreaks, EverySuperscriptTwoBecomesACarriageReturn) {
    EXPECT_EQ(ExpandLineBreaks(L"one²two²²three"), L"one\rtwo\r\rthree");
    EXPECT_EQ(ExpandLineBreaks(L"²"), L"\r");
    EXPECT_EQ(ExpandLineBreaks(L"m2 and m³"), L"m2 and m³");
    EXPECT_EQ(ExpandLineBreaks(L""), L"");
}

TEST(CharacterSets, AsciiIsTheSameInBoth) {
    EXPECT_EQ(OemToAnsiText("Ship 12-A"), L"Ship 12-A");
    EXPECT_EQ(AnsiToOemText(L"Ship 12-A"), "Ship 12-A");
}

// 850 and 437, the Western OEM code pages, agree on these.
TEST(CharacterSets, LettersOfTheCodePagesAreConverted) {
    const struct {
        const wchar_t* text;
        const char* oem;
    } cases[] = {
        {L"été ç ö ü ñ", "\x82t\x82 \x87 \x94 \x81 \xA4"},       // 1252 and 850
        {L"ąćęłńóśźż", "\xA5\x86\xA9\x88\xE4\xA2\x98\xAB\xBE"},  // 1250 and 852
        {L"абврся", "\xA0\xA1\xA2\xE0\xE1\xEF"},                 // 1251 and 866
        {L"αβγω", "\x98\x99\x9A\xE0"},                           // 1253 and 737
    };
    int converted = 0;
    for (const auto& [text, oem] : cases) {
        if (system::WideFromAnsi(system::AnsiFromWide(text)) != text) continue;
        EXPECT_EQ(Narrow(OemToAnsiText(oem)), Narrow(text));
        EXPECT_EQ(AnsiToOemText(text), oem);
        ++converted;
    }
    EXPECT_GT(converted, 0) << "code pages that the test does not know";
}

TEST(CharacterSets, TextIsCutAtTheFirstNulAndTrimmed) {
    EXPECT_EQ(OemToAnsiText(std::string_view("  ab  \0 cd", 10)), L"ab");
    EXPECT_EQ(AnsiToOemText(std::wstring_view(L"  ab  \0 cd", 10)), "ab");
    EXPECT_EQ(OemToAnsiText(std::string_view("\0ab", 3)), L"");
    EXPECT_EQ(AnsiToOemText(L"    "), "");
    EXPECT_EQ(OemToAnsiText(""), L"");
}

TEST(OnOneLine, ControlCharactersBecomeBlanks) {
    EXPECT_EQ(OnOneLine(L"a\tb\r\nc\x1B[0m \u00E9"), L"a b  c [0m \u00E9");
    EXPECT_EQ(OnOneLine(L""), L"");
}

}  // namespace
}  // namespace corvane
