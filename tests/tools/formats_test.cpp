// Columns, CSV and JSON.
#include "tools/formats.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {
namespace {

TEST(Formats, ColumnsAreAsWideAsTheirWidestText) {
    EXPECT_EQ(
        AlignedText({{L"No", L"Name", L"x"}, {L"1", L"Hold\x1B[2J 3", L"7.5"}, {L"12", L"", L""}},
                    {true, false, true}),
        L"No  Name          x\n 1  Hold?[2J 3  7.5\n12\n");
}

TEST(Formats, CsvQuotesWhatWouldEndAField) {
    EXPECT_EQ(CsvLine({L"a", L"", L"b c"}), L"a,,b c\n");
    EXPECT_EQ(CsvLine({L"a,b", L"say \"x\"", L"1\n2", L"1\r2"}),
              L"\"a,b\",\"say \"\"x\"\"\",\"1\n2\",\"1\r2\"\n");
    EXPECT_EQ(CsvLine({L" a", L"b "}), L"\" a\",\"b \"\n");
}

TEST(Formats, JsonEscapesQuotesBackslashesAndControls) {
    EXPECT_EQ(JsonText(L"a\"b\\c"), L"\"a\\\"b\\\\c\"");
    EXPECT_EQ(JsonText(std::wstring_view(L"\0\t\n\x1F\x7F\x9F", 6)),
              L"\"\\u0000\\u0009\\u000a\\u001f\\u007f\\u009f\"");
    EXPECT_EQ(JsonText(L"\x00C4\x00D6"), L"\"\x00C4\x00D6\"");
}

TEST(Formats, JsonNumbersAreNumbers) {
    EXPECT_EQ(JsonNumber(0.5F), L"0.5");
    EXPECT_EQ(JsonNumber(-20.25F), L"-20.25");
    EXPECT_EQ(JsonNumber(1e30F), L"1E+30");
    EXPECT_EQ(JsonNumber(std::numeric_limits<float>::quiet_NaN()), L"0");
    EXPECT_EQ(JsonNumber(std::numeric_limits<float>::infinity()), L"0");
}

}  // namespace
}  // namespace corvane
