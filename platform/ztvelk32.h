// ZTVelk32.dll: the legacy DOS database library, and the records that cross to it. All records
// are plain memory, little-endian, without pointers. The library and the shell agree on every byte:
// the offsets are asserted here, the only place in the tree that has them.
#pragma once

#include <cstddef>

#include "platform/companion.h"

namespace corvane {

// The Basic Ship Data in the legacy library's form: texts as single-byte characters padded with
// blanks, 16-bit integers, 32-bit floats. The field names are those of BasicShipData; tables of
// two dimensions have their first index running fastest. bsd/legacy_form.h converts the record.
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

// Two bytes are unused where a float needs them: before GeneralData, PairData and ReductionFactor.
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

// Size of the buffer in which the record crosses to the library, zeroed after the record: some
// libraries touch more than the record's own bytes.
inline constexpr size_t kLegacyBsdBufferSize = 1388;

// ---- One transverse section --------------------------------------------------------------------
// Three blocks that are read and written separately. A strake is what the shell's section calls a
// panel. Strakes are numbered 1 to 30; nodes 1 to 100 in one numbering over all strakes; points 1
// to 60: the element of number n is [n - 1]. Texts are single-byte characters padded with NULs.
// Lengths are in m, scantlings in mm. A boolean is -1 or 0. docs/legacy-form.md says which bytes
// the suite fixes and which this header settles. A member `unused...` is zero.

// Sizes of the tables. What a section has beyond them is reported and left out.
inline constexpr int kLegacyStrakes = 30;
inline constexpr int kLegacyNodes = 100;
inline constexpr int kLegacyPoints = 60;  // the shell uses 59 at most
inline constexpr int kLegacyCurves = 30;
inline constexpr int kLegacyExtensions = 10;
inline constexpr int kLegacyProfiles = 40;
inline constexpr int kLegacyStiffeners = 60;
inline constexpr int kLegacySpans = 60;
inline constexpr int kLegacySpanBrackets = 20;
inline constexpr int kLegacyFatigueTables = 6;
inline constexpr int kLegacyBrackets = 20;
inline constexpr int kLegacyOpenings = 12;
inline constexpr int kLegacyPillars = 8;
inline constexpr int kLegacyPlates = 60;
inline constexpr int kLegacyCompartments = 8;
inline constexpr int kLegacyOutlineNodes = 20;
inline constexpr int kLegacyLevels = 36;  // of all compartments together

// First block: the head of the section.
struct LegacyMainSection {
    char name[40];  // ANSI
    float x_m;      // position along the ship
    float breadth_m, depth_m, draught_m;
    char unused56[8];
    int16_t shipType, classCode, navigationCode;
    int16_t unused70;
    float frameSpacing_m, webSpacing_m;
    float stillWaterMoment_kNm[3];  // hogging, sagging, harbour
    float waveMoment_kNm[3];
    float deckModulus_m3, bottomModulus_m3;
};
static_assert(offsetof(LegacyMainSection, x_m) == 40);
static_assert(offsetof(LegacyMainSection, breadth_m) == 44);
static_assert(offsetof(LegacyMainSection, unused56) == 56);
static_assert(offsetof(LegacyMainSection, shipType) == 64);
static_assert(offsetof(LegacyMainSection, unused70) == 70);
static_assert(offsetof(LegacyMainSection, frameSpacing_m) == 72);
static_assert(offsetof(LegacyMainSection, stillWaterMoment_kNm) == 80);
static_assert(offsetof(LegacyMainSection, waveMoment_kNm) == 92);
static_assert(offsetof(LegacyMainSection, deckModulus_m3) == 104);
static_assert(sizeof(LegacyMainSection) == 112);

// What the head of a section has and the main block has no room for.
struct LegacyHeadRest {
    float shearForce_kN[3];
    float ballastDraught_m, cargoHeight_m, holdLength_m, holdAft_m;
    float neutralAxis_m, area_m2, inertiaY_m4, inertiaZ_m4;
    int16_t symmetryMode, materialGroup, corrosionRule;
    int16_t resultCodes[4];
    int16_t resultsValid;  // boolean
};
static_assert(sizeof(LegacyHeadRest) == 60);

// How many entries of each table are used, from the first one on.
struct LegacyCounts {
    int16_t curves, extensions, profiles;
    int16_t stiffeners, spans, spanBrackets, fatigueTables;
    int16_t brackets, openings, pillars, plates;
    int16_t compartments, levels;
    int16_t unused;
};
static_assert(sizeof(LegacyCounts) == 28);

// The way from a node to the next one, where it is not straight.
struct LegacyCurve {
    int16_t node;  // at which the curve begins
    int16_t unused;
    float radius, tangentY, tangentZ;
};
static_assert(sizeof(LegacyCurve) == 16);

// The line that gives a node of class 2, and the strake that it meets.
struct LegacyExtension {
    int16_t node;
    int16_t strake;
    float line[5];  // y and z of two points, and the shift
};
static_assert(sizeof(LegacyExtension) == 24);

// Scantlings; other tables refer to them by their number, 1 the first.
struct LegacyProfile {
    int16_t type;
    int16_t unused;
    float webHeight_mm, webThickness_mm, flangeBreadth_mm, flangeThickness_mm;
};
static_assert(sizeof(LegacyProfile) == 20);

// A stiffener by the point of its strake where it is.
struct LegacyStiffener {
    int16_t strake;
    int16_t onStrake, onNode;  // node of that strake from which `offset` counts; 0, 0: the start
    int16_t count, side, connection, mirrored;
    int16_t unused;
    float s;       // abscissa on the strake: the stiffener's place
    float offset;  // the same from the node, as it was given
    float spacing;
};
static_assert(sizeof(LegacyStiffener) == 28);

// A span of a stiffener, between two supports along the ship.
struct LegacySpan {
    int16_t stiffener;  // number in the table of stiffeners
    int16_t profile, material, aftConnection, foreConnection, position;
    float s;  // abscissa of its stiffener
    float length, aftLength, foreLength, reduction, spacing;
};
static_assert(sizeof(LegacySpan) == 36);

// The bracket of a span that has one.
struct LegacySpanBracket {
    int16_t span;  // number in the table of spans
    int16_t kind, material, profile;
    float length;
};
static_assert(sizeof(LegacySpanBracket) == 12);

// The stresses of a span where fatigue is checked.
struct LegacyFatigueTable {
    int16_t span;  // number in the table of spans
    int16_t detail, weld, environment, grade;
    int16_t unused;
    float length, gap_mm, stress_MPa[9];
};
static_assert(sizeof(LegacyFatigueTable) == 56);

// A primary bracket or web between two nodes.
struct LegacyBracket {
    int16_t strake, item;  // the panel that has it, and its own number
    int16_t fromStrake, fromNode, toStrake, toNode;
    int16_t aftFrame, foreFrame, side, kind, material, endType;
    int16_t profiles[3];  // at the root, in the middle, at the toe
    int16_t unused;
    float armLength, middleLength, toeLength;
};
static_assert(sizeof(LegacyBracket) == 44);

// An opening in a strake's plating.
struct LegacyOpening {
    int16_t strake, item;  // the panel that has it, and its own number
    int16_t atStrake, atNode;
    int16_t shape, count, reinforced, aftFrame, foreFrame;
    int16_t unused;
    float s;  // abscissa on the strake of the point nearest to that node
    float length, breadth;
};
static_assert(sizeof(LegacyOpening) == 32);

// A pillar or cross tie from a strake to another one.
struct LegacyPillar {
    int16_t strake, item;  // the panel that has it, and its own number
    int16_t toStrake, toNode;
    int16_t count, kind, material, profileType;
    int16_t lowerConnection, upperConnection, slenderness, corrosion;
    float s;  // abscissa on the strake
    float length, area_cm2, webHeight_mm, webThickness_mm;
};
static_assert(sizeof(LegacyPillar) == 44);

// A plate of a strake; it begins where the one before it ends.
struct LegacyPlate {
    int16_t strake, material, corrosionSide;
    int16_t unused;
    float end;  // abscissa on the strake
    float thickness_mm, spacing, span;
};
static_assert(sizeof(LegacyPlate) == 24);

// A compartment, without what is in LegacyCompLoad at the same index.
struct LegacyCompartment {
    int16_t contents, kind, symmetric, hold, loadCase;
    int16_t flags[3];
    int16_t aftFrame, foreFrame, closing;
    int16_t nodeCount;
    int16_t levelCount;  // the levels of all compartments follow one another
    int16_t unused;
    int16_t nodes[kLegacyOutlineNodes];  // around it, in order
    float area_m2, centreY, centreZ;     // of the outline, one side of the ship
};
static_assert(sizeof(LegacyCompartment) == 80);

// A filling level of a compartment, and the free surface there.
struct LegacyLevel {
    float level, surfaceLength, surfaceBreadth;
};
static_assert(sizeof(LegacyLevel) == 12);

// Second block: strakes, nodes, points, and the tables of what is on the strakes. The arrays of one
// prefix belong together: what they have at one index is one strake, node or point.
struct LegacyGeometry {
    int16_t strakeCount;
    int16_t unused2;
    float strakeSpacing[kLegacyStrakes];
    float strakeSpan[kLegacyStrakes];
    float strakeThickness_mm[kLegacyStrakes];
    char strakeName[kLegacyStrakes][26];      // ANSI
    int16_t strakeFirstNode[kLegacyStrakes];  // in the numbering of all nodes
    int16_t strakeNodeCount[kLegacyStrakes];
    int16_t nodePoint[kLegacyNodes];     // number of the point that the node defines; 0: none
    int16_t nodeCode[kLegacyNodes];      // with the class: how the node is defined
    int16_t nodeOnStrake[kLegacyNodes];  // strake and node that it is defined on
    int16_t nodeOnNode[kLegacyNodes];
    int16_t nodeInter[kLegacyNodes];
    int16_t nodeNumber[kLegacyNodes];  // the user's number of the knuckle
    int16_t nodeShape[kLegacyNodes];   // kShape... of the way to the next node
    int16_t nodeClass[kLegacyNodes];   // 0: by coordinates, 1: on another node, 2: intersection
    float nodeY[kLegacyNodes];         // as given: coordinates, or the offset from the other node
    float nodeZ[kLegacyNodes];
    int16_t nodeRelative[kLegacyNodes];  // boolean
    char unused3864[16];
    int16_t pointUsed[kLegacyPoints];  // 1: used
    float pointY[kLegacyPoints];
    float pointZ[kLegacyPoints];
    int16_t strakeNumber[kLegacyStrakes];   // its own number
    int16_t strakePresent[kLegacyStrakes];  // 1
    LegacyHeadRest head;
    int16_t strakeKind[kLegacyStrakes];
    int16_t strakeMaterial[kLegacyStrakes];
    LegacyCounts counts;
    LegacyCurve curves[kLegacyCurves];
    LegacyExtension extensions[kLegacyExtensions];
    LegacyProfile profiles[kLegacyProfiles];
    LegacyStiffener stiffeners[kLegacyStiffeners];
    LegacySpan spans[kLegacySpans];
    LegacySpanBracket spanBrackets[kLegacySpanBrackets];
    LegacyFatigueTable fatigueTables[kLegacyFatigueTables];
    LegacyBracket brackets[kLegacyBrackets];
    LegacyOpening openings[kLegacyOpenings];
    LegacyPillar pillars[kLegacyPillars];
    LegacyPlate plates[kLegacyPlates];
    LegacyCompartment compartments[kLegacyCompartments];
    LegacyLevel levels[kLegacyLevels];
    char unused14872[8];
};
static_assert(offsetof(LegacyGeometry, unused2) == 2);
static_assert(offsetof(LegacyGeometry, strakeSpacing) == 4);
static_assert(offsetof(LegacyGeometry, strakeSpan) == 124);
static_assert(offsetof(LegacyGeometry, strakeThickness_mm) == 244);
static_assert(offsetof(LegacyGeometry, strakeName) == 364);
static_assert(offsetof(LegacyGeometry, strakeFirstNode) == 1144);
static_assert(offsetof(LegacyGeometry, strakeNodeCount) == 1204);
static_assert(offsetof(LegacyGeometry, nodePoint) == 1264);
static_assert(offsetof(LegacyGeometry, nodeCode) == 1464);
static_assert(offsetof(LegacyGeometry, nodeOnStrake) == 1664);
static_assert(offsetof(LegacyGeometry, nodeOnNode) == 1864);
static_assert(offsetof(LegacyGeometry, nodeInter) == 2064);
static_assert(offsetof(LegacyGeometry, nodeNumber) == 2264);
static_assert(offsetof(LegacyGeometry, nodeShape) == 2464);
static_assert(offsetof(LegacyGeometry, nodeClass) == 2664);
static_assert(offsetof(LegacyGeometry, nodeY) == 2864);
static_assert(offsetof(LegacyGeometry, nodeZ) == 3264);
static_assert(offsetof(LegacyGeometry, nodeRelative) == 3664);
static_assert(offsetof(LegacyGeometry, pointUsed) == 3880);
static_assert(offsetof(LegacyGeometry, pointY) == 4000);
static_assert(offsetof(LegacyGeometry, pointZ) == 4240);
static_assert(offsetof(LegacyGeometry, strakeNumber) == 4480);
static_assert(offsetof(LegacyGeometry, strakePresent) == 4540);
static_assert(offsetof(LegacyGeometry, head) == 4600);
static_assert(offsetof(LegacyGeometry, strakeKind) == 4660);
static_assert(offsetof(LegacyGeometry, counts) == 4780);
static_assert(offsetof(LegacyGeometry, curves) == 4808);
static_assert(offsetof(LegacyGeometry, extensions) == 5288);
static_assert(offsetof(LegacyGeometry, profiles) == 5528);
static_assert(offsetof(LegacyGeometry, stiffeners) == 6328);
static_assert(offsetof(LegacyGeometry, spans) == 8008);
static_assert(offsetof(LegacyGeometry, spanBrackets) == 10168);
static_assert(offsetof(LegacyGeometry, fatigueTables) == 10408);
static_assert(offsetof(LegacyGeometry, brackets) == 10744);
static_assert(offsetof(LegacyGeometry, openings) == 11624);
static_assert(offsetof(LegacyGeometry, pillars) == 12008);
static_assert(offsetof(LegacyGeometry, plates) == 12360);
static_assert(offsetof(LegacyGeometry, compartments) == 13800);
static_assert(offsetof(LegacyGeometry, levels) == 14440);
static_assert(sizeof(LegacyGeometry) == 14880);

// Third block: the long parts of the compartments; the rest of each is in LegacyCompartment.
struct LegacyCompLoad {
    char name[kLegacyCompartments][34];  // ANSI
    float designValues[kLegacyCompartments][20];
    float stillWaterPressure_kPa[kLegacyCompartments][10];
    float wavePressure_kPa[kLegacyCompartments][10];
    int16_t count;  // of compartments
    int16_t unused[3];
};
static_assert(offsetof(LegacyCompLoad, designValues) == 272);
static_assert(offsetof(LegacyCompLoad, stillWaterPressure_kPa) == 912);
static_assert(offsetof(LegacyCompLoad, wavePressure_kPa) == 1232);
static_assert(offsetof(LegacyCompLoad, count) == 1552);
static_assert(sizeof(LegacyCompLoad) == 1560);

// The three blocks together, as legacy/ converts them and our own library stores them.
struct LegacySectionRecord {
    LegacyMainSection main;
    LegacyGeometry geometry;
    LegacyCompLoad compLoad;
};
static_assert(offsetof(LegacySectionRecord, geometry) == 112);
static_assert(offsetof(LegacySectionRecord, compLoad) == 14992);
static_assert(sizeof(LegacySectionRecord) == 16552);

// An entry of the list of sections.
struct LegacySectionEntry {
    char name[40];  // OEM, padded with blanks
    float x_m;      // as addsectvelkdb got it; the shell has no use for it
};
static_assert(offsetof(LegacySectionEntry, x_m) == 40 && sizeof(LegacySectionEntry) == 44);

// Sections that the list shows.
inline constexpr int kLegacyListedSections = 20;

// Statuses of our own library. 0 is success, any other value failure, with every library.
inline constexpr int16_t kLegacyDone = 0;
inline constexpr int16_t kLegacyFileMissing = 1;
inline constexpr int16_t kLegacyForeign = 2;  // not a legacy database, or one of a later version
inline constexpr int16_t kLegacyDamaged =
    3;  // a part of the file is cut off or has a wrong checksum
inline constexpr int16_t kLegacyNotWritten = 4;  // the old file is as it was
inline constexpr int16_t kLegacyFull = 5;        // no more slots can be added
inline constexpr int16_t kLegacyNoSection = 6;   // the file has no slot of this number

}  // namespace corvane

// A path is a NUL-terminated ANSI text. Sections are numbered from 1 in the order in which their
// slots were added. A record that a failed call should have filled is left as it was. The functions
// of the three blocks have no status word; what they return is ignored by the shell (ours returns
// the status).
extern "C" {

// Version of the library; the shell asks for 2.0 or more.
float CORVANE_STDCALL getztvelk32version();

// A new empty database; an old file of that name is replaced.
void CORVANE_STDCALL createvelkdb(const char* path, int16_t* status);
// Appends an empty section slot.
void CORVANE_STDCALL extendvelkdb(const char* path, int16_t* status);
// Gives the last slot its name (NUL-terminated, OEM) and its position [m] in the list.
void CORVANE_STDCALL addsectvelkdb(const char* path, const char* name, float position,
                                   int16_t* status);
// The list of sections, at most 20: `count` entries of the array are filled.
void CORVANE_STDCALL getvelksections(const char* path, int16_t* status, int16_t* count,
                                     corvane::LegacySectionEntry* entries);

// The three blocks of one section: an export writes the block into an existing slot, an import
// reads it.
int16_t CORVANE_STDCALL exportvelkmainsec(const char* path, int16_t section,
                                          corvane::LegacyMainSection* record);
int16_t CORVANE_STDCALL importvelkmainsec(const char* path, int16_t section,
                                          corvane::LegacyMainSection* record);
int16_t CORVANE_STDCALL exportsectiongeometry(const char* path, int16_t section,
                                              corvane::LegacyGeometry* record);
int16_t CORVANE_STDCALL importsectiongeometry(const char* path, int16_t section,
                                              corvane::LegacyGeometry* record);
// `compartmentsAndLoads` is the address of the section's own compartments; ours never looks there.
int16_t CORVANE_STDCALL exportvelkcompload(const char* path, int16_t section,
                                           void* compartmentsAndLoads,
                                           corvane::LegacyCompLoad* record);
int16_t CORVANE_STDCALL importvelkcompload(const char* path, int16_t section,
                                           void* compartmentsAndLoads,
                                           corvane::LegacyCompLoad* record);

// The ship's data; the record is at the beginning of a buffer of kLegacyBsdBufferSize bytes.
// Titles are in the OEM code page.
void CORVANE_STDCALL exportvelkbsd(const char* path, const corvane::LegacyBsd* bsd,
                                   int16_t* status);
void CORVANE_STDCALL importvelknavi(const char* path, corvane::LegacyBsd* bsd, int16_t* status);
}

CORVANE_LATE_BOUND("ZTVelk32.dll", getztvelk32version)
CORVANE_LATE_BOUND("ZTVelk32.dll", createvelkdb)
CORVANE_LATE_BOUND("ZTVelk32.dll", extendvelkdb)
CORVANE_LATE_BOUND("ZTVelk32.dll", addsectvelkdb)
CORVANE_LATE_BOUND("ZTVelk32.dll", getvelksections)
CORVANE_LATE_BOUND("ZTVelk32.dll", exportvelkmainsec)
CORVANE_LATE_BOUND("ZTVelk32.dll", importvelkmainsec)
CORVANE_LATE_BOUND("ZTVelk32.dll", exportsectiongeometry)
CORVANE_LATE_BOUND("ZTVelk32.dll", importsectiongeometry)
CORVANE_LATE_BOUND("ZTVelk32.dll", exportvelkcompload)
CORVANE_LATE_BOUND("ZTVelk32.dll", importvelkcompload)
CORVANE_LATE_BOUND("ZTVelk32.dll", exportvelkbsd)
CORVANE_LATE_BOUND("ZTVelk32.dll", importvelknavi)
