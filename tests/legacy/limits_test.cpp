// What the legacy form has room for, at each limit and one beyond it.
#include <gtest/gtest.h>

#include <algorithm>

#include "report/messages.h"
#include "tests/companions/section_builder.h"
#include "tests/legacy/legacy_support.h"
#include "tests/support/recorded_reports.h"

namespace corvane {
namespace {

using namespace test;

std::vector<std::string> Lost() {
    std::vector<std::string> lost = RecordedReports::Of("lost");
    EXPECT_TRUE(RecordedReports::Of("warning").empty()) << "reported by the exchange, at its end";
    RecordedReports::events.clear();
    return lost;
}

// The loss of a section that has so many.
std::vector<std::string> Limit(int32_t number, int32_t limit, int32_t count) {
    return {LossText(number, {limit}) + ' ' + LossText(kMsgSectionHasSoMany, {count})};
}

// Panels of four nodes, two of which define points.
SectionModel SectionOfNodes(int count) {
    SectionModel section;
    for (int16_t number = 1; count > 0; ++number, count -= 4) {
        section.panels.push_back(count >= 4 ? PanelOfNodes(2, 2, number)
                                            : PanelOfNodes(1, count - 1, number));
    }
    return section;
}

SectionModel SectionOfPoints(int count) {
    SectionModel section;
    section.panels.push_back(PanelOfNodes(count, 0, 1));
    return section;
}

// ---- Strakes, nodes, points --------------------------------------------------------------------

TEST(LegacyLimits, HundredNodesAreExportedWithoutAMessage) {
    const RecordedReports screen;
    SectionModel section = SectionOfNodes(100);
    const auto record = RecordOf(section);
    EXPECT_TRUE(Lost().empty());
    EXPECT_EQ(record->geometry.strakeFirstNode[24], 97);
    EXPECT_EQ(record->geometry.nodeClass[99], 1);
    EXPECT_EQ(SectionOf(*record).panels.back().nodes.size(), 4u);
}

TEST(LegacyLimits, HundredAndFirstNodeIsReported) {
    const RecordedReports screen;
    SectionModel section = SectionOfNodes(102);
    section.panels[0].stiffeners = {StiffenerAt(0.5F)};
    section.panels[0].stiffenerDetails.resize(1);
    section.compartments.resize(1);
    const auto record = RecordOf(section);
    EXPECT_EQ(Lost(), Limit(1025, 100, 102));
    EXPECT_EQ(record->geometry.strakeCount, 26);
    EXPECT_EQ(record->geometry.strakeFirstNode[25], 101);
    EXPECT_EQ(record->geometry.counts.stiffeners, 1) << "the later tables are filled";
    EXPECT_EQ(record->compLoad.count, 1);
    const SectionModel back = SectionOf(*record);
    ASSERT_EQ(back.panels.size(), 26u);
    EXPECT_TRUE(back.panels[25].nodes.empty());
    EXPECT_EQ(back.panels[0].stiffeners.size(), 1u);
}

TEST(LegacyLimits, FiftyNinePointsAreAccepted) {
    const RecordedReports screen;
    SectionModel section = SectionOfPoints(59);
    const auto record = RecordOf(section);
    EXPECT_TRUE(Lost().empty());
    EXPECT_EQ(record->geometry.nodePoint[58], 59);
    EXPECT_EQ(record->geometry.pointUsed[58], 1);
}

TEST(LegacyLimits, SixtiethPointIsReported) {
    const RecordedReports screen;
    SectionModel section = SectionOfPoints(60);
    section.panels.push_back(PanelOfNodes(1, 1, 2));
    section.panels[0].plates.resize(1);
    const auto record = RecordOf(section);
    EXPECT_EQ(Lost(), Limit(1025, 60, 61));
    EXPECT_EQ(record->geometry.pointUsed[59], 0);
    EXPECT_EQ(record->geometry.strakePresent[1], 0) << "the filling of strakes has stopped";
    EXPECT_EQ(record->geometry.counts.plates, 1) << "the later tables are filled";
    EXPECT_EQ(SectionOf(*record).panels.size(), 1u);
}

TEST(LegacyLimits, WhatIsBeyondALimitIsLeftOut) {
    const RecordedReports screen;
    SectionModel section = SectionOfPoints(70);
    for (size_t i = 0; i < 70; ++i) section.panels[0].nodes[i].givenY = static_cast<float>(i);
    section.panels[0].nodes[59].radius = 50;
    section.panels.push_back(PanelOfNodes(1, 1, 2));
    section.panels[1].stiffeners = {StiffenerAt(0.5F)};
    section.panels[1].stiffenerDetails.resize(1);
    section.compartments.resize(1);
    section.compartments[0].outline = {{1, 1}, {1, 59}, {1, 60}, {2, 1}, {1, 2}};
    const auto record = RecordOf(section);
    EXPECT_EQ(Lost(), Limit(1025, 60, 71));
    EXPECT_EQ(record->geometry.strakeCount, 1);
    EXPECT_EQ(record->geometry.strakeNodeCount[0], 59);
    EXPECT_EQ(record->geometry.counts.curves, 0) << "the curve of a node that has no room";
    EXPECT_EQ(record->geometry.counts.stiffeners, 0) << "what is on a strake that has no room";
    const SectionModel back = SectionOf(*record);
    EXPECT_TRUE(Lost().empty()) << "nothing in the record refers to what is missing";
    ASSERT_EQ(back.panels.size(), 1u);
    ASSERT_EQ(back.panels[0].nodes.size(), 59u);
    for (size_t i = 0; i < 59; ++i) EXPECT_EQ(back.panels[0].nodes[i].givenY, i);
    EXPECT_EQ(back.compartments[0].outline, (std::vector<NodeReference>{{1, 1}, {1, 59}, {1, 2}}));
}

TEST(LegacyLimits, ThirtyOneStrakesAreReported) {
    const RecordedReports screen;
    SectionModel section;
    for (int16_t i = 1; i <= 30; ++i) section.panels.push_back(PanelOfNodes(1, 1, i));
    auto record = RecordOf(section);
    EXPECT_TRUE(Lost().empty());
    section.panels.push_back(PanelOfNodes(1, 1, 31));
    section.panels[30].plates.resize(1);
    record = RecordOf(section);
    EXPECT_EQ(Lost(), Limit(1025, 30, 31));
    EXPECT_EQ(record->geometry.strakeCount, 30);
    EXPECT_EQ(record->geometry.counts.plates, 0) << "plates of strakes that have no room";
    EXPECT_EQ(SectionOf(*record).panels.size(), 30u);
}

// ---- The other tables --------------------------------------------------------------------------

struct Capacity {
    const char* name;
    int limit;
    int32_t message;
    void (*add)(SectionModel&, int);  // this many to a section of three panels
    int (*count)(const LegacySectionRecord&);
};

StiffenerDetail& AddStiffener(Panel& panel) {
    panel.stiffeners.push_back(StiffenerAt(0.5F));
    return panel.stiffenerDetails.emplace_back();
}

Panel& PanelFor(SectionModel& section, int i) {
    return section.panels[static_cast<size_t>(i % 3)];
}

std::vector<Span>& SpansOf(SectionModel& section) {
    return AddStiffener(section.panels[1]).spans;
}

const Capacity kCapacities[] = {
    {"stiffeners", 60, 2021,
     [](SectionModel& section, int count) {
         for (int i = 0; i < count; ++i) AddStiffener(PanelFor(section, i));
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.stiffeners; }},
    {"spans", 60, 2019,
     [](SectionModel& section, int count) {
         for (int i = 0; i < count; i += 20) {
             AddStiffener(PanelFor(section, i / 20)).spans.resize(std::min(20, count - i));
         }
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.spans; }},
    {"primary brackets", 20, 2020,
     [](SectionModel& section, int count) {
         for (int i = 0; i < count; ++i) PanelFor(section, i).brackets.emplace_back();
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.brackets; }},
    {"openings", 12, 2017,
     [](SectionModel& section, int count) {
         for (int i = 0; i < count; ++i) PanelFor(section, i).openings.emplace_back();
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.openings; }},
    {"pillars", 8, 2015,
     [](SectionModel& section, int count) {
         for (int i = 0; i < count; ++i) PanelFor(section, i).pillars.emplace_back();
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.pillars; }},
    {"plates", 60, 3550,
     [](SectionModel& section, int count) {
         for (int i = 0; i < count; ++i) PanelFor(section, i).plates.emplace_back();
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.plates; }},
    {"rounded parts", 30, 2006,
     [](SectionModel& section, int count) {
         section.panels[0] = PanelOfNodes(2, count, 1);
         for (int i = 0; i < count; ++i) {
             section.panels[0].nodes[static_cast<size_t>(i + 2)].radius = 50;
         }
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.curves; }},
    {"profiles", 40, 3552,
     [](SectionModel& section, int count) {
         std::vector<Span>& spans = SpansOf(section);
         for (int i = 0; i < count; ++i) {
             spans.emplace_back().scantlings.webHeight_mm = static_cast<float>(i + 1);
         }
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.profiles; }},
    {"brackets at spans", 20, 3553,
     [](SectionModel& section, int count) {
         for (int i = 0; i < count; ++i) {
             AddStiffener(PanelFor(section, i)).spans.emplace_back().bracket.present = true;
         }
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.spanBrackets; }},
    {"tables of fatigue", 6, 3554,
     [](SectionModel& section, int count) {
         for (int i = 0; i < count; ++i) {
             AddStiffener(PanelFor(section, i)).spans.emplace_back().fatigue.present = true;
         }
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.fatigueTables; }},
    {"filling levels", 36, 3555,
     [](SectionModel& section, int count) {
         section.compartments.resize(2);
         section.compartments[0].levels.resize(10);
         section.compartments[1].levels.resize(static_cast<size_t>(count - 10));
     },
     [](const LegacySectionRecord& record) -> int { return record.geometry.counts.levels; }},
    {"compartments", 8, 2009,
     [](SectionModel& section, int count) {
         section.compartments.resize(static_cast<size_t>(count));
     },
     [](const LegacySectionRecord& record) -> int { return record.compLoad.count; }},
    {"nodes of a compartment", 20, 2010,
     [](SectionModel& section, int count) {
         section.compartments.resize(1);
         section.compartments[0].outline.resize(static_cast<size_t>(count), {1, 1});
     },
     [](const LegacySectionRecord& record) -> int {
         return record.geometry.compartments[0].nodeCount;
     }},
};

SectionModel SectionWith(const Capacity& capacity, int count) {
    SectionModel section;
    for (int16_t i = 1; i <= 3; ++i) section.panels.push_back(PanelOfNodes(2, 0, i));
    capacity.add(section, count);
    return section;
}

TEST(LegacyLimits, TablesTakeAsManyAsTheyHold) {
    const RecordedReports screen;
    for (const Capacity& capacity : kCapacities) {
        SectionModel section = SectionWith(capacity, capacity.limit);
        const auto record = RecordOf(section);
        EXPECT_EQ(Lost(), std::vector<std::string>{}) << capacity.name;
        EXPECT_EQ(capacity.count(*record), capacity.limit) << capacity.name;
        SectionModel back = SectionOf(*record);
        SetImportedHead(section);
        section.moduliAbsent = -1;
        EXPECT_EQ(ExactText(back), ExactText(section)) << capacity.name;
    }
}

TEST(LegacyLimits, OneMoreIsReportedOnceAndLeftOut) {
    const RecordedReports screen;
    for (const Capacity& capacity : kCapacities) {
        SectionModel section = SectionWith(capacity, capacity.limit + 1);
        const auto record = RecordOf(section);
        EXPECT_EQ(Lost(), Limit(capacity.message, capacity.limit, capacity.limit + 1))
            << capacity.name;
        EXPECT_EQ(capacity.count(*record), capacity.limit) << capacity.name;
        const SectionModel back = SectionOf(*record);
        EXPECT_EQ(Lost(), std::vector<std::string>{}) << capacity.name;
    }
}

TEST(LegacyLimits, ManyMoreAreReportedOnce) {
    const RecordedReports screen;
    for (const Capacity& capacity : kCapacities) {
        if (capacity.message == kMsgTooManyProfiles) continue;  // spans would be too many, too
        if (capacity.message == kMsgTooManyCurves) continue;    // so would nodes
        SectionModel section = SectionWith(capacity, 3 * capacity.limit);
        RecordOf(section);
        EXPECT_EQ(Lost(), Limit(capacity.message, capacity.limit, 3 * capacity.limit))
            << capacity.name;
    }
}

TEST(LegacyLimits, EqualProfilesAreThereOnce) {
    const RecordedReports screen;
    SectionModel section;
    section.panels.push_back(PanelOfNodes(2, 0, 1));
    Span span;
    span.scantlings = {kProfileTee, 400, 11, 150, 18};
    AddStiffener(section.panels[0]).spans = {span, Span(), span};
    section.panels[0].brackets.resize(1);
    section.panels[0].brackets[0].scantlings(3) = span.scantlings;
    const auto record = RecordOf(section);
    EXPECT_EQ(record->geometry.counts.profiles, 1);
    EXPECT_EQ(record->geometry.spans[1].profile, 0) << "scantlings that are all 0";
    EXPECT_EQ(record->geometry.brackets[0].profiles[2], 1);
}

TEST(LegacyLimits, SpansOfStiffenersWithoutRoomAreLeftOut) {
    const RecordedReports screen;
    SectionModel section;
    section.panels.push_back(PanelOfNodes(2, 0, 1));
    for (int i = 0; i < 61; ++i) AddStiffener(section.panels[0]);
    section.panels[0].stiffenerDetails[60].spans.resize(1);
    const auto record = RecordOf(section);
    EXPECT_EQ(Lost(), Limit(2021, 60, 61));
    EXPECT_EQ(record->geometry.counts.spans, 0);
}

TEST(LegacyLimits, IntersectionsWithoutRoomAreGivenByTheirCoordinates) {
    const RecordedReports screen;
    SectionModel section;
    section.panels.push_back(PanelOfNodes(2, 0, 1));
    section.panels[0].nodes[1].givenY = 50;
    Panel& panel = section.panels.emplace_back();
    for (int i = 0; i < 11; ++i) {
        const auto y = static_cast<float>(3 * i);
        panel.nodes.push_back(LineNode(1, {y, 5, y, 0}));
    }
    section.panels[0].nodes[1].givenZ = 6;
    const auto record = RecordOf(section);
    EXPECT_EQ(Lost(), Limit(2007, 10, 11));
    EXPECT_EQ(record->geometry.counts.extensions, 10);
    const SectionModel back = SectionOf(*record);
    EXPECT_EQ(back.panels[1].nodes[9].kind, kNodeIntersection);
    EXPECT_EQ(back.panels[1].nodes[10].kind, kNodeGiven);
    EXPECT_EQ(back.panels[1].nodes[10].givenY, 30);
}

TEST(LegacyLimits, NamesThatAreCutAreReported) {
    const RecordedReports screen;
    SectionModel section;
    section.name = std::wstring(40, L'n');
    section.panels.push_back(PanelOfNodes(2, 0, 1));
    section.panels[0].name = std::wstring(26, L'p');
    section.compartments.resize(1);
    section.compartments[0].name = std::wstring(34, L'c');
    RecordOf(section);
    EXPECT_TRUE(Lost().empty());
    section.name += L'N';
    section.panels[0].name += L'P';
    section.compartments[0].name += L'C';
    RecordOf(section);
    const auto text = [](const std::wstring& name) {
        return LossText(3595, {name, name.substr(0, name.size() - 1)});
    };
    EXPECT_EQ(Lost(), (std::vector<std::string>{text(section.name), text(section.panels[0].name),
                                                text(section.compartments[0].name)}));
}

TEST(LegacyLimits, IntegersBeyondSixteenBitsAreClampedAndReportedOnce) {
    const RecordedReports screen;
    SectionModel section;
    section.panels.push_back(PanelOfNodes(2, 0, 1));
    section.compartments.resize(1);
    section.compartments[0].contents = 32767;
    section.compartments[0].kind = -32768;
    RecordOf(section);
    EXPECT_TRUE(Lost().empty());
    section.compartments[0].contents = 32768;
    section.compartments[0].kind = -100000;
    section.panels[0].nodes[0].shape = 40000;
    section.panels[0].plates.resize(1);
    section.panels[0].plates[0].material = 50000;
    section.symmetryMode = -32769;
    const SectionModel back = SectionOf(*RecordOf(section));
    EXPECT_EQ(Lost(), std::vector<std::string>{LossText(3670, {5, 32768})});
    EXPECT_EQ(back.compartments[0].contents, 32767);
    EXPECT_EQ(back.compartments[0].kind, -32768);
    EXPECT_EQ(back.panels[0].nodes[0].shape, 32767);
    EXPECT_EQ(back.panels[0].plates[0].material, 32767);
    EXPECT_EQ(back.symmetryMode, -32768);
}

}  // namespace
}  // namespace corvane
