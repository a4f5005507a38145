// Tests in the section plane. Tolerances are inclusive; a coordinate that is not a number makes
// every test false. Computed in double precision, so that nothing overflows.
#include <algorithm>
#include <cmath>

#include "companions/ztutil32/boolean.h"
#include "platform/ztutil32.h"

namespace {

struct Point {
    double y;
    double z;
};

double DistanceOf(Point a, Point b) {
    return std::hypot(b.y - a.y, b.z - a.z);
}

// The point of the segment from `a` to `b` that is nearest to `point`.
Point NearestOnSegment(Point point, Point a, Point b) {
    const Point along{b.y - a.y, b.z - a.z};
    const double lengthSquared = along.y * along.y + along.z * along.z;
    if (lengthSquared == 0) return a;
    const double product = (point.y - a.y) * along.y + (point.z - a.z) * along.z;
    const double share = std::clamp(product / lengthSquared, 0.0, 1.0);
    return {a.y + share * along.y, a.z + share * along.z};
}

}  // namespace

CORVANE_EXPORT float CORVANE_STDCALL Distance(float y1, float z1, float y2, float z2) {
    return static_cast<float>(DistanceOf({y1, z1}, {y2, z2}));
}

CORVANE_EXPORT int16_t CORVANE_STDCALL IsPointInSegment(float y, float z, float y1, float z1,
                                                        float y2, float z2, float tolerance) {
    const Point point{y, z};
    const Point nearest = NearestOnSegment(point, {y1, z1}, {y2, z2});
    return corvane::ztutil::Boolean(DistanceOf(point, nearest) <= tolerance);
}

CORVANE_EXPORT int16_t CORVANE_STDCALL IsSamePoint(float y, float z, float y2, float z2,
                                                   float tolerance) {
    return corvane::ztutil::Boolean(DistanceOf({y, z}, {y2, z2}) <= tolerance);
}
