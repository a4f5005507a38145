#include <algorithm>
#include <array>
#include <utility>

#include "app/messages.h"
#include "database/section_file.h"
#include "database/section_lines.h"
#include "util/text.h"

namespace corvane {
namespace {

// What the tables hold on to from one to the next.
struct Reading {
    SectionModel& section;
    ModelKind kind;
    // By panel, by stiffener: how many rows of the spans' table are its own.
    std::vector<std::vector<int32_t>> spanCounts = {};
};

template <class Item>
Item NewItem() {
    return Item{};
}
template <>
Node NewItem<Node>() {
    Node node{};
    node.kind = kNodeGiven;
    return node;
}

template <class Item>
void Keep(std::vector<Item>& items, Item&& item) {
    if (items.size() < kMostItems) items.push_back(std::forward<Item>(item));
}

// The place of the number that comes next in a list of items numbered from 1; the size of the list
// when there is no such item.
size_t TakeIndex(RowReader& row, size_t size) {
    double number = 0;
    if (!TakeNumber(row, number)) return size;
    const int32_t held = HeldInt32(number);
    return held >= 1 && static_cast<size_t>(held) <= size ? static_cast<size_t>(held) - 1 : size;
}

// ---- Tables ------------------------------------------------------------------------------------

void ReadPanels(RowReader& row, Reading& reading) {
    int16_t number = 0;
    while (AtRow(row)) {
        Panel panel;
        if (reading.kind == ModelKind::kBulkhead) {
            Value(row, PaddedName{panel.name});
            EndLine(row);
        } else {
            PanelLine(row, panel, number);
        }
        Keep(reading.section.panels, std::move(panel));
    }
    reading.spanCounts.resize(reading.section.panels.size());
}

template <auto items>
void ReadItems(RowReader& row, Reading& reading) {
    std::vector<Panel>& panels = reading.section.panels;
    using Items = std::remove_reference_t<decltype(Panel().*items)>;
    while (AtRow(row)) {
        const size_t panel = TakeIndex(row, panels.size());
        auto item = NewItem<typename Items::value_type>();
        ItemLines(row, item);
        if (panel < panels.size()) Keep(panels[panel].*items, std::move(item));
    }
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

void ReadCompartments(RowReader& row, Reading& reading) {
    while (AtRow(row)) {
        Compartment compartment;
        TextLine(row, compartment.name);
        // A nameless compartment still has its nodes; blank lines alone are none.
        if (compartment.name.empty() && (!AtRow(row) || IsBlank(row.line))) continue;
        if (reading.kind == ModelKind::kBulkhead) {
            EndLine(row);  // "no node list"
            CompartmentValueLines(row, compartment);
            Values(row, compartment.flags, compartment.ends, compartment.closing);
            EndLine(row);
        } else {
            CompartmentLines(row, compartment);
        }
        Keep(reading.section.compartments, std::move(compartment));
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

// In an order in which each table finds what its rows belong to.
struct Table {
    MessageNumber label;
    bool inBulkheads;   // the same in a bulkhead arrangement
    bool hasEmptyRows;  // an empty line can be a name
    void (*read)(RowReader&, Reading&);
};
constexpr Table kTables[] = {
    {kMsgPanelTable, true, false, ReadPanels},
    {kMsgNodeTable, true, false, ReadItems<&Panel::nodes>},
    {kMsgPlateTable, false, false, ReadItems<&Panel::plates>},
    {kMsgStiffenerTable, false, false, ReadStiffeners},
    {kMsgSpanTable, false, false, ReadSpans},
    {kMsgCompartmentTable, true, true, ReadCompartments},
    {kMsgBracketTable, false, false, ReadItems<&Panel::brackets>},
    {kMsgOpeningTable, false, false, ReadItems<&Panel::openings>},
    {kMsgPillarTable, false, false, ReadItems<&Panel::pillars>},
    {kMsgFatigueTable, false, false, ReadFatigue},
};

// The tables that the kind has, with their label lines.
struct LabelledTable {
    std::string label;
    const Table* table;
};
std::vector<LabelledTable> TablesOf(ModelKind kind) {
    std::vector<LabelledTable> tables;
    for (const Table& table : kTables) {
        if (kind == ModelKind::kBulkhead && !table.inBulkheads) continue;
        tables.push_back({GetMessageBytes(table.label), &table});
    }
    return tables;
}

// Goes to the next header line that is a table's label, from the line that is loaded on; null at
// the block's end.
const Table* NextTable(RowReader& row, const std::vector<LabelledTable>& tables) {
    row.passBlankLines = false;
    for (; row.place != RowReader::Place::kEnd; LoadLine(row)) {
        if (AtRow(row)) continue;
        const auto found = std::ranges::find(tables, Trim(row.line), &LabelledTable::label);
        if (found != tables.end()) return found->table;
    }
    return nullptr;
}

// From a label line.
void ReadTable(RowReader& row, Reading& reading, const Table& table) {
    row.passBlankLines = !table.hasEmptyRows;
    LoadLine(row);
    table.read(row, reading);
}

// As long as the tables stand in the right order, as they nearly always do; false at the first one
// that does not.
bool ReadTablesAsTheyStand(RowReader& row, Reading& reading,
                           const std::vector<LabelledTable>& tables) {
    const Table* last = kTables;
    while (const Table* table = NextTable(row, tables)) {
        if (table < last) return false;
        last = table;
        ReadTable(row, reading, *table);
    }
    return true;
}

struct TablePlace {
    const Table* table;
    int64_t firstRow;  // where it begins
};

// From the first table on.
void ReadTablesInOrder(RowReader& row, Reading& reading, const std::vector<LabelledTable>& tables,
                       TablePlace first) {
    std::vector<TablePlace> places = {first};
    SeekLine(row.reader, first.firstRow);
    LoadLine(row);
    for (; const Table* table = NextTable(row, tables); LoadLine(row)) {
        places.push_back({table, LinePosition(row.reader)});
    }
    std::ranges::stable_sort(places, {}, &TablePlace::table);
    for (const TablePlace& place : places) {
        SeekLine(row.reader, place.firstRow);
        ReadTable(row, reading, *place.table);
    }
}

void ReadTables(RowReader& row, Reading& reading) {
    const std::vector<LabelledTable> tables = TablesOf(reading.kind);
    const Table* first = NextTable(row, tables);
    const int64_t firstRow = LinePosition(row.reader);
    if (ReadTablesAsTheyStand(row, reading, tables)) return;
    reading.section.panels.clear();
    reading.section.compartments.clear();
    reading.spanCounts.clear();
    ReadTablesInOrder(row, reading, tables, {first, firstRow});
}

// ---- Head --------------------------------------------------------------------------------------

// From the block's marker to the line behind the name label, which is then loaded; to the first
// table, when the block has lost its name label.
void ReadBlockHead(RowReader& row, SectionModel& section) {
    const StructuralLines lines = FetchStructuralLines();
    std::string_view marker;
    if (!FindLine(row.reader, row.modelMarker)) return;
    ReadLine(row.reader, marker);
    LoadLine(row);
    while (AtRow(row) && row.line != lines.nameLabel) {
        const bool beforeVersion = row.line == lines.versionLabel;
        LoadLine(row);
        if (beforeVersion && AtRow(row)) section.formatVersion = LeadingNumber(row.line);
    }
    EndLine(row);
}

void ReadBulkheadHead(RowReader& row, SectionModel& section) {
    Value(row, section.x_m);
    EndLine(row);
    EndLine(row);  // hoppers
    EndLine(row);  // state
    TextLine(row, section.identifier);
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
    section = {};
    RowReader row(reader);
    ReadBlockHead(row, section);
    TextLine(row, section.name);
    if (kind == ModelKind::kBulkhead) {
        ReadBulkheadHead(row, section);
    } else {
        HeadLines(row, section);
    }
    Reading reading{section, kind};
    ReadTables(row, reading);
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
        ReportMessage(kMsgModelMissing, {number, path});
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
    ReadSectionLines(reader, kind, section);
    ShowStatus(L"");
    return true;
}

}  // namespace corvane
