#include "database/section_block.h"

#include <algorithm>

#include "database/creating.h"
#include "database/node_table.h"
#include "database/section_lines.h"
#include "database/tables.h"
#include "report/messages.h"

namespace corvane {
namespace {

constexpr char kFillingLevelLegend[] =
    "Filling level number, Filling level(), Free surface length(), Free surface breadth()";

void WritePanels(RowWriter& row, SectionModel& section) {
    OpenTable(row, kMsgPanelTable, {});
    NameLegend(row, GetMessageBytes(kMsgPanelLegend));
    Legends(row, {kMsgPanelCountLegend});
    int16_t number = 0;
    for (Panel& panel : section.panels) {
        PanelCounts counts = CountsOf(panel);
        for (int i = 1; i <= counts.kCount; ++i) {
            counts(i) = ClampToInt16(counts(i) + panel.countExcess(i));
        }
        PanelLine(row, panel, ++number, counts);
    }
}

void WriteStiffeners(RowWriter& row, SectionModel& section) {
    if (!HasItems(section.panels, &Panel::stiffeners)) return;
    OpenTable(row, kMsgStiffenerTable, {kMsgStiffenerLegend});
    int16_t number = 0;
    for (Panel& panel : section.panels) {
        ++number;
        panel.stiffenerDetails.resize(panel.stiffeners.size());
        for (size_t i = 0; i < panel.stiffeners.size(); ++i) {
            StiffenerDetail& detail = panel.stiffenerDetails[i];
            int32_t spanCount = CountWithExcess(detail.spans.size(), detail.spanCountExcess);
            Value(row, number);
            ItemLines(row, StiffenerRow{panel.stiffeners[i], detail, spanCount});
        }
    }

    OpenTable(row, kMsgSpanTable, {kMsgSpanLegend});
    ForEachItem(section.panels, &Panel::stiffenerDetails,
                [&row](int16_t panel, StiffenerDetail& detail) {
                    for (Span& span : detail.spans) {
                        Value(row, panel);
                        ItemLines(row, span);
                    }
                });
}

void WriteCompartments(RowWriter& row, SectionModel& section) {
    if (section.compartments.empty()) return;
    WriteCompartmentSize(row);
    CommentRule(row);
    CompartmentLegends(row);
    Legend(row, kFillingLevelLegend);
    for (Compartment& compartment : section.compartments) {
        if (&compartment != &section.compartments.front()) CommentRule(row);
        TextLine(row, compartment.name);
        CompartmentLines(row, compartment);
    }
}

void WriteFatigue(RowWriter& row, SectionModel& section) {
    bool opened = false;
    int16_t panel = 0;
    for (Panel& each : section.panels) {
        ++panel;
        int16_t stiffener = 0;
        for (StiffenerDetail& detail : each.stiffenerDetails) {
            ++stiffener;
            int16_t number = 0;
            for (Span& span : detail.spans) {
                ++number;
                if (!span.fatigue.present) continue;
                if (!opened) OpenTable(row, kMsgFatigueTable, {kMsgFatigueLegend});
                opened = true;
                Values(row, panel, stiffener, number);
                ItemLines(row, span.fatigue);
            }
        }
    }
}

// The tables of structures that not every section has.
void WriteFurtherItems(RowWriter& row, SectionModel& section) {
    if (HasItems(section.panels, &Panel::brackets)) {
        OpenTable(row, kMsgBracketTable, {kMsgBracketLegend, kMsgBracketScantlingLegend});
        WriteItems(row, section.panels, &Panel::brackets);
    }
    if (HasItems(section.panels, &Panel::openings)) {
        OpenTable(row, kMsgOpeningTable, {kMsgOpeningLegend});
        WriteItems(row, section.panels, &Panel::openings);
    }
    if (HasItems(section.panels, &Panel::pillars)) {
        OpenTable(row, kMsgPillarTable, {kMsgPillarLegend});
        WriteItems(row, section.panels, &Panel::pillars);
    }
}

}  // namespace

void WriteSectionBody(TextWriter& writer, SectionModel& section) {
    if (section.identifier.empty()) section.identifier = NewIdentifier();
    RowWriter row(writer);
    Legends(row, {kMsgNameLegend, kMsgGeneralLegend, kMsgLoadLegend, kMsgModulusLegend,
                  kMsgSlopeLegend, kMsgAbsentLegend, kMsgToleranceLegend, kMsgSymmetryLegend,
                  kMsgIdentifierLegend, kMsgReservedLegend, kMsgResultLegend});
    HeadTextLine(row, section.name);
    HeadLines(row, section);
    CommentRule(row);

    WritePanels(row, section);
    OpenTable(row, kMsgNodeTable, {kMsgNodeLegend, kMsgExtensionLegend});
    WriteNodeRows(row, section.panels, NodeLine<RowWriter>);
    OpenTable(row, kMsgPlateTable, {kMsgPlateLegend});
    WriteItems(row, section.panels, &Panel::plates);
    WriteStiffeners(row, section);
    WriteCompartments(row, section);
    WriteFurtherItems(row, section);
    WriteFatigue(row, section);
}

void WriteSectionBlock(TextWriter& writer, SectionModel& section, int32_t number) {
    WriteBlockHead(writer, number, ModelKind::kSection, CurrentStamp());
    WriteSectionBody(writer, section);
}

}  // namespace corvane
