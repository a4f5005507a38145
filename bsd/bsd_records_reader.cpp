#include "bsd/bsd_records.h"

#include <algorithm>
#include <limits>

#include "bsd/bsd_layout.h"
#include "report/messages.h"
#include "text/numbers.h"

namespace corvane {
namespace {

// The records as a row of items, read from line after line.
struct ItemReader {
    TextReader& lines;
    const std::string modelMarker = GetMessageBytes(kMsgModelMarker);
    std::string_view rest = {};  // what is unread of the current line
    bool inLine = false;         // the current line's end is unread
    bool ended = false;          // there are no more items
    int numberCount = 0;         // of the items that were numbers
    BsdFaults faults = {};
};

// What the next line is read as.
enum class LineKind { kText, kNumbers };

// Goes to the next line. A model marker, and a header line where numbers are due, end the items and
// stay unread.
bool NextLine(ItemReader& items, LineKind kind) {
    items.rest = {};
    items.inLine = false;
    if (items.ended) return false;
    const int64_t position = LinePosition(items.lines);
    std::string_view line;
    items.ended = !ReadLine(items.lines, line);
    const bool opensBlock =
        line == items.modelMarker || (kind == LineKind::kNumbers && IsHeaderLine(line));
    if (!items.ended && opensBlock) {
        SeekLine(items.lines, position);
        items.ended = true;
    }
    if (items.ended) return false;
    ++items.faults.lines;
    items.rest = line;
    items.inLine = true;
    return true;
}

void PassBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
}

// The rest of the current line; of the next one when the current one's end has been read.
bool TakeLine(ItemReader& items, std::string_view& line) {
    if (!items.inLine && !NextLine(items, LineKind::kText)) return false;
    line = items.rest;
    items.rest = {};
    items.inLine = false;
    return true;
}

// A text up to a comma or the end of the line.
bool TakeText(ItemReader& items, std::string_view& text) {
    if (!TakeLine(items, text)) return false;
    const size_t comma = text.find(',');
    if (comma == std::string_view::npos) return true;
    items.rest = text.substr(comma + 1);
    items.inLine = true;
    text = text.substr(0, comma);
    return true;
}

// What is before the next blank, tab, comma or line end, empty before a comma. Blanks, tabs
// and one comma or line end after it are swallowed, so that a tab before the end of a line opens
// no item itself.
bool TakeItem(ItemReader& items, std::string_view& item) {
    PassBlanks(items.rest);
    while (items.rest.empty()) {
        if (!NextLine(items, LineKind::kNumbers)) return false;
        PassBlanks(items.rest);
    }
    item = items.rest.substr(0, items.rest.find_first_of(" \t,"));
    items.rest.remove_prefix(item.size());
    PassBlanks(items.rest);
    if (items.rest.empty()) {
        items.inLine = false;
    } else if (items.rest.front() == ',') {
        items.rest.remove_prefix(1);
    }
    return true;
}

// The next item when it is a number; any other item is skipped.
bool ReadNumber(ItemReader& items, std::string_view& number) {
    BsdFaults& faults = items.faults;
    ++faults.numbers;
    if (!TakeItem(items, number)) return false;
    if (!ReadsAsNumber(system::WideFromAnsi(number))) {
        if (faults.items.size() < BsdFaults::kMostItems) {
            faults.items.push_back({faults.lines, std::string(number)});
        }
        return false;
    }
    ++items.numberCount;
    return true;
}

void ReadField(ItemReader& items, float& field) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    std::string_view number;
    if (!ReadNumber(items, number)) return;
    field = static_cast<float>(std::clamp(LeadingNumber(number), -kLargest, kLargest));
}

void ReadField(ItemReader& items, int16_t& field) {
    using Limits = std::numeric_limits<int16_t>;
    std::string_view number;
    if (!ReadNumber(items, number)) return;
    field = static_cast<int16_t>(
        std::clamp<int32_t>(LeadingInteger(number), Limits::min(), Limits::max()));
}

void ReadVersionAndTitles(ItemReader& items, BasicShipData& bsd) {
    std::string_view text;
    if (TakeText(items, text)) {
        PassBlanks(text);
        bsd.FormatVersion.Assign(system::WideFromAnsi(text));
    }
    for (FixedText<30>& title : bsd.Titles.elements) {
        if (TakeLine(items, text)) title.Assign(system::WideFromAnsi(text));
    }
}

// The remark ends at a comma. What its line has after the comma is dropped, so that the numbers
// of the next lines still reach their fields.
void ReadRemark(ItemReader& items, BasicShipData& bsd) {
    std::string_view line;
    if (!TakeLine(items, line)) return;
    bsd.Remark.Assign(system::WideFromAnsi(line.substr(0, line.find(','))));
}

// The class code as layout version 3 has it, from the code of an older layout.
int16_t ClassCodeFromOldLayout(int16_t code) {
    if (code == 2 || code == 4 || code == 5) return 4;
    if (code == 3 || code == 6) return 5;
    return code;
}

void AdaptOldLayout(BasicShipData& bsd, double version) {
    if (version < 3) bsd.TypeCodes(2) = ClassCodeFromOldLayout(bsd.TypeCodes(2));
    if (version < 2) {
        for (int i = 11; i <= 16; ++i) bsd.MainData(i) = 0;
    }
}

}  // namespace

int ReadBasicShipData(TextReader& reader, BasicShipData& bsd, BsdFaults* faults) {
    ItemReader items{reader};
    const auto read = [&items](auto& field, std::string_view) { ReadField(items, field); };
    ReadVersionAndTitles(items, bsd);
    VisitNumbers(bsd, read);
    ReadRemark(items, bsd);
    VisitReductionFactor(bsd, read);

    const double version = LeadingNumber(bsd.FormatVersion.Whole());
    AdaptOldLayout(bsd, version);
    if (IsNearZero(bsd.ReductionFactor)) bsd.ReductionFactor = 0.85f;
    if (version >= 4) VisitExtraData(bsd, read);
    if (bsd.TypeCodes(9) > 0) {
        for (int16_t& code : bsd.PartCodes.elements) {
            if (code == 0) code = 1;
        }
    }
    if (faults != nullptr) *faults = items.faults;
    return items.numberCount;
}

}  // namespace corvane
