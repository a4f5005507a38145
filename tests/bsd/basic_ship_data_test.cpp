#include "bsd/basic_ship_data.h"

#include <gtest/gtest.h>

#include "bsd/labels.h"

namespace corvane {
namespace {

TEST(BasicShipDataRecord, NewRecordHasItsDefaultsAndIsZeroElsewhere) {
    BasicShipData expected;
    expected.Titles(1).Assign(BsdLabel(kLabelNewShip));
    expected.Titles(5).Assign(L"STAR");
    const int codes[] = {1, 1, 1, 0, 1, 20, 1, 0, 0, 0};
    for (int i = 1; i <= 10; ++i) expected.TypeCodes(i) = static_cast<int16_t>(codes[i - 1]);
    EXPECT_EQ(NewBasicShipData(L"STAR"), expected);
    EXPECT_EQ(expected.ShipType(), 1);
}

TEST(BasicShipDataRecord, NewRecordIsEmptyWhereNothingElseIsSaid) {
    const BasicShipData bsd = NewBasicShipData(L"");
    EXPECT_EQ(bsd.Titles(5).Trimmed(), L"");
    EXPECT_EQ(bsd.FormatVersion.Trimmed(), L"");
    EXPECT_EQ(bsd.Remark.Whole(), std::wstring(50, L' '));
    EXPECT_EQ(bsd.ReductionFactor, 0);
    EXPECT_FALSE(IsBsdDefined(bsd));
}

TEST(BasicShipDataRecord, ShortNameIsCutAtEightCharacters) {
    EXPECT_EQ(NewBasicShipData(L"LONGNAMEOFSHIP").Titles(5).Trimmed(), L"LONGNAME");
}

TEST(BasicShipDataRecord, DefinedWhenTheFourMainDimensionsArePositive) {
    BasicShipData bsd;
    EXPECT_FALSE(IsBsdDefined(bsd));
    for (const int i : {1, 2, 3, 9}) bsd.MainData(i) = 0.001f;
    EXPECT_TRUE(IsBsdDefined(bsd));
    for (const int i : {1, 2, 3, 9}) {
        for (const float value : {0.0f, -1.0f}) {
            BasicShipData changed = bsd;
            changed.MainData(i) = value;
            EXPECT_FALSE(IsBsdDefined(changed)) << i;
        }
    }
}

TEST(BasicShipDataRecord, OtherDimensionsDoNotMatterForBeingDefined) {
    BasicShipData bsd;
    for (int i = 1; i <= 30; ++i) bsd.MainData(i) = -1;
    for (const int i : {1, 2, 3, 9}) bsd.MainData(i) = 1;
    EXPECT_TRUE(IsBsdDefined(bsd));
}

}  // namespace
}  // namespace corvane
