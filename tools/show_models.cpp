// The commands that only look: list and show.
#include <optional>

#include "bsd/frames.h"
#include "database/describing.h"
#include "database/model_kind.h"
#include "legacy/exchange.h"
#include "shell/exchange_boxes.h"
#include "shell/state.h"
#include "text/numbers.h"
#include "text/text.h"
#include "tools/console.h"
#include "tools/formats.h"
#include "tools/model_choice.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

// What the list shows of a model.
struct ListedModel {
    int32_t number = 0;
    bool hasOwnNumber = false;
    std::wstring name;
    std::wstring kind;
    std::optional<float> x_m;
    std::optional<int> frame;
};

ListedModel ListedModelOf(const ModelEntry& model, const FrameTable& frames) {
    ListedModel listed{model.number,         model.hasOwnNumber, model.name,
                       KindName(model.kind), std::nullopt,       std::nullopt};
    if (!FactsOf(model.kind).hasPosition) return listed;
    listed.x_m = model.x;
    const NearestFrameResult nearest = NearestFrame(frames, double{model.x});
    if (nearest.found) listed.frame = nearest.frame;
    return listed;
}

std::vector<ListedModel> ListedModels() {
    const FrameTable frames = FramesOf(shell.database.bsd);
    std::vector<ListedModel> listed;
    listed.reserve(toolState.models.size());
    for (const ModelEntry& model : toolState.models) {
        listed.push_back(ListedModelOf(model, frames));
    }
    return listed;
}

std::wstring Metres(const std::optional<float>& x_m) {
    return x_m ? DecimalText(double{*x_m} + 0.0, 3, 3) : std::wstring();
}

std::wstring FrameNumber(const std::optional<int>& frame) {
    return frame ? std::to_wstring(*frame) : std::wstring();
}

std::wstring AsText(const std::vector<ListedModel>& models) {
    std::vector<TextRow> rows{{L"No", L"Name", L"Kind", L"x [m]", L"Frame"}};
    for (const ListedModel& model : models) {
        rows.push_back({GeneralText(model.number) + (model.hasOwnNumber ? L"" : L"!"), model.name,
                        model.kind, Metres(model.x_m), FrameNumber(model.frame)});
    }
    return AlignedText(rows, {true, false, false, true, true});
}

std::wstring AsCsv(const std::vector<ListedModel>& models) {
    std::wstring text = CsvLine({L"number", L"own_number", L"name", L"kind", L"x_m", L"frame"});
    for (const ListedModel& model : models) {
        text += CsvLine({GeneralText(model.number), model.hasOwnNumber ? L"yes" : L"no", model.name,
                         model.kind, model.x_m ? GeneralText(*model.x_m) : std::wstring(),
                         FrameNumber(model.frame)});
    }
    return text;
}

std::wstring AsJson(const std::vector<ListedModel>& models) {
    std::wstring text = L"[";
    for (const ListedModel& model : models) {
        text += std::wstring(&model == &models.front() ? L"" : L",") + L"\n  {\"number\": " +
                GeneralText(model.number) + L", \"ownNumber\": " +
                (model.hasOwnNumber ? L"true" : L"false") + L", \"name\": " + JsonText(model.name) +
                L", \"kind\": " + JsonText(model.kind) + L", \"x_m\": " +
                (model.x_m ? JsonNumber(*model.x_m) : L"null") + L", \"frame\": " +
                (model.frame ? FrameNumber(model.frame) : L"null") + L"}";
    }
    return text + (models.empty() ? L"]\n" : L"\n]\n");
}

void PrintList(const std::vector<ListedModel>& models, const std::wstring& format) {
    if (format == L"csv") return Print(AsCsv(models));
    Print(format == L"json" ? AsJson(models) : AsText(models));
}

// The sections of a DOS database, which have no position before they are converted.
ExitCode ListLegacy(const std::wstring& path, const std::wstring& format) {
    std::vector<ModelEntry> sections;
    std::vector<ListedModel> listed;
    if (!RequireLegacySections(path, sections)) return kExitFailed;
    listed.reserve(sections.size());
    for (const ModelEntry& section : sections) {
        listed.push_back({section.number, true, section.name, KindName(section.kind), {}, {}});
    }
    PrintList(listed, format);
    return kExitDone;
}

// ---- show --------------------------------------------------------------------------------------

struct Fact {
    const wchar_t* label;
    const wchar_t* key;  // in JSON
    std::wstring text;   // empty: there is no such fact
    bool isNumber = false;
};

// The lines "label tab number" of what is in the model.
std::vector<TextRow> ContentsOf(const ModelDescription& description) {
    std::vector<TextRow> rows;
    std::wstring contents = ExpandLineBreaks(description.contents);
    for (size_t end; (end = contents.find(L'\r')) != std::wstring::npos;) {
        const std::wstring line = contents.substr(0, end);
        const size_t tab = line.find(L'\t');
        if (tab != std::wstring::npos) rows.push_back({line.substr(0, tab), line.substr(tab + 1)});
        contents.erase(0, end + 1);
    }
    return rows;
}

std::vector<Fact> FactsOfModel(const ModelEntry& model, const ModelDescription& description) {
    const ListedModel listed = ListedModelOf(model, FramesOf(shell.database.bsd));
    const StampTexts& stamp = description.stamp;
    return {{L"Number", L"number", GeneralText(model.number), true},
            {L"Name", L"name", model.name},
            {L"Kind", L"kind", listed.kind},
            {L"x [m]", L"x_m", listed.x_m ? GeneralText(*listed.x_m) : L"", true},
            {L"Frame", L"frame", FrameNumber(listed.frame), true},
            {L"Identifier", L"identifier", description.identifier},
            {L"Written by", L"writtenBy", Trim(stamp.written)},
            {L"User", L"user", Trim(stamp.user)},
            {L"Program", L"program", Trim(stamp.program)},
            {L"Format version", L"formatVersion", Trim(stamp.formatVersion)},
            {L"Bytes", L"bytes", std::to_wstring(description.size), true}};
}

std::wstring AsText(const std::vector<Fact>& facts, const std::vector<TextRow>& contents) {
    std::vector<TextRow> rows;
    for (const Fact& fact : facts) {
        if (!fact.text.empty()) rows.push_back({fact.label, fact.text});
    }
    rows.insert(rows.end(), contents.begin(), contents.end());
    return AlignedText(rows, {false, false});
}

std::wstring AsJson(const std::vector<Fact>& facts, const std::vector<TextRow>& contents) {
    std::wstring text = L"{\n";
    for (const Fact& fact : facts) {
        const bool isNull = fact.text.empty() && fact.isNumber;
        text += L"  " + JsonText(fact.key) + L": " +
                (isNull          ? L"null"
                 : fact.isNumber ? fact.text
                                 : JsonText(fact.text)) +
                L",\n";
    }
    text += L"  \"contents\": {";
    for (const TextRow& row : contents) {
        text += std::wstring(&row == &contents.front() ? L"" : L", ") + JsonText(row[0]) + L": " +
                JsonText(row[1]);
    }
    return text + L"}\n}\n";
}

}  // namespace

ExitCode RunList(const Request& request) {
    const std::wstring& format = request.Value(Option::kTableFormat);
    if (IsLegacyDatabase(request.operands[0])) {
        std::wstring path;
        return RequirePath(request.operands[0], path) ? ListLegacy(path, format) : kExitFailed;
    }
    if (!OpenForCommand(request.operands[0])) return kExitFailed;
    PrintList(ListedModels(), format);
    return kExitDone;
}

ExitCode RunShow(const Request& request) {
    const std::wstring& path = shell.database.path;
    std::vector<ModelEntry> chosen;
    ModelDescription description;
    if (!OpenForCommand(request.operands[0]) ||
        !RequireModels(path, toolState.models, std::span(request.operands).subspan(1), chosen) ||
        !DescribeModel(path, PlaceOf(chosen.front()), description)) {
        return kExitFailed;
    }
    const std::vector<Fact> facts = FactsOfModel(chosen.front(), description);
    const std::vector<TextRow> contents = ContentsOf(description);
    const bool isJson = request.Value(Option::kFormat) == L"json";
    Print(isJson ? AsJson(facts, contents) : AsText(facts, contents));
    return kExitDone;
}

}  // namespace corvane
