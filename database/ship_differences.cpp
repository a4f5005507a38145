#include "database/ship_differences.h"

#include "bsd/bsd_layout.h"
#include "text/numbers.h"

namespace corvane {
namespace {

// Some of the numbers between the titles and the remark, in the order of the file: so many have the
// name, and a number after it, from `first` on; one alone has no number.
struct NumberNames {
    const wchar_t* name;
    int count = 1;
    int first = 1;
};
constexpr NumberNames kNumberNames[] = {
    {L"Type code", 10},
    {L"General value", 6},
    {L"Length [m]"},
    {L"Breadth [m]"},
    {L"Depth [m]"},
    {L"Main value", 2, 4},
    {L"Draught [m]"},
    {L"Main value", 24, 7},
    {L"Table 2 x 10, value", 20},
    {L"Table 6 x 5, value", 30},
    {L"Part code", 3},
    {L"Pair code", 2},
    {L"Pair value", 2},
    {L"Table 3 x 2, value", 6},
    {L"End value", 2},
    {L"Number of frame zones"},
    {L"Aftmost frame"},
    {L"Last frame of zone", 40},
    {L"X of frame 0 [m]"},
    {L"Frame spacing [m] in zone", 40},
    {L"Count A"},
    {L"Count B"},
    {L"Code", 26, 0},
    {L"Triple value", 30},
    {L"List value", 15},
    {L"Single value"},
    {L"Block value", 2},
    {L"Block value", 2, 5},
    {L"Block value 7"},
    {L"Block value 11"},
};

std::vector<std::wstring> NamesOfNumbers() {
    std::vector<std::wstring> names;
    for (const auto& [name, count, first] : kNumberNames) {
        for (int i = first; i < first + count; ++i) {
            names.push_back(count == 1 ? name : name + (L' ' + std::to_wstring(i)));
        }
    }
    return names;
}

std::vector<std::wstring> NumbersOf(BasicShipData bsd) {
    std::vector<std::wstring> numbers;
    VisitNumbers(
        bsd, [&numbers](auto& value, std::string_view) { numbers.push_back(GeneralText(value)); });
    return numbers;
}

struct Fields {
    std::vector<std::wstring> names;
    std::vector<std::wstring> before;
    std::vector<std::wstring> now;
};

void AddField(Fields& fields, const std::wstring& name, const std::wstring& before,
              const std::wstring& now) {
    fields.names.push_back(name);
    fields.before.push_back(before);
    fields.now.push_back(now);
}

void Append(std::vector<std::wstring>& list, const std::vector<std::wstring>& more) {
    list.insert(list.end(), more.begin(), more.end());
}

Fields FieldsOf(const BasicShipData& before, const BasicShipData& now) {
    Fields fields;
    for (int i = 1; i <= 5; ++i) {
        AddField(fields, L"Title " + std::to_wstring(i), before.Titles(i).Trimmed(),
                 now.Titles(i).Trimmed());
    }
    Append(fields.names, NamesOfNumbers());
    Append(fields.before, NumbersOf(before));
    Append(fields.now, NumbersOf(now));
    AddField(fields, L"Remark", before.Remark.Trimmed(), now.Remark.Trimmed());
    AddField(fields, L"Reduction factor", GeneralText(before.ReductionFactor),
             GeneralText(now.ReductionFactor));
    for (int i = 1; i <= 4; ++i) {
        AddField(fields, L"Extra value " + std::to_wstring(i), GeneralText(before.ExtraData(i)),
                 GeneralText(now.ExtraData(i)));
    }
    return fields;
}

}  // namespace

void CompareShipRecords(const BasicShipData& before, const BasicShipData& now,
                        const OnDifference& onDifference) {
    const Fields fields = FieldsOf(before, now);
    for (size_t i = 0; i < fields.names.size(); ++i) {
        if (fields.before[i] == fields.now[i]) continue;
        const Difference difference{L"Basic Ship Data", fields.names[i], fields.before[i],
                                    fields.now[i]};
        if (!onDifference(difference)) return;
    }
}

}  // namespace corvane
