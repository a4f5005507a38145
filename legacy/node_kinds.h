// How a node is defined, in the legacy form: a class and a code.
#pragma once

#include "platform/grvelk.h"

namespace corvane {

inline constexpr int16_t kByCoordinates = 0;
inline constexpr int16_t kOnOtherNode = 1;
inline constexpr int16_t kByIntersection = 2;
// The code that tells the second kind of a class from the first.
inline constexpr int16_t kSecondKind = 2;

struct LegacyKind {
    int16_t nodeClass;
    int16_t code;
};

inline bool IsLegacyKind(int32_t kind) {
    return kind >= kNodeGiven && kind <= kNodeIntersection;
}

inline LegacyKind LegacyKindOf(int32_t kind) {
    switch (kind) {
        case kNodeOnStrake:
            return {kByCoordinates, kSecondKind};
        case kNodeOffset:
            return {kOnOtherNode, 0};
        case kNodeCoincident:
            return {kOnOtherNode, kSecondKind};
        case kNodeIntersection:
            return {kByIntersection, 0};
        default:
            return {kByCoordinates, 0};
    }
}

inline int32_t KindOfLegacy(LegacyKind legacy) {
    const bool second = legacy.code == kSecondKind;
    switch (legacy.nodeClass) {
        case kOnOtherNode:
            return second ? kNodeCoincident : kNodeOffset;
        case kByIntersection:
            return kNodeIntersection;
        default:
            return second ? kNodeOnStrake : kNodeGiven;
    }
}

}  // namespace corvane
