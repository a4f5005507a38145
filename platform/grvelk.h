// GrVelk.dll: the suite's geometry and drawing library, and the catalogue of messages.
#pragma once

#include <cstddef>

#include "platform/companion.h"

namespace corvane {

// ---- Records of the section geometry -----------------------------------------------------------
// y is the distance from the centre line, positive to port, z the height above the base line, both
// in metres in the plane of the section; s is the abscissa along a strake from its first node.
// Strakes, nodes and stiffeners are numbered from 1; a node reference is the pair (strake, node),
// (0, 0) refers to nothing. A boolean is a 16-bit integer, -1 true. The records are plain memory
// with natural alignment; addresses are at multiples of 8 on 32 and 64 bits alike, so that all
// offsets are the same. All arrays belong to the caller.

// How a strake continues from a node to the next one.
inline constexpr int32_t kShapeStraight = 0;
inline constexpr int32_t kShapeArcByRadius = 1;  // radius > 0: turns to the left, < 0: to the right
inline constexpr int32_t kShapeArcByTangent = 2;  // touches the two lines to the tangent point

// How a node is defined.
inline constexpr int32_t kNodeGiven = 1;         // by its own y and z
inline constexpr int32_t kNodeOnStrake = 2;      // by y (inter 1) or z (inter 2) on strake onStrake
inline constexpr int32_t kNodeOffset = 3;        // by an offset from another node
inline constexpr int32_t kNodeCoincident = 4;    // in another node's place
inline constexpr int32_t kNodeIntersection = 5;  // where the line of `extension` meets a strake

struct Node {
    float y, z;                // [m] place in the section, computed
    float s;                   // [m] abscissa on its own strake, computed
    int16_t relative;          // boolean: defined on the node (onStrake, onNode)
    int16_t onStrake, onNode;  // reference of that node
    int16_t computed;          // boolean: y and z are valid
    int32_t kind;              // kNode...
    float givenY, givenZ;      // [m] as given: coordinates, or the offset from the other node
    int32_t inter;             // which coordinate is given, for kNodeOnStrake
    int32_t shape;             // kShape...: the way to the next node
    float tangentY, tangentZ;  // [m] tangent point, for kShapeArcByTangent
    float radius;              // [m] for kShapeArcByRadius
    int16_t number;            // the user's number of the knuckle
    int16_t extensionStrake;   // strake that the line meets, for kNodeIntersection
    float extension[5];        // [m] line from (1, 2) to (3, 4); (5) moves the node along it
};
static_assert(offsetof(Node, s) == 8 && offsetof(Node, relative) == 12);
static_assert(offsetof(Node, onStrake) == 14 && offsetof(Node, onNode) == 16);
static_assert(offsetof(Node, computed) == 18 && offsetof(Node, kind) == 20);
static_assert(offsetof(Node, givenY) == 24 && offsetof(Node, inter) == 32);
static_assert(offsetof(Node, shape) == 36 && offsetof(Node, tangentY) == 40);
static_assert(offsetof(Node, radius) == 48 && offsetof(Node, number) == 52);
static_assert(offsetof(Node, extensionStrake) == 54 && offsetof(Node, extension) == 56);
static_assert(sizeof(Node) == 76);

// The line from a node to the next one, computed by ComputeStrake.
struct StrakeItem {
    float y1, z1, y2, z2;      // [m] ends
    int32_t shape;             // kShape...
    float tangentY, tangentZ;  // [m]
    float radius;              // [m] as given, with its sign
    float centreY, centreZ;    // [m] of an arc, computed
    float arcRadius;           // [m] computed, 0 for a straight line
    float startAngle, sweep;   // [rad] of an arc, anticlockwise positive, computed
    float length;              // [m] computed
    float s;                   // [m] abscissa of the first end on the strake
};
static_assert(offsetof(StrakeItem, shape) == 16 && offsetof(StrakeItem, radius) == 28);
static_assert(offsetof(StrakeItem, centreY) == 32 && offsetof(StrakeItem, arcRadius) == 40);
static_assert(offsetof(StrakeItem, startAngle) == 44 && offsetof(StrakeItem, length) == 52);
static_assert(sizeof(StrakeItem) == 60);

// One stiffener, or a row of equal ones.
struct Stiffener {
    float y, z;                // [m] foot of the first one, computed
    float normalY, normalZ;    // unit vector from the plating to the flange, computed
    float s;                   // [m] abscissa of the first one on its strake, computed
    int16_t onStrake, onNode;  // node from which `offset` counts; (0, 0): the strake's start
    int16_t count;             // stiffeners in the row, 1 or more
    int16_t side;              // -1: to the left of the strake's direction, 1: to the right
    float offset;              // [m] along the strake from that node
    float spacing;             // [m] from one to the next along the strake
    int32_t profile;           // kProfile...
    float webHeight_mm, webThickness_mm, flangeBreadth_mm, flangeThickness_mm;
    int32_t mirrored;  // boolean: the flange points to the strake's start, not to its end
};
inline constexpr int32_t kProfileFlat = 0;
inline constexpr int32_t kProfileBulb = 1;
inline constexpr int32_t kProfileAngle = 2;
inline constexpr int32_t kProfileTee = 3;
static_assert(offsetof(Stiffener, s) == 16 && offsetof(Stiffener, onStrake) == 20);
static_assert(offsetof(Stiffener, count) == 24 && offsetof(Stiffener, offset) == 28);
static_assert(offsetof(Stiffener, spacing) == 32 && offsetof(Stiffener, profile) == 36);
static_assert(offsetof(Stiffener, webHeight_mm) == 40 && offsetof(Stiffener, mirrored) == 56);
static_assert(sizeof(Stiffener) == 60);

// One strake of the section: its line through the nodes, and the items on it.
struct Strake {
    float values[3];  // spacing [m], span [m], thickness [mm]: the strake's defaults
    float length;     // [m] computed
    int16_t number;   // its own number, from 1
    int16_t nodeCount;
    int16_t itemCount;  // nodeCount - 1, or 0
    int16_t stiffenerCount;
    int16_t plateCount;
    int16_t strakeCount;  // strakes in the array; ComputeAbsNodes sets it for ComputeNode
    int16_t unused[2];
    alignas(8) Node* nodes;
    alignas(8) StrakeItem* items;
    alignas(8) Stiffener* stiffeners;
    alignas(8) const float* plateEnds;  // [m] abscissas where a plate ends and the next begins
};
static_assert(offsetof(Strake, length) == 12 && offsetof(Strake, number) == 16);
static_assert(offsetof(Strake, nodeCount) == 18 && offsetof(Strake, stiffenerCount) == 22);
static_assert(offsetof(Strake, plateCount) == 24 && offsetof(Strake, strakeCount) == 26);
static_assert(offsetof(Strake, nodes) == 32);
static_assert(offsetof(Strake, items) == 40 && offsetof(Strake, stiffeners) == 48);
static_assert(offsetof(Strake, plateEnds) == 56 && sizeof(Strake) == 64);

struct NodeReference {
    int16_t strake, node;
    bool operator==(const NodeReference&) const = default;
};

// A compartment: the nodes around it, in order.
struct CompartmentOutline {
    int16_t nodeCount;
    int16_t unused[3];
    alignas(8) const NodeReference* nodes;
};
static_assert(offsetof(CompartmentOutline, nodes) == 8 && sizeof(CompartmentOutline) == 16);

// A section as the library computes and draws it.
struct Section {
    int16_t strakeCount;
    int16_t compartmentCount;
    int16_t geometryPresent;  // boolean: there is something to draw
    int16_t previewMode;      // 0 in a preview
    int16_t symmetryMode;     // 0 and 2: one side is drawn; 1: both sides
    int16_t unused;
    float tolerance;       // [m] points no farther apart are the same
    float drawingBreadth;  // [m] set by the preview from the ship's data
    float drawingHeight;   // [m]
    alignas(8) Strake* strakes;
    alignas(8) const CompartmentOutline* compartments;
};
static_assert(offsetof(Section, geometryPresent) == 4 && offsetof(Section, previewMode) == 6);
static_assert(offsetof(Section, symmetryMode) == 8 && offsetof(Section, tolerance) == 12);
static_assert(offsetof(Section, drawingBreadth) == 16 && offsetof(Section, drawingHeight) == 20);
static_assert(offsetof(Section, strakes) == 24 && offsetof(Section, compartments) == 32);
static_assert(sizeof(Section) == 40);

// Codes of ComputeStrake and ComputeNode; 0 is success.
inline constexpr int16_t kCodeCoincidentNodes = 1;  // two nodes of a strake in one place
inline constexpr int16_t kCodeRadiusTooSmall = 2;   // less than half the distance of the ends
inline constexpr int16_t kCodeMissingNode = 3;      // a reference to a node that does not exist
inline constexpr int16_t kCodeCircularReference =
    4;                                             // a node defined on itself, over others or not
inline constexpr int16_t kCodeBadTangent = 5;      // tangent point on the line through the ends
inline constexpr int16_t kCodeTangentLengths = 6;  // tangent point not equally far from both ends
inline constexpr int16_t kCodeNoNodes = 7;         // fewer than two nodes
inline constexpr int16_t kCodeNoIntersection = 8;  // the line does not meet the strake
inline constexpr int16_t kCodeOffStrake = 9;       // the coordinate is outside the strake
inline constexpr int16_t kCodeBadNumber = 10;      // a coordinate or radius that is not a number

// What QuickCompute and TraceSection get about one drawing; every byte without a name is zero.
#pragma pack(push, 4)
struct DrawingParameters {
    int16_t drawPlating;  // boolean
    int16_t unused2[2];
    int16_t drawStiffeners;  // boolean
    int16_t drawNumbers;     // boolean
    int16_t unused10[5];
    int16_t drawCompartments;  // boolean
    int16_t unused22[25];
    int16_t detail;      // 8, or 60 for a section of less than 10 m breadth; our library has no use
    int16_t resolution;  // 200, as the argument of ScaleWindow: most lines of an arc
    float margin;        // ratio of the free margin to the drawing, 0.08
    int16_t unused80[14];
    const int32_t* colours;  // 28 colours 0x00BBGGRR, slots 0..27
    char unusedEnd[136 - 108 - sizeof(void*)];
};
#pragma pack(pop)
static_assert(offsetof(DrawingParameters, drawPlating) == 0);
static_assert(offsetof(DrawingParameters, drawStiffeners) == 6);
static_assert(offsetof(DrawingParameters, drawNumbers) == 8);
static_assert(offsetof(DrawingParameters, drawCompartments) == 20);
static_assert(offsetof(DrawingParameters, detail) == 72);
static_assert(offsetof(DrawingParameters, resolution) == 74);
static_assert(offsetof(DrawingParameters, margin) == 76);
static_assert(offsetof(DrawingParameters, colours) == 108);
static_assert(sizeof(DrawingParameters) == 136);

// Slots of the colours.
inline constexpr int kColourCount = 28;
inline constexpr int kColourCentreLine = 0;
inline constexpr int kColourCompartment = 1;
inline constexpr int kColourStrakeLimit = 3;
inline constexpr int kColourPlating = 6;
inline constexpr int kColourStiffener = 11;
inline constexpr int kColourText = 13;

// A window and its device context: HWND and HDC on Windows. On the host the device context is the
// address of a record of drawing procedures (companions/grvelk/drawing.h), the window is not used.
using WindowHandle = void*;
using DeviceHandle = void*;

}  // namespace corvane

extern "C" {

// Abscissa of a point on a strake. `flag` gets the number of the item that holds it. Status 0: the
// point is on the strake within `tolerance`; 1: it does not, `s` is that of the nearest point;
// any other value: the strake has no computed line, or a coordinate is not a number.
int16_t CORVANE_STDCALL YZToS(corvane::Strake* strake, float y, float z, float* s, int16_t* flag,
                              float tolerance);
// Point at an abscissa. Status 0: it is on the strake; 1: `s` is outside 0..length by more
// than `tolerance`, and the end's point is given.
int16_t CORVANE_STDCALL SToYZ(corvane::Strake* strake, float s, float* y, float* z,
                              float tolerance);

// Whether the node of strake `strake` has its own coordinates: 1; 0 when it is defined on
// another node or on a strake, or does not exist.
int16_t CORVANE_STDCALL Absnode(corvane::Strake* strakes, int16_t count, int16_t strake,
                                int16_t node);
// The node on which the first node of strake `k` is defined; (0, 0) when it is defined on nothing.
// The result is 0 on success, a kCode... otherwise.
int16_t CORVANE_STDCALL RelNode(corvane::Strake* strakes, int16_t count, int16_t k, int16_t* strake,
                                int16_t* node);

// Computes place, normal and abscissa of a stiffener from its offset (AbsStiff), or its offset
// from its reference node from its abscissa (RelStiff). Status 0 on success, 1 when the point is
// outside of the strake by more than 1 mm (AbsStiff gives the end's place), a kCode... otherwise:
// nothing is changed then. A reference node on another strake means the point nearest to it.
int16_t CORVANE_STDCALL AbsStiff(corvane::Strake* strakes, int16_t count, int16_t strake,
                                 corvane::Stiffener* stiffener);
int16_t CORVANE_STDCALL RelStiff(corvane::Strake* strakes, int16_t count, int16_t strake,
                                 corvane::Stiffener* stiffener);

// Computes y and z of node `node` of `strake`, which is number `number` of `strakes`; the node or
// the strake that it is defined on must have been computed: kCodeCircularReference when it has not.
// Then sets up the item that ends at this node (number node - 1), when the node before it is
// computed. Status 0 or a kCode.
int16_t CORVANE_STDCALL ComputeNode(corvane::Strake* strake, int16_t number,
                                    corvane::Strake* strakes, int16_t node, float tolerance);
// Computes item `k` (from 1) of a list: arc and length, and its abscissa from the item before it.
// 0 or a kCode; the length is 0 then.
int16_t CORVANE_STDCALL ComputeStrake(corvane::StrakeItem* items, int16_t k, float tolerance);

// Prepares all nodes: those given by their own coordinates are computed, all others are marked as
// not computed. Status 0, or the kCode of the first reference that leads nowhere or in a circle.
int16_t CORVANE_STDCALL ComputeAbsNodes(corvane::Strake* strakes, int16_t count);
// Sets up the items whose two nodes are computed, and gives all others a length of 0; nodeCount - 1
// items must have room. Status 0, or kCodeNoNodes when a strake has fewer than two nodes.
int16_t CORVANE_STDCALL ComputeAbsStrake(corvane::Strake* strakes, int16_t count);

// The point of the strake nearest to (y, z). Status as YZToS.
int16_t CORVANE_STDCALL ComputePointFromYZ(corvane::Strake* strake, float y, float z, float* py,
                                           float* pz, float tolerance);

// Computes everything of the section that drawing needs. Status 0, or the first kCode: what could
// be computed is drawn all the same.
int16_t CORVANE_STDCALL QuickCompute(corvane::Section* section,
                                     corvane::DrawingParameters* parameters);
// Fixes how section coordinates [m] map to the device context of the window, whose client area
// shows xLeft..xRight by yBottom..yTop; without a window it is the whole bitmap of the device
// context. Called by the thread that draws.
void CORVANE_STDCALL ScaleWindow(corvane::WindowHandle window, corvane::DeviceHandle dc,
                                 float xLeft, float yBottom, float xRight, float yTop,
                                 int16_t resolution);
// Draws the section with the mapping that ScaleWindow fixed.
void CORVANE_STDCALL TraceSection(corvane::DeviceHandle dc, corvane::Section* section,
                                  corvane::DrawingParameters* parameters);
}

extern "C" {

// Copies the text of message `number` into `buffer` (`size` bytes, NUL-terminated ANSI, cut when
// longer). Returns the length of the copied text, 0 when there is no such message.
int32_t CORVANE_STDCALL ZTGrVel32_LoadVelkinString(int32_t number, char* buffer, int32_t size);

// Version of the section data; the shell asks for exactly 2.002.
float CORVANE_STDCALL GetGrVelkDataVersion();

// Version of the bulkhead data; the shell asks for exactly 0.443.
float CORVANE_STDCALL GetGrVelkBhaVersion();
}

CORVANE_LATE_BOUND("GrVelk.dll", ZTGrVel32_LoadVelkinString)
CORVANE_LATE_BOUND("GrVelk.dll", GetGrVelkDataVersion)
CORVANE_LATE_BOUND("GrVelk.dll", GetGrVelkBhaVersion)
CORVANE_LATE_BOUND("GrVelk.dll", YZToS)
CORVANE_LATE_BOUND("GrVelk.dll", SToYZ)
CORVANE_LATE_BOUND("GrVelk.dll", Absnode)
CORVANE_LATE_BOUND("GrVelk.dll", RelNode)
CORVANE_LATE_BOUND("GrVelk.dll", AbsStiff)
CORVANE_LATE_BOUND("GrVelk.dll", RelStiff)
CORVANE_LATE_BOUND("GrVelk.dll", ComputeNode)
CORVANE_LATE_BOUND("GrVelk.dll", ComputeStrake)
CORVANE_LATE_BOUND("GrVelk.dll", ComputeAbsNodes)
CORVANE_LATE_BOUND("GrVelk.dll", ComputeAbsStrake)
CORVANE_LATE_BOUND("GrVelk.dll", ComputePointFromYZ)
CORVANE_LATE_BOUND("GrVelk.dll", QuickCompute)
CORVANE_LATE_BOUND("GrVelk.dll", ScaleWindow)
CORVANE_LATE_BOUND("GrVelk.dll", TraceSection)
