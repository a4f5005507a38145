#include "database/section_lines.h"

namespace corvane {

PanelCounts CountsOf(const Panel& panel) {
    return {{ClampToCount(panel.nodes.size()), ClampToCount(panel.plates.size()),
             ClampToCount(panel.stiffeners.size()), ClampToCount(panel.brackets.size())}};
}

int16_t AbsoluteCode(const Node& node, const std::vector<int16_t>& codes, size_t index) {
    const bool isAbsolute = node.relative == 0;
    if (index < codes.size() && (codes[index] != 0) == isAbsolute) return codes[index];
    return isAbsolute ? 1 : 0;
}

int32_t CountWithExcess(size_t count, int64_t excess) {
    const auto whole = static_cast<int64_t>(count) + excess;
    return static_cast<int32_t>(std::clamp<int64_t>(whole, INT32_MIN, INT32_MAX));
}

// ---- Writing -----------------------------------------------------------------------------------

void OutlineLine(RowWriter& row, Compartment& compartment) {
    std::vector<NodeReference>& outline = compartment.outline;
    const size_t count = std::min(outline.size(), kMostOutlineNodes);
    NodeReference closing{compartment.outlineEnd.strake, 0};
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

void FillingLevelLine(RowWriter& row, Compartment& compartment) {
    std::vector<FillingLevel>& levels = compartment.levels;
    const size_t count = std::min(levels.size(), kMostFillingLevels);
    Value(row, CountWithExcess(count, compartment.levelCountExcess));
    for (size_t i = 0; i < count; ++i) {
        Values(row, General{levels[i].level_m}, General{levels[i].surfaceLength_m},
               General{levels[i].surfaceBreadth_m});
    }
    EndLine(row);
}

// ---- Reading -----------------------------------------------------------------------------------

void OutlineLine(RowReader& row, Compartment& compartment) {
    std::vector<NodeReference>& outline = compartment.outline;
    while (NumbersLeft(row) >= 2) {
        NodeReference node{};
        Value(row, node);
        if (node.node == 0) compartment.outlineEnd = node;
        if (node.node == 0 || outline.size() == kMostOutlineNodes) break;
        outline.push_back(node);
    }
    EndLine(row);
}

void FillingLevelLine(RowReader& row, Compartment& compartment) {
    int32_t count = 0;
    Value(row, count);
    while (NumbersLeft(row) >= 3) {
        FillingLevel level;
        Values(row, level.level_m, level.surfaceLength_m, level.surfaceBreadth_m);
        compartment.levels.push_back(level);
    }
    compartment.levelCountExcess = count - static_cast<int64_t>(compartment.levels.size());
    EndLine(row);
}

}  // namespace corvane
