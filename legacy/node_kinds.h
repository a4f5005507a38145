// How a node is defined: in the legacy form by a class and a code, with us and the geometry library
// by one kind (platform/grvelk.h).
#pragma once

#include <cstdint>

namespace corvane {

// Classes.
inline constexpr int16_t kByCoordinates = 0;   // given; second kind: on a strake
inline constexpr int16_t kOnOtherNode = 1;     // with an offset; second kind: coincident
inline constexpr int16_t kByIntersection = 2;  // of a line with a strake
// The code that distinguishes the second kind of a class from the first.
inline constexpr int16_t kSecondKind = 2;

struct LegacyKind {
    int16_t nodeClass;
    int16_t code;
};

// Whether the legacy form has the kind.
bool IsLegacyKind(int32_t kind);
// A kind that the legacy form lacks counts as given by coordinates.
LegacyKind LegacyKindOf(int32_t kind);
// Any class and code has a kind: those that are unknown count as given by coordinates.
int32_t KindOfLegacy(LegacyKind legacy);

}  // namespace corvane
