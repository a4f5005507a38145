// The Basic Ship Data: what every model of a ship's database shares.
#pragma once

#include <cstdint>
#include <string>

#include "text/array.h"

namespace corvane {

// Only the meanings given here are fixed by the shell; the other numbers belong to the editor and
// the rule programs of the suite, which read them by position.
struct BasicShipData {
    FixedText<8> FormatVersion;         // layout that the data were read from: 1 to 5
    Array<FixedText<30>, 1, 5> Titles;  // (1) display name, (5) short name of the ship
    Array<int16_t, 1, 10> TypeCodes;    // (1) ship type 1..21, (2) class code, (9) > 0: PartCodes
    Array<float, 1, 6> GeneralData;
    Array<float, 1, 30> MainData;  // main dimensions [m] and coefficients; (2) is the breadth,
                                   // (3) the depth, (4) gets the value of (3) when near zero
    Table<float, 2, 10> Table2x10;
    Table<float, 6, 5> Table6x5;
    Array<int16_t, 1, 3> PartCodes;  // with TypeCodes(9) > 0, a 0 becomes 1 on reading
    Array<int16_t, 1, 2> PairCodes;
    Array<float, 1, 2> PairData;
    Table<float, 3, 2> Table3x2;
    Array<float, 1, 2> EndData;
    int16_t FrameZoneCount = 0;          // zones of equal frame spacing, 0..40
    Array<int16_t, 0, 40> FrameNumbers;  // (0) the aftmost frame, (k) the last frame of zone k
    float FrameZeroX = 0;                // [m] abscissa of frame 0
    Array<float, 1, 40> ZoneSpacing;     // [m] frame spacing inside zone k
    int16_t CountA = 0;
    int16_t CountB = 0;
    Array<int16_t, 0, 25> CodeList;
    Array<float, 1, 10> TripleA;
    Array<float, 1, 10> TripleB;
    Array<float, 1, 10> TripleC;
    Array<float, 1, 15> List15;
    float SingleA = 0;
    Array<float, 1, 12> Block12;  // only 1, 2, 5, 6, 7 and 11 are stored in files
    FixedText<50> Remark;
    float ReductionFactor = 0;     // 0.85 when near zero on reading
    Array<float, 1, 4> ExtraData;  // in files from layout version 4 on

    // Ship type, 1..21.
    int16_t ShipType() const { return TypeCodes(1); }
    bool operator==(const BasicShipData&) const = default;
};

// The record of a new database. `shortName` is the file's base name in upper case; its first 8
// characters become Titles(5).
BasicShipData NewBasicShipData(const std::wstring& shortName);

// Whether the data that every computation needs are there: MainData 1, 2, 3 and 9 above 0.
bool IsBsdDefined(const BasicShipData& bsd);

}  // namespace corvane
