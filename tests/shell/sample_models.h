// The models of the sample ship, for the tests of what they hold.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/section_file.h"

namespace corvane::test {

inline constexpr int32_t kSectionCount = 9;

std::wstring SamplePath();
// What stands behind the name label of model `number` in the file.
std::string SampleBody(int32_t number);

struct Place {
    float y, z;
};
// Positive when the corners go round against the clock.
double Area(const std::vector<Place>& corners);

// A section of the sample, computed.
struct SampleShipSection {
    SectionModel model;
    LibraryView view;
    bool read = false;
    int16_t code = -1;

    explicit SampleShipSection(int32_t number);
    // 0: there is no panel of this name.
    int16_t Panel(const std::wstring& name) const;
    Strake& StrakeOf(const std::wstring& name);
    bool Exists(NodeReference node) const;
    Place At(NodeReference reference) const;
    std::vector<Place> Corners(const std::wstring& compartment) const;
};

}  // namespace corvane::test
