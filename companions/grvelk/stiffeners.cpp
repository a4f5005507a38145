// Places of the stiffeners.
#include "companions/grvelk/strakes.h"

using namespace corvane;
using namespace corvane::grvelk;

namespace {

// How far beyond an end a stiffener may be and still be on the strake [m].
constexpr double kBeyondEnd = 0.001;

struct Request {
    Strake* strakes;
    int16_t count;
    int16_t strake;
};

// The abscissa on the strake from which the stiffener's offset counts.
int16_t FindBase(const Request& request, const Stiffener& stiffener, double& s) {
    s = 0;
    if (stiffener.onStrake == 0 && stiffener.onNode == 0) return 0;
    const Strake* base = StrakeOf(request.strakes, request.count, stiffener.onStrake);
    const Node* node = base == nullptr ? nullptr : NodeOf(*base, stiffener.onNode);
    if (node == nullptr || node->computed == 0) return kCodeMissingNode;
    const Strake& strake = request.strakes[request.strake - 1];
    if (stiffener.onStrake == request.strake) {
        s = AbscissaOfNode(strake, stiffener.onNode);
        return 0;
    }
    StrakePlace nearest;
    if (!NearestOnStrake(strake, {node->y, node->z}, nearest)) return kCodeNoNodes;
    s = nearest.s;
    return 0;
}

// Checks what both directions need, and gives the strake and the base.
int16_t Prepare(const Request& request, const Stiffener* stiffener, double& s) {
    if (stiffener == nullptr) return kCodeMissingNode;
    const Strake* strake = StrakeOf(request.strakes, request.count, request.strake);
    if (strake == nullptr) return kCodeMissingNode;
    if (!HasLine(*strake)) return kCodeNoNodes;
    return FindBase(request, *stiffener, s);
}

}  // namespace

CORVANE_EXPORT int16_t CORVANE_STDCALL AbsStiff(Strake* strakes, int16_t count, int16_t strake,
                                                Stiffener* stiffener) {
    double base = 0;
    const int16_t code = Prepare({strakes, count, strake}, stiffener, base);
    if (code != 0) return code;
    const double s = base + stiffener->offset;
    if (!IsStorable(s)) return kCodeBadNumber;
    StrakePlace place;
    if (!PlaceAt(strakes[strake - 1], s, place)) return kCodeNoNodes;
    const Point left = LeftOf(place.direction);
    const Point normal = stiffener->side > 0 ? -1.0 * left : left;
    stiffener->y = static_cast<float>(place.point.y);
    stiffener->z = static_cast<float>(place.point.z);
    stiffener->normalY = static_cast<float>(normal.y);
    stiffener->normalZ = static_cast<float>(normal.z);
    stiffener->s = static_cast<float>(place.s);
    return place.distance <= kBeyondEnd ? kOnStrake : kNotOnStrake;
}

CORVANE_EXPORT int16_t CORVANE_STDCALL RelStiff(Strake* strakes, int16_t count, int16_t strake,
                                                Stiffener* stiffener) {
    double base = 0;
    const int16_t code = Prepare({strakes, count, strake}, stiffener, base);
    if (code != 0) return code;
    if (!IsStorable(stiffener->s - base)) return kCodeBadNumber;
    StrakePlace place;
    if (!PlaceAt(strakes[strake - 1], stiffener->s, place)) return kCodeNoNodes;
    stiffener->offset = static_cast<float>(stiffener->s - base);
    return place.distance <= kBeyondEnd ? kOnStrake : kNotOnStrake;
}
