#include "bsd/legacy_form.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <type_traits>

#include "platform/system.h"
#include "tests/bsd/bsd_support.h"

namespace corvane {
namespace {

using namespace test;

// A record in which every field, also one that files do not hold, has another value.
BasicShipData WholeBsd() {
    BasicShipData bsd = DistinctBsd();
    bsd.FormatVersion.Assign(L"4");
    for (const int i : {3, 4, 8, 9, 10, 12}) bsd.Block12(i) = static_cast<float>(2300 + i);
    return bsd;
}

std::string TextAt(const LegacyBsd& legacy, size_t offset, size_t length) {
    return std::string(reinterpret_cast<const char*>(&legacy) + offset, length);
}

template <class Number>
Number NumberAt(const LegacyBsd& legacy, size_t offset) {
    Number number;
    std::memcpy(&number, reinterpret_cast<const char*>(&legacy) + offset, sizeof(number));
    return number;
}

TEST(LegacyForm, RecordHasElevenHundredEightyFourBytes) {
    EXPECT_EQ(sizeof(LegacyBsd), 1184u);
    EXPECT_TRUE(std::is_trivially_copyable_v<LegacyBsd>);
}

TEST(LegacyForm, TextsAreAtTheirOffsetsPaddedWithBlanks) {
    LegacyBsd legacy{};
    ToLegacyForm(WholeBsd(), legacy);
    EXPECT_EQ(TextAt(legacy, 0, 8), "4       ");
    EXPECT_EQ(TextAt(legacy, 8, 30), "Title one                     ");
    EXPECT_EQ(TextAt(legacy, 8 + 4 * 30, 30), "TITLE-5                       ");
    EXPECT_EQ(TextAt(legacy, 1112, 50), "The remark of 50 characters                       ");
}

TEST(LegacyForm, IntegersAreAtTheirOffsets) {
    LegacyBsd legacy{};
    ToLegacyForm(WholeBsd(), legacy);
    const std::pair<size_t, int> places[] = {{158, 101},  {158 + 18, 110},  {524, 81},  {528, 83},
                                             {530, 91},   {532, 92},        {576, 13},  {578, -14},
                                             {580, 1401}, {578 + 80, 1440}, {824, 171}, {826, 172},
                                             {828, 1800}, {828 + 50, 1825}};
    for (const auto& [offset, value] : places) {
        EXPECT_EQ(NumberAt<int16_t>(legacy, offset), value) << offset;
    }
}

TEST(LegacyForm, SinglesAreAtTheirOffsets) {
    LegacyBsd legacy{};
    ToLegacyForm(WholeBsd(), legacy);
    const std::pair<size_t, float> places[] = {
        {180, 4.1f},    {200, 4.6f},   {204, 5.01f},   {320, 5.3f},   {536, 10.1f}, {540, 10.2f},
        {568, 12.1f},   {572, 12.2f},  {660, 15.5f},   {664, 16.01f}, {820, 16.4f}, {880, 19101},
        {916, 19110},   {920, 19201},  {956, 19210},   {960, 19301},  {996, 19310}, {1000, 20.01f},
        {1056, 20.15f}, {1060, 21.5f}, {1064, 22.01f}, {1072, 2303},  {1108, 2312}, {1164, 0.9f},
        {1168, 25.1f},  {1180, 25.4f}};
    for (const auto& [offset, value] : places) {
        EXPECT_EQ(NumberAt<float>(legacy, offset), value) << offset;
    }
}

TEST(LegacyForm, FirstIndexOfTablesRunsFastest) {
    LegacyBsd legacy{};
    ToLegacyForm(WholeBsd(), legacy);
    EXPECT_EQ(NumberAt<float>(legacy, 324), 6101);
    EXPECT_EQ(NumberAt<float>(legacy, 328), 6201) << "(2, 1)";
    EXPECT_EQ(NumberAt<float>(legacy, 332), 6102) << "(1, 2)";
    EXPECT_EQ(NumberAt<float>(legacy, 404 + 4), 721) << "(2, 1)";
    EXPECT_EQ(NumberAt<float>(legacy, 404 + 24), 712) << "(1, 2)";
    EXPECT_EQ(NumberAt<float>(legacy, 544 + 4), 11.21f) << "(2, 1)";
    EXPECT_EQ(NumberAt<float>(legacy, 544 + 12), 11.12f) << "(1, 2)";
    EXPECT_EQ(legacy.Table6x5[4][5], 765);
}

TEST(LegacyForm, PaddingIsLeftAlone) {
    std::array<char, kLegacyBsdBufferSize> buffer{};
    LegacyBsd legacy{};
    ToLegacyForm(WholeBsd(), legacy);
    std::memcpy(buffer.data(), &legacy, sizeof(legacy));
    for (const size_t offset : {178, 179, 534, 535, 1162, 1163}) EXPECT_EQ(buffer[offset], 0);
}

TEST(LegacyForm, RecordComesBackUnchanged) {
    LegacyBsd legacy{};
    ToLegacyForm(WholeBsd(), legacy);
    BasicShipData back;
    FromLegacyForm(legacy, back);
    EXPECT_EQ(back, WholeBsd());
}

TEST(LegacyForm, AccentedLettersAreAnsi) {
    BasicShipData bsd;
    bsd.Titles(3).Assign(system::WideFromAnsi("\xC9t\xE9"));
    LegacyBsd legacy{};
    ToLegacyForm(bsd, legacy);
    EXPECT_EQ(TextAt(legacy, 8 + 60, 4), "\xC9t\xE9 ");
    BasicShipData back;
    FromLegacyForm(legacy, back);
    EXPECT_EQ(back, bsd);
}

TEST(LegacyForm, TextEndsAtANulOfTheLibrary) {
    LegacyBsd legacy{};
    std::memcpy(legacy.Titles[0], "Name\0rest", 9);
    BasicShipData bsd;
    FromLegacyForm(legacy, bsd);
    EXPECT_EQ(bsd.Titles(1).Whole(), L"Name" + std::wstring(26, L' '));
    EXPECT_EQ(bsd.Remark.Whole(), std::wstring(50, L' '));
}

}  // namespace
}  // namespace corvane
