#include "tests/database/section_sample.h"

#include <algorithm>

#include "tests/database/block_sample.h"

namespace corvane::test {
namespace {

Panel FirstPanel() {
    Panel panel;
    panel.name = L"Bottom";
    panel.spacing_m = 0.8f;
    panel.span_m = 3.2f;
    panel.thickness_mm = 15.5f;
    panel.kind = 1;
    panel.material = 2;

    panel.nodes.resize(3);
    for (int16_t i = 0; i < 3; ++i) {
        panel.nodes[i].kind = kNodeGiven;
        panel.nodes[i].number = static_cast<int16_t>(i + 1);
    }
    panel.nodes[1].givenY = 14.5f;
    panel.nodes[1].shape = kShapeArcByTangent;
    panel.nodes[1].tangentY = 16.1f;
    panel.nodes[2].givenY = 16.1f;
    panel.nodes[2].givenZ = 1.6f;
    panel.nodes[2].shape = kShapeArcByRadius;
    panel.nodes[2].radius = -1.6f;

    panel.plates = {{2.4f, 16, 1, 0.8f, 3.2f, 0}, {16.5f, 15.5f, 2, 0.75f, 3.2f, -1}};
    return panel;
}

void AddStiffeners(Panel& panel) {
    Stiffener first{};
    first.onStrake = 1;
    first.onNode = 1;
    first.count = 10;
    first.offset = 0.8f;
    first.side = -1;
    first.spacing = 0.8f;
    Stiffener second{};
    second.count = 1;
    second.offset = 15.2f;
    second.side = 1;
    panel.stiffeners = {first, second};

    Span bulb;
    bulb.scantlings = {kProfileBulb, 260, 12, 0, 0};
    bulb.length_m = 3.2f;
    bulb.material = 1;
    bulb.aftLength_m = 0.25f;
    bulb.aftConnection = 1;
    bulb.foreLength_m = 0.3f;
    bulb.foreConnection = 2;
    bulb.reduction_m = 0.55f;
    bulb.spacing_m = 0.8f;
    bulb.position = 1;
    Span tee;
    tee.scantlings = {kProfileTee, 400, 11, 150, 18};
    tee.length_m = 3.2f;
    tee.material = 2;
    tee.spacing_m = 0.8f;
    tee.bracket = {true, 4, 0.6f, {kProfileFlat, 300, 12, 0, 0}, 1};
    tee.position = 2;
    tee.fatigue = {true, 3.2f, 12, 2, 1, 0.5f, 3, {{100, -90, 80.5f, 0, 0, 0, 0, 0, 1e-5f}}};
    Span angle;
    angle.scantlings = {kProfileAngle, 200, 9, 90, 14};
    angle.length_m = 2.8f;
    angle.material = 1;
    angle.spacing_m = 0.75f;
    angle.position = -1;
    panel.stiffenerDetails.resize(2);
    panel.stiffenerDetails[0] = {3, -1, {bulb, tee}};
    panel.stiffenerDetails[1].spans = {angle};
}

PrimaryBracket SampleBracket() {
    PrimaryBracket bracket;
    bracket.item = 1;
    bracket.from = {1, 2};
    bracket.to = {2, 1};
    bracket.aftFrame = 120;
    bracket.foreFrame = 124;
    bracket.side = -1;
    bracket.armLength_m = 2.5f;
    bracket.kind = 3;
    bracket.material = 1;
    bracket.endType = 2;
    bracket.scantlings(1) = {kProfileFlat, 1200, 12, 0, 0};
    bracket.scantlings(2) = {kProfileAngle, 1000, 12, 150, 15};
    bracket.scantlings(3) = {kProfileTee, 800, 12, 200, 20};
    bracket.middleLength_m = 1.25f;
    bracket.toeLength_m = 0.75f;
    return bracket;
}

Pillar SamplePillar() {
    Pillar pillar;
    pillar.item = 1;
    pillar.to = {1, 2};
    pillar.count = 3;
    pillar.kind = 5;
    pillar.length_m = 8.5f;
    pillar.offset_m = 0.4f;
    pillar.material = 1;
    pillar.profile = 2;
    pillar.area_cm2 = 120.5f;
    pillar.lowerConnection = 6;
    pillar.upperConnection = 7;
    pillar.webHeight_mm = 300;
    pillar.slenderness = 80;
    pillar.webThickness_mm = 11.5f;
    pillar.corrosion = 2;
    return pillar;
}

Panel SecondPanel() {
    Panel panel;
    panel.name = L"Inner side of exactly forty characters,,";
    panel.spacing_m = 0.75f;
    panel.span_m = 3.2f;
    panel.thickness_mm = 12;
    panel.kind = 4;
    panel.material = 1;
    panel.nodes.resize(2);
    panel.nodes[0].givenZ = -0.5f;
    panel.nodes[0].relative = -1;
    panel.nodes[0].onStrake = 1;
    panel.nodes[0].onNode = 3;
    panel.nodes[0].kind = kNodeOffset;
    panel.nodes[0].number = 4;
    panel.nodes[1].inter = 2;
    panel.nodes[1].kind = kNodeIntersection;
    panel.nodes[1].number = 5;
    const float line[] = {10, 0, 10, 19, -0.25f};
    std::copy_n(line, 5, panel.nodes[1].extension);
    panel.nodes[1].extensionStrake = 1;
    panel.plates = {{9.125f, 12, 1, 0.75f, 3.2f, 1}};
    panel.openings = {{1, {2, 1}, 3, 4, -1, 118, 126, 0.8f, 0.6f}};
    panel.pillars = {SamplePillar()};
    return panel;
}

void SetHead(SectionModel& section) {
    section.name = L"Frame 100";
    section.identifier = "ID-0001";
    section.formatVersion = 2.002;
    section.x_m = 12.5f;
    section.breadth_m = 32.2f;
    section.depth_m = 19;
    section.draught_m = 12.5f;
    section.shipType = 3;
    section.classCode = 1;
    section.navigationCode = -2;
    section.frameSpacing_m = 0.8f;
    section.webSpacing_m = 3.2f;
    section.stillWaterMoment_kNm = {{1500, -1800, 900.5f}};
    section.waveMoment_kNm = {{2500, -2600, 0}};
    section.shearForce_kN = {{-0.25f, 12000000, 0}};
    section.deckModulus_m3 = 20.5f;
    section.bottomModulus_m3 = 25.125f;
    section.bottomSlope_deg = 30;
    section.sideSlope_deg = 45;
    section.stressRule = 1;
    section.bucklingRule = 2;
    section.moduliAbsent = -1;
    section.ballastDraught_m = 6.75f;
    section.symmetryMode = 1;
    section.materialGroup = 2;
    section.corrosionRule = 3;
    section.holdLength_m = 25.6f;
    section.holdAft_m = 100;
    section.neutralAxis_m = 7.5f;
    section.area_m2 = 3.25f;
    section.inertiaY_m4 = 150;
    section.inertiaZ_m4 = 0.0001f;
    section.resultCodes = {{1, 2, 3, 4}};
    section.resultsValid = -1;
}

// ---- Random sections ---------------------------------------------------------------------------

Span RandomSpan(RandomRow& row) {
    Span span;
    FillProfile(row, span.scantlings);
    Fill(row, span.length_m, span.material, span.aftLength_m, span.aftConnection, span.foreLength_m,
         span.foreConnection, span.reduction_m, span.spacing_m, span.position);
    span.bracket.present = row.Below(3) == 0;
    if (span.bracket.present) {
        Fill(row, span.bracket.kind, span.bracket.length_m, span.bracket.material);
        FillProfile(row, span.bracket.scantlings);
    }
    span.fatigue.present = row.Below(4) == 0;
    if (span.fatigue.present) {
        Fill(row, span.fatigue.length_m, span.fatigue.detail, span.fatigue.weld,
             span.fatigue.environment, span.fatigue.gap_mm, span.fatigue.grade);
        FillAll(row, span.fatigue.stress_MPa);
    }
    return span;
}

Panel RandomPanel(RandomRow& row) {
    Panel panel;
    panel.name = RandomName(row);
    Fill(row, panel.spacing_m, panel.span_m, panel.thickness_mm, panel.kind, panel.material);
    for (uint32_t i = row.Below(6); i > 0; --i) panel.nodes.push_back(RandomNode(row));
    panel.plates.resize(row.Below(4));
    for (Plate& plate : panel.plates) {
        Fill(row, plate.end_m, plate.thickness_mm, plate.material, plate.spacing_m, plate.span_m,
             plate.corrosionSide);
    }
    panel.stiffeners.resize(row.Below(5));
    for (Stiffener& stiffener : panel.stiffeners) {
        Fill(row, stiffener.onStrake, stiffener.onNode, stiffener.count, stiffener.offset,
             stiffener.side, stiffener.spacing);
        StiffenerDetail& detail = panel.stiffenerDetails.emplace_back();
        Fill(row, detail.connection, detail.mirrored);
        for (uint32_t i = row.Below(4); i > 0; --i) detail.spans.push_back(RandomSpan(row));
    }
    panel.brackets.resize(row.Below(2));
    for (PrimaryBracket& bracket : panel.brackets) {
        Fill(row, bracket.item, bracket.from.strake, bracket.to.node, bracket.side,
             bracket.armLength_m, bracket.endType, bracket.middleLength_m, bracket.toeLength_m);
        for (Scantlings& profile : bracket.scantlings.elements) FillProfile(row, profile);
    }
    panel.openings.resize(row.Below(2));
    for (Opening& opening : panel.openings) {
        Fill(row, opening.item, opening.at.strake, opening.at.node, opening.shape,
             opening.breadth_m);
    }
    panel.pillars.resize(row.Below(2));
    for (Pillar& pillar : panel.pillars) {
        Fill(row, pillar.item, pillar.to.strake, pillar.kind, pillar.length_m, pillar.offset_m,
             pillar.slenderness, pillar.webThickness_mm, pillar.corrosion);
    }
    return panel;
}

}  // namespace

SectionModel FullSection() {
    SectionModel section;
    SetHead(section);
    section.panels = {FirstPanel(), SecondPanel()};
    AddStiffeners(section.panels[0]);
    section.panels[0].brackets = {SampleBracket()};
    section.compartments = {SampleCompartment(), Compartment()};
    section.compartments[0].name = L"Double bottom 3 P";
    section.compartments[0].outline = {{1, 1}, {1, 2}, {2, 1}};
    section.compartments[1].name = L"Void";
    return section;
}

SectionModel RandomSection(uint32_t seed) {
    RandomRow row{std::mt19937(seed)};
    SectionModel section;
    section.name = RandomName(row);
    section.identifier = "ID-" + std::to_string(seed);
    Fill(row, section.x_m, section.breadth_m, section.depth_m, section.draught_m, section.shipType,
         section.classCode, section.navigationCode, section.frameSpacing_m, section.webSpacing_m,
         section.deckModulus_m3, section.bottomModulus_m3, section.bottomSlope_deg,
         section.sideSlope_deg, section.stressRule, section.bucklingRule, section.momentsAbsent,
         section.moduliAbsent, section.tolerance_m, section.ballastDraught_m, section.cargoHeight_m,
         section.symmetryMode, section.materialGroup, section.corrosionRule, section.holdLength_m,
         section.holdAft_m, section.neutralAxis_m, section.area_m2, section.inertiaY_m4,
         section.inertiaZ_m4);
    FillAll(row, section.stillWaterMoment_kNm);
    FillAll(row, section.waveMoment_kNm);
    FillAll(row, section.shearForce_kN);
    for (int16_t& code : section.resultCodes.elements) Fill(row, code);
    section.resultsValid = static_cast<int16_t>(row.Below(2) == 0 ? 0 : -1);
    for (uint32_t i = row.Below(6); i > 0; --i) section.panels.push_back(RandomPanel(row));
    for (uint32_t i = row.Below(4); i > 0; --i) {
        section.compartments.push_back(RandomCompartment(row));
    }
    for (Compartment& compartment : section.compartments) {
        for (uint32_t i = row.Below(8); i > 0; --i) {
            compartment.outline.push_back(
                {static_cast<int16_t>(row.Below(30)), static_cast<int16_t>(1 + row.Below(30))});
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
