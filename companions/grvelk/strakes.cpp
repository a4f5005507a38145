#include "companions/grvelk/strakes.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>

namespace corvane::grvelk {
namespace {

// An abscissa may miss the ends of a strake by this much [m].
constexpr double kSlack_m = 0.001;

bool FindCurve(const StrakeItem& item, Curve& curve) {
    return IsComputed(item) && std::isfinite(item.s) && MakeCurve(item, curve);
}

StrakePlace PlaceOn(const Strake& strake, int item, const Curve& curve, const Place& place) {
    const StrakeItem& record = strake.items[item - 1];
    return {place.point, DirectionAt(curve, place.along), record.s + place.along, place.distance,
            item};
}

// The nearest of what `find(curve, place)` finds on the items.
template <class Find>
bool NearestOf(const Strake& strake, StrakePlace& nearest, Find find) {
    bool any = false;
    for (int item = 1; item <= ItemsOf(strake); ++item) {
        Curve curve;
        Place place;
        if (!FindCurve(strake.items[item - 1], curve) || !find(curve, place)) continue;
        if (any && place.distance >= nearest.distance) continue;
        nearest = PlaceOn(strake, item, curve, place);
        any = true;
    }
    return any;
}

// The last computed item that begins at the abscissa or before it, else the first one.
const StrakeItem* ItemAt(const Strake& strake, double s) {
    const std::span<const StrakeItem> items = ItemsIn(strake);
    const auto beginsAfter = [](double abscissa, const StrakeItem& item) {
        return abscissa < item.s;
    };
    const auto after = std::upper_bound(items.begin(), items.end(), s, beginsAfter);
    const auto last = std::find_if(std::make_reverse_iterator(after), items.rend(), IsComputed);
    if (last != items.rend()) return &*last;
    const auto first = std::find_if(after, items.end(), IsComputed);
    return first == items.end() ? nullptr : &*first;
}

double EndOf(const StrakeItem& item) {
    return double{item.s} + item.length;
}

// What an arc has besides its length. Its centre is on the left of the start when it turns left.
bool StoreArc(StrakeItem& item, const Curve& curve) {
    const double radius = 1 / CurvatureOf(curve);
    const double tangent = curve.heading - curve.halfSweep;
    const Point centre = curve.start + radius * LeftOf(UnitVector(tangent));
    const Point out = curve.start - centre;
    if (!IsStorable(centre) || !IsStorable(radius)) return false;
    item.centreY = static_cast<float>(centre.y);
    item.centreZ = static_cast<float>(centre.z);
    item.arcRadius = static_cast<float>(std::abs(radius));
    item.startAngle = static_cast<float>(std::atan2(out.z, out.y));
    item.sweep = static_cast<float>(2 * curve.halfSweep);
    return true;
}

void ClearComputed(StrakeItem& item) {
    item.centreY = item.centreZ = item.arcRadius = 0;
    item.startAngle = item.sweep = 0;
    item.length = 0;
}

// An abscissa that the items before have made too large for the record is not an abscissa.
bool StoreAbscissa(StrakeItem* items, int16_t k) {
    StrakeItem& item = items[k - 1];
    const double s = k == 1 ? 0 : EndOf(items[k - 2]);
    item.s = IsStorable(s) ? static_cast<float>(s) : 0;
    return IsStorable(s);
}

int16_t ComputeItem(StrakeItem* items, int16_t k, double tolerance) {
    StrakeItem& item = items[k - 1];
    ClearComputed(item);
    if (!StoreAbscissa(items, k)) return kCodeBadNumber;
    const int16_t code = CheckItem(item, tolerance);
    if (code != 0) return code;
    Curve curve;
    const bool fits = MakeCurve(item, curve) && IsStorable(item.s + curve.length) &&
                      static_cast<float>(curve.length) > 0 &&
                      (curve.halfSweep == 0 || StoreArc(item, curve));
    if (!fits) return kCodeBadNumber;
    item.length = static_cast<float>(curve.length);
    return 0;
}

bool ComputeAbsStrakeItems(Strake& strake) {
    for (int item = 1; item <= ItemsOf(strake); ++item) SetUpItem(strake, item);
    strake.length = 0;
    return ItemsOf(strake) > 0;
}

}  // namespace

bool NearestOnStrake(const Strake& strake, Point point, StrakePlace& place) {
    return NearestOf(strake, place, [point](const Curve& curve, Place& found) {
        found = NearestOn(curve, point);
        return true;
    });
}

bool PlaceAt(const Strake& strake, double s, StrakePlace& place) {
    const StrakeItem* item = ItemAt(strake, s);
    Curve curve;
    if (item == nullptr || !FindCurve(*item, curve)) return false;
    const double along = std::clamp(s - item->s, 0.0, curve.length);
    const double beyond = s - static_cast<float>(EndOf(*item));
    const auto number = static_cast<int>(item - strake.items) + 1;
    place = PlaceOn(strake, number, curve, {PointAt(curve, along), along, 0});
    place.distance = std::max({0.0, item->s - s, beyond});
    return true;
}

bool FindOnStrake(const Strake& strake, double s, StrakePlace& place) {
    return std::isfinite(s) && PlaceAt(strake, s, place) && place.distance <= kSlack_m;
}

bool CrossStrake(const Strake& strake, const Crossing& crossing, StrakePlace& place) {
    // A point on the line comes before one that is only within the tolerance of it.
    for (const double tolerance : {0.0, crossing.tolerance}) {
        const auto cross = [&crossing, tolerance](const Curve& curve, Place& found) {
            return NearestCrossing(curve, crossing, tolerance, found);
        };
        if (NearestOf(strake, place, cross)) return true;
    }
    return false;
}

bool HasLine(const Strake& strake) {
    Curve curve;
    for (int item = 1; item <= ItemsOf(strake); ++item) {
        if (FindCurve(strake.items[item - 1], curve)) return true;
    }
    return false;
}

double LengthOf(const Strake& strake) {
    const StrakeItem* last = ItemOf(strake, ItemsOf(strake));
    return last == nullptr ? 0 : EndOf(*last);
}

double AbscissaOfNode(const Strake& strake, int16_t node) {
    const StrakeItem* item = ItemOf(strake, node);
    return item == nullptr ? LengthOf(strake) : item->s;
}

void SetUpItem(const Strake& strake, int item) {
    StrakeItem* record = ItemOf(strake, item);
    if (record == nullptr) return;
    *record = {};
    const Node& from = strake.nodes[item - 1];
    const Node& to = strake.nodes[item];
    record->s = item == 1 ? 0 : static_cast<float>(EndOf(strake.items[item - 2]));
    if (from.computed == 0 || to.computed == 0) return;
    record->y1 = from.y;
    record->z1 = from.z;
    record->y2 = to.y;
    record->z2 = to.z;
    record->shape = from.shape;
    record->tangentY = from.tangentY;
    record->tangentZ = from.tangentZ;
    record->radius = from.radius;
}

}  // namespace corvane::grvelk

using namespace corvane::grvelk;
using corvane::Strake;
using corvane::StrakeItem;

CORVANE_EXPORT int16_t CORVANE_STDCALL ComputeStrake(StrakeItem* items, int16_t k,
                                                     float tolerance) {
    if (items == nullptr || k < 1) return corvane::kCodeNoNodes;
    return ComputeItem(items, k, Allowance(tolerance));
}

CORVANE_EXPORT int16_t CORVANE_STDCALL ComputeAbsStrake(Strake* strakes, int16_t count) {
    if (strakes == nullptr) return count > 0 ? corvane::kCodeNoNodes : int16_t{0};
    int16_t code = 0;
    for (int strake = 0; strake < count; ++strake) {
        if (!ComputeAbsStrakeItems(strakes[strake])) code = corvane::kCodeNoNodes;
    }
    return code;
}

CORVANE_EXPORT int16_t CORVANE_STDCALL YZToS(Strake* strake, float y, float z, float* s,
                                             int16_t* flag, float tolerance) {
    if (s != nullptr) *s = 0;
    if (flag != nullptr) *flag = 0;
    if (!IsStorable(Point{y, z})) return corvane::kCodeBadNumber;
    StrakePlace place;
    if (strake == nullptr || !NearestOnStrake(*strake, {y, z}, place)) return corvane::kCodeNoNodes;
    if (s != nullptr) *s = static_cast<float>(place.s);
    if (flag != nullptr) *flag = static_cast<int16_t>(place.item);
    return place.distance <= Allowance(tolerance) ? kOnStrake : kNotOnStrake;
}

CORVANE_EXPORT int16_t CORVANE_STDCALL SToYZ(Strake* strake, float s, float* y, float* z,
                                             float tolerance) {
    if (y != nullptr) *y = 0;
    if (z != nullptr) *z = 0;
    if (s != s) return corvane::kCodeBadNumber;
    StrakePlace place;
    if (strake == nullptr || !PlaceAt(*strake, s, place)) return corvane::kCodeNoNodes;
    if (y != nullptr) *y = static_cast<float>(place.point.y);
    if (z != nullptr) *z = static_cast<float>(place.point.z);
    return place.distance <= Allowance(tolerance) ? kOnStrake : kNotOnStrake;
}

CORVANE_EXPORT int16_t CORVANE_STDCALL ComputePointFromYZ(Strake* strake, float y, float z,
                                                          float* py, float* pz, float tolerance) {
    if (py != nullptr) *py = 0;
    if (pz != nullptr) *pz = 0;
    if (!IsStorable(Point{y, z})) return corvane::kCodeBadNumber;
    StrakePlace place;
    if (strake == nullptr || !NearestOnStrake(*strake, {y, z}, place)) return corvane::kCodeNoNodes;
    if (py != nullptr) *py = static_cast<float>(place.point.y);
    if (pz != nullptr) *pz = static_cast<float>(place.point.z);
    return place.distance <= Allowance(tolerance) ? kOnStrake : kNotOnStrake;
}
