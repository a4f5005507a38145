#include "legacy/node_kinds.h"

#include "platform/grvelk.h"

namespace corvane {

bool IsLegacyKind(int32_t kind) {
    return kind >= kNodeGiven && kind <= kNodeIntersection;
}

LegacyKind LegacyKindOf(int32_t kind) {
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

int32_t KindOfLegacy(LegacyKind legacy) {
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
