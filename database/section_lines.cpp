#include "database/section_lines.h"

namespace corvane {

// ---- Writing -----------------------------------------------------------------------------------

void OutlineLine(RowWriter& row, std::vector<NodeReference>& outline) {
    const size_t count = std::min(outline.size(), kMostOutlineNodes);
    NodeReference closing{};
    for (size_t i = 0; i < count; ++i) {
        if (outline[i].node == 0) {
            closing = outline[i];
            break;
        }
        Value(row, outline[i]);
    }
    Value(row, closing);
    EndLine(row);
}

void FillingLevelLine(RowWriter& row, std::vector<FillingLevel>& levels) {
    const size_t count = std::min(levels.size(), kMostFillingLevels);
    Value(row, static_cast<int32_t>(count));
    for (size_t i = 0; i < count; ++i) {
        Values(row, General{levels[i].level_m}, General{levels[i].surfaceLength_m},
               General{levels[i].surfaceBreadth_m});
    }
    EndLine(row);
}

// ---- Reading -----------------------------------------------------------------------------------

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

}  // namespace corvane
