#include "drafting/section_draft.h"

#include <algorithm>
#include <cmath>

namespace corvane::drafting {
namespace {

// Coordinates in the file are whole tenths of a millimetre: arcs stay smooth.
float Fine(float coordinate) {
    return std::round(coordinate * 10000) / 10000;
}

// Lengths in the file are whole millimetres.
float Rounded(float length) {
    return std::round(length * 1000) / 1000;
}

Panel& PanelAt(SectionDraft& draft, int16_t number) {
    return draft.model.panels[static_cast<size_t>(number - 1)];
}

float AbscissaOf(SectionDraft& draft, int16_t panel, NodeReference node) {
    const Point point = PointOf(draft, node);
    float s = 0;
    int16_t item = 0;
    Strake& strake = draft.view.strakes[static_cast<size_t>(panel - 1)];
    const int16_t status = YZToS(&strake, point.y, point.z, &s, &item, 5 * draft.model.tolerance_m);
    if (status != 0 && draft.code == 0) draft.code = kCodeOffStrake;
    return s;
}

Span SpanOf(const SectionDraft& draft, const StiffenerPlan& plan) {
    Span span;
    span.scantlings = plan.scantlings;
    span.length_m = draft.model.webSpacing_m;
    span.material = plan.material;
    span.spacing_m = plan.spacing_m;
    span.aftConnection = span.foreConnection = plan.bracket ? int16_t{2} : int16_t{1};
    if (!plan.bracket) return span;
    const float arm = Rounded(plan.scantlings.webHeight_mm / 1000);
    span.aftLength_m = span.foreLength_m = Rounded(arm / 2);
    span.bracket.present = true;
    span.bracket.kind = 1;
    span.bracket.length_m = arm;
    span.bracket.scantlings = {kProfileFlat, plan.scantlings.webHeight_mm, 12, 0, 0};
    span.bracket.material = kMild;
    return span;
}

}  // namespace

// ---- Panels and their nodes --------------------------------------------------------------------

Node At(Point point) {
    Node node{};
    node.kind = kNodeGiven;
    node.givenY = Fine(point.y);
    node.givenZ = Fine(point.z);
    return node;
}

Node On(NodeReference reference) {
    Node node = At({0, 0});
    node.kind = kNodeCoincident;
    node.relative = -1;
    node.onStrake = reference.strake;
    node.onNode = reference.node;
    return node;
}

Node AtHeight(int16_t strake, Point point) {
    Node node = At(point);
    node.kind = kNodeOnStrake;
    node.relative = -1;
    node.onStrake = strake;
    node.inter = 2;
    return node;
}

Node AtBreadth(int16_t strake, Point point) {
    Node node = AtHeight(strake, point);
    node.inter = 1;
    return node;
}

Node WithRadius(Node node, float radius) {
    node.shape = kShapeArcByRadius;
    node.radius = radius;
    return node;
}

int16_t AddPanel(SectionDraft& draft, const std::wstring& name, int16_t kind,
                 const std::vector<Node>& nodes) {
    Panel panel;
    panel.name = name;
    panel.kind = kind;
    panel.span_m = draft.model.webSpacing_m;
    panel.nodes = nodes;
    int16_t number = 0;
    for (Node& node : panel.nodes) node.number = ++number;
    draft.model.panels.push_back(panel);
    return static_cast<int16_t>(draft.model.panels.size());
}

void ComputeDraft(SectionDraft& draft) {
    MakeLibraryView(draft.model, draft.view);
    DrawingParameters parameters{};
    const int16_t code = QuickCompute(&draft.view.section, &parameters);
    if (draft.code == 0) draft.code = code;
}

Point PointOf(const SectionDraft& draft, NodeReference reference) {
    const Panel& panel = draft.model.panels[static_cast<size_t>(reference.strake - 1)];
    const Node& node = panel.nodes[static_cast<size_t>(reference.node - 1)];
    return {node.y, node.z};
}

// ---- Plates and stiffeners ---------------------------------------------------------------------

namespace {

// Abscissas of stiffeners and of other panels' nodes on the panel.
std::vector<float> SupportsOn(SectionDraft& draft, int16_t number) {
    Strake& strake = draft.view.strakes[static_cast<size_t>(number - 1)];
    std::vector<float> supports;
    for (const Stiffener& row : PanelAt(draft, number).stiffeners) {
        for (int i = 0; i < row.count; ++i) {
            supports.push_back(row.s + static_cast<float>(i) * row.spacing);
        }
    }
    for (const Panel& panel : draft.model.panels) {
        for (const Node& node : panel.nodes) {
            float s = 0;
            int16_t item = 0;
            const float tolerance = draft.model.tolerance_m;
            if (YZToS(&strake, node.y, node.z, &s, &item, tolerance) == 0) supports.push_back(s);
        }
    }
    return supports;
}

// The seam, moved forward until it is clear of all supports.
float ClearOf(const std::vector<float>& supports, float seam) {
    constexpr float kClearance_m = 0.15F;
    constexpr float kStep_m = 0.05F;
    const auto isNear = [&seam](float s) { return std::abs(s - seam) < kClearance_m; };
    while (std::any_of(supports.begin(), supports.end(), isNear)) seam += kStep_m;
    return seam;
}

}  // namespace

void LayPlates(SectionDraft& draft, int16_t number, const PlatePlan& plan) {
    Panel& panel = PanelAt(draft, number);
    const float length = draft.view.strakes[static_cast<size_t>(number - 1)].length;
    const int count = std::max(1, static_cast<int>(std::ceil(length / plan.width_m - 0.01F)));
    panel.thickness_mm = plan.thicknesses_mm.front();
    panel.material = plan.material;
    const std::vector<float> supports = SupportsOn(draft, number);
    for (int i = 0; i < count; ++i) {
        const size_t wanted = std::min<size_t>(i, plan.thicknesses_mm.size() - 1);
        Plate plate;
        const float end = length * static_cast<float>(i + 1) / static_cast<float>(count);
        plate.end_m = Rounded(i + 1 < count ? ClearOf(supports, end) : length);
        plate.thickness_mm = plan.thicknesses_mm[wanted];
        plate.material = plan.material;
        plate.spacing_m = panel.spacing_m;
        plate.span_m = panel.span_m;
        panel.plates.push_back(plate);
    }
}

void AddRowFrom(SectionDraft& draft, int16_t number, const RowStart& start,
                const StiffenerPlan& plan) {
    Stiffener row{};
    row.onStrake = start.from.strake;
    row.onNode = start.from.node;
    row.count = start.count;
    row.side = plan.side;
    row.offset = start.first_m;
    row.spacing = plan.spacing_m;
    StiffenerDetail detail;
    detail.connection = plan.bracket ? 2 : 1;
    detail.spans.push_back(SpanOf(draft, plan));
    Panel& panel = PanelAt(draft, number);
    panel.stiffeners.push_back(row);
    panel.stiffenerDetails.push_back(detail);
}

void AddRow(SectionDraft& draft, int16_t panel, NodeReference from, NodeReference to,
            const StiffenerPlan& plan) {
    const float gap = AbscissaOf(draft, panel, to) - AbscissaOf(draft, panel, from);
    const float bays = std::max(1.0F, std::round(gap / plan.spacing_m));
    if (bays < 2) return;
    StiffenerPlan even = plan;
    even.spacing_m = Rounded(gap / bays);
    AddRowFrom(draft, panel, {from, even.spacing_m, static_cast<int16_t>(bays - 1)}, even);
}

// ---- Compartments ------------------------------------------------------------------------------

namespace {

// Breadth of the outline at a height, on one side of the ship.
float BreadthAt(const std::vector<Point>& outline, float z) {
    std::vector<float> crossings;
    Point before = outline.back();
    for (const Point& corner : outline) {
        if ((before.z <= z) != (corner.z <= z)) {
            const float part = (z - before.z) / (corner.z - before.z);
            crossings.push_back(before.y + part * (corner.y - before.y));
        }
        before = corner;
    }
    std::sort(crossings.begin(), crossings.end());
    float breadth = 0;
    for (size_t i = 1; i < crossings.size(); i += 2) breadth += crossings[i] - crossings[i - 1];
    return breadth;
}

std::vector<FillingLevel> LevelsOf(const std::vector<Point>& outline, float length) {
    const auto [lowest, highest] = std::minmax_element(outline.begin(), outline.end(),
                                                       [](Point a, Point b) { return a.z < b.z; });
    std::vector<FillingLevel> levels;
    for (const float part : {0.3F, 0.6F, 0.9F}) {
        const float height = part * (highest->z - lowest->z);
        const float breadth = BreadthAt(outline, lowest->z + height);
        levels.push_back({Rounded(height), length, Rounded(breadth)});
    }
    return levels;
}

}  // namespace

void AddCompartment(SectionDraft& draft, const CompartmentPlan& plan) {
    Compartment compartment;
    compartment.name = plan.name;
    compartment.outline = plan.outline;
    compartment.contents = plan.contents;
    compartment.kind = plan.contents;
    compartment.symmetric = 1;
    compartment.hold = plan.contents == kCargo ? int16_t{1} : int16_t{0};
    compartment.designValues(1) = plan.density;
    compartment.designValues(2) = plan.airPipe_m;
    std::vector<Point> points;
    for (const NodeReference& node : plan.outline) points.push_back(PointOf(draft, node));
    compartment.levels = LevelsOf(points, draft.model.holdLength_m);
    draft.model.compartments.push_back(compartment);
}

// ---- The hull girder ---------------------------------------------------------------------------

namespace {

struct Sums {
    double area = 0;
    double moment = 0;    // about the base line
    double inertiaY = 0;  // about the base line
    double inertiaZ = 0;  // about the centre line

    // What is not on the centre line is on both sides of the ship.
    void Add(Point point, double area_m2) {
        const double both = std::abs(point.y) < 0.001F ? 1 : 2;
        const double part = both * area_m2;
        area += part;
        moment += part * point.z;
        inertiaY += part * point.z * point.z;
        inertiaZ += part * point.y * point.y;
    }
};

void AddPlates(Strake& strake, const Panel& panel, Sums& sums) {
    constexpr int kSlices = 50;
    float start = 0;
    for (const Plate& plate : panel.plates) {
        const float slice = (plate.end_m - start) / kSlices;
        for (int i = 0; i < kSlices; ++i) {
            Point point;
            SToYZ(&strake, start + (static_cast<float>(i) + 0.5F) * slice, &point.y, &point.z,
                  0.001F);
            sums.Add(point, double{slice} * plate.thickness_mm / 1000);
        }
        start = plate.end_m;
    }
}

void AddStiffeners(Strake& strake, const Panel& panel, Sums& sums) {
    for (const Stiffener& row : panel.stiffeners) {
        const double area_mm2 = double{row.webHeight_mm} * row.webThickness_mm +
                                double{row.flangeBreadth_mm} * row.flangeThickness_mm;
        for (int i = 0; i < row.count; ++i) {
            Point point;
            SToYZ(&strake, row.s + static_cast<float>(i) * row.spacing, &point.y, &point.z, 0.001F);
            const float middle = row.webHeight_mm / 2000;
            point.y += row.normalY * middle;
            point.z += row.normalZ * middle;
            sums.Add(point, area_mm2 / 1e6);
        }
    }
}

float InFile(double value) {
    return Rounded(static_cast<float>(value));
}

}  // namespace

void MeasureHullGirder(SectionDraft& draft) {
    SectionModel& model = draft.model;
    Sums sums;
    for (size_t i = 0; i < model.panels.size(); ++i) {
        AddPlates(draft.view.strakes[i], model.panels[i], sums);
        AddStiffeners(draft.view.strakes[i], model.panels[i], sums);
    }
    const double axis = sums.moment / sums.area;
    const double inertia = sums.inertiaY - sums.area * axis * axis;
    model.area_m2 = InFile(sums.area);
    model.neutralAxis_m = InFile(axis);
    model.inertiaY_m4 = InFile(inertia);
    model.inertiaZ_m4 = InFile(sums.inertiaZ);
    model.deckModulus_m3 = InFile(inertia / (model.depth_m - axis));
    model.bottomModulus_m3 = InFile(inertia / axis);
    model.resultsValid = -1;
}

}  // namespace corvane::drafting
