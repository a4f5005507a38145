#include "tests/shell/sample_models.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/support.h"

namespace corvane::test {

std::wstring SamplePath() {
    return DataPath("../samples/aurora_bay.ve2");
}

std::string SampleBody(int32_t number) {
    const std::string bytes = ReadFileBytes(SamplePath());
    const std::string marker = "====== CORVANE MODEL ======\r\n";
    const std::string label = "MODEL NAME\r\n";
    size_t begin = 0;
    for (int32_t i = 0; i < number; ++i) begin = bytes.find(marker, begin) + marker.size();
    begin = bytes.find(label, begin) + label.size();
    return bytes.substr(begin, bytes.find(marker, begin) - begin);
}

double Area(const std::vector<Place>& corners) {
    double twice = 0;
    for (size_t i = 0; i < corners.size(); ++i) {
        const Place& a = corners[i];
        const Place& b = corners[(i + 1) % corners.size()];
        twice += double{a.y} * b.z - double{b.y} * a.z;
    }
    return twice / 2;
}

SampleShipSection::SampleShipSection(int32_t number) {
    const RecordingScreen screen;
    read = ReadSectionBlock(SamplePath(), number, false, model);
    MakeLibraryView(model, view);
    DrawingParameters parameters{};
    code = QuickCompute(&view.section, &parameters);
}

int16_t SampleShipSection::Panel(const std::wstring& name) const {
    for (size_t i = 0; i < model.panels.size(); ++i) {
        if (model.panels[i].name == name) return static_cast<int16_t>(i + 1);
    }
    ADD_FAILURE() << "no panel " << Narrow(name);
    return 0;
}

Strake& SampleShipSection::StrakeOf(const std::wstring& name) {
    return view.strakes[static_cast<size_t>(std::max<int16_t>(Panel(name), 1) - 1)];
}

bool SampleShipSection::Exists(NodeReference node) const {
    return node.strake >= 1 && static_cast<size_t>(node.strake) <= model.panels.size() &&
           node.node >= 1 &&
           static_cast<size_t>(node.node) <=
               model.panels[static_cast<size_t>(node.strake - 1)].nodes.size();
}

Place SampleShipSection::At(NodeReference reference) const {
    const Node& node = model.panels[static_cast<size_t>(reference.strake - 1)]
                           .nodes[static_cast<size_t>(reference.node - 1)];
    return {node.y, node.z};
}

std::vector<Place> SampleShipSection::Corners(const std::wstring& compartment) const {
    std::vector<Place> corners;
    for (const Compartment& each : model.compartments) {
        if (each.name != compartment) continue;
        for (const NodeReference& node : each.outline) corners.push_back(At(node));
    }
    return corners;
}

}  // namespace corvane::test
