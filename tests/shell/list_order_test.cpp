#include "shell/list_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "platform/letter_case.h"
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

// Takes the number at the start of a text off it; without leading zeros.
std::wstring_view TakeNumber(std::wstring_view& text) {
    std::wstring_view digits = text.substr(0, text.find_first_not_of(L"0123456789"));
    text.remove_prefix(digits.size());
    return digits.substr(std::min(digits.find_first_not_of(L'0'), digits.size() - 1));
}

// Whether a name in lower case comes before another one, letter by letter and number by number; to
// a letter a number is a digit.
bool IsBefore(std::wstring_view a, std::wstring_view b) {
    const auto isNumber = [](std::wstring_view text) { return text[0] >= L'0' && text[0] <= L'9'; };
    while (!a.empty() && !b.empty()) {
        if (isNumber(a) && isNumber(b)) {
            const std::wstring_view left = TakeNumber(a);
            const std::wstring_view right = TakeNumber(b);
            if (left.size() != right.size()) return left.size() < right.size();
            if (left != right) return left < right;
        } else if (a[0] != b[0]) {
            return a[0] < b[0];
        } else {
            a.remove_prefix(1);
            b.remove_prefix(1);
        }
    }
    return a.empty() && !b.empty();
}

void ExpectPlainOrder(const std::vector<ModelRow>& rows) {
    std::vector<std::wstring> names;
    for (const ModelRow& row : rows) names.push_back(system::InLowerCase(row.name));
    for (const bool isDescending : {false, true}) {
        Indexes expected(rows.size());
        std::iota(expected.begin(), expected.end(), 0);
        std::ranges::stable_sort(expected, [&](int a, int b) {
            const std::wstring& left = names[static_cast<size_t>(a)];
            const std::wstring& right = names[static_cast<size_t>(b)];
            return isDescending ? IsBefore(right, left) : IsBefore(left, right);
        });
        EXPECT_EQ(Sorted(rows, {ListColumn::kName, isDescending}), expected);
    }
}

TEST(ListOrder, IsThatOfNamesComparedLetterByLetter) {
    std::wstring letters =
        L"aAbBzZ  "
        L"0129-_,.(\t\u0001\u007E\u007F\u0080\u00C9\u00E9\u00DF\u00FF\u0141\u0142\u03A9\u03C9"
        L"\u0416\u0436\u07FE\u07FF\u0800\uE000\uFFFE\uFFFF";
    // Halves of a pair, which a file name or a text that was cut can have.
    letters += {wchar_t{0xD800}, wchar_t{0xDFFF}};
    const std::wstring beginnings[] = {
        L"", L"H", L"Hold 7, ", L"hold 07, ", L"Quersektion \u00C9", L"Transverse section, frame "};
    std::mt19937 random(1);
    for (const size_t longest : {2U, 4U, 30U}) {
        std::vector<ModelRow> rows;
        for (int i = 0; i < 3000; ++i) {
            std::wstring name = beginnings[random() % std::size(beginnings)];
            for (size_t length = random() % longest; length > 0; --length) {
                name += letters[random() % letters.size()];
            }
            rows.push_back(Named(name.c_str()));
        }
        ExpectPlainOrder(rows);
    }
}

TEST(ListOrder, LongNumbersAndNamesWithinOthersAreInOrder) {
    std::vector<ModelRow> rows;
    for (const size_t length : {1U, 2U, 7U, 8U, 9U, 126U, 127U, 128U, 2046U, 2047U, 2048U, 5000U}) {
        for (const wchar_t letter : {L'9', L'1', L'x', L'\u0436'}) {
            rows.insert(rows.begin(), Named(std::wstring(length, letter).c_str()));
            rows.insert(rows.begin(), Named((std::wstring(length, letter) + L'1').c_str()));
        }
    }
    rows.insert(rows.end(), {Named(L""), Named(L"")});
    ExpectPlainOrder(rows);
    ExpectPlainOrder({});
    ExpectPlainOrder({Named(L"alone")});
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
