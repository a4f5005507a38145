#include "shell/list_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "tests/support/support.h"

namespace corvane {
namespace {

ModelRow Named(const wchar_t* name) {
    ModelRow row;
    row.name = name;
    return row;
}

// A row at a position; none when it is negative.
ModelRow At(float x_m) {
    ModelRow row;
    row.x_m = x_m;
    if (x_m >= 0) row.x = std::to_wstring(x_m);
    return row;
}

std::vector<int> Sorted(const std::vector<ModelRow>& rows, const ListOrder& order) {
    std::vector<int> indexes(rows.size());
    std::iota(indexes.begin(), indexes.end(), 0);
    SortRows(rows, order, indexes);
    return indexes;
}

std::vector<int> Up(const std::vector<ModelRow>& rows, ListColumn column) {
    return Sorted(rows, {column, false});
}

std::vector<int> Down(const std::vector<ModelRow>& rows, ListColumn column) {
    return Sorted(rows, {column, true});
}

using Indexes = std::vector<int>;

TEST(ListOrder, NamesAreSortedAsPeopleSortThem) {
    const wchar_t* const sorted[] = {L"",
                                     L"(draft)",
                                     L"2 holds",
                                     L"10 holds",
                                     L"Frame",
                                     L"frame 9",
                                     L"Frame 9a",
                                     L"FRAME 10",
                                     L"Frame 10, aft",
                                     L"Frame 100",
                                     L"frame 20000000000000000000",
                                     L"Frames",
                                     L"hold",
                                     L"\u00C9trave",
                                     L"\u00E9trave B"};
    std::vector<ModelRow> rows;
    for (const wchar_t* name : sorted) rows.insert(rows.begin(), Named(name));
    Indexes backwards(rows.size());
    std::iota(backwards.rbegin(), backwards.rend(), 0);
    EXPECT_EQ(Up(rows, ListColumn::kName), backwards);
    std::ranges::reverse(backwards);
    EXPECT_EQ(Down(rows, ListColumn::kName), backwards);
}

TEST(ListOrder, EqualNamesKeepTheOrderOfTheFileUpAndDown) {
    const std::vector<ModelRow> rows = {Named(L"B"), Named(L"hold 7"), Named(L"Hold 007"),
                                        Named(L"HOLD 7"), Named(L"A")};
    EXPECT_EQ(Up(rows, ListColumn::kName), (Indexes{4, 0, 1, 2, 3}));
    EXPECT_EQ(Down(rows, ListColumn::kName), (Indexes{1, 2, 3, 0, 4}));
}

// Enough names that they are not compared as whole texts.
TEST(ListOrder, ManyNamesAreSortedLikeFew) {
    std::vector<ModelRow> rows;
    for (int i = 0; i < 3000; ++i) {
        const int mixed = i * 1237 % 3000;
        rows.push_back(Named((L"Hold " + std::to_wstring(mixed % 7) + L", frame " +
                              std::to_wstring(mixed / 2) + (mixed % 3 == 0 ? L"" : L" aft"))
                                 .c_str()));
    }
    for (const bool isDescending : {false, true}) {
        const Indexes sorted = Sorted(rows, {ListColumn::kName, isDescending});
        for (size_t i = 1; i < sorted.size(); ++i) {
            const Indexes pair = {std::min(sorted[i - 1], sorted[i]),
                                  std::max(sorted[i - 1], sorted[i])};
            Indexes few = pair;
            SortRows(rows, {ListColumn::kName, isDescending}, few);
            EXPECT_EQ(few, (Indexes{sorted[i - 1], sorted[i]})) << i;
        }
        Indexes all = sorted;
        std::ranges::sort(all);
        for (size_t i = 0; i < all.size(); ++i) ASSERT_EQ(all[i], static_cast<int>(i));
    }
}

TEST(ListOrder, NumbersOfZerosAreNumbers) {
    const std::vector<ModelRow> rows = {Named(L"1"), Named(L"000"), Named(L"0"), Named(L"00a")};
    EXPECT_EQ(Up(rows, ListColumn::kName), (Indexes{1, 2, 3, 0}));
}

TEST(ListOrder, PositionsAreSortedByNumberAndMissingOnesAreLast) {
    const std::vector<ModelRow> rows = {At(-1), At(100), At(9.5F), At(0), At(100), At(-1)};
    EXPECT_EQ(Up(rows, ListColumn::kX), (Indexes{3, 2, 1, 4, 0, 5}));
    EXPECT_EQ(Down(rows, ListColumn::kX), (Indexes{1, 4, 2, 3, 0, 5}));
}

TEST(ListOrder, FramesAreSortedByNumberAndMissingOnesAreLast) {
    std::vector<ModelRow> rows(4);
    rows[0].frame = 12;
    rows[2].frame = -3;
    rows[3].frame = 0;
    EXPECT_EQ(Up(rows, ListColumn::kFrame), (Indexes{2, 3, 0, 1}));
    EXPECT_EQ(Down(rows, ListColumn::kFrame), (Indexes{0, 3, 2, 1}));
}

TEST(ListOrder, NumbersOfModelsAreSortedByValue) {
    std::vector<ModelRow> rows(4);
    const int numbers[] = {10, 9, 100, 9};
    for (size_t i = 0; i < rows.size(); ++i) rows[i].tag = numbers[i];
    EXPECT_EQ(Up(rows, ListColumn::kNumber), (Indexes{1, 3, 0, 2}));
    EXPECT_EQ(Down(rows, ListColumn::kNumber), (Indexes{2, 0, 1, 3}));
}

TEST(ListOrder, KindsAreSortedByTheNameThatIsShown) {
    std::vector<ModelRow> rows(4);
    const ModelKind kinds[] = {ModelKind::kTorsion, ModelKind::kSection, ModelKind::kBulkhead,
                               ModelKind::kSection};
    for (size_t i = 0; i < rows.size(); ++i) rows[i].type = KindName(kinds[i]);
    EXPECT_EQ(Up(rows, ListColumn::kKind), (Indexes{2, 1, 3, 0}));
    EXPECT_EQ(Down(rows, ListColumn::kKind), (Indexes{0, 1, 3, 2}));
}

TEST(ListOrder, WithoutAColumnItIsTheOrderOfTheFile) {
    const std::vector<ModelRow> rows = {Named(L"B"), Named(L"C"), Named(L"A")};
    EXPECT_EQ(Sorted(rows, {}), (Indexes{0, 1, 2}));
    EXPECT_EQ(Sorted(rows, {std::nullopt, true}), (Indexes{2, 1, 0}));
}

TEST(ListOrder, OnlySomeOfTheRowsAreSorted) {
    const std::vector<ModelRow> rows = {Named(L"C"), Named(L"A"), Named(L"B"), Named(L"0")};
    Indexes some = {0, 2};
    SortRows(rows, {ListColumn::kName, false}, some);
    EXPECT_EQ(some, (Indexes{2, 0}));
    Indexes none;
    SortRows(rows, {ListColumn::kName, false}, none);
    EXPECT_TRUE(none.empty());
}

TEST(ListOrder, ClicksOnAHeadGoUpDownAndBackToTheFilesOrder) {
    const ListOrder up = OrderAfterClick({}, ListColumn::kX);
    EXPECT_EQ(up, (ListOrder{ListColumn::kX, false}));
    const ListOrder down = OrderAfterClick(up, ListColumn::kX);
    EXPECT_EQ(down, (ListOrder{ListColumn::kX, true}));
    EXPECT_EQ(OrderAfterClick(down, ListColumn::kX), ListOrder());
    EXPECT_EQ(OrderAfterClick(down, ListColumn::kName), (ListOrder{ListColumn::kName, false}));
}

}  // namespace
}  // namespace corvane
