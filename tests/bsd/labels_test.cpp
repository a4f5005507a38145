#include "bsd/labels.h"

#include <gtest/gtest.h>

#include <cstring>

#include "platform/bsdvelk.h"
#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeFunction;

// A catalogue whose texts are their numbers; it has no label from 9000 on.
int32_t NumberedLabel(int32_t number, char* buffer, int32_t size) {
    if (number >= 9000) return 0;
    const std::string text = "label " + std::to_string(number);
    EXPECT_EQ(size, 3000);
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return static_cast<int32_t>(text.size());
}

int32_t CORVANE_STDCALL NumberedLabelFunction(int32_t number, char* buffer, int32_t size) {
    return NumberedLabel(number, buffer, size);
}

TEST(Labels, LabelIsTheCataloguesText) {
    const FakeFunction fake(BsdVelk_LoadBsdString, NumberedLabelFunction);
    EXPECT_EQ(BsdLabel(102), L"label 102");
}

TEST(Labels, OnlyTheLengthThatTheLibraryReturnsIsUsed) {
    const FakeFunction fake(BsdVelk_LoadBsdString, [](int32_t, char* buffer, int32_t) {
        std::memcpy(buffer, "\xC9t\xE9 and more", 13);
        return int32_t{3};
    });
    EXPECT_EQ(BsdLabel(1), system::WideFromAnsi("\xC9t\xE9"));
}

TEST(Labels, LengthBeyondTheBufferIsCut) {
    const FakeFunction fake(BsdVelk_LoadBsdString, [](int32_t, char* buffer, int32_t size) {
        std::memset(buffer, 'x', static_cast<size_t>(size));
        return int32_t{5000};
    });
    EXPECT_EQ(BsdLabel(1), std::wstring(3000, L'x'));
}

TEST(Labels, MissingLabelShowsItsNumber) {
    const FakeFunction fake(BsdVelk_LoadBsdString,
                            [](int32_t, char*, int32_t) { return int32_t{0}; });
    EXPECT_EQ(BsdLabel(102), L"Bsd #102");
    EXPECT_EQ(BsdLabel(-3), L"Bsd #-3");
}

TEST(Labels, ShipTypesOneToTwentyOneHaveLabels) {
    const FakeFunction fake(BsdVelk_LoadBsdString, NumberedLabelFunction);
    for (int type = 1; type <= 21; ++type) {
        EXPECT_EQ(ShipTypeName(type, false), L"label " + std::to_wstring(500 + type));
    }
}

TEST(Labels, OtherShipTypesAreUnknown) {
    const FakeFunction fake(BsdVelk_LoadBsdString, NumberedLabelFunction);
    for (const int type : {0, 22, -1, 502, 32767}) {
        EXPECT_EQ(ShipTypeName(type, false), L"label 1002") << type;
    }
}

TEST(Labels, MilModeNamesTwoShipTypes) {
    EXPECT_EQ(ShipTypeName(5, true), L"MIL Combat Ship");
    EXPECT_EQ(ShipTypeName(19, true), L"MIL Auxiliary Ship");
    for (const int type : {0, 1, 4, 6, 18, 20, 21, 22})
        EXPECT_EQ(ShipTypeName(type, true), L"") << type;
}

TEST(Labels, CodesOneToThreeHaveLabels) {
    const FakeFunction fake(BsdVelk_LoadBsdString, NumberedLabelFunction);
    EXPECT_EQ(BsdCodeLabel(1), L"label 651");
    EXPECT_EQ(BsdCodeLabel(2), L"label 652");
    EXPECT_EQ(BsdCodeLabel(3), L"label 653");
    for (const int code : {0, 4, -1, 100}) EXPECT_EQ(BsdCodeLabel(code), L"label 650") << code;
}

}  // namespace
}  // namespace corvane
