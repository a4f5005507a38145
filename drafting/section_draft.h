// Drafts a section: first its panels, each from a few words; then, along the computed panels, rows
// of stiffeners and plates.
#pragma once

#include <string>
#include <vector>

#include "database/section.h"

namespace corvane::drafting {

// Kinds of panels.
inline constexpr int16_t kBottom = 1;
inline constexpr int16_t kBilge = 2;
inline constexpr int16_t kSide = 3;
inline constexpr int16_t kDeck = 4;
inline constexpr int16_t kInnerBottom = 5;
inline constexpr int16_t kGirder = 6;

// Materials.
inline constexpr int16_t kMild = 1;  // 235 N/mm2
inline constexpr int16_t kHigh = 2;  // 315 N/mm2

// What a compartment holds.
inline constexpr int32_t kBallast = 1;
inline constexpr int32_t kCargo = 2;

struct Point {
    float y = 0;
    float z = 0;
};

struct SectionDraft {
    SectionModel model;
    LibraryView view;
    int16_t code = 0;  // the first that the geometry library gave
};

// ---- Panels and their nodes --------------------------------------------------------------------

Node At(Point point);
Node On(NodeReference node);
// On a strake: at the point's z, the nearest to its y; at its y, the nearest to its z.
Node AtHeight(int16_t strake, Point point);
Node AtBreadth(int16_t strake, Point point);
// The line from this node to the next one is an arc.
Node WithRadius(Node node, float radius);

// Returns the panel's number.
int16_t AddPanel(SectionDraft& draft, const std::wstring& name, int16_t kind,
                 const std::vector<Node>& nodes);

// Computes what has been drafted. Required before the procedures below, again after a change.
void ComputeDraft(SectionDraft& draft);
Point PointOf(const SectionDraft& draft, NodeReference node);

// ---- Plates and stiffeners ---------------------------------------------------------------------

// Plates of about equal width along the whole panel, at most about `width_m` each. Their seams keep
// clear of the stiffeners and panels that ComputeDraft found on the panel. Plates beyond the list
// have its last thickness.
struct PlatePlan {
    float width_m;
    std::vector<float> thicknesses_mm;
    int16_t material;
};
void LayPlates(SectionDraft& draft, int16_t panel, const PlatePlan& plan);

struct StiffenerPlan {
    Scantlings scantlings;
    int16_t material;
    int16_t side;     // -1: to the left of the panel's direction
    float spacing_m;  // about
    bool bracket;     // at the ends of the spans
};
// A row between two nodes, evenly spaced, without stiffeners at the nodes themselves. `to` is not
// before `from` in the panel's direction.
void AddRow(SectionDraft& draft, int16_t panel, NodeReference from, NodeReference to,
            const StiffenerPlan& plan);
// `count` stiffeners after a node, the first one at the distance `first_m`.
struct RowStart {
    NodeReference from;
    float first_m;
    int16_t count;
};
void AddRowFrom(SectionDraft& draft, int16_t panel, const RowStart& start,
                const StiffenerPlan& plan);

// ---- The rest ----------------------------------------------------------------------------------

struct CompartmentPlan {
    const wchar_t* name;
    int32_t contents;
    float density;  // [t/m3]
    float airPipe_m;
    std::vector<NodeReference> outline;
};
void AddCompartment(SectionDraft& draft, const CompartmentPlan& plan);

// Area, neutral axis, inertias and moduli of the whole section, from its plates and stiffeners.
void MeasureHullGirder(SectionDraft& draft);

}  // namespace corvane::drafting
