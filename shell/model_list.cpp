#include "shell/model_list.h"

#include <algorithm>
#include <array>

#include "bsd/frames.h"
#include "database/listing.h"
#include "platform/letter_case.h"
#include "report/reporters.h"
#include "text/numbers.h"

namespace corvane {
namespace {

std::wstring IdText(int32_t number) {
    const std::wstring text = std::to_wstring(number);
    return text.size() == 1 ? L' ' + text : text;
}

// Index of the row that `isSame`, the one with the number `tag` before others; -1: none.
template <class IsSame>
int FindRow(const std::vector<ModelRow>& rows, int32_t tag, IsSame isSame) {
    auto found = std::ranges::find_if(
        rows, [&](const ModelRow& row) { return row.tag == tag && isSame(row); });
    if (found == rows.end()) found = std::ranges::find_if(rows, isSame);
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

template <std::wstring ModelRow::* field>
std::wstring Field(const ModelRow& row) {
    return row.*field;
}

std::wstring FrameOf(const ModelRow& row) {
    return row.frame ? std::to_wstring(*row.frame) : std::wstring();
}

}  // namespace

ModelRow RowOf(const ModelEntry& model) {
    ModelRow row;
    row.name = model.name;
    // The sum makes a negative zero a plain one.
    if (model.x >= 0) row.x = DecimalText(double{model.x} + 0.0, 3, 3);
    row.id = IdText(model.number);
    row.type = KindName(model.kind);
    row.icon = FactsOf(model.kind).icon;
    row.tag = model.number;
    row.hasOwnNumber = model.hasOwnNumber;
    row.offset = model.offset;
    row.stamp = model.stamp;
    row.x_m = model.x;
    row.kind = model.kind;
    row.identifier = model.identifier;
    return row;
}

BlockPlace PlaceOf(const ModelRow& row) {
    if (!row.hasOwnNumber) return row.tag;
    return {row.tag, row.offset, row.stamp};
}

int FindSameModel(const std::vector<ModelRow>& rows, const ModelRow& before) {
    const auto isSameIdentifier = [&](const ModelRow& row) {
        return row.identifier == before.identifier && row.kind == before.kind;
    };
    const auto isSameName = [&](const ModelRow& row) {
        return row.name == before.name && row.kind == before.kind;
    };
    const int found = before.identifier.empty() ? -1 : FindRow(rows, before.tag, isSameIdentifier);
    return found >= 0 ? found : FindRow(rows, before.tag, isSameName);
}

std::span<const ModelColumn> ModelColumns() {
    static constexpr std::array kColumns{
        ModelColumn{L"Name", false, nullptr, Field<&ModelRow::name>},
        ModelColumn{L"X", true, L"0000.000", Field<&ModelRow::x>},
        ModelColumn{L"Id", true, L"0000", Field<&ModelRow::id>},
        ModelColumn{L"Type", false, L"Bulkhead", Field<&ModelRow::type>},
        ModelColumn{L"Frame", true, L"Frame", FrameOf},
    };
    return kColumns;
}

std::vector<ModelRow> FillModelList(const std::wstring& path) {
    std::vector<ModelRow> rows;
    FillModelList(path, rows);
    return rows;
}

bool FillModelList(const std::wstring& path, std::vector<ModelRow>& rows) {
    ReportStatus(kMsgReadingModels, {path});
    std::vector<ModelEntry> models;
    if (!ListModelsWithPositions(path, models)) return false;
    rows.clear();
    for (const ModelEntry& model : models) rows.push_back(RowOf(model));
    ShowStatus(L"");
    return true;
}

void ForEachNameInLowerCase(const std::vector<ModelRow>& rows, const std::vector<int>& indexes,
                            const std::function<void(int index, std::wstring_view name)>& use) {
    // So few that they stay in the processor's caches.
    constexpr size_t kLettersAtOnce = 16 * 1024;
    const auto nameOf = [&](int index) -> const std::wstring& {
        return rows[static_cast<size_t>(index)].name;
    };
    std::wstring names;
    for (auto begin = indexes.begin(), end = begin; begin != indexes.end(); begin = end) {
        names.clear();
        while (end != indexes.end() && names.size() < kLettersAtOnce) names += nameOf(*end++);
        const std::wstring lower = system::InLowerCase(names);
        std::wstring_view rest = lower;
        for (; begin != end; ++begin) {
            const size_t length = nameOf(*begin).size();
            use(*begin, rest.substr(0, length));
            rest.remove_prefix(length);
        }
    }
}

void FillInFrames(const BasicShipData& bsd, std::vector<ModelRow>& rows) {
    const FrameTable frames = FramesOf(bsd);
    for (ModelRow& row : rows) {
        row.frame.reset();
        if (row.x.empty()) continue;
        const NearestFrameResult nearest = NearestFrame(frames, double{row.x_m});
        if (nearest.found) row.frame = nearest.frame;
    }
}

}  // namespace corvane
