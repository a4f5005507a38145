// A section of 30 strakes, 100 nodes and 200 stiffeners, in which the check finds nothing.
#pragma once

#include "database/section.h"

namespace corvane::benchmarks {

inline constexpr int kStrakes = 30;
inline constexpr int kNodes = 100;
inline constexpr int kStiffeners = 200;

inline float Decimal(int number) {
    return static_cast<float>(number * 37 % 20011) * 0.005f;
}

inline StiffenerDetail TwoSpans(int i) {
    StiffenerDetail detail;
    detail.spans.resize(2);
    for (Span& span : detail.spans) {
        span.scantlings = {kProfileBulb, 260, 11.5f, 0, 0};
        span.length_m = Decimal(i);
        span.spacing_m = 0.825f;
    }
    detail.spans[1].bracket.present = i % 4 == 0;
    detail.spans[1].fatigue.present = i % 10 == 0;
    return detail;
}

inline SectionModel MeasuredSection() {
    SectionModel section;
    section.name = L"Frame 100";
    section.identifier = "ID";
    section.panels.resize(kStrakes);
    for (Panel& panel : section.panels) panel.plates.resize(3, {2.4f, 15.5f, 1, 0.8f, 3.2f, 0});
    for (int i = 0; i < kNodes; ++i) {
        Node node{};
        node.kind = kNodeGiven;
        node.givenY = Decimal(i);
        node.givenZ = -Decimal(3 * i);
        node.number = static_cast<int16_t>(i);
        section.panels[i % kStrakes].nodes.push_back(node);
    }
    for (int i = 0; i < kStiffeners; ++i) {
        Stiffener stiffener{};
        stiffener.count = 1;
        stiffener.side = 1;
        stiffener.offset = Decimal(7 * i);
        Panel& panel = section.panels[i % kStrakes];
        panel.stiffeners.push_back(stiffener);
        panel.stiffenerDetails.push_back(TwoSpans(i));
    }
    section.compartments.resize(4);
    for (Compartment& compartment : section.compartments) {
        compartment.outline.resize(12, {1, 2});
        compartment.levels.resize(8, {1.5f, 12.25f, 6});
    }
    return section;
}

}  // namespace corvane::benchmarks
