#include "platform/letter_case.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane {
namespace {

// A system may have a quicker way for these.
TEST(LetterCase, AsciiLettersAreMappedAloneAsBesideOthers) {
    for (wchar_t letter = 0; letter < 0x80; ++letter) {
        const std::wstring alone(1, letter);
        const std::wstring beside = alone + L'\x00C4';  // capital A with diaeresis
        EXPECT_EQ(system::InLowerCase(beside), system::InLowerCase(alone) + L'\x00E4');
        EXPECT_EQ(system::InUpperCase(beside), system::InUpperCase(alone) + L'\x00C4');
    }
    EXPECT_EQ(system::InLowerCase(L"@AZ[`az{ 09"), L"@az[`az{ 09");
    EXPECT_EQ(system::InUpperCase(L"@AZ[`az{ 09"), L"@AZ[`AZ{ 09");
}

TEST(LetterCase, LettersOfOtherScriptsAreMapped) {
    EXPECT_EQ(system::InLowerCase(L"\x03A9\x0416\x0104"), L"\x03C9\x0436\x0105");
    EXPECT_EQ(system::InUpperCase(L"\x03C9\x0436\x0105"), L"\x03A9\x0416\x0104");
    EXPECT_EQ(system::InUpperCase(L"\x00DF"), L"\x00DF") << "one character stays one";
}

}  // namespace
}  // namespace corvane
