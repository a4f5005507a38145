// A bulkhead arrangement: transverse bulkheads of the ship with their stools, stiffeners and
// corrugations, and the holds that they bound; as a BHA block of the database holds it.
// docs/bulkhead-block.md says table by table what each column is and how it is written.
//
// Numbers are those of the file, in file order. Integers of 16 bits are int16_t, of 32 bits
// int32_t; a boolean is -1 or 0. Lengths are in m, scantlings in mm; y is the distance from the
// centre line, z the height above the base line.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "database/section.h"

namespace corvane {

// Table PRIMARY STIFF: a girder or web frame of the bulkhead.
struct PrimaryStiffener {
    int32_t direction = 0;  // 0 horizontal, 1 vertical
    float position_m = 0;   // z of a horizontal one, y of a vertical one
    // Where it begins and ends, along its direction; for information, not every one has them.
    bool hasExtremities = false;
    float lowerExtremity_m = 0;
    float upperExtremity_m = 0;
    bool operator==(const PrimaryStiffener&) const = default;
};

// Table BRACK SCANT: the bracket at an end of a secondary stiffener. The scantlings and the length
// are in the file when the bracket is enabled.
struct EndBracket {
    int16_t enabled = 0;  // boolean
    int16_t fixed = 0;    // boolean: its end cannot turn
    Scantlings scantlings;
    float length_m = 0;
    bool operator==(const EndBracket&) const = default;
};

// What a span of a secondary stiffener, between two primary ones, has instead of its stiffener's:
// table SPAN SCANT has the spans with scantlings, table SPAN BRACK those with bracket lengths.
struct BulkheadSpan {
    bool hasScantlings = false;
    Scantlings scantlings;
    int16_t material = 0;
    bool hasBrackets = false;
    float lowerBracketLength_m = 0;
    float upperBracketLength_m = 0;
    bool operator==(const BulkheadSpan&) const = default;
};

// Table SECONDARY STIFF: an ordinary stiffener of the bulkhead.
struct SecondaryStiffener {
    float position_m = 0;  // y of a vertical one, z of a horizontal one
    Scantlings scantlings;
    int16_t material = 0;
    int32_t spanCount = 0;
    float lowerExtremity_m = 0;  // where it begins and ends, along its direction
    float upperExtremity_m = 0;
    float spanReduction_m = 0;
    int32_t connection = 0;                 // type of the end connections
    Array<EndBracket, 1, 2> brackets;       // at the lower and at the upper extremity
    std::map<int16_t, BulkheadSpan> spans;  // by number, from 1; only those that have anything
    bool operator==(const SecondaryStiffener&) const = default;
};

// Table BH CORR: the corrugations of the bulkhead's plating.
struct Corrugation {
    float start_m = 0;       // y where the first one begins
    float pitch_m = 0;       // S1: from one to the next
    float flange_m = 0;      // a: breadth of the flange
    float depth_m = 0;       // d
    int16_t fixedUpper = 0;  // booleans: the supports cannot turn
    int16_t fixedLower = 0;
    bool operator==(const Corrugation&) const = default;
};

// Table BH STRAKE: a plate of a band of the bulkhead. A band is a part of the height, counted from
// below; its strakes are plates side by side, from the centre line outwards.
struct BulkheadStrake {
    float z_m = 0;  // upper edge
    float y_m = 0;  // outer edge
    float thickness_mm = 0;
    int16_t material = 0;
    bool operator==(const BulkheadStrake&) const = default;
};

struct Stool {
    int16_t enabled = 0;  // boolean
    float z_m = 0;        // of the end where the bulkhead meets it
    bool operator==(const Stool&) const = default;
};

// Nodes are defined as in a section, but never as the intersection of a line with a strake.
struct Bulkhead {
    std::wstring name;  // at most 40 characters
    int32_t kind = 0;   // 0 plane, 1 corrugated
    int16_t material = 0;
    int32_t stiffening = 0;     // direction of stiffeners or corrugations: 0 horizontal, 1 vertical
    int32_t stiffenedSide = 0;  // -1 aft, 1 fore
    Array<Stool, 1, 2> stools;  // lower and upper
    // For information: a code, then x of the aft and the fore end of the lower stool, and of the
    // upper one.
    int16_t stoolEndCode = 0;
    Array<float, 1, 4> stoolEnds_m;
    std::vector<Node> nodes;
    std::vector<int16_t> absoluteCodes;  // as of a panel
    std::vector<PrimaryStiffener> primaryStiffeners;
    std::vector<SecondaryStiffener> secondaryStiffeners;
    Corrugation corrugation;
    std::map<int16_t, std::vector<BulkheadStrake>> bands;  // strakes, by number of the band from 1
};

struct Hopper {
    float breadth_m = 0;
    float top_m = 0;  // z
    bool operator==(const Hopper&) const = default;
};

struct BulkheadArrangement {
    std::wstring name;       // at most 1,000 characters are written
    std::string identifier;  // ANSI; unique among all models; a writer makes one where it is empty
    double formatVersion = 0;  // of the block that was read

    float x_m = 0;  // position along the ship
    float stoolVolume_m3 = 0;
    int32_t symmetric = 0;  // boolean: one half is described
    Hopper aftHopper;       // of the holds aft and fore of the bulkheads
    Hopper foreHopper;
    int32_t stateType = 0;  // the condition of the ship that is looked at
    int16_t stateIndex = 0;

    std::vector<Bulkhead> bulkheads;
    std::vector<Compartment> holds;  // without outlines
};

}  // namespace corvane
