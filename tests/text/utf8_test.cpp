#include "text/utf8.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(Utf8Test, CharactersOfEveryLengthHaveTheirBytes) {
    EXPECT_EQ(Utf8Text(L""), "");
    EXPECT_EQ(Utf8Text(L"Hold 4"), "Hold 4");
    EXPECT_EQ(Utf8Text(L"\u00E9\u07FF"), "\xC3\xA9\xDF\xBF");
    EXPECT_EQ(Utf8Text(L"\u0800\u20AC\uFFFF"), "\xE0\xA0\x80\xE2\x82\xAC\xEF\xBF\xBF");
    // Two units of wchar_t where that has 16 bits.
    EXPECT_EQ(Utf8Text(L"\U0001F6A2\U0010FFFF"), "\xF0\x9F\x9A\xA2\xF4\x8F\xBF\xBF");
}

TEST(Utf8Test, HalfOfASurrogatePairIsReplaced) {
    const std::wstring halves{L'a', wchar_t(0xD83D), L'b', wchar_t(0xDEA2)};
    EXPECT_EQ(Utf8Text(halves),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
    EXPECT_EQ(Utf8Text(std::wstring(1, wchar_t(0xD83D))), "\xEF\xBF\xBD");
    const std::wstring pair{wchar_t(0xD83D), wchar_t(0xDEA2)};
    EXPECT_EQ(CharactersOf(pair), U"\U0001F6A2");
}

}  // namespace
}  // namespace corvane
