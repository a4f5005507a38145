// The whole geometry of a section at once.
#include "companions/grvelk/references.h"
#include "companions/grvelk/strakes.h"

using namespace corvane;
using namespace corvane::grvelk;

namespace {

// Items, length and abscissas of a strake whose nodes have been computed.
int16_t ComputeLine(Strake& strake, float tolerance) {
    int16_t first = ItemsOf(strake) > 0 ? int16_t{0} : kCodeNoNodes;
    for (int item = 1; item <= ItemsOf(strake); ++item) {
        SetUpItem(strake, item);
        // A node that is missing has been reported.
        if (strake.nodes[item - 1].computed == 0 || strake.nodes[item].computed == 0) continue;
        const int16_t code = ::ComputeStrake(strake.items, static_cast<int16_t>(item), tolerance);
        if (first == 0) first = code;
    }
    strake.length = static_cast<float>(LengthOf(strake));
    for (int16_t i = 0; i < NodesOf(strake); ++i) {
        strake.nodes[i].s = static_cast<float>(AbscissaOfNode(strake, static_cast<int16_t>(i + 1)));
    }
    return first;
}

int16_t ComputeStep(const Section& section, NodeReference what) {
    Strake& strake = section.strakes[what.strake - 1];
    if (what.node == 0) return ComputeLine(strake, section.tolerance);
    return ::ComputeNode(&strake, what.strake, section.strakes, what.node, section.tolerance);
}

int16_t PlaceStiffeners(const Section& section, int16_t number) {
    const Strake& strake = section.strakes[number - 1];
    if (strake.stiffeners == nullptr) return 0;
    int16_t first = 0;
    for (int16_t i = 0; i < strake.stiffenerCount; ++i) {
        const int16_t code =
            ::AbsStiff(section.strakes, section.strakeCount, number, &strake.stiffeners[i]);
        if (first == 0 && code != kNotOnStrake) first = code;
    }
    return first;
}

}  // namespace

CORVANE_EXPORT int16_t CORVANE_STDCALL QuickCompute(Section* section, DrawingParameters*) {
    if (section == nullptr) return kCodeNoNodes;
    if (section->strakes == nullptr || section->strakeCount < 1) return 0;
    int16_t first = ::ComputeAbsNodes(section->strakes, section->strakeCount);
    ::ComputeAbsStrake(section->strakes, section->strakeCount);
    const auto keep = [&first](int16_t code) {
        if (first == 0) first = code;
    };
    for (const Step& step : StepsOf(section->strakes, section->strakeCount)) {
        keep(ComputeStep(*section, step.what));
    }
    for (int strake = 1; strake <= section->strakeCount; ++strake) {
        keep(PlaceStiffeners(*section, static_cast<int16_t>(strake)));
    }
    return first;
}
