#include "database/tables.h"

#include <array>

#include "platform/ztutil32.h"
#include "report/messages.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr int16_t kCompartmentTableSize = 8;

// ---- Reading -----------------------------------------------------------------------------------

// A place in the list of tables, from 0; -1 for none.
using TableIndex = ptrdiff_t;

// Goes to the next header line that is a table's label, from the line that is loaded on; -1 at the
// block's end.
TableIndex NextTable(RowReader& row, const std::vector<BlockTable>& tables) {
    row.skipBlankLines = false;
    for (; row.place != RowReader::Place::kEnd; LoadLine(row)) {
        if (AtRow(row)) continue;
        const std::string_view label = Trim(row.line);
        const auto found = std::ranges::find_if(tables, [label](const BlockTable& table) {
            return Trim(std::string_view(table.label)) == label;
        });
        if (found != tables.end()) return found - tables.begin();
    }
    return -1;
}

// From a label line.
void ReadTable(RowReader& row, const BlockTable& table) {
    row.skipBlankLines = !table.hasEmptyRows;
    LoadLine(row);
    table.read(row);
}

// As long as the tables are in the right order, as they nearly always do; false at the first one
// that does not.
bool ReadTablesAsTheyStand(RowReader& row, const std::vector<BlockTable>& tables) {
    TableIndex last = 0;
    for (TableIndex index; (index = NextTable(row, tables)) >= 0; last = index) {
        if (index < last) return false;
        ReadTable(row, tables[static_cast<size_t>(index)]);
    }
    return true;
}

struct TablePlace {
    TableIndex table;
    int64_t firstRow;  // where it begins
};

// From the first table on.
void ReadTablesInOrder(RowReader& row, const std::vector<BlockTable>& tables, TablePlace first) {
    std::vector<TablePlace> places = {first};
    SeekLine(row.reader, first.firstRow);
    LoadLine(row);
    for (TableIndex index; (index = NextTable(row, tables)) >= 0; LoadLine(row)) {
        places.push_back({index, LinePosition(row.reader)});
    }
    std::ranges::stable_sort(places, {}, &TablePlace::table);
    for (const TablePlace& place : places) {
        SeekLine(row.reader, place.firstRow);
        ReadTable(row, tables[static_cast<size_t>(place.table)]);
    }
}

}  // namespace

void Legend(RowWriter& row, std::string_view text) {
    WriteText(row.writer, row.lines.commentRule);
    WriteLine(row.writer, text);
}

void Legends(RowWriter& row, std::initializer_list<MessageNumber> legends) {
    for (const MessageNumber legend : legends) Legend(row, GetMessageBytes(legend));
}

void NameLegend(RowWriter& row, std::string_view otherColumns) {
    std::string legend = GetMessageBytes(kMsgNameLegend);
    legend.resize(std::max(legend.size(), kNameWidth), ' ');
    Legend(row, legend.append(otherColumns));
}

void OpenTable(RowWriter& row, MessageNumber label, std::initializer_list<MessageNumber> legends) {
    CommentRule(row);
    WriteLine(row.writer, GetMessageBytes(label));
    Legends(row, legends);
}

void WriteCompartmentSize(RowWriter& row) {
    OpenTable(row, kMsgCompartmentSizeTable, {kMsgCompartmentSizeLegend});
    Value(row, kCompartmentTableSize);
    EndLine(row);
}

void CompartmentLegends(RowWriter& row) {
    WriteLine(row.writer, GetMessageBytes(kMsgCompartmentTable));
    Legends(row, {kMsgNameLegend, kMsgOutlineLegend, kMsgCompartmentKindLegend,
                  kMsgDesignValueLegend, kMsgLoadCaseLegend, kMsgPressureLegend});
}

std::string NewIdentifier() {
    std::array<char, 256> buffer{};
    GenerateID(buffer.data(), static_cast<int32_t>(buffer.size()) - 1);
    return buffer.data();
}

void ReadBlockHead(RowReader& row, double& formatVersion) {
    const StructuralLines lines = FetchStructuralLines();
    std::string_view marker;
    if (!FindLine(row.reader, row.modelMarker)) return;
    ReadLine(row.reader, marker);
    LoadLine(row);
    while (row.place != RowReader::Place::kEnd && row.line != lines.nameLabel) {
        const bool beforeVersion = row.line == lines.versionLabel;
        if (!AtRow(row) && !beforeVersion) return;
        LoadLine(row);
        if (beforeVersion && AtRow(row)) formatVersion = LeadingNumber(row.line);
    }
    LoadLine(row);
}

size_t ReadIndex(RowReader& row, size_t size) {
    double number = 0;
    if (!ReadNumber(row, number)) return size;
    const int32_t held = ClampToInt32(number);
    return held >= 1 && static_cast<size_t>(held) <= size ? static_cast<size_t>(held) - 1 : size;
}

void ReadTables(RowReader& row, const std::vector<BlockTable>& tables,
                const std::function<void()>& reset) {
    const TableIndex first = NextTable(row, tables);
    const int64_t firstRow = LinePosition(row.reader);
    if (ReadTablesAsTheyStand(row, tables)) return;
    reset();
    ReadTablesInOrder(row, tables, {first, firstRow});
}

}  // namespace corvane
