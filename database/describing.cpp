#include "database/describing.h"

#include "database/bulkhead_block.h"
#include "database/model_kind.h"
#include "database/section_block.h"
#include "files/read_fault.h"
#include "report/reporters.h"

namespace corvane {
namespace {

int32_t Count(size_t count) {
    return static_cast<int32_t>(count);
}

// The items of a list that each owner has, of all owners together.
template <class Owner, class Item>
int32_t CountItems(const std::vector<Owner>& owners, std::vector<Item> Owner::* items) {
    size_t count = 0;
    for (const Owner& owner : owners) count += (owner.*items).size();
    return Count(count);
}

// Goes over the head of a block, whose marker has been read, to its name label.
void ReadStamp(TextReader& reader, const StructuralLines& lines, StampTexts& stamp) {
    std::string_view line;
    while (ReadLine(reader, line) && line != lines.nameLabel && line != lines.modelMarker) {
        ReadStampLine(line, stamp);
    }
}

}  // namespace

bool DescribeModel(const std::wstring& path, const BlockPlace& place,
                   ModelDescription& description) {
    TextReader reader;
    std::string keyword;
    if (!RequireDatabaseText(reader, path) || !RequireBlock(reader, path, place, keyword)) {
        return false;
    }
    ModelDescription read;
    const StructuralLines lines = FetchStructuralLines();
    std::string_view line;
    const int64_t first = LinePosition(reader);
    FindLine(reader, lines.modelMarker);
    const int64_t begin = LinePosition(reader);
    ReadLine(reader, line);
    ReadStamp(reader, lines, read.stamp);
    SeekLine(reader, begin);
    ReadLine(reader, line);
    FindLine(reader, lines.modelMarker);
    read.size = LinePosition(reader) - begin;
    SeekLine(reader, first);
    FactsOf(KindOfKeyword(keyword)).describe(reader, read);
    if (ReportReadFault(reader, path)) return false;
    description = std::move(read);
    return true;
}

void DescribeSection(TextReader& reader, ModelDescription& description) {
    SectionModel section;
    ReadSectionLines(reader, ModelKind::kSection, section);
    description.identifier = system::WideFromAnsi(section.identifier);
    description.hasPosition = true;
    description.x_m = section.x_m;
    description.contents = FormatMessage(
        kMsgSectionContents,
        {section.breadth_m, section.depth_m, Count(section.panels.size()),
         CountItems(section.panels, &Panel::nodes), CountItems(section.panels, &Panel::stiffeners),
         Count(section.compartments.size())});
}

void DescribeBulkhead(TextReader& reader, ModelDescription& description) {
    BulkheadArrangement arrangement;
    ReadBulkheadLines(reader, arrangement);
    const std::vector<Bulkhead>& bulkheads = arrangement.bulkheads;
    description.identifier = system::WideFromAnsi(arrangement.identifier);
    description.hasPosition = true;
    description.x_m = arrangement.x_m;
    description.contents = FormatMessage(
        kMsgBulkheadContents,
        {Count(bulkheads.size()), CountItems(bulkheads, &Bulkhead::nodes),
         CountItems(bulkheads, &Bulkhead::primaryStiffeners),
         CountItems(bulkheads, &Bulkhead::secondaryStiffeners), Count(arrangement.holds.size())});
}

// Its body belongs to the torsion program: only what every text has is counted.
void DescribeTorsion(TextReader& reader, ModelDescription& description) {
    const StructuralLines lines = FetchStructuralLines();
    std::string_view line;
    FindLine(reader, lines.modelMarker);
    ReadLine(reader, line);
    while (ReadBlockLine(reader, lines.modelMarker, line) && line != lines.nameLabel) continue;
    ReadBlockLine(reader, lines.modelMarker, line);  // the name
    int32_t count = 0;
    int32_t tables = 0;
    for (; ReadBlockLine(reader, lines.modelMarker, line); ++count) {
        if (IsHeaderLine(line)) ++tables;
    }
    description.contents = FormatMessage(kMsgTorsionContents, {tables, count});
}

}  // namespace corvane
