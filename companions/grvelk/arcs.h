// Plane geometry of the way from one node to the next: a straight line or an arc of at most half a
// circle. Computed in double precision from the ends and the half sweep, never from a stored
// centre, so that an arc of a very large radius is as exact as a straight line.
#pragma once

#include "platform/grvelk.h"

namespace corvane::grvelk {

struct Point {
    double y = 0;
    double z = 0;
};
inline Point operator+(Point a, Point b) {
    return {a.y + b.y, a.z + b.z};
}
inline Point operator-(Point a, Point b) {
    return {a.y - b.y, a.z - b.z};
}
inline Point operator*(double factor, Point a) {
    return {factor * a.y, factor * a.z};
}
inline double Dot(Point a, Point b) {
    return a.y * b.y + a.z * b.z;
}
// Positive when `b` points to the left of `a`.
inline double Cross(Point a, Point b) {
    return a.y * b.z - a.z * b.y;
}
inline Point LeftOf(Point direction) {
    return {-direction.z, direction.y};
}
double Length(Point a);
Point UnitVector(double angle);

// Whether both coordinates are numbers that the records can hold.
bool IsStorable(Point point);
bool IsStorable(double value);
// A tolerance below zero, or one that is not a number, counts as 0.
double Allowance(float tolerance);

struct Curve {
    Point start, end;
    double chord = 0;      // distance of the ends, > 0
    double heading = 0;    // [rad] direction of the chord
    double halfSweep = 0;  // [rad] left turn positive, 0 for a straight line
    double length = 0;
};

// A point of a curve.
struct Place {
    Point point;
    double along = 0;     // from the curve's start
    double distance = 0;  // from the point that was asked for
};

struct Line {
    Point from;
    Point direction;  // unit vector
};

// What is asked for where a line meets a curve.
struct Crossing {
    Line line;
    Point hint;            // of several points the nearest to this one counts
    double tolerance = 0;  // a curve that runs along the line within it is on the line
};

// Whether ComputeStrake gave the item a length.
inline bool IsComputed(const StrakeItem& item) {
    return item.length > 0;
}

// The curve of an item: false when its ends coincide or one of its values is not a number. What
// ComputeStrake refuses beyond that becomes the nearest possible arc.
bool MakeCurve(const StrakeItem& item, Curve& curve);
// 0 or the kCode that says why the item is not a line.
int16_t CheckItem(const StrakeItem& item, double tolerance);

// Curvature, left turn positive.
double CurvatureOf(const Curve& curve);
// `along` is clamped to 0..length.
Point PointAt(const Curve& curve, double along);
Point DirectionAt(const Curve& curve, double along);
Place NearestOn(const Curve& curve, Point point);
// The point of the curve that is within `tolerance` of the line; of several the one nearest to
// the hint. False when there is none.
bool NearestCrossing(const Curve& curve, const Crossing& crossing, double tolerance, Place& found);

}  // namespace corvane::grvelk
