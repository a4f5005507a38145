#include "companions/grvelk/chords.h"

#include <cmath>

namespace corvane::grvelk {
namespace {

// A chord may leave its arc by this much [px].
constexpr double kSagitta_px = 0.2;

int ChordsOfArc(const StrakeItem& item, const Chords& chords) {
    const double radius_px = item.arcRadius * chords.pixelsPerMetre;
    if (!(radius_px > kSagitta_px)) return 1;
    const double step = 2 * std::acos(1 - kSagitta_px / radius_px);
    const double wanted = std::ceil(std::abs(double{item.sweep}) / step);
    if (!(wanted > 1)) return 1;
    return wanted < chords.most ? static_cast<int>(wanted) : chords.most;
}

}  // namespace

void AppendItem(const StrakeItem& item, bool back, const Chords& chords,
                std::vector<Point>& points) {
    if (!IsComputed(item)) return;
    const int count = item.arcRadius > 0 ? ChordsOfArc(item, chords) : 1;
    Curve curve;
    if (count > 1 && MakeCurve(item, curve)) {
        for (int i = 1; i < count; ++i) {
            const double along = curve.length * i / count;
            points.push_back(PointAt(curve, back ? curve.length - along : along));
        }
    }
    // The ends as they are, so that what meets there meets in one pixel.
    points.push_back(back ? Point{item.y1, item.z1} : Point{item.y2, item.z2});
}

}  // namespace corvane::grvelk
