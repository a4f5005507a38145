#include "tests/database/section_sample.h"

#include <algorithm>

#include "tests/database/block_sample.h"
#include "tests/support/support.h"

namespace corvane::test {
namespace {

Panel RandomPanel(Chance& chance) {
    Panel panel;
    panel.name = RandomName(chance);
    Fill(chance, panel.spacing_m, panel.span_m, panel.thickness_mm, panel.kind, panel.material);
    for (uint32_t i = chance.Below(6u); i > 0; --i) panel.nodes.push_back(RandomNode(chance));
    for (uint32_t i = chance.Below(4u); i > 0; --i) panel.plates.push_back(RandomPlate(chance));
    panel.stiffeners.resize(chance.Below(5u));
    for (Stiffener& stiffener : panel.stiffeners) {
        Fill(chance, stiffener.onStrake, stiffener.onNode, stiffener.count, stiffener.offset,
             stiffener.side, stiffener.spacing);
        StiffenerDetail& detail = panel.stiffenerDetails.emplace_back();
        Fill(chance, detail.connection, detail.mirrored);
        for (uint32_t i = chance.Below(4u); i > 0; --i) detail.spans.push_back(RandomSpan(chance));
    }
    if (chance.OneIn(2)) panel.brackets.push_back(RandomBracket(chance));
    if (chance.OneIn(2)) panel.openings.push_back(RandomOpening(chance));
    if (chance.OneIn(2)) panel.pillars.push_back(RandomPillar(chance));
    return panel;
}

}  // namespace

SectionModel FullSection() {
    return ReadText(ReadFileBytes(DataPath("golden/section_full.ve2")));
}

Span RandomSpan(Chance& chance) {
    Span span;
    FillProfile(chance, span.scantlings);
    Fill(chance, span.length_m, span.material, span.aftLength_m, span.aftConnection,
         span.foreLength_m, span.foreConnection, span.reduction_m, span.spacing_m, span.position);
    span.bracket.present = chance.Below(3u) == 0;
    if (span.bracket.present) {
        Fill(chance, span.bracket.kind, span.bracket.length_m, span.bracket.material);
        FillProfile(chance, span.bracket.scantlings);
    }
    span.fatigue.present = chance.Below(4u) == 0;
    if (span.fatigue.present) {
        Fill(chance, span.fatigue.length_m, span.fatigue.detail, span.fatigue.weld,
             span.fatigue.environment, span.fatigue.gap_mm, span.fatigue.grade);
        FillAll(chance, span.fatigue.stress_MPa);
    }
    return span;
}

Plate RandomPlate(Chance& chance) {
    Plate plate;
    Fill(chance, plate.end_m, plate.thickness_mm, plate.material, plate.spacing_m, plate.span_m,
         plate.corrosionSide);
    return plate;
}

PrimaryBracket RandomBracket(Chance& chance) {
    PrimaryBracket bracket;
    Fill(chance, bracket.item, bracket.from.strake, bracket.from.node, bracket.to.strake,
         bracket.to.node, bracket.aftFrame, bracket.foreFrame, bracket.side, bracket.armLength_m,
         bracket.kind, bracket.material, bracket.endType, bracket.middleLength_m,
         bracket.toeLength_m);
    for (Scantlings& profile : bracket.scantlings.elements) FillProfile(chance, profile);
    return bracket;
}

Opening RandomOpening(Chance& chance) {
    Opening opening;
    Fill(chance, opening.item, opening.at.strake, opening.at.node, opening.shape, opening.count,
         opening.reinforced, opening.aftFrame, opening.foreFrame, opening.length_m,
         opening.breadth_m);
    return opening;
}

Pillar RandomPillar(Chance& chance) {
    Pillar pillar;
    Fill(chance, pillar.item, pillar.to.strake, pillar.to.node, pillar.count, pillar.kind,
         pillar.length_m, pillar.offset_m, pillar.material, pillar.profile, pillar.area_cm2,
         pillar.lowerConnection, pillar.upperConnection, pillar.webHeight_mm, pillar.slenderness,
         pillar.webThickness_mm, pillar.corrosion);
    return pillar;
}

SectionModel RandomSection(uint32_t seed) {
    Chance chance(seed);
    SectionModel section;
    section.name = RandomName(chance);
    section.identifier = "ID-" + std::to_string(seed);
    Fill(chance, section.x_m, section.breadth_m, section.depth_m, section.draught_m,
         section.shipType, section.classCode, section.navigationCode, section.frameSpacing_m,
         section.webSpacing_m, section.deckModulus_m3, section.bottomModulus_m3,
         section.bottomSlope_deg, section.sideSlope_deg, section.stressRule, section.bucklingRule,
         section.momentsAbsent, section.moduliAbsent, section.tolerance_m, section.ballastDraught_m,
         section.cargoHeight_m, section.symmetryMode, section.materialGroup, section.corrosionRule,
         section.holdLength_m, section.holdAft_m, section.neutralAxis_m, section.area_m2,
         section.inertiaY_m4, section.inertiaZ_m4);
    FillAll(chance, section.stillWaterMoment_kNm);
    FillAll(chance, section.waveMoment_kNm);
    FillAll(chance, section.shearForce_kN);
    for (int16_t& code : section.resultCodes.elements) Fill(chance, code);
    section.resultsValid = static_cast<int16_t>(chance.Below(2u) == 0 ? 0 : -1);
    for (uint32_t i = chance.Below(6u); i > 0; --i) section.panels.push_back(RandomPanel(chance));
    for (uint32_t i = chance.Below(4u); i > 0; --i) {
        section.compartments.push_back(RandomCompartment(chance));
    }
    for (Compartment& compartment : section.compartments) {
        for (uint32_t i = chance.Below(8u); i > 0; --i) {
            compartment.outline.push_back({static_cast<int16_t>(chance.Below(30u)),
                                           static_cast<int16_t>(1 + chance.Below(30u))});
        }
    }
    return section;
}

std::string BodyText(SectionModel& section) {
    return BodyOf(BlockText(section, 1));
}

std::string BlockText(SectionModel& section, int32_t number) {
    return WrittenText([&](TextWriter& writer) { WriteSectionBlock(writer, section, number); });
}

SectionModel ReadText(std::string_view text, ModelKind kind) {
    SectionModel section;
    ReadFromText(text, [&](TextReader& reader) { ReadSectionLines(reader, kind, section); });
    return section;
}

}  // namespace corvane::test
