#include "preview/section_hit.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <vector>

#include "preview/section_geometry.h"
#include "preview/stiffener_lines.h"

namespace corvane {
namespace {

// How far the lines of a compartment's outline may leave an arc [m].
constexpr double kOffArc_m = 0.001;

ShipPoint MirrorImage(ShipPoint point) {
    return {-point.y, point.z};
}

double Distance(ShipPoint a, ShipPoint b) {
    return std::hypot(a.y - b.y, a.z - b.z);
}

// The part of the way from a to b, 0 to 1, that is nearest to a point.
double NearestPart(ShipPoint a, ShipPoint b, ShipPoint point) {
    const double y = b.y - a.y;
    const double z = b.z - a.z;
    const double square = y * y + z * z;
    if (!(square > 0)) return 0;
    return std::clamp(((point.y - a.y) * y + (point.z - a.z) * z) / square, 0.0, 1.0);
}

ShipPoint Between(ShipPoint a, ShipPoint b, double part) {
    return {a.y + (b.y - a.y) * part, a.z + (b.z - a.z) * part};
}

// The same for an arc by its centre, along its sweep: what is beyond its ends is nearest to one of
// them.
double NearestByCentre(const StrakeItem& arc, ShipPoint point) {
    const double angle = std::atan2(point.z - arc.centreZ, point.y - arc.centreY);
    const double sign = arc.sweep < 0 ? -1 : 1;
    double turn = std::fmod(sign * (angle - arc.startAngle), 2 * std::numbers::pi);
    if (turn < 0) turn += 2 * std::numbers::pi;
    const double sweep = std::abs(double{arc.sweep});
    if (turn <= sweep) return turn / sweep;
    const ShipPoint start{arc.y1, arc.z1};
    const ShipPoint end{arc.y2, arc.z2};
    return Distance(point, start) <= Distance(point, end) ? 0 : 1;
}

// Centre and angles are in single precision: from the place that they give on the arc as it is
// drawn, it turns on by the angle to the point.
double NearestPart(const StrakeItem& arc, ShipPoint point) {
    const double part = NearestByCentre(arc, point);
    const StrakeSpot spot = SpotOn(arc, part);
    const ShipPoint to{point.y - spot.at.y, point.z - spot.at.z};
    const double ahead = to.y * spot.direction.y + to.z * spot.direction.z;
    const double left = to.z * spot.direction.y - to.y * spot.direction.z;
    const double inwards = arc.sweep < 0 ? -left : left;
    const double turn = std::atan2(ahead, arc.arcRadius - inwards);
    return std::clamp(part + turn / std::abs(arc.sweep), 0.0, 1.0);
}

// Keeps a place on plating or a stiffener when it is nearer than what was found before.
void Offer(SectionHit& hit, const SectionHit& found) {
    // What is not a number is not nearer.
    if (found.distance_m < hit.distance_m) hit = found;
}

void OfferItem(const StrakeItem& item, int strake, ShipPoint point, SectionHit& hit) {
    if (!(item.length > 0)) return;
    const ShipPoint start{item.y1, item.z1};
    const ShipPoint end{item.y2, item.z2};
    const bool isArc = item.arcRadius > 0;
    const double part = isArc ? NearestPart(item, point) : NearestPart(start, end, point);
    SectionHit found{.kind = HitKind::kPlating, .strake = strake};
    found.at = isArc ? SpotOn(item, part).at : Between(start, end, part);
    found.distance_m = Distance(point, found.at);
    found.s = item.s + part * item.length;
    Offer(hit, found);
}

void OfferPlating(const Section& section, ShipPoint point, SectionHit& hit) {
    int number = 0;
    for (const Strake& strake : StrakesOf(section)) {
        ++number;
        for (const StrakeItem& item : StrakeItemsOf(strake)) OfferItem(item, number, point, hit);
    }
}

void OfferStiffeners(const Section& section, ShipPoint point, SectionHit& hit) {
    WalkStiffeners(section, {}, [&](const StiffenerPlace& place, std::span<const ShipPoint> line) {
        for (size_t i = 1; i < line.size(); ++i) {
            SectionHit found{.kind = HitKind::kStiffener, .strake = place.strake};
            found.s = place.s;
            found.row = place.row;
            found.inRow = place.inRow;
            const double part = NearestPart(line[i - 1], line[i], point);
            found.at = Between(line[i - 1], line[i], part);
            found.distance_m = Distance(point, found.at);
            Offer(hit, found);
        }
    });
}

// Whether a ray to the right crosses the outline an odd number of times.
bool IsInside(std::span<const ShipPoint> corners, ShipPoint point) {
    bool isInside = false;
    for (size_t i = 0; i < corners.size(); ++i) {
        const ShipPoint a = corners[i];
        const ShipPoint b = corners[(i + 1) % corners.size()];
        if ((a.z > point.z) == (b.z > point.z)) continue;
        const double y = a.y + (point.z - a.z) / (b.z - a.z) * (b.y - a.y);
        if (y > point.y) isInside = !isInside;
    }
    return isInside;
}

double AreaOf(std::span<const ShipPoint> corners) {
    double twice = 0;
    for (size_t i = 0; i < corners.size(); ++i) {
        const ShipPoint a = corners[i];
        const ShipPoint b = corners[(i + 1) % corners.size()];
        twice += a.y * b.z - b.y * a.z;
    }
    return std::abs(twice) / 2;
}

// The smallest compartment around a point that has no plating within reach.
SectionHit FindCompartment(const Section& section, ShipPoint point, double reach_m) {
    SectionHit hit;
    const ArcLines exactThere{std::min(kOffArc_m, reach_m), point, reach_m};
    int number = 0;
    for (const CompartmentOutline& outline : CompartmentsOf(section)) {
        ++number;
        if (!IsInside(CornersOf(section, outline, exactThere), point)) continue;
        const double area_m2 = AreaOf(CornersOf(section, outline, {kOffArc_m}));
        if (hit.kind == HitKind::kCompartment && !(area_m2 < hit.area_m2)) continue;
        hit.kind = HitKind::kCompartment;
        hit.compartment = number;
        hit.area_m2 = area_m2;
        hit.at = point;
    }
    return hit;
}

// On the side of the ship that the section describes.
SectionHit FindHitOnSide(const Section& section, ShipPoint point, double reach_m) {
    SectionHit hit;
    hit.distance_m = std::nextafter(reach_m, reach_m + 1);
    OfferPlating(section, point, hit);
    OfferStiffeners(section, point, hit);
    return hit.kind == HitKind::kNothing ? FindCompartment(section, point, reach_m) : hit;
}

bool IsBetter(const SectionHit& one, const SectionHit& other) {
    if (one.kind == HitKind::kNothing) return false;
    if (other.kind == HitKind::kNothing) return true;
    const bool isArea = one.kind == HitKind::kCompartment;
    const bool isOtherArea = other.kind == HitKind::kCompartment;
    if (isArea != isOtherArea) return isOtherArea;
    return !isArea && one.distance_m < other.distance_m;
}

}  // namespace

SectionHit FindHit(const Section& section, ShipPoint point, double reach_m) {
    if (!std::isfinite(point.y) || !std::isfinite(point.z)) return {};
    const SectionHit hit = FindHitOnSide(section, point, reach_m);
    if (section.symmetryMode != 1) return hit;
    SectionHit mirrored = FindHitOnSide(section, MirrorImage(point), reach_m);
    if (!IsBetter(mirrored, hit)) return hit;
    mirrored.at = MirrorImage(mirrored.at);
    mirrored.isMirrored = true;
    return mirrored;
}

}  // namespace corvane
