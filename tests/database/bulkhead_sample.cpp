#include "tests/database/bulkhead_sample.h"

namespace corvane::test {
namespace {

Node GivenNode(float y, float z, int16_t number) {
    Node node{};
    node.kind = kNodeGiven;
    node.givenY = y;
    node.givenZ = z;
    node.number = number;
    return node;
}

Bulkhead Corrugated() {
    Bulkhead bulkhead;
    bulkhead.name = L"Corrugated, frame 136";
    bulkhead.kind = 1;
    bulkhead.material = 2;
    bulkhead.stiffening = 1;
    bulkhead.stools = {{Stool{-1, 5.75f}, Stool{-1, 16.2f}}};
    bulkhead.stoolEndCode = 3;
    bulkhead.stoolEnds_m = {{103.1f, 106.4f, 103.6f, 105.9f}};
    bulkhead.nodes = {GivenNode(0, 5.75f, 1), GivenNode(11.9f, 5.75f, 2),
                      GivenNode(16.1f, 9.95f, 3)};
    bulkhead.nodes[1].shape = kShapeArcByTangent;
    bulkhead.nodes[1].tangentY = 16.1f;
    bulkhead.nodes[1].tangentZ = 5.75f;
    bulkhead.nodes[2].shape = kShapeArcByRadius;
    bulkhead.nodes[2].radius = -4.2f;
    bulkhead.corrugation = {0.45f, 2.1f, 1.05f, -0.95f, -1, 0};
    bulkhead.bands[1] = {{8.4f, 6.3f, 18.5f, 2}, {8.4f, 14.2f, 17, 2}};
    bulkhead.bands[3] = {{16.2f, 14.2f, 14, 1}};
    return bulkhead;
}

SecondaryStiffener BulbStiffener() {
    SecondaryStiffener stiffener;
    stiffener.position_m = 0.8f;
    stiffener.scantlings = {kProfileBulb, 260, 12, 0, 0};
    stiffener.material = 1;
    stiffener.spanCount = 2;
    stiffener.lowerExtremity_m = 1.75f;
    stiffener.upperExtremity_m = 14.5f;
    stiffener.spanReduction_m = 0.15f;
    stiffener.connection = 3;
    stiffener.brackets(1) = {-1, -1, {kProfileFlat, 300, 12, 100, 15}, 0.6f};
    stiffener.brackets(2).fixed = -1;
    stiffener.spans[2] = {true, {kProfileAngle, 240, 11, 90, 14}, 2, true, 0.35f, 0};
    return stiffener;
}

SecondaryStiffener TeeStiffener() {
    SecondaryStiffener stiffener;
    stiffener.position_m = 1.6f;
    stiffener.scantlings = {kProfileTee, 400, 11, 150, 18};
    stiffener.material = 2;
    stiffener.spanCount = 3;
    stiffener.lowerExtremity_m = -0.5f;
    stiffener.upperExtremity_m = 1.2e7f;
    stiffener.brackets(2) = {1, 0, {kProfileAngle, 250, 10, 0, 0}, 0.45f};
    stiffener.spans[1] = {false, {}, 0, true, 0.5f, 0.55f};
    stiffener.spans[3] = {true, {kProfileTee, 350, 10, 125, 16}, 1, false, 0, 0};
    return stiffener;
}

Bulkhead Plane() {
    Bulkhead bulkhead;
    bulkhead.name = L"Plane bulkhead of just forty characters,";
    bulkhead.material = 1;
    bulkhead.stiffening = -1;
    bulkhead.stiffenedSide = 1;
    bulkhead.nodes = {GivenNode(-0.25f, 0.5f, 4), GivenNode(0, 12, 5)};
    bulkhead.nodes[0].relative = -1;
    bulkhead.nodes[0].onStrake = 1;
    bulkhead.nodes[0].onNode = 3;
    bulkhead.nodes[0].kind = kNodeOffset;
    bulkhead.nodes[1].inter = 2;
    bulkhead.nodes[1].onStrake = 1;
    bulkhead.nodes[1].kind = kNodeIntersection;
    bulkhead.primaryStiffeners = {{0, 9, true, 0, 14.5f}, {1, 5.6f, false, 0, 0}};
    bulkhead.secondaryStiffeners = {BulbStiffener(), TeeStiffener()};
    bulkhead.bands[1] = {{14.5f, 14.5f, 0.0001f, -1}};
    return bulkhead;
}

// ---- At random ---------------------------------------------------------------------------------

int16_t RandomFlag(RandomRow& row) {
    return static_cast<int16_t>(row.Below(2) == 0 ? 0 : -1);
}

BulkheadSpan RandomSpan(RandomRow& row) {
    BulkheadSpan span;
    span.hasScantlings = row.Below(2) == 0;
    span.hasBrackets = !span.hasScantlings || row.Below(2) == 0;
    if (span.hasScantlings) {
        FillProfile(row, span.scantlings);
        Fill(row, span.material);
    }
    if (span.hasBrackets) Fill(row, span.lowerBracketLength_m, span.upperBracketLength_m);
    return span;
}

SecondaryStiffener RandomStiffener(RandomRow& row) {
    SecondaryStiffener stiffener;
    FillProfile(row, stiffener.scantlings);
    Fill(row, stiffener.position_m, stiffener.material, stiffener.spanCount,
         stiffener.lowerExtremity_m, stiffener.upperExtremity_m, stiffener.spanReduction_m,
         stiffener.connection);
    for (EndBracket& bracket : stiffener.brackets.elements) {
        Fill(row, bracket.fixed);
        bracket.enabled = RandomFlag(row);
        if (bracket.enabled == 0) continue;
        FillProfile(row, bracket.scantlings);
        Fill(row, bracket.length_m);
    }
    for (uint32_t i = row.Below(4); i > 0; --i) {
        stiffener.spans[static_cast<int16_t>(1 + row.Below(INT16_MAX))] = RandomSpan(row);
    }
    return stiffener;
}

PrimaryStiffener RandomPrimary(RandomRow& row) {
    PrimaryStiffener stiffener;
    Fill(row, stiffener.direction, stiffener.position_m);
    stiffener.hasExtremities = row.Below(2) == 0;
    if (stiffener.hasExtremities) {
        Fill(row, stiffener.lowerExtremity_m, stiffener.upperExtremity_m);
    }
    return stiffener;
}

Node RandomBulkheadNode(RandomRow& row) {
    Node node = RandomNode(row);
    std::fill(std::begin(node.extension), std::end(node.extension), 0.0f);
    node.extensionStrake = 0;
    return node;
}

void FillStrakes(RandomRow& row, Bulkhead& bulkhead) {
    for (uint32_t i = row.Below(5); i > 0; --i) {
        auto& band = bulkhead.bands[static_cast<int16_t>(1 + row.Below(INT16_MAX))];
        band.resize(1 + row.Below(3));
        for (BulkheadStrake& strake : band) {
            Fill(row, strake.z_m, strake.y_m, strake.thickness_mm, strake.material);
        }
    }
}

Bulkhead RandomBulkhead(RandomRow& row) {
    Bulkhead bulkhead;
    bulkhead.name = RandomName(row);
    Fill(row, bulkhead.kind, bulkhead.material, bulkhead.stiffening, bulkhead.stiffenedSide);
    for (Stool& stool : bulkhead.stools.elements) Fill(row, stool.enabled, stool.z_m);
    Fill(row, bulkhead.stoolEndCode);
    FillAll(row, bulkhead.stoolEnds_m);
    for (uint32_t i = row.Below(6); i > 0; --i) {
        bulkhead.nodes.push_back(RandomBulkheadNode(row));
    }
    for (uint32_t i = row.Below(4); i > 0; --i) {
        bulkhead.primaryStiffeners.push_back(RandomPrimary(row));
    }
    for (uint32_t i = row.Below(5); i > 0; --i) {
        bulkhead.secondaryStiffeners.push_back(RandomStiffener(row));
    }
    Corrugation& corrugation = bulkhead.corrugation;
    Fill(row, corrugation.start_m, corrugation.pitch_m, corrugation.flange_m, corrugation.depth_m,
         corrugation.fixedUpper, corrugation.fixedLower);
    FillStrakes(row, bulkhead);
    return bulkhead;
}

}  // namespace

BulkheadArrangement FullArrangement() {
    BulkheadArrangement arrangement;
    arrangement.name = L"Bulkheads of hold 3";
    arrangement.identifier = "ID-0003";
    arrangement.formatVersion = 0.443;
    arrangement.x_m = 104.75f;
    arrangement.stoolVolume_m3 = 1250.5f;
    arrangement.symmetric = -1;
    arrangement.aftHopper = {4.25f, 6.5f};
    arrangement.foreHopper = {4, 6.25f};
    arrangement.stateType = 2;
    arrangement.stateIndex = 3;
    arrangement.bulkheads = {Corrugated(), Plane()};
    arrangement.holds = {SampleCompartment(), Compartment()};
    Compartment& hold = arrangement.holds[0];
    hold.name = L"Hold 3";
    hold.contents = 2;
    hold.kind = 1;
    hold.ends = {{106, 136}};
    hold.ballastHold = -1;
    arrangement.holds[1].name = L"Hold 4";
    return arrangement;
}

BulkheadArrangement RandomArrangement(uint32_t seed) {
    RandomRow row{std::mt19937(seed)};
    BulkheadArrangement arrangement;
    arrangement.name = RandomName(row);
    arrangement.identifier = "ID-" + std::to_string(seed);
    Fill(row, arrangement.x_m, arrangement.stoolVolume_m3, arrangement.symmetric,
         arrangement.aftHopper.breadth_m, arrangement.aftHopper.top_m,
         arrangement.foreHopper.breadth_m, arrangement.foreHopper.top_m, arrangement.stateType,
         arrangement.stateIndex);
    for (uint32_t i = row.Below(5); i > 0; --i) {
        arrangement.bulkheads.push_back(RandomBulkhead(row));
    }
    for (uint32_t i = row.Below(4); i > 0; --i) {
        arrangement.holds.push_back(RandomCompartment(row));
        arrangement.holds.back().ballastHold = RandomFlag(row);
    }
    return arrangement;
}

std::string BodyText(BulkheadArrangement& arrangement) {
    return BodyOf(BlockText(arrangement, 1));
}

std::string BlockText(BulkheadArrangement& arrangement, int32_t number) {
    return WrittenText(
        [&](TextWriter& writer) { WriteBulkheadBlock(writer, arrangement, number); });
}

BulkheadArrangement ReadArrangement(std::string_view text) {
    BulkheadArrangement arrangement;
    ReadFromText(text, [&](TextReader& reader) { ReadBulkheadLines(reader, arrangement); });
    return arrangement;
}

}  // namespace corvane::test
