// The commands that move models: extract, append, delete and renumber.
#include <algorithm>

#include "bsd/basic_ship_data.h"
#include "database/copying.h"
#include "database/editing.h"
#include "database/renumbering.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "files/read_fault.h"
#include "files/rewrite.h"
#include "legacy/exchange.h"
#include "report/reporters.h"
#include "shell/copy_losses.h"
#include "shell/exchange_boxes.h"
#include "shell/new_file.h"
#include "shell/section_conversion.h"
#include "shell/state.h"
#include "text/numbers.h"
#include "tools/console.h"
#include "tools/editing_command.h"
#include "tools/formats.h"
#include "tools/model_choice.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

using Models = std::vector<ModelEntry>;

std::wstring CountText(const Models& models) {
    return models.size() == 1 ? L"the model '" + models.front().name + L"'"
                              : std::to_wstring(models.size()) + L" models";
}

// The models of the open database that the operands from `first` on name.
bool RequireChosen(const Request& request, size_t first, Models& chosen) {
    return RequireModels(shell.database.path, toolState.models,
                         std::span(request.operands).subspan(first), chosen);
}

// ---- extract -----------------------------------------------------------------------------------

// The head of the database and the chosen blocks, numbered from 1. False, and reported, when it
// cannot be read, or is no longer as it was listed.
bool CopyChosen(const std::wstring& source, const Models& chosen, TextWriter& writer) {
    TextReader reader;
    if (!RequireDatabaseText(reader, source)) return false;
    const BlockNumbers blocks = ReadBlockNumbers(reader);
    SeekLine(reader, 0);
    CopyFileHead(reader, writer);
    int32_t number = 0;
    for (const ModelEntry& model : chosen) {
        const size_t block = IndexOf(blocks, model.number);
        if (block == blocks.offsets.size() || blocks.offsets[block] != model.offset) {
            ReportMessage(kMsgModelChanged, {source});
            return false;
        }
        SeekLine(reader, model.offset);
        CopyBlocks(reader, writer,
                   {.mostBlocks = 1,
                    .shift = int64_t{++number} - model.number,
                    .known = &blocks,
                    .first = block});
    }
    return !ReportReadFault(reader, source);
}

bool WriteExtract(const std::wstring& target, const Models& chosen) {
    const std::wstring& source = shell.database.path;
    const auto make = [&](const std::wstring& temporary) {
        bool isRead = true;
        const system::ErrorNumber error = WriteTextFile(
            temporary, [&](TextWriter& writer) { isRead = CopyChosen(source, chosen, writer); });
        if (error != system::kErrorNone) ReportTextNotWritten(target, error);
        return isRead && error == system::kErrorNone;
    };
    return MakeFile(target, ReplacementBy(source), make);
}

// ---- append ------------------------------------------------------------------------------------

// The models of the source that the request names.
bool RequireSourceModels(const Request& request, const std::wstring& source, Models& chosen) {
    Models models;
    if (IsLegacyDatabase(source)) {
        if (!RequireLegacySections(source, models)) return false;
    } else {
        const int before = toolState.complaints;
        if (!RequireDatabaseFile(source) || !ListModels(source, models)) return false;
        if (toolState.complaints != before) return false;
    }
    if (!request.Has(Option::kAll)) {
        return RequireModels(source, models, std::span(request.operands).subspan(2), chosen);
    }
    chosen = models;
    return RequireAllModels(source, models);
}

// On standard error, a line for each thing that the copies are without.
void ComplainOfLosses(const CopyLosses& losses) {
    if (losses.findings.empty()) return;
    std::wstring text = FormatMessage(kMsgCopiesLack, {losses.models, losses.source});
    for (const Finding& finding : losses.findings) text += L'\n' + ReportLineOf(finding);
    Complain(text);
}

bool AppendChosen(const std::wstring& source, const Models& chosen) {
    std::wstring path = shell.database.path;
    if (chosen.empty()) return true;
    CopyLosses losses{source};
    const bool areRead = std::ranges::all_of(chosen, [&losses](const ModelEntry& model) {
        return FindCopyLosses(losses, PlaceOf(model));
    });
    const int32_t last =
        areRead ? AppendModels(path, source, chosen, {.keepBackup = true}) : int32_t{0};
    if (last == 0) return false;
    ComplainOfLosses(losses);
    int32_t number = last - static_cast<int32_t>(chosen.size());
    for (const ModelEntry& model : chosen) {
        Print(GeneralText(++number) + L"  " + Printable(model.name) + L'\n');
    }
    return true;
}

// The chosen sections become models of a database made for them first.
bool AppendLegacy(const std::wstring& source, const Models& chosen) {
    const TemporaryDatabase made;
    if (made.error != system::kErrorNone) {
        ReportTextNotWritten(shell.database.path, made.error);
        return false;
    }
    ExchangeReport report;
    SectionConversion conversion{.source = source, .sections = chosen, .report = report};
    Models models;
    BasicShipData bsd;
    if (!WriteConverted(made.path, bsd, conversion) || !ListModels(made.path, models) ||
        !AppendChosen(made.path, models)) {
        return false;
    }
    ReportLosses(source, report);
    return true;
}

// ---- renumber ----------------------------------------------------------------------------------

void PrintChanges(const std::vector<int32_t>& before) {
    const Models& models = toolState.models;
    for (size_t i = 0; i < before.size(); ++i) {
        const auto now = static_cast<int32_t>(i + 1);
        if (before[i] == now) continue;
        const std::wstring name = i < models.size() ? Printable(models[i].name) : std::wstring();
        Print(GeneralText(before[i]) + L" is now " + GeneralText(now) + L": " + name + L'\n');
    }
}

}  // namespace

ExitCode RunExtract(const Request& request) {
    if (!request.Has(Option::kTo)) return ComplainOfUsage(request, L"'--to FILE' is missing");
    Models chosen;
    std::wstring target;
    if (!OpenForCommand(request.operands[0]) || !RequireChosen(request, 1, chosen) ||
        !RequirePath(request.Value(Option::kTo), target) ||
        !RequireFree(target, shell.database.path)) {
        return kExitFailed;
    }
    KeepHistory(request);
    return WriteExtract(target, chosen) ? kExitDone : kExitFailed;
}

ExitCode RunAppend(const Request& request) {
    const bool hasNames = request.operands.size() > 2;
    if (hasNames == request.Has(Option::kAll)) {
        return ComplainOfUsage(request, hasNames ? L"models and '--all' exclude each other"
                                                 : L"name models, or give '--all'");
    }
    Models chosen;
    std::wstring source;
    if (!OpenForEditing(request.operands[0]) || !RequirePath(request.operands[1], source) ||
        !RequireOtherFile(source) || !RequireSourceModels(request, source, chosen)) {
        return kExitFailed;
    }
    return RunEdit(request, FormatMessage(kMsgImportFrom, {FileNameOf(source)}), [&] {
        return IsLegacyDatabase(source) ? AppendLegacy(source, chosen)
                                        : AppendChosen(source, chosen);
    });
}

ExitCode RunDelete(const Request& request) {
    Models chosen;
    if (!OpenForEditing(request.operands[0]) || !RequireChosen(request, 1, chosen) ||
        !RequireForce(L"delete " + CountText(chosen) + L" from '" + shell.database.path + L"'")) {
        return kExitFailed;
    }
    std::vector<int32_t> numbers;
    for (const ModelEntry& model : chosen) numbers.push_back(model.number);
    const std::wstring name =
        chosen.size() == 1
            ? FormatMessage(kMsgDeleteOf, {chosen.front().name})
            : FormatMessage(kMsgDeleteOfModels, {static_cast<int32_t>(chosen.size())});
    return RunEdit(request, name, [&] { return DeleteModels(shell.database.path, numbers, true); });
}

ExitCode RunRenumber(const Request& request) {
    if (!OpenForEditing(request.operands[0])) return kExitFailed;
    return RunEdit(request, L"Renumbering", [] {
        std::vector<int32_t> before;
        if (!RenumberModels(shell.database.path, before)) return false;
        PrintChanges(before);
        return true;
    });
}

}  // namespace corvane
