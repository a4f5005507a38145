// The helpers over the geometry library, and the order of the calls that they make of it.
#include "legacy/geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "database/section.h"
#include "database/section_view.h"
#include "legacy/absolute_geometry.h"
#include "platform/ztutil32.h"
#include "tests/companions/section_builder.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using namespace test;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
using Calls = std::vector<std::string>;
using Faults = std::vector<StrakeFault>;

// Writes down the calls of a library's functions and hands them on.
struct Recorder {
    static inline Calls calls;
    static inline Strake* strakes = nullptr;
    static inline decltype(ComputeAbsNodes)::Pointer absNodes = nullptr;
    static inline decltype(ComputeAbsStrake)::Pointer absStrake = nullptr;
    static inline decltype(ComputeNode)::Pointer node = nullptr;
    static inline decltype(ComputeStrake)::Pointer strake = nullptr;
    static inline decltype(AbsStiff)::Pointer absStiff = nullptr;
    static inline decltype(ComputePointFromYZ)::Pointer pointFromYZ = nullptr;
    static inline decltype(YZToS)::Pointer toS = nullptr;
    static inline decltype(IsPointInSegment)::Pointer inSegment = nullptr;

    template <class Function>
    static typename Function::Pointer Real(Function& function) {
        EXPECT_TRUE(function.Resolve());
        return function.pointer;
    }
    static void Add(const std::string& call) { calls.push_back(call); }
    static std::string NumberOf(const Strake* record) { return std::to_string(record->number); }
    static std::string NumberOf(const StrakeItem* items) {
        const Strake* record = strakes;
        while (record->items != items) ++record;
        return NumberOf(record);
    }

    // Before the fakes take their places.
    struct RealFunctions {
        RealFunctions() {
            absNodes = Real(ComputeAbsNodes);
            absStrake = Real(ComputeAbsStrake);
            node = Real(ComputeNode);
            strake = Real(ComputeStrake);
            absStiff = Real(AbsStiff);
            pointFromYZ = Real(ComputePointFromYZ);
            toS = Real(YZToS);
            inSegment = Real(IsPointInSegment);
        }
    } realFunctions;

    explicit Recorder(TestSection& section) {
        calls.clear();
        strakes = section.strakes.data();
    }

    FakeFunction<decltype(ComputeAbsNodes)> fakeAbsNodes{
        ComputeAbsNodes, [](Strake* all, int16_t count) {
            Add("AbsNodes " + std::to_string(count));
            return absNodes(all, count);
        }};
    FakeFunction<decltype(ComputeAbsStrake)> fakeAbsStrake{
        ComputeAbsStrake, [](Strake* all, int16_t count) {
            Add("AbsStrake " + std::to_string(count));
            return absStrake(all, count);
        }};
    FakeFunction<decltype(ComputeNode)> fakeNode{
        ComputeNode, [](Strake* own, int16_t number, Strake* all, int16_t j, float tolerance) {
            EXPECT_EQ(own, all + number - 1);
            EXPECT_EQ(tolerance, kTolerance);
            Add("Node " + std::to_string(number) + "." + std::to_string(j));
            return node(own, number, all, j, tolerance);
        }};
    FakeFunction<decltype(ComputeStrake)> fakeStrake{
        ComputeStrake, [](StrakeItem* items, int16_t k, float tolerance) {
            EXPECT_EQ(tolerance, kTolerance);
            Add("Item " + NumberOf(items) + "." + std::to_string(k));
            return strake(items, k, tolerance);
        }};
    FakeFunction<decltype(AbsStiff)> fakeAbsStiff{
        AbsStiff, [](Strake* all, int16_t count, int16_t number, Stiffener* stiffener) {
            Add("AbsStiff " + std::to_string(number));
            return absStiff(all, count, number, stiffener);
        }};
    FakeFunction<decltype(ComputePointFromYZ)> fakePoint{
        ComputePointFromYZ,
        [](Strake* own, float y, float z, float* py, float* pz, float tolerance) {
            Add("PointFromYZ " + NumberOf(own));
            return pointFromYZ(own, y, z, py, pz, tolerance);
        }};
    FakeFunction<decltype(YZToS)> fakeToS{
        YZToS, [](Strake* own, float y, float z, float* s, int16_t* flag, float tolerance) {
            EXPECT_EQ(tolerance, kTolerance);
            Add("YZToS " + NumberOf(own));
            return toS(own, y, z, s, flag, tolerance);
        }};
    FakeFunction<decltype(IsPointInSegment)> fakeInSegment{
        IsPointInSegment,
        [](float y, float z, float y1, float z1, float y2, float z2, float tolerance) {
            if (calls.back() != "InSegment") Add("InSegment");
            return inSegment(y, z, y1, z1, y2, z2, tolerance);
        }};
};

struct GeometryTest : testing::Test {
    RecordedReports screen;
    TestSection section;

    std::vector<StrakeFault> faults;

    std::vector<Joint> Compute() {
        AbsoluteGeometry geometry = ComputeAbsoluteGeometry(section.section, L"Frame 84");
        faults = std::move(geometry.faults);
        return geometry.joints;
    }
    // Nothing is worth a box.
    void TearDown() override { EXPECT_TRUE(RecordedReports::Of("warning").empty()); }
};

// ---- Helpers -----------------------------------------------------------------------------------

TEST_F(GeometryTest, NodeRecordIsACopy) {
    section.Add({GivenNode(1, 2), GivenNode(3, 4)});
    Node node = NodeRecord(section.section, {1, 2});
    EXPECT_EQ(node.givenY, 3);
    node.givenY = 9;
    EXPECT_EQ(section.NodeOf(1, 2).givenY, 3);
}

TEST_F(GeometryTest, NodeRecordOfNothingIsZero) {
    section.Add({GivenNode(1, 2), GivenNode(3, 4)});
    for (const NodeReference none : {NodeReference{0, 0}, NodeReference{1, 0}, NodeReference{1, 3},
                                     NodeReference{2, 1}, NodeReference{-1, 1}}) {
        const Node node = NodeRecord(section.section, none);
        EXPECT_EQ(node.kind, 0);
        EXPECT_EQ(node.givenY, 0);
    }
}

TEST_F(GeometryTest, AbsoluteTestAsksOnceForANodeThatIsAbsolute) {
    static int calls;
    calls = 0;
    const FakeFunction fake(Absnode, [](Strake*, int16_t count, int16_t strake, int16_t node) {
        ++calls;
        EXPECT_EQ(count, 1);
        EXPECT_EQ(strake, 1);
        EXPECT_EQ(node, 2);
        return int16_t{7};
    });
    section.Add({GivenNode(1, 2), GivenNode(3, 4)});
    EXPECT_EQ(NodeAbsolute(section.section, {1, 2}), 7);
    EXPECT_EQ(calls, 1);
}

TEST_F(GeometryTest, AbsoluteTestAsksForTheNodeThatItIsDefinedOn) {
    static Calls calls;
    calls.clear();
    const FakeFunction fake(Absnode, [](Strake*, int16_t, int16_t strake, int16_t node) {
        calls.push_back(std::to_string(strake) + "." + std::to_string(node));
        return strake == 1 ? int16_t{5} : int16_t{0};
    });
    section.Add({GivenNode(1, 2), GivenNode(3, 4)});
    section.Add({CoincidentNode({1, 2}), CoincidentNode({2, 1}), GivenNode(9, 9)});
    EXPECT_EQ(NodeAbsolute(section.section, {2, 1}), 5);
    EXPECT_EQ(calls, (Calls{"2.1", "1.2"}));
    // Only one step is followed.
    calls.clear();
    EXPECT_EQ(NodeAbsolute(section.section, {2, 2}), 0);
    EXPECT_EQ(calls, (Calls{"2.2", "2.1"}));
    calls.clear();
    EXPECT_EQ(NodeAbsolute(section.section, {2, 3}), 0);
    EXPECT_EQ(calls, (Calls{"2.3"}));
    calls.clear();
    EXPECT_EQ(NodeAbsolute(section.section, {2, 4}), 0);
    EXPECT_TRUE(calls.empty());
}

TEST_F(GeometryTest, AbsoluteTestWithTheLibrary) {
    section.Add({GivenNode(1, 2), GivenNode(3, 4)});
    section.Add({CoincidentNode({1, 2}), CoincidentNode({2, 1})});
    EXPECT_EQ(NodeAbsolute(section.section, {1, 1}), 1);
    EXPECT_EQ(NodeAbsolute(section.section, {2, 1}), 1);
    EXPECT_EQ(NodeAbsolute(section.section, {2, 2}), 0);
}

TEST_F(GeometryTest, RelativeNodeOfAStrake) {
    section.Add({GivenNode(1, 2), GivenNode(3, 4)});
    section.Add({CoincidentNode({1, 2}), GivenNode(9, 9)});
    EXPECT_EQ(RelativeNode(section.section, 2), (NodeReference{1, 2}));
    EXPECT_EQ(RelativeNode(section.section, 1), NodeReference{});
}

TEST_F(GeometryTest, RelativeNodeOfStrakeZeroIsNotANodeAndNothingIsCalled) {
    static int calls;
    calls = 0;
    const FakeFunction fake(RelNode, [](Strake*, int16_t, int16_t, int16_t* strake, int16_t* node) {
        ++calls;
        *strake = 4;
        *node = 5;
        return int16_t{0};
    });
    section.Add({GivenNode(1, 2), GivenNode(3, 4)});
    EXPECT_EQ(RelativeNode(section.section, 0), NodeReference{});
    EXPECT_EQ(RelativeNode(section.section, 2), NodeReference{});
    EXPECT_EQ(RelativeNode(section.section, -1), NodeReference{});
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(RelativeNode(section.section, 1), (NodeReference{4, 5}));
}

TEST_F(GeometryTest, AbscissaOfANodesPointOnAnotherStrake) {
    section.Add({GivenNode(0, 0), GivenNode(10, 0)});
    section.Add({GivenNode(4, 0), GivenNode(4, 8)});
    section.Compute();
    float s = -1;
    EXPECT_EQ(AbscissaOfPoint(section.section, {2, 1}, 1, s), 0);
    EXPECT_EQ(s, 4);
    EXPECT_EQ(AbscissaOfPoint(section.section, {2, 2}, 1, s), 1);
    EXPECT_EQ(s, 4);
}

TEST_F(GeometryTest, AbscissaOutOfRangeIsZeroWithoutACall) {
    const FakeFunction fake(YZToS, [](Strake*, float, float, float*, int16_t*, float) {
        ADD_FAILURE();
        return int16_t{3};
    });
    section.Add({GivenNode(0, 0), GivenNode(10, 0)});
    struct {
        NodeReference node;
        int16_t k;
    } const rows[] = {{{1, 1}, 0}, {{1, 1}, 2}, {{1, 1}, -1}, {{0, 1}, 1},
                      {{2, 1}, 1}, {{1, 0}, 1}, {{1, 3}, 1},  {{-1, -1}, 1}};
    for (const auto& row : rows) {
        float s = 77;
        EXPECT_EQ(AbscissaOfPoint(section.section, row.node, row.k, s), 0);
        EXPECT_EQ(s, 77);
    }
}

TEST_F(GeometryTest, OfTwoNodesWithinTheToleranceTheOneOnTheLowerStrakeIsReturned) {
    section.Add({GivenNode(0, 0), GivenNode(10, 0)});
    section.Add({GivenNode(4, 8), GivenNode(5, 5.0009F), GivenNode(5, 5.0005F)});
    section.Add({GivenNode(5, 5), GivenNode(9, 9)});
    section.Compute();
    // The nearest is (3, 1), but (2, 2) comes first: by strake, then by node.
    EXPECT_EQ(NodeAtPoint(section.section, 5, 5), (NodeReference{2, 2}));
    EXPECT_EQ(NodeAtPoint(section.section, 5, 4.9996F), (NodeReference{2, 3}));
    EXPECT_EQ(NodeAtPoint(section.section, 9, 9), (NodeReference{3, 2}));
    EXPECT_EQ(NodeAtPoint(section.section, 1, 1), NodeReference{});
}

TEST_F(GeometryTest, NodeAtAPointOfASectionWithoutStrakes) {
    EXPECT_EQ(NodeAtPoint(section.section, 0, 0), NodeReference{});
    section.section.strakeCount = 3;
    EXPECT_EQ(NodeAtPoint(section.section, 0, 0), NodeReference{});
}

TEST_F(GeometryTest, CodesOfItemsAreReportedAndTheNextItemFollows) {
    static Calls calls;
    calls.clear();
    const FakeFunction fake(ComputeStrake, [](StrakeItem*, int16_t k, float tolerance) {
        calls.push_back(std::to_string(k));
        EXPECT_EQ(tolerance, 0.5F);
        return k == 2 ? kCodeBadNumber : k == 3 ? kCodeCoincidentNodes : int16_t{0};
    });
    std::vector<StrakeItem> items(4);
    const Faults found = ComputeStrakeItems({items.data(), 1, 4, 7}, 0.5F, L"Frame 84");
    EXPECT_EQ(calls, (Calls{"1", "2", "3", "4"}));
    EXPECT_EQ(found, (Faults{{kCodeBadNumber, 2, 7}, {kCodeCoincidentNodes, 3, 7}}));
    EXPECT_EQ(RecordedReports::events, (Calls{"colour red", "colour red"}));
}

// A label that shows the message already stays as it is, so each one is recognised.
TEST_F(GeometryTest, EachCodeHasItsMessageWithItemSectionAndStrake) {
    const FakeCatalogue catalogue({{1042, "a"},
                                   {1043, "b"},
                                   {1044, "c"},
                                   {1045, "d"},
                                   {1046, "e"},
                                   {1047, "f"},
                                   {1048, "g"},
                                   {1049, "h"},
                                   {1050, "i"},
                                   {1051, "j"}});
    for (int16_t code = 1; code <= 10; ++code) {
        RecordedReports::caption =
            std::wstring(1, static_cast<wchar_t>(L'a' + code - 1)) + L" 2 x 3...";
        ReportStrakeFault({code, 2, 3}, L"x");
        EXPECT_TRUE(RecordedReports::events.empty()) << code;
        ReportStrakeFault({code, 2, 4}, L"x");
        EXPECT_EQ(RecordedReports::events, Calls{"colour red"}) << code;
        RecordedReports::events.clear();
    }
}

// ---- Absolute geometry -------------------------------------------------------------------------

TEST_F(GeometryTest, CallsComeInTheirOrder) {
    section.Add({GivenNode(0, 0), GivenNode(10, 0), GivenNode(10, 5)}, {StiffenerAt(3)});
    section.Add({GivenNode(4, 0), GivenNode(4, 8)});
    const Recorder recorder(section);
    Compute();
    EXPECT_EQ(
        Recorder::calls,
        (Calls{"AbsNodes 2", "AbsStrake 2", "Node 1.1", "Node 1.2", "Item 1.1", "Node 1.3",
               "Item 1.2", "Node 2.1", "Node 2.2", "Item 2.1", "AbsStiff 1", "PointFromYZ 1",
               "InSegment", "YZToS 1", "YZToS 1", "YZToS 1", "YZToS 2", "YZToS 2", "InSegment"}));
}

TEST_F(GeometryTest, NodeDefinedOnANodeOfALaterStrakeIsComputedAfterThatStrakesNodes) {
    section.Add({GivenNode(0, 0), CoincidentNode({2, 1}), GivenNode(10, 0)});
    section.Add({OffsetNode({3, 2}, 1, 0), GivenNode(4, 8)});
    section.Add({GivenNode(3, 3), GivenNode(3, 6)});
    const Recorder recorder(section);
    Compute();
    Calls calls = Recorder::calls;
    calls.resize(15);
    EXPECT_EQ(calls, (Calls{"AbsNodes 3", "AbsStrake 3", "Node 1.1", "Node 3.1", "Node 3.2",
                            "Item 3.1", "Node 2.1", "Node 2.2", "Item 2.1", "Node 1.2", "Item 1.1",
                            "Node 1.3", "Item 1.2", "YZToS 1", "YZToS 1"}));
    EXPECT_EQ(section.NodeOf(1, 2).y, 4);
    EXPECT_EQ(section.NodeOf(1, 2).z, 6);
    EXPECT_TRUE(faults.empty());
}

TEST_F(GeometryTest, StrakeThatANodeLiesOnIsComputedFirst) {
    section.Add({NodeAtY(3, 5), LineNode(2, {0, 1, 1, 1})});
    section.Add({GivenNode(8, 0), GivenNode(8, 5)});
    section.Add({GivenNode(0, 0), GivenNode(10, 0)});
    Compute();
    EXPECT_EQ(section.NodeOf(1, 1).y, 5);
    EXPECT_EQ(section.NodeOf(1, 2).y, 8);
    EXPECT_EQ(section.NodeOf(1, 2).z, 1);
    EXPECT_FLOAT_EQ(section.LengthOf(1), std::sqrt(10.0F));
    EXPECT_TRUE(faults.empty());
}

TEST_F(GeometryTest, NodeDefinedOnALaterNodeOfItsOwnStrake) {
    section.Add({OffsetNode({1, 3}, -4, 0), OffsetNode({1, 1}, 1, 0), OffsetNode({1, 4}, 0, 1),
                 GivenNode(9, 0)});
    Compute();
    EXPECT_EQ(section.NodeOf(1, 1).y, 5);
    EXPECT_EQ(section.NodeOf(1, 2).y, 6);
    EXPECT_EQ(section.NodeOf(1, 3).z, 1);
    EXPECT_FLOAT_EQ(section.LengthOf(1), 1 + 3 + 1);
    EXPECT_TRUE(faults.empty());
}

TEST_F(GeometryTest, StrakesMayReferToEachOther) {
    section.Add({GivenNode(0, 0), OffsetNode({2, 1}, 2, 0), OffsetNode({1, 1}, 8, 0)});
    section.Add({OffsetNode({1, 3}, -5, 1), OffsetNode({1, 1}, 6, 6)});
    Compute();
    EXPECT_EQ(section.NodeOf(2, 1).y, 3);
    EXPECT_EQ(section.NodeOf(1, 2).y, 5);
    EXPECT_TRUE(faults.empty());
}

TEST_F(GeometryTest, CircleIsReportedOnceAndTheRestGoesOn) {
    section.Add({GivenNode(0, 0), CoincidentNode({2, 2}), GivenNode(10, 0)});
    section.Add({GivenNode(1, 1), CoincidentNode({1, 2}), OffsetNode({2, 1}, 3, 4)});
    section.Add({CoincidentNode({1, 2}), GivenNode(1, 1), GivenNode(2, 1)});
    Compute();
    EXPECT_EQ(faults, (Faults{{kCodeCircularReference, 2, 2}}));
    EXPECT_EQ(section.NodeOf(2, 3).y, 4);
    EXPECT_FLOAT_EQ(section.ItemOf(3, 2).length, 1);
}

TEST_F(GeometryTest, NodeThatIsDefinedOnItself) {
    section.Add({GivenNode(0, 0), OffsetNode({1, 2}, 1, 1)});
    section.Add({GivenNode(0, 0), NodeAtY(2, 1)});
    Compute();
    EXPECT_EQ(faults, (Faults{{kCodeCircularReference, 2, 1}, {kCodeCircularReference, 2, 2}}));
}

TEST_F(GeometryTest, FaultIsReportedByTheStrakeWhereItBegins) {
    section.Add({GivenNode(0, 0), OffsetNode({2, 1}, 1, 1), OffsetNode({1, 2}, 1, 1)});
    section.Add({GivenNode(kNaN, 0), GivenNode(1, 1)});
    Compute();
    EXPECT_EQ(faults, (Faults{{kCodeBadNumber, 1, 2}}));
}

TEST_F(GeometryTest, StrakesAfterABadOneAreComputed) {
    section.Add({GivenNode(0, 0), GivenNode(0, 0), GivenNode(3, 0)});
    section.Add({GivenNode(0, 0)});
    section.Add({CoincidentNode({9, 9}), GivenNode(3, 4)});
    section.Add({GivenNode(0, 0), GivenNode(3, 4)});
    Compute();
    EXPECT_EQ(
        faults,
        (Faults{{kCodeCoincidentNodes, 1, 1}, {kCodeNoNodes, 0, 2}, {kCodeMissingNode, 1, 3}}));
    EXPECT_EQ(section.LengthOf(1), 3);
    EXPECT_EQ(section.LengthOf(4), 5);
}

TEST_F(GeometryTest, StatusIsShownAndCleared) {
    section.Add({GivenNode(0, 0), GivenNode(3, 4)});
    Compute();
    EXPECT_EQ(RecordedReports::Of("caption"),
              (Calls{"Computing the geometry of the section 'Frame 84'...", ""}));
}

TEST_F(GeometryTest, NothingIsComputedOfASectionWithoutStrakes) {
    const FakeFunction fake(ComputeAbsNodes, [](Strake*, int16_t) {
        ADD_FAILURE();
        return int16_t{0};
    });
    EXPECT_TRUE(Compute().empty());
    section.section.strakeCount = 3;
    EXPECT_TRUE(Compute().empty());
    EXPECT_TRUE(faults.empty());
    EXPECT_EQ(RecordedReports::caption, L"");
}

TEST_F(GeometryTest, LibraryThatIsMissingComputesNothing) {
    const auto nothing = [](Strake*, int16_t, Strake*, int16_t, float) { return int16_t{0}; };
    const FakeFunction fake(ComputeNode, nothing);
    const FakeFunction fakeAll(ComputeAbsNodes, [](Strake*, int16_t) { return int16_t{0}; });
    section.Add({GivenNode(0, 0), GivenNode(3, 4)}, {StiffenerAt(1)});
    EXPECT_TRUE(Compute().empty());
    EXPECT_TRUE(faults.empty());
    EXPECT_EQ(section.LengthOf(1), 0);
}

TEST_F(GeometryTest, ClosedStrakeKeepsItsLastAbscissa) {
    section.Add({GivenNode(0, 0), GivenNode(6, 0), GivenNode(6, 4), CoincidentNode({1, 1})});
    Compute();
    EXPECT_EQ(section.NodeOf(1, 1).s, 0);
    EXPECT_FLOAT_EQ(section.NodeOf(1, 3).s, 10);
    EXPECT_FLOAT_EQ(section.NodeOf(1, 4).s, 10 + std::sqrt(52.0F));
}

TEST_F(GeometryTest, SameResultAsQuickCompute) {
    Chance chance(21);
    for (int run = 0; run < 50; ++run) {
        const std::vector<Node> nodes = RandomNodes(chance);
        const float s = chance.Between(0.2, 0.9);
        TestSection quick;
        TestSection steps;
        for (TestSection* made : {&quick, &steps}) {
            made->Add({OffsetNode({2, 1}, 1, 1), GivenNode(-9, -9)}, {StiffenerAt(s)});
            made->Add(nodes, {StiffenerAt(s)});
        }
        EXPECT_EQ(quick.Compute(), 0);
        EXPECT_TRUE(ComputeAbsoluteGeometry(steps.section, L"").faults.empty());
        for (int strake = 1; strake <= 2; ++strake) {
            EXPECT_EQ(quick.LengthOf(strake), steps.LengthOf(strake));
            EXPECT_EQ(quick.StiffenerOf(strake, 1).y, steps.StiffenerOf(strake, 1).y);
            for (int node = 1; node <= quick.At(strake).nodeCount; ++node) {
                EXPECT_EQ(quick.NodeOf(strake, node).y, steps.NodeOf(strake, node).y);
                EXPECT_NEAR(quick.NodeOf(strake, node).s, steps.NodeOf(strake, node).s, 2e-5);
            }
        }
    }
    EXPECT_TRUE(faults.empty());
}

TEST_F(GeometryTest, ModelIsComputedInPlaceThroughItsView) {
    SectionModel model;
    model.panels.resize(2);
    model.panels[0].nodes = {OffsetNode({2, 2}, 2, 0), GivenNode(9, 5)};
    model.panels[0].stiffeners = {StiffenerAt(1)};
    model.panels[1].nodes = {GivenNode(0, 0), RadiusNode(3, 0, 5), GivenNode(3, 5)};
    LibraryView view;
    MakeLibraryView(model, view);
    EXPECT_TRUE(ComputeAbsoluteGeometry(view.section, model.name).joints.empty());
    EXPECT_EQ(model.panels[0].nodes[0].y, 5);
    EXPECT_FLOAT_EQ(view.strakes[0].length, std::sqrt(41.0F));
    EXPECT_FLOAT_EQ(model.panels[0].stiffeners[0].s, 1);
    EXPECT_FLOAT_EQ(model.panels[1].nodes[2].s, 3 + 5 * 3.14159265F / 3);
    EXPECT_TRUE(faults.empty());
}

// ---- Stiffeners --------------------------------------------------------------------------------

TEST_F(GeometryTest, StiffenersArePlaced) {
    section.Add({GivenNode(0, 0), GivenNode(10, 0)},
                {StiffenerAt(2.5F), StiffenerAt(-1, {1, 2}), StiffenerAt(1, {7, 7})});
    Compute();
    EXPECT_FLOAT_EQ(section.StiffenerOf(1, 1).y, 2.5F);
    EXPECT_FLOAT_EQ(section.StiffenerOf(1, 2).y, 9);
    EXPECT_EQ(section.StiffenerOf(1, 3).normalZ, 0);
}

TEST_F(GeometryTest, StiffenerBeyondTheStrakeIsAtItsEnd) {
    section.Add({GivenNode(0, 0), GivenNode(10, 0)}, {StiffenerAt(12)});
    Compute();
    EXPECT_EQ(section.StiffenerOf(1, 1).y, 10);
    EXPECT_EQ(section.StiffenerOf(1, 1).offset, 12);
}

TEST_F(GeometryTest, StiffenerWithinTheToleranceOfAKnuckleIsThere) {
    section.Add({GivenNode(0, 0), GivenNode(4, 0), GivenNode(4, 4)},
                {StiffenerAt(3.9995F), StiffenerAt(4.0005F), StiffenerAt(3.998F)});
    Compute();
    EXPECT_EQ(section.StiffenerOf(1, 1).y, 4);
    EXPECT_EQ(section.StiffenerOf(1, 1).z, 0);
    EXPECT_EQ(section.StiffenerOf(1, 2).z, 0);
    EXPECT_FLOAT_EQ(section.StiffenerOf(1, 3).y, 3.998F);
}

TEST_F(GeometryTest, StiffenerThatTheLibraryPutsBesideTheStrakeIsMovedOntoIt) {
    const FakeFunction fake(AbsStiff, [](Strake*, int16_t, int16_t, Stiffener* stiffener) {
        stiffener->y = 6;
        stiffener->z = 0.25F;
        return int16_t{0};
    });
    section.Add({GivenNode(0, 0), GivenNode(10, 0)}, {StiffenerAt(1)});
    Compute();
    EXPECT_FLOAT_EQ(section.StiffenerOf(1, 1).y, 6);
    EXPECT_EQ(section.StiffenerOf(1, 1).z, 0);
}

// ---- Joints ------------------------------------------------------------------------------------

TEST_F(GeometryTest, JointsAreWhereNodesLieOnOtherStrakes) {
    section.Add({GivenNode(0, 0), GivenNode(10, 0)});
    section.Add({GivenNode(4, 0), GivenNode(4, 8)});
    section.Add({GivenNode(0, 8), GivenNode(4, 8), GivenNode(9, 8.002F)});
    EXPECT_EQ(Compute(), (std::vector<Joint>{{{2, 1}, 1}, {{2, 2}, 3}, {{3, 2}, 2}}));
}

TEST_F(GeometryTest, JointOnAnArcIsOnTheArcNotOnItsChord) {
    const float root = std::sqrt(2.0F);
    section.Add({RadiusNode(10, 0, 2), GivenNode(12, 2)});
    section.Add({GivenNode(10 + root, 2 - root), GivenNode(0, 5)});
    section.Add({GivenNode(11, 1), GivenNode(0, 6)});
    section.Add({GivenNode(11.2F, 0.9F), GivenNode(0, 7)});
    EXPECT_EQ(Compute(), (std::vector<Joint>{{{2, 1}, 1}}));
}

TEST_F(GeometryTest, JointWithinTheTolerance) {
    section.Add({GivenNode(0, 0), GivenNode(10, 0)});
    section.Add({GivenNode(4, 0.0009F), GivenNode(4, 8)});
    section.Add({GivenNode(5, 0.0011F), GivenNode(5, 8)});
    EXPECT_EQ(Compute(), (std::vector<Joint>{{{2, 1}, 1}}));
}

}  // namespace
}  // namespace corvane
