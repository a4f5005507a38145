// One transverse section of the hull, as a SECTION block of the database holds it.
// docs/section-block.md says table by table what each column is and how it is written; the lines
// are declared in database/section_lines.h.
//
// A panel is a strake of the section: its line through the nodes, its plates, its stiffeners. The
// nodes and stiffeners that the geometry library works on are the library's own records
// (platform/grvelk.h); database/section_view.h hands them over in place.
//
// Numbers are those of the file, in file order, and none is checked: a number that the editor of
// the suite would refuse is kept. Fields without a comment have a meaning for the suite's programs
// only. Integers of 16 bits are int16_t, of 32 bits int32_t; a boolean is -1 or 0. Lengths are in
// m, scantlings in mm, angles in degrees. The defaults are those of a field that a block lacks.
//
// A list has at most 32,767 items (kMostItems): its items are numbered with 16 bits, from 1.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/grvelk.h"
#include "text/array.h"

namespace corvane {

// Profile of a stiffener, a bracket or a web: the group typ, h1, e1, h2, e2.
struct Scantlings {
    int32_t type = kProfileFlat;  // kProfile...
    float webHeight_mm = 0;
    float webThickness_mm = 0;
    float flangeBreadth_mm = 0;
    float flangeThickness_mm = 0;
    float webGap_mm = 0;  // between the two webs of a doubled profile; not written
    bool operator==(const Scantlings&) const = default;
};

// Table 3: a plate of the strake, from where the one before it ends.
struct Plate {
    float end_m = 0;  // abscissa on the strake
    float thickness_mm = 0;
    int32_t material = 0;
    float spacing_m = 0;  // of the stiffeners on it
    float span_m = 0;     // of the stiffeners on it
    int16_t corrosionSide = 0;
    bool operator==(const Plate&) const = default;
};

// Table 11: stresses at the nine points of a span where fatigue is checked.
struct FatigueTable {
    bool present = false;  // whether the block has rows for it
    float length_m = 0;
    int16_t detail = 0;
    int32_t weld = 0;
    int32_t environment = 0;
    float gap_mm = 0;
    int16_t grade = 0;
    Array<float, 1, 9> stress_MPa;
    bool operator==(const FatigueTable&) const = default;
};

// The end bracket of a span, in the columns that only a span with a bracket has.
struct SpanBracket {
    bool present = false;
    int32_t kind = 0;
    float length_m = 0;
    Scantlings scantlings;
    int16_t material = 0;
    bool operator==(const SpanBracket&) const = default;
};

// Table 5: a span of a stiffener, between two supports along the ship.
struct Span {
    Scantlings scantlings;
    float length_m = 0;
    int16_t material = 0;
    float aftLength_m = 0;  // subtracted at the aft end by the connection there
    int16_t aftConnection = 0;
    float foreLength_m = 0;
    int16_t foreConnection = 0;
    float reduction_m = 0;
    float spacing_m = 0;
    SpanBracket bracket;
    int32_t position = 0;
    FatigueTable fatigue;
    bool operator==(const Span&) const = default;
};

// What a stiffener row has besides its place (table 4; the place is the library's Stiffener).
struct StiffenerDetail {
    int32_t connection = 0;   // type of the end connections
    int32_t mirrored = 0;     // boolean: flanges turned the other way
    std::vector<Span> spans;  // the first one gives the profile that is drawn
    // What the file's number of spans has above the number of the rows; 0 in a sound block.
    int64_t spanCountExcess = 0;
    bool operator==(const StiffenerDetail&) const = default;
};

// Table 8: a primary bracket or web between a node of the panel and another one.
struct PrimaryBracket {
    int16_t item = 0;      // its own number
    NodeReference from{};  // on the panel
    NodeReference to{};
    int16_t aftFrame = 0;  // frame numbers
    int16_t foreFrame = 0;
    int16_t side = 0;
    float armLength_m = 0;
    int32_t kind = 0;
    int16_t material = 0;
    int32_t endType = 0;
    Array<Scantlings, 1, 3> scantlings;  // at the root, in the middle, at the toe
    float middleLength_m = 0;
    float toeLength_m = 0;
};

// Table 9: an opening in the panel's plating.
struct Opening {
    int16_t item = 0;    // its own number
    NodeReference at{};  // where it is in the section
    int16_t shape = 0;
    int16_t count = 0;
    int16_t reinforced = 0;  // boolean
    int16_t aftFrame = 0;
    int16_t foreFrame = 0;
    float length_m = 0;
    float breadth_m = 0;
};

// Table 10: a pillar or cross tie from the panel to another one. Two lines.
struct Pillar {
    int16_t item = 0;    // its own number
    NodeReference to{};  // its other end
    int16_t count = 0;
    int32_t kind = 0;
    float length_m = 0;
    float offset_m = 0;  // abscissa on the panel
    int16_t material = 0;
    int32_t profile = kProfileFlat;  // kProfile...
    float area_cm2 = 0;
    int16_t lowerConnection = 0;
    int32_t upperConnection = 0;
    float webHeight_mm = 0;
    int32_t slenderness = 0;
    float webThickness_mm = 0;
    int16_t corrosion = 0;
};

// Tables 1 to 4 and 8 to 10: one panel.
struct Panel {
    std::wstring name;  // at most 40 characters
    float spacing_m = 0;
    float span_m = 0;
    float thickness_mm = 0;
    int16_t kind = 0;  // bottom, side, deck, longitudinal bulkhead ...
    int16_t material = 0;
    // What the file's numbers of nodes, plates, stiffeners and brackets have above the numbers of
    // the rows; 0 in a sound block.
    Array<int32_t, 1, 4> countExcess;
    std::vector<Node> nodes;  // as given; the library computes their places (section_view.h)
    // Column Abs° of the nodes that were read, from the first one on: 0 relative, any other value
    // absolute. A code that contradicts its node counts as missing.
    std::vector<int16_t> absoluteCodes;
    std::vector<Plate> plates;
    std::vector<Stiffener> stiffeners;
    std::vector<StiffenerDetail> stiffenerDetails;  // as many as stiffeners
    std::vector<PrimaryBracket> brackets;
    std::vector<Opening> openings;
    std::vector<Pillar> pillars;
    // Room for the library, not in the file.
    std::vector<StrakeItem> items;  // one less than nodes: the line from each node to the next
    std::vector<float> plateEnds;   // [m] abscissas, those of the plates
};

// A filling level of a tank, and the free surface there. A row has room for 133 of them.
struct FillingLevel {
    float level_m = 0;
    float surfaceLength_m = 0;
    float surfaceBreadth_m = 0;
    bool operator==(const FillingLevel&) const = default;
};

// Table 7: a compartment.
struct Compartment {
    std::wstring name;  // at most 1,000 characters are written
    // In order, either way round; at most 199 are written.
    std::vector<NodeReference> outline;  // without the pair that closes it
    NodeReference outlineEnd{};          // that pair: its node is 0
    int32_t contents = 0;
    int32_t kind = 0;
    int16_t symmetric = 0;
    int16_t hold = 0;
    Array<float, 1, 20> designValues;  // density [t/m3], air pipe height [m], ...: see the docs
    int32_t loadCase = 0;
    Array<float, 1, 10> stillWaterPressure_kPa;
    Array<float, 1, 10> wavePressure_kPa;
    std::vector<FillingLevel> levels;
    // What the file's number of levels has above the number of the levels; 0 in a sound block.
    int64_t levelCountExcess = 0;
    Array<int16_t, 1, 3> flags;
    Array<int16_t, 1, 2> ends;  // aft and fore frame
    int16_t closing = 0;
    int16_t ballastHold = 0;  // boolean; only a hold of a bulkhead arrangement has it in the file
    // Computed for the legacy form, not in the file.
    float area_m2 = 0;
    float centreY_m = 0;
    float centreZ_m = 0;
};

// The whole block. A new record is an empty section.
struct SectionModel {
    std::wstring name;       // at most 1,000 characters are written
    std::string identifier;  // ANSI; unique among all models; a writer makes one where it is empty
    double formatVersion = 0;  // of the block that was read

    // The head's lines, in order.
    float x_m = 0;  // position along the ship
    float breadth_m = 0;
    float depth_m = 0;
    float draught_m = 0;
    int16_t shipType = 0;  // the three codes as in the Basic Ship Data
    int16_t classCode = 0;
    int16_t navigationCode = 0;
    float frameSpacing_m = 0;
    float webSpacing_m = 0;
    // Hogging, sagging, harbour. The writer stores magnitudes.
    Array<float, 1, 3> stillWaterMoment_kNm;
    Array<float, 1, 3> waveMoment_kNm;
    Array<float, 1, 3> shearForce_kN;
    float deckModulus_m3 = 0;
    float bottomModulus_m3 = 0;
    float bottomSlope_deg = 0;
    float sideSlope_deg = 0;
    int32_t stressRule = 0;
    int32_t bucklingRule = 0;
    int32_t momentsAbsent = 0;   // boolean: the moments above are not given
    int16_t moduliAbsent = 0;    // boolean: the moduli above are not given
    float tolerance_m = 0.001f;  // points that are nearer than this are the same
    float ballastDraught_m = 0;
    float cargoHeight_m = 0;
    int32_t symmetryMode = 0;  // 0 and 2: one side is drawn; 1: both
    int16_t materialGroup = 0;
    int16_t corrosionRule = 0;
    float holdLength_m = 0;
    float holdAft_m = 0;
    // The head's last line: results, which the shell only keeps.
    float neutralAxis_m = 0;
    float area_m2 = 0;
    float inertiaY_m4 = 0;
    float inertiaZ_m4 = 0;
    Array<int16_t, 1, 4> resultCodes;
    int16_t resultsValid = 0;  // boolean

    std::vector<Panel> panels;
    std::vector<Compartment> compartments;
};

}  // namespace corvane
