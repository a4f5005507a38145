// Records that make no sense: a code, never a crash.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "tests/companions/section_builder.h"

namespace corvane {
namespace {

using namespace test;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// Everything that is called with a strake, or an array of `count` strakes.
void CallAll(Strake* strakes, int16_t count) {
    const float numbers[] = {0, 1, -1, 1e30F, kNaN, kInfinity, -kInfinity};
    Stiffener stiffener = StiffenerAt(1, {1, 1});
    int16_t first = 0;
    int16_t second = 0;
    float y = 0;
    float z = 0;
    ComputeAbsNodes(strakes, count);
    ComputeAbsStrake(strakes, count);
    for (const int16_t number : {int16_t{-32768}, int16_t{0}, int16_t{1}, int16_t{32767}}) {
        Absnode(strakes, count, number, number);
        RelNode(strakes, count, number, &first, &second);
        AbsStiff(strakes, count, number, &stiffener);
        RelStiff(strakes, count, number, &stiffener);
        ComputeNode(strakes, number, strakes, number, kTolerance);
    }
    for (const float number : numbers) {
        for (const float tolerance : numbers) {
            YZToS(strakes, number, number, &y, &first, tolerance);
            SToYZ(strakes, number, &y, &z, tolerance);
            ComputePointFromYZ(strakes, number, number, &y, &z, tolerance);
        }
    }
}

TEST(GeometryDegenerateTest, NullAndEmpty) {
    for (const int16_t count : {int16_t{-32768}, int16_t{-1}, int16_t{0}, int16_t{1}}) {
        CallAll(nullptr, count);
    }
    Strake strake{};
    for (const int16_t count : {int16_t{-1}, int16_t{0}, int16_t{1}}) CallAll(&strake, count);
    EXPECT_EQ(QuickCompute(nullptr, nullptr), kCodeNoNodes);
    Section section{};
    EXPECT_EQ(QuickCompute(&section, nullptr), 0);
    section.strakeCount = 3;
    EXPECT_EQ(QuickCompute(&section, nullptr), 0);
    section.strakes = &strake;
    for (const int16_t count : {int16_t{-1}, int16_t{0}}) {
        section.strakeCount = count;
        EXPECT_EQ(QuickCompute(&section, nullptr), 0);
    }
    section.strakeCount = 1;
    EXPECT_EQ(QuickCompute(&section, nullptr), kCodeNoNodes);
}

TEST(GeometryDegenerateTest, ResultsThatNobodyWants) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(4, 0)});
    ASSERT_EQ(section.Compute(), 0);
    EXPECT_EQ(YZToS(&section.At(1), 1, 0, nullptr, nullptr, kTolerance), 0);
    EXPECT_EQ(SToYZ(&section.At(1), 1, nullptr, nullptr, kTolerance), 0);
    EXPECT_EQ(ComputePointFromYZ(&section.At(1), 1, 0, nullptr, nullptr, kTolerance), 0);
}

TEST(GeometryDegenerateTest, NoLineIsNeitherOnNorBeside) {
    Strake strake{};
    float y = 9;
    float z = 9;
    int16_t item = 9;
    for (Strake* given : {static_cast<Strake*>(nullptr), &strake}) {
        EXPECT_EQ(YZToS(given, 1, 0, &y, &item, kTolerance), kCodeNoNodes);
        EXPECT_EQ(SToYZ(given, 1, &y, &z, kTolerance), kCodeNoNodes);
        EXPECT_EQ(ComputePointFromYZ(given, 1, 0, &y, &z, kTolerance), kCodeNoNodes);
        EXPECT_EQ(y, 0);
        EXPECT_EQ(item, 0);
    }
}

TEST(GeometryDegenerateTest, PointThatIsNotANumber) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(4, 0)});
    ASSERT_EQ(section.Compute(), 0);
    float y = 9;
    float z = 9;
    int16_t item = 9;
    for (const float bad : {kNaN, kInfinity}) {
        EXPECT_EQ(YZToS(&section.At(1), bad, 0, &y, &item, kTolerance), kCodeBadNumber);
        EXPECT_EQ(ComputePointFromYZ(&section.At(1), 0, bad, &y, &z, kTolerance), kCodeBadNumber);
    }
    EXPECT_EQ(SToYZ(&section.At(1), kNaN, &y, &z, kTolerance), kCodeBadNumber);
}

TEST(GeometryDegenerateTest, CountsThatDoNotFitTheArrays) {
    struct {
        int16_t nodes, items, stiffeners;
        bool noNodes, noItems;
    } const rows[] = {
        {-5, 1, 0, false, false}, {2, -5, 0, false, false},    {2, 0, 0, false, false},
        {1, 1, 0, false, false},  {2, 9, 0, false, false},     {2, 1, 3, false, false},
        {2, 1, -3, false, false}, {2, 1, 0, true, false},      {2, 1, 0, false, true},
        {2, 1, 0, true, true},    {0, 32767, 0, false, false},
    };
    for (const auto& row : rows) {
        TestSection section;
        section.Add({GivenNode(0, 0), GivenNode(4, 0)});
        section.Add({CoincidentNode({1, 1}), NodeAtY(1, 2)});
        Strake& strake = section.At(1);
        strake.nodeCount = row.nodes;
        strake.itemCount = row.items;
        strake.stiffenerCount = row.stiffeners;
        strake.stiffeners = nullptr;
        if (row.noNodes) strake.nodes = nullptr;
        if (row.noItems) strake.items = nullptr;
        section.Compute();
        CallAll(section.strakes.data(), 2);
    }
}

TEST(GeometryDegenerateTest, ItemsThatAreNoLines) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(4, 0)});
    ASSERT_EQ(section.Compute(), 0);
    const StrakeItem good = section.ItemOf(1, 1);
    for (size_t place = 0; place < sizeof(StrakeItem) / sizeof(float); ++place) {
        for (const float bad : {kNaN, kInfinity, -1.0F, 1e38F}) {
            for (int32_t shape = -1; shape <= 3; ++shape) {
                StrakeItem item = good;
                item.shape = shape;
                std::memcpy(reinterpret_cast<char*>(&item) + place * sizeof(float), &bad,
                            sizeof bad);
                section.ItemOf(1, 1) = item;
                float y = 0;
                float z = 0;
                int16_t number = 0;
                YZToS(&section.At(1), 1, 1, &y, &number, kTolerance);
                SToYZ(&section.At(1), 1, &y, &z, kTolerance);
                ComputePointFromYZ(&section.At(1), 1, 1, &y, &z, kTolerance);
                Stiffener stiffener = StiffenerAt(1);
                AbsStiff(section.strakes.data(), 1, 1, &stiffener);
                ComputeStrake(section.At(1).items, 1, kTolerance);
            }
        }
    }
}

// Any values at all in the records, counts and addresses aside.
TEST(GeometryDegenerateTest, RecordsOfAnyContents) {
    Chance chance(13);
    const float numbers[] = {0, 1, 2, -3, 1e-30F, 1e38F, kNaN, kInfinity, 0.5F, 10, -1e38F, 7};
    const auto any = [&] { return numbers[chance.Below(12)]; };
    const auto reference = [&] { return static_cast<int16_t>(chance.Below(6) - 1); };
    for (int run = 0; run < 2000; ++run) {
        TestSection section;
        const int strakes = 1 + chance.Below(4);
        for (int strake = 0; strake < strakes; ++strake) {
            std::vector<Node> nodes(static_cast<size_t>(chance.Below(5)));
            for (Node& node : nodes) {
                node = chance.Below(2) == 0 ? GivenNode(chance.Between(0, 9), chance.Between(0, 9))
                                            : GivenNode(any(), any());
                node.kind = chance.Below(7);
                node.onStrake = reference();
                node.onNode = reference();
                node.inter = chance.Below(3);
                node.shape = chance.Below(4);
                node.tangentY = any();
                node.tangentZ = any();
                node.radius = any();
                node.extensionStrake = reference();
                for (float& number : node.extension) number = any();
            }
            section.Add(nodes, {StiffenerAt(any(), {reference(), reference()}, reference())});
        }
        section.section.tolerance = chance.Below(2) == 0 ? kTolerance : any();
        const int16_t code = section.Compute();
        EXPECT_GE(code, 0);
        EXPECT_LE(code, 10);
        for (const TestSection::Parts& parts : section.contents) {
            for (const Node& node : parts.nodes) {
                EXPECT_TRUE(std::isfinite(node.y) && std::isfinite(node.z) &&
                            std::isfinite(node.s));
            }
            for (const StrakeItem& item : parts.items) {
                EXPECT_TRUE(std::isfinite(item.length) && std::isfinite(item.s));
            }
        }
    }
}

}  // namespace
}  // namespace corvane
