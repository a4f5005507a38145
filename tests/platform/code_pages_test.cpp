#include <gtest/gtest.h>

#include "platform/single_byte.h"
#include "platform/system.h"

namespace corvane::system {
namespace {

std::string AllBytes() {
    std::string bytes;
    for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
    return bytes;
}

TEST(CodePages, EveryByteSurvivesTheWayToWideAndBack) {
    EXPECT_EQ(AnsiFromWide(WideFromAnsi(AllBytes())), AllBytes());
}

TEST(CodePages, OneByteIsOneCharacter) {
    EXPECT_EQ(WideFromAnsi(AllBytes()).size(), 256U);
    EXPECT_EQ(OemFromAnsi(AllBytes()).size(), 256U);
    EXPECT_EQ(AnsiFromOem(AllBytes()).size(), 256U);
}

TEST(CodePages, AsciiIsTheSameEverywhere) {
    std::string ascii;
    std::wstring wide;
    for (int code = 0; code < 128; ++code) {
        ascii += static_cast<char>(code);
        wide += static_cast<wchar_t>(code);
    }
    EXPECT_EQ(WideFromAnsi(ascii), wide);
    EXPECT_EQ(AnsiFromWide(wide), ascii);
    EXPECT_EQ(OemFromAnsi(ascii), ascii);
    EXPECT_EQ(AnsiFromOem(ascii), ascii);
}

TEST(CodePages, WesternLetters) {
    EXPECT_EQ(WideFromAnsi("\xE9\xE7\xF8\x80\x92"), L"\x00E9\x00E7\x00F8\x20AC\x2019");
    EXPECT_EQ(AnsiFromWide(L"\x00E9\x00E7\x00F8\x20AC\x2019"), "\xE9\xE7\xF8\x80\x92");
}

TEST(CodePages, CharacterThatThePageLacksBecomesAQuestionMark) {
    EXPECT_EQ(AnsiFromWide(L"a\x4E2D"
                           L"b"),
              "a?b");
    // Neither a look-alike nor a letter without its accent is used.
    EXPECT_EQ(AnsiFromWide(L"\x03A9\x0101\x2212"), "???");
}

TEST(CodePages, CharacterBeyondTheBasicPlane) {
    const std::wstring ship = L"\U0001F6A2";
    EXPECT_EQ(AnsiFromWide(ship), std::string(ship.size(), '?'));
}

TEST(CodePages, NulAndEmptyText) {
    EXPECT_EQ(WideFromAnsi(""), L"");
    EXPECT_EQ(AnsiFromWide(L""), "");
    EXPECT_EQ(AnsiFromWide(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
}

TEST(CodePages, DosLetters) {
    EXPECT_EQ(OemFromAnsi("\xE9\xE7\xE4"), "\x82\x87\x84");
    EXPECT_EQ(AnsiFromOem("\x82\x87\x84"), "\xE9\xE7\xE4");
    EXPECT_EQ(OemFromAnsi("\x80"), "?");  // the euro sign
    EXPECT_EQ(AnsiFromOem("\xC9"), "?");  // a box corner
}

TEST(CodePages, SingleBytePageFindsItsOwnCharacters) {
    SingleBytePage page{};
    for (size_t i = 0; i < 0x80; ++i) page[i] = static_cast<wchar_t>(i);
    for (size_t i = 0x80; i < 0x100; ++i) page[i] = static_cast<wchar_t>(0x400 + i);
    EXPECT_EQ(BytesFromWide(L"a\x0480\x04FF\x0500", page), "a\x80\xFF?");
    EXPECT_EQ(WideFromBytes("a\x80\xFF", page), L"a\x0480\x04FF");
}

}  // namespace
}  // namespace corvane::system
