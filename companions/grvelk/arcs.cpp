#include "companions/grvelk/arcs.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace corvane::grvelk {
namespace {

bool HasNumbers(const StrakeItem& item) {
    if (!IsStorable(Point{item.y1, item.z1}) || !IsStorable(Point{item.y2, item.z2})) return false;
    if (item.shape == kShapeArcByRadius) return IsStorable(item.radius);
    if (item.shape != kShapeArcByTangent) return true;
    return IsStorable(Point{item.tangentY, item.tangentZ});
}

// Half the chord over the radius is the sine of half the sweep (the right triangle of the centre,
// an end and the chord's middle). A radius just below half the chord makes half a circle.
double HalfSweepByRadius(double chord, double radius) {
    return std::copysign(std::asin(std::min(1.0, chord / (2 * std::abs(radius)))), radius);
}

// The arc turns by the angle between its two tangents.
double HalfSweepByTangent(const Curve& curve, Point tangentPoint) {
    const Point in = tangentPoint - curve.start;
    const Point out = curve.end - tangentPoint;
    return std::atan2(Cross(in, out), Dot(in, out)) / 2;
}

double SweepUpTo(const Curve& curve, double along) {
    return 2 * curve.halfSweep * along / curve.length;
}

// Distance of a point from a line, positive on its left.
double Aside(const Line& line, Point point) {
    return Cross(line.direction, point - line.from);
}

// The two lengths along the curve's whole circle, or straight line, at which it meets the line;
// where it just misses, that of the point nearest to the line, twice. With w = 2 R tan(sweep / 2)
// the sine and cosine of the sweep are fractions of polynomials in w (tangent half-angle
// substitution), and the distance from the line is zero where a w^2 + b w + c is; for a straight
// line w is the length itself. False when the straight line is parallel.
bool MeetLengths(const Curve& curve, const Line& line, std::array<double, 2>& lengths) {
    const Point tangent = UnitVector(curve.heading - curve.halfSweep);
    const double curvature = CurvatureOf(curve);
    const double c = Aside(line, curve.start);
    const double b = Cross(line.direction, tangent);
    const double a = curvature * (c * curvature / 4 + Cross(line.direction, LeftOf(tangent)) / 2);
    // The stable form of the quadratic formula: no difference of nearly equal numbers.
    const double q = -(b + std::copysign(std::sqrt(std::max(0.0, b * b - 4 * a * c)), b)) / 2;
    if (q == 0) return false;
    const std::array<double, 2> roots{a == 0 ? c / q : q / a, c / q};
    std::transform(roots.begin(), roots.end(), lengths.begin(), [curvature](double w) {
        return curvature == 0 ? w : 2 * std::atan(w * curvature / 2) / curvature;
    });
    return true;
}

bool RunsAlong(const Curve& curve, const Crossing& crossing) {
    const std::array<Point, 3> points{curve.start, PointAt(curve, curve.length / 2), curve.end};
    return std::all_of(points.begin(), points.end(), [&crossing](Point point) {
        return std::abs(Aside(crossing.line, point)) <= crossing.tolerance;
    });
}

}  // namespace

double Length(Point a) {
    return std::hypot(a.y, a.z);
}

Point UnitVector(double angle) {
    return {std::cos(angle), std::sin(angle)};
}

bool IsStorable(double value) {
    return std::isfinite(static_cast<float>(value));
}

bool IsStorable(Point point) {
    return IsStorable(point.y) && IsStorable(point.z);
}

double Allowance(float tolerance) {
    return tolerance > 0 ? tolerance : 0;
}

bool MakeCurve(const StrakeItem& item, Curve& curve) {
    if (!HasNumbers(item)) return false;
    curve.start = {item.y1, item.z1};
    curve.end = {item.y2, item.z2};
    const Point along = curve.end - curve.start;
    curve.chord = Length(along);
    if (curve.chord == 0) return false;
    curve.heading = std::atan2(along.z, along.y);
    curve.halfSweep = 0;
    if (item.shape == kShapeArcByRadius) {
        curve.halfSweep = HalfSweepByRadius(curve.chord, item.radius);
    } else if (item.shape == kShapeArcByTangent) {
        curve.halfSweep = HalfSweepByTangent(curve, {item.tangentY, item.tangentZ});
    }
    // Arc over chord is half the sweep over its sine.
    const double half = curve.halfSweep;
    curve.length = half == 0 ? curve.chord : curve.chord * half / std::sin(half);
    return std::isfinite(curve.length);
}

int16_t CheckItem(const StrakeItem& item, double tolerance) {
    if (!HasNumbers(item)) return kCodeBadNumber;
    const Point start{item.y1, item.z1};
    const Point end{item.y2, item.z2};
    const double chord = Length(end - start);
    if (chord <= tolerance) return kCodeCoincidentNodes;
    if (item.shape == kShapeArcByRadius) {
        const bool tooSmall = item.radius == 0 || chord / 2 - std::abs(item.radius) > tolerance;
        return tooSmall ? kCodeRadiusTooSmall : int16_t{0};
    }
    if (item.shape != kShapeArcByTangent) return 0;
    const Point tangentPoint{item.tangentY, item.tangentZ};
    const Line chordLine{start, (1 / chord) * (end - start)};
    if (std::abs(Aside(chordLine, tangentPoint)) <= tolerance) return kCodeBadTangent;
    // Both tangents from a point to a circle are equally long.
    const double difference = Length(tangentPoint - start) - Length(end - tangentPoint);
    return std::abs(difference) > tolerance ? kCodeTangentLengths : int16_t{0};
}

double CurvatureOf(const Curve& curve) {
    return 2 * std::sin(curve.halfSweep) / curve.chord;
}

// The chord from the start turns away from the tangent there by half the angle that its arc sweeps
// (inscribed angle), and chords are to each other as the sines of half their sweeps.
Point PointAt(const Curve& curve, double along) {
    if (!(along > 0)) return curve.start;
    if (along >= curve.length) return curve.end;
    if (curve.halfSweep == 0) {
        return curve.start + (along / curve.length) * (curve.end - curve.start);
    }
    const double half = SweepUpTo(curve, along) / 2;
    const double chord = curve.chord * std::sin(half) / std::sin(curve.halfSweep);
    return curve.start + chord * UnitVector(curve.heading - curve.halfSweep + half);
}

Point DirectionAt(const Curve& curve, double along) {
    const double held = std::clamp(along, 0.0, curve.length);
    return UnitVector(curve.heading - curve.halfSweep + SweepUpTo(curve, held));
}

// On an arc the nearest point is on the ray from the centre through the point, where the arc has
// one; else it is an end. Seen from the start, with x along the tangent and y towards the centre,
// that ray has swept the angle of the vector (R - y, x).
Place NearestOn(const Curve& curve, Point point) {
    const Point out = point - curve.start;
    double along = 0;
    if (curve.halfSweep == 0) {
        along = Dot(out, curve.end - curve.start) / curve.chord;
    } else {
        const Point tangent = UnitVector(curve.heading - curve.halfSweep);
        const double left = Cross(tangent, out);
        const double towardsCentre = curve.halfSweep > 0 ? left : -left;
        const double radius = 1 / std::abs(CurvatureOf(curve));
        const double sweep = std::atan2(Dot(out, tangent), radius - towardsCentre);
        along = curve.length * sweep / std::abs(2 * curve.halfSweep);
        if (sweep < 0 || along > curve.length) {
            along = Length(out) <= Length(point - curve.end) ? 0 : curve.length;
        }
    }
    along = std::clamp(along, 0.0, curve.length);
    const Point nearest = PointAt(curve, along);
    return {nearest, along, Length(point - nearest)};
}

bool NearestCrossing(const Curve& curve, const Crossing& crossing, double tolerance, Place& found) {
    // All of the curve crosses where it runs along the line.
    if (RunsAlong(curve, crossing)) {
        found = NearestOn(curve, crossing.hint);
        return true;
    }
    std::array<double, 4> candidates{0, curve.length, 0, 0};
    std::array<double, 2> lengths{};
    if (MeetLengths(curve, crossing.line, lengths)) std::copy_n(lengths.begin(), 2, &candidates[2]);
    // What rounding makes of a point that is on the line.
    const double rounding = 1e-9 * (curve.length + Length(curve.start - crossing.line.from));
    bool any = false;
    for (const double along : candidates) {
        if (!(along >= -rounding && along <= curve.length + rounding)) continue;
        const Point point = PointAt(curve, along);
        if (std::abs(Aside(crossing.line, point)) > std::max(tolerance, rounding)) continue;
        const double distance = Length(point - crossing.hint);
        if (any && distance >= found.distance) continue;
        found = {point, std::clamp(along, 0.0, curve.length), distance};
        any = true;
    }
    return any;
}

}  // namespace corvane::grvelk
