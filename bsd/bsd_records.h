// The records of the Basic Ship Data, as lines of a text: a database's block and a standalone file
// both hold them. bsd/bsd_layout.h declares their order; docs/bsd-file.md shows the layout.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "files/text_file.h"

namespace corvane {

// What was not as the layout has it.
struct BsdFaults {
    struct Item {
        int64_t line = 0;  // from 1, counted from the records' first line
        std::string text;  // ANSI; is no number where one is due
    };
    std::vector<Item> items;  // the first ones, at most kMostItems
    int64_t lines = 0;        // that were read
    int numbers = 0;          // that the layout has
    static constexpr size_t kMostItems = 10;
};

// Reads the records from the reader's next line on. The version, the titles and the remark are
// lines by their place, whatever they hold. An item that is bad or missing is skipped and its field
// keeps its value; a header line among the numbers, and a model marker anywhere, end the records
// and stay unread. Returns how many numbers were read; `faults`, unless null, gets what was wrong.
int ReadBasicShipData(TextReader& reader, BasicShipData& bsd, BsdFaults* faults = nullptr);

// Writes the records in layout version 5. MainData(4) becomes MainData(3), in the caller's record
// too, when it is near zero.
void WriteBasicShipData(TextWriter& writer, BasicShipData& bsd);

}  // namespace corvane
