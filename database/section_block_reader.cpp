#include "database/section_block.h"

#include <algorithm>
#include <utility>

#include "database/bulkhead_block.h"
#include "database/model_kind.h"
#include "database/node_table.h"
#include "database/scanning.h"
#include "database/section_lines.h"
#include "database/tables.h"
#include "files/read_fault.h"
#include "report/reporters.h"

namespace corvane {
namespace {

// ---- Tables ------------------------------------------------------------------------------------

using Panels = std::vector<Panel>;

// Until all tables are read, the excess of a count is the count itself.
void ReadPanels(RowReader& row, Panels& panels) {
    constexpr int16_t kAnyNumber = 0;
    while (AtRow(row)) {
        Panel panel;
        PanelCounts counts;
        PanelLine(row, panel, kAnyNumber, counts);
        std::ranges::copy(counts.elements, panel.countExcess.elements.begin());
        Keep(panels, std::move(panel));
    }
}

void ReadNodes(RowReader& row, Panels& panels) {
    ReadNodeRows(row, panels, NodeLine<RowReader>);
}

void ReadStiffeners(RowReader& row, Panels& panels) {
    while (AtRow(row)) {
        const size_t index = ReadIndex(row, panels.size());
        Stiffener stiffener{};
        stiffener.count = 1;
        StiffenerDetail detail;
        int32_t spanCount = 0;
        ItemLines(row, StiffenerRow{stiffener, detail, spanCount});
        detail.spanCountExcess = spanCount;
        if (index == panels.size() || panels[index].stiffeners.size() == kMostItems) continue;
        panels[index].stiffeners.push_back(stiffener);
        panels[index].stiffenerDetails.push_back(std::move(detail));
    }
}

constexpr size_t kUsualSpans = 2;

// Each stiffener of a panel has as many rows as its own row says; the last one has what is left.
void ReadSpans(RowReader& row, Panels& panels) {
    std::vector<size_t> current(panels.size());  // by panel: the stiffener whose rows come now
    while (AtRow(row)) {
        const size_t index = ReadIndex(row, panels.size());
        Span span;
        ItemLines(row, span);
        if (index == panels.size() || panels[index].stiffenerDetails.empty()) continue;
        std::vector<StiffenerDetail>& details = panels[index].stiffenerDetails;
        size_t& stiffener = current[index];
        while (stiffener + 1 < details.size() &&
               static_cast<int64_t>(details[stiffener].spans.size()) >=
                   std::min<int64_t>(details[stiffener].spanCountExcess, kMostItems)) {
            ++stiffener;
        }
        std::vector<Span>& spans = details[stiffener].spans;
        if (spans.empty()) spans.reserve(kUsualSpans);
        if (spans.size() < kMostItems) spans.push_back(span);
    }
}

void FinishCounts(Panels& panels) {
    for (Panel& panel : panels) {
        const PanelCounts counts = CountsOf(panel);
        for (int i = 1; i <= counts.kCount; ++i) panel.countExcess(i) -= counts(i);
        for (StiffenerDetail& detail : panel.stiffenerDetails) {
            detail.spanCountExcess -= static_cast<int64_t>(detail.spans.size());
        }
    }
}

void ReadFatigue(RowReader& row, Panels& panels) {
    row.passesLineEnds = true;
    while (AtRow(row)) {
        FatigueTable unplaced;
        FatigueTable* fatigue = &unplaced;
        const size_t panel = ReadIndex(row, panels.size());
        if (panel < panels.size()) {
            std::vector<StiffenerDetail>& details = panels[panel].stiffenerDetails;
            const size_t stiffener = ReadIndex(row, details.size());
            if (stiffener < details.size()) {
                std::vector<Span>& spans = details[stiffener].spans;
                const size_t span = ReadIndex(row, spans.size());
                if (span < spans.size()) fatigue = &spans[span].fatigue;
            }
        }
        fatigue->present = true;
        ItemLines(row, *fatigue);
    }
    row.passesLineEnds = false;
}

// The table of a list of items, each with its own lines.
template <class Item>
BlockTable ItemTable(MessageNumber label, Panels& panels, std::vector<Item> Panel::* items) {
    return {GetMessageBytes(label),
            [&panels, items](RowReader& row) { ReadItems(row, panels, items); }};
}

// A table that is read in another way.
BlockTable OwnTable(MessageNumber label, Panels& panels, void (*read)(RowReader&, Panels&)) {
    return {GetMessageBytes(label), [&panels, read](RowReader& row) { read(row, panels); }};
}

void ReadSectionTables(RowReader& row, SectionModel& section) {
    Panels& panels = section.panels;
    const auto readCompartments = [&section](RowReader& at) {
        ReadCompartments(at, section.compartments, CompartmentLines<RowReader>);
    };
    const std::vector<BlockTable> tables = {
        OwnTable(kMsgPanelTable, panels, ReadPanels),
        OwnTable(kMsgNodeTable, panels, ReadNodes),
        ItemTable(kMsgPlateTable, panels, &Panel::plates),
        OwnTable(kMsgStiffenerTable, panels, ReadStiffeners),
        OwnTable(kMsgSpanTable, panels, ReadSpans),
        {GetMessageBytes(kMsgCompartmentTable), readCompartments, true},
        ItemTable(kMsgBracketTable, panels, &Panel::brackets),
        ItemTable(kMsgOpeningTable, panels, &Panel::openings),
        ItemTable(kMsgPillarTable, panels, &Panel::pillars),
        OwnTable(kMsgFatigueTable, panels, ReadFatigue),
    };
    ReadTables(row, tables, [&section] {
        section.panels.clear();
        section.compartments.clear();
    });
    FinishCounts(panels);
}

// What a section has of a bulkhead arrangement: each bulkhead is a panel, each hold a compartment.
SectionModel SectionOfBulkheads(BulkheadArrangement&& arrangement) {
    SectionModel section;
    section.name = std::move(arrangement.name);
    section.identifier = std::move(arrangement.identifier);
    section.formatVersion = arrangement.formatVersion;
    section.x_m = arrangement.x_m;
    for (Bulkhead& bulkhead : arrangement.bulkheads) {
        Panel& panel = section.panels.emplace_back();
        panel.name = std::move(bulkhead.name);
        panel.nodes = std::move(bulkhead.nodes);
        panel.absoluteCodes = std::move(bulkhead.absoluteCodes);
    }
    section.compartments = std::move(arrangement.holds);
    return section;
}

}  // namespace

void ReadSectionLines(TextReader& reader, ModelKind kind, SectionModel& section) {
    if (kind == ModelKind::kBulkhead) {
        BulkheadArrangement arrangement;
        ReadBulkheadLines(reader, arrangement);
        section = SectionOfBulkheads(std::move(arrangement));
        return;
    }
    section = {};
    RowReader row(reader);
    ReadBlockHead(row, section.formatVersion);
    HeadTextLine(row, section.name);
    HeadLines(row, section);
    ReadSectionTables(row, section);
}

bool ReadSectionBlock(const std::wstring& path, const BlockPlace& place, bool allowBulkhead,
                      SectionModel& section) {
    TextReader reader;
    if (!RequireDatabaseText(reader, path)) return false;
    ReportStatus(kMsgReadingModel, {path});
    std::string keyword;
    if (!RequireBlock(reader, path, place, keyword)) return false;
    const ModelKind kind = KindOfKeyword(keyword);
    if (kind == ModelKind::kTorsion) {
        ShowStatus(L"");
        return false;
    }
    if (kind == ModelKind::kBulkhead && !allowBulkhead) {
        ReportMessage(L"Can not read BulkHead Arrangement");
        return false;
    }
    SectionModel read;
    ReadSectionLines(reader, kind, read);
    if (ReportReadFault(reader, path)) return false;
    section = std::move(read);
    ShowStatus(L"");
    return true;
}

}  // namespace corvane
