#include <algorithm>
#include <utility>

#include "database/bulkhead_file.h"
#include "database/database_file.h"
#include "database/section_file.h"
#include "database/section_lines.h"
#include "database/tables.h"
#include "report/reporters.h"

namespace corvane {
namespace {

// What the tables hold on to from one to the next.
struct Reading {
    SectionModel& section;
    // By panel, by stiffener: how many rows of the spans' table are its own.
    std::vector<std::vector<int32_t>> spanCounts = {};
};

// ---- Tables ------------------------------------------------------------------------------------

void ReadPanels(RowReader& row, Reading& reading) {
    constexpr int16_t kAnyNumber = 0;
    while (AtRow(row)) {
        Panel panel;
        PanelLine(row, panel, kAnyNumber);
        Keep(reading.section.panels, std::move(panel));
    }
    reading.spanCounts.resize(reading.section.panels.size());
}

void ReadStiffeners(RowReader& row, Reading& reading) {
    std::vector<Panel>& panels = reading.section.panels;
    while (AtRow(row)) {
        const size_t index = TakeIndex(row, panels.size());
        Stiffener stiffener{};
        stiffener.count = 1;
        StiffenerDetail detail;
        int32_t spanCount = 0;
        ItemLines(row, StiffenerRow{stiffener, detail, spanCount});
        if (index == panels.size() || panels[index].stiffeners.size() == kMostItems) continue;
        panels[index].stiffeners.push_back(stiffener);
        panels[index].stiffenerDetails.push_back(std::move(detail));
        reading.spanCounts[index].push_back(spanCount);
    }
}

constexpr size_t kUsualSpans = 2;

// Each stiffener of a panel has as many rows as its own row says; the last one has what is left.
void ReadSpans(RowReader& row, Reading& reading) {
    std::vector<Panel>& panels = reading.section.panels;
    std::vector<size_t> current(panels.size());  // by panel: the stiffener whose rows come now
    while (AtRow(row)) {
        const size_t index = TakeIndex(row, panels.size());
        Span span;
        ItemLines(row, span);
        if (index == panels.size() || panels[index].stiffenerDetails.empty()) continue;
        std::vector<StiffenerDetail>& details = panels[index].stiffenerDetails;
        const std::vector<int32_t>& counts = reading.spanCounts[index];
        size_t& stiffener = current[index];
        while (stiffener + 1 < details.size() &&
               static_cast<int64_t>(details[stiffener].spans.size()) >=
                   std::min(counts[stiffener], kMostItems)) {
            ++stiffener;
        }
        std::vector<Span>& spans = details[stiffener].spans;
        if (spans.empty()) spans.reserve(kUsualSpans);
        if (spans.size() < kMostItems) spans.push_back(span);
    }
}

void ReadFatigue(RowReader& row, Reading& reading) {
    std::vector<Panel>& panels = reading.section.panels;
    while (AtRow(row)) {
        FatigueTable unplaced;
        FatigueTable* fatigue = &unplaced;
        const size_t panel = TakeIndex(row, panels.size());
        if (panel < panels.size()) {
            std::vector<StiffenerDetail>& details = panels[panel].stiffenerDetails;
            const size_t stiffener = TakeIndex(row, details.size());
            if (stiffener < details.size()) {
                std::vector<Span>& spans = details[stiffener].spans;
                const size_t span = TakeIndex(row, spans.size());
                if (span < spans.size()) fatigue = &spans[span].fatigue;
            }
        }
        fatigue->present = true;
        ItemLines(row, *fatigue);
    }
}

// The table of a list of items, each with lines of its own.
template <class Item>
BlockTable ItemTable(MessageNumber label, Reading& reading, std::vector<Item> Panel::*items) {
    std::vector<Panel>& panels = reading.section.panels;
    return {GetMessageBytes(label),
            [&panels, items](RowReader& row) { ReadItems(row, panels, items); }};
}

// A table that is read in another way.
BlockTable OwnTable(MessageNumber label, Reading& reading, void (*read)(RowReader&, Reading&)) {
    return {GetMessageBytes(label), [&reading, read](RowReader& row) { read(row, reading); }};
}

void ReadSectionTables(RowReader& row, Reading& reading) {
    SectionModel& section = reading.section;
    const auto readCompartments = [&section](RowReader& at) {
        ReadCompartments(at, section.compartments, CompartmentLines<RowReader>);
    };
    const std::vector<BlockTable> tables = {
        OwnTable(kMsgPanelTable, reading, ReadPanels),
        ItemTable(kMsgNodeTable, reading, &Panel::nodes),
        ItemTable(kMsgPlateTable, reading, &Panel::plates),
        OwnTable(kMsgStiffenerTable, reading, ReadStiffeners),
        OwnTable(kMsgSpanTable, reading, ReadSpans),
        {GetMessageBytes(kMsgCompartmentTable), readCompartments, true},
        ItemTable(kMsgBracketTable, reading, &Panel::brackets),
        ItemTable(kMsgOpeningTable, reading, &Panel::openings),
        ItemTable(kMsgPillarTable, reading, &Panel::pillars),
        OwnTable(kMsgFatigueTable, reading, ReadFatigue),
    };
    ReadTables(row, tables, [&reading] {
        reading.section.panels.clear();
        reading.section.compartments.clear();
        reading.spanCounts.clear();
    });
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
    }
    section.compartments = std::move(arrangement.holds);
    return section;
}

}  // namespace

void OutlineLine(RowReader& row, std::vector<NodeReference>& outline) {
    NodeReference node{};
    while (outline.size() < kMostOutlineNodes && NumbersLeft(row) >= 2) {
        Value(row, node);
        if (node.node == 0) break;
        outline.push_back(node);
    }
    EndLine(row);
}

// The number of levels is that of the groups of three, whatever the first number says.
void FillingLevelLine(RowReader& row, std::vector<FillingLevel>& levels) {
    int32_t count = 0;
    Value(row, count);
    while (NumbersLeft(row) >= 3) {
        FillingLevel level;
        Values(row, level.level_m, level.surfaceLength_m, level.surfaceBreadth_m);
        levels.push_back(level);
    }
    EndLine(row);
}

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
    TextLine(row, section.name);
    HeadLines(row, section);
    Reading reading{section};
    ReadSectionTables(row, reading);
}

bool ReadSectionBlock(const std::wstring& path, int32_t number, bool allowBulkhead,
                      SectionModel& section) {
    if (!IsDatabaseFile(path)) {
        ReportMessage(kMsgNoDatabase, {path});
        return false;
    }
    ReportStatus(kMsgReadingModel, {path});
    TextReader reader;
    std::string keyword;
    if (!OpenText(reader, path) || !FindModel(reader, number, keyword)) {
        if (!ReportReadFault(reader, path)) ReportMessage(kMsgModelMissing, {number, path});
        return false;
    }
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
