#include "tests/database/bulkhead_sample.h"

#include "tests/support/support.h"

namespace corvane::test {
namespace {

int16_t RandomFlag(Chance& chance) {
    return static_cast<int16_t>(chance.Below(2u) == 0 ? 0 : -1);
}

BulkheadSpan RandomSpan(Chance& chance) {
    BulkheadSpan span;
    span.hasScantlings = chance.Below(2u) == 0;
    span.hasBrackets = !span.hasScantlings || chance.Below(2u) == 0;
    if (span.hasScantlings) {
        FillProfile(chance, span.scantlings);
        Fill(chance, span.material);
    }
    if (span.hasBrackets) Fill(chance, span.lowerBracketLength_m, span.upperBracketLength_m);
    return span;
}

SecondaryStiffener RandomStiffener(Chance& chance) {
    SecondaryStiffener stiffener;
    FillProfile(chance, stiffener.scantlings);
    Fill(chance, stiffener.position_m, stiffener.material, stiffener.spanCount,
         stiffener.lowerExtremity_m, stiffener.upperExtremity_m, stiffener.spanReduction_m,
         stiffener.connection);
    for (EndBracket& bracket : stiffener.brackets.elements) {
        Fill(chance, bracket.fixed);
        bracket.enabled = RandomFlag(chance);
        if (bracket.enabled == 0) continue;
        FillProfile(chance, bracket.scantlings);
        Fill(chance, bracket.length_m);
    }
    for (uint32_t i = chance.Below(4u); i > 0; --i) {
        stiffener.spans[static_cast<int16_t>(1 + chance.Below(uint32_t{INT16_MAX}))] =
            RandomSpan(chance);
    }
    return stiffener;
}

PrimaryStiffener RandomPrimary(Chance& chance) {
    PrimaryStiffener stiffener;
    Fill(chance, stiffener.direction, stiffener.position_m);
    stiffener.hasExtremities = chance.Below(2u) == 0;
    if (stiffener.hasExtremities) {
        Fill(chance, stiffener.lowerExtremity_m, stiffener.upperExtremity_m);
    }
    return stiffener;
}

Node RandomBulkheadNode(Chance& chance) {
    Node node = RandomNode(chance);
    std::fill(std::begin(node.extension), std::end(node.extension), 0.0f);
    node.extensionStrake = 0;
    return node;
}

void FillStrakes(Chance& chance, Bulkhead& bulkhead) {
    for (uint32_t i = chance.Below(5u); i > 0; --i) {
        auto& band = bulkhead.bands[static_cast<int16_t>(1 + chance.Below(uint32_t{INT16_MAX}))];
        band.resize(1 + chance.Below(3u));
        for (BulkheadStrake& strake : band) {
            Fill(chance, strake.z_m, strake.y_m, strake.thickness_mm, strake.material);
        }
    }
}

Bulkhead RandomBulkhead(Chance& chance) {
    Bulkhead bulkhead;
    bulkhead.name = RandomName(chance);
    Fill(chance, bulkhead.kind, bulkhead.material, bulkhead.stiffening, bulkhead.stiffenedSide);
    for (Stool& stool : bulkhead.stools.elements) Fill(chance, stool.enabled, stool.z_m);
    Fill(chance, bulkhead.stoolEndCode);
    FillAll(chance, bulkhead.stoolEnds_m);
    for (uint32_t i = chance.Below(6u); i > 0; --i) {
        bulkhead.nodes.push_back(RandomBulkheadNode(chance));
    }
    for (uint32_t i = chance.Below(4u); i > 0; --i) {
        bulkhead.primaryStiffeners.push_back(RandomPrimary(chance));
    }
    for (uint32_t i = chance.Below(5u); i > 0; --i) {
        bulkhead.secondaryStiffeners.push_back(RandomStiffener(chance));
    }
    Corrugation& corrugation = bulkhead.corrugation;
    Fill(chance, corrugation.start_m, corrugation.pitch_m, corrugation.flange_m,
         corrugation.depth_m, corrugation.fixedUpper, corrugation.fixedLower);
    FillStrakes(chance, bulkhead);
    return bulkhead;
}

}  // namespace

BulkheadArrangement FullArrangement() {
    return ReadArrangement(ReadFileBytes(DataPath("golden/bulkhead_full.ve2")));
}

BulkheadArrangement RandomArrangement(uint32_t seed) {
    Chance chance(seed);
    BulkheadArrangement arrangement;
    arrangement.name = RandomName(chance);
    arrangement.identifier = "ID-" + std::to_string(seed);
    Fill(chance, arrangement.x_m, arrangement.stoolVolume_m3, arrangement.symmetric,
         arrangement.aftHopper.breadth_m, arrangement.aftHopper.top_m,
         arrangement.foreHopper.breadth_m, arrangement.foreHopper.top_m, arrangement.stateType,
         arrangement.stateIndex);
    for (uint32_t i = chance.Below(5u); i > 0; --i) {
        arrangement.bulkheads.push_back(RandomBulkhead(chance));
    }
    for (uint32_t i = chance.Below(4u); i > 0; --i) {
        arrangement.holds.push_back(RandomCompartment(chance));
        arrangement.holds.back().ballastHold = RandomFlag(chance);
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
