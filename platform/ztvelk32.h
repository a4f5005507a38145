// ZTVelk32.dll: the legacy DOS database library, and the records that cross to it. All records
// are plain memory, little-endian, without pointers.
#pragma once

#include <cstddef>

#include "platform/companion.h"

namespace corvane {

// The Basic Ship Data in the legacy library's form: texts as single-byte characters padded with
// blanks, 16-bit integers, 32-bit floats. The field names are those of BasicShipData; tables of
// two dimensions stand with their first index running fastest.
struct LegacyBsd {
    char FormatVersion[8];
    char Titles[5][30];
    int16_t TypeCodes[10];
    float GeneralData[6];
    float MainData[30];
    float Table2x10[10][2];
    float Table6x5[5][6];
    int16_t PartCodes[3];
    int16_t PairCodes[2];
    float PairData[2];
    float Table3x2[2][3];
    float EndData[2];
    int16_t FrameZoneCount;
    int16_t FrameNumbers[41];
    float FrameZeroX;
    float ZoneSpacing[40];
    int16_t CountA;
    int16_t CountB;
    int16_t CodeList[26];
    float TripleA[10];
    float TripleB[10];
    float TripleC[10];
    float List15[15];
    float SingleA;
    float Block12[12];
    char Remark[50];
    float ReductionFactor;
    float ExtraData[4];
};

static_assert(offsetof(LegacyBsd, FormatVersion) == 0);
static_assert(offsetof(LegacyBsd, Titles) == 8);
static_assert(offsetof(LegacyBsd, TypeCodes) == 158);
static_assert(offsetof(LegacyBsd, GeneralData) == 180);
static_assert(offsetof(LegacyBsd, MainData) == 204);
static_assert(offsetof(LegacyBsd, Table2x10) == 324);
static_assert(offsetof(LegacyBsd, Table6x5) == 404);
static_assert(offsetof(LegacyBsd, PartCodes) == 524);
static_assert(offsetof(LegacyBsd, PairCodes) == 530);
static_assert(offsetof(LegacyBsd, PairData) == 536);
static_assert(offsetof(LegacyBsd, Table3x2) == 544);
static_assert(offsetof(LegacyBsd, EndData) == 568);
static_assert(offsetof(LegacyBsd, FrameZoneCount) == 576);
static_assert(offsetof(LegacyBsd, FrameNumbers) == 578);
static_assert(offsetof(LegacyBsd, FrameZeroX) == 660);
static_assert(offsetof(LegacyBsd, ZoneSpacing) == 664);
static_assert(offsetof(LegacyBsd, CountA) == 824);
static_assert(offsetof(LegacyBsd, CountB) == 826);
static_assert(offsetof(LegacyBsd, CodeList) == 828);
static_assert(offsetof(LegacyBsd, TripleA) == 880);
static_assert(offsetof(LegacyBsd, TripleB) == 920);
static_assert(offsetof(LegacyBsd, TripleC) == 960);
static_assert(offsetof(LegacyBsd, List15) == 1000);
static_assert(offsetof(LegacyBsd, SingleA) == 1060);
static_assert(offsetof(LegacyBsd, Block12) == 1064);
static_assert(offsetof(LegacyBsd, Remark) == 1112);
static_assert(offsetof(LegacyBsd, ReductionFactor) == 1164);
static_assert(offsetof(LegacyBsd, ExtraData) == 1168);
static_assert(sizeof(LegacyBsd) == 1184);

// Size of the buffer in which the record crosses to the library, zeroed behind the record: some
// libraries touch more than the record's own bytes.
inline constexpr size_t kLegacyBsdBufferSize = 1388;

}  // namespace corvane

extern "C" {

// Version of the library; the shell asks for 2.0 or more.
float CORVANE_STDCALL getztvelk32version();
}

CORVANE_LATE_BOUND("ZTVelk32.dll", getztvelk32version)
