#include "shell/database_comparison.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "database/scanning.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/edit_history.h"
#include "shell/exchange_boxes.h"
#include "shell/file_prompt.h"
#include "shell/model_exchange.h"
#include "shell/running_mark.h"
#include "shell/state.h"

namespace corvane {
namespace {

// Compares, and shows what differs.
void Show(const std::wstring& before, const std::wstring& name) {
    Comparison comparison;
    comparison.before = before;
    comparison.beforeName = name;
    comparison.now = shell.database.path;
    if (!CompareFiles(comparison)) return;
    ReportNote(kMsgCompared, {name, SummaryOf(comparison)});
    shell.view.showComparison(comparison);
}

// Refused before the user is asked: reported then.
bool RequireImportable(const Comparison& comparison, const std::vector<ModelEntry>& models) {
    if (!RequireDatabase() || !RequireWritableDatabase()) return false;
    const std::wstring why = WhyOutdated(comparison);
    if (!why.empty()) {
        ReportMessage(why);
        return false;
    }
    const auto found = std::ranges::find(models, false, &ModelEntry::hasOwnNumber);
    if (found != models.end()) {
        ReportNumberNotOwn(found->number, comparison.before);
        return false;
    }
    return ConfirmEdit();
}

ImportChoice ChoiceOf(const Comparison& comparison, const std::vector<ModelEntry>& models) {
    ImportChoice choice{comparison.before, {}, comparison.beforeName};
    for (const ModelEntry& entry : models) {
        choice.items.push_back({entry.name + FactsOf(entry.kind).exchangeSuffix, entry.number,
                                entry.kind, PlaceOf(entry), entry.x});
    }
    return choice;
}

bool Confirm(const Comparison& comparison, size_t count) {
    return shell.view.askYesNo(BoxText(
        kMsgImportQuestion,
        {comparison.beforeName, static_cast<int32_t>(count), FileNameOf(shell.database.path)}));
}

}  // namespace

void CompareWithFile() {
    if (!RequireDatabase()) return;
    const std::wstring types = GetMessage(kMsgDatabaseFiles) + GetMessage(kMsgOldDatabaseFiles);
    const std::wstring path = AskForFile({.command = ME_FileCompare,
                                          .types = types,
                                          .proposed = L"",
                                          .directory = shell.settings.BrowseDirectory});
    if (path.empty() || !RequireOtherFile(path)) return;
    Show(path, FileNameOf(path));
}

bool CompareWithVersion(const TextVersion& version) {
    if (!RequireDatabase()) return false;
    const system::FileStamp before = shell.database.stamp;
    Show(version.file, FormatMessage(kMsgVersionBefore, {version.time, NameOfChange(version)}));
    return shell.database.stamp != before;
}

bool ImportFromCompared(Comparison& comparison, const std::vector<ModelEntry>& models) {
    if (models.empty() || !RequireImportable(comparison, models)) return false;
    if (!Confirm(comparison, models.size())) return false;
    const ImportChoice choice = ChoiceOf(comparison, models);
    const system::FileStamp before = shell.database.stamp;
    {
        const EditName edit(FormatMessage(kMsgImportOf, {comparison.beforeName}));
        SetBusyPointer();
        ImportModels(choice);
        ResetMousePointer();
    }
    if (shell.database.stamp == before) return false;
    comparison.now = shell.database.path;
    const QuietStatus quiet;  // it says what was imported
    return CompareFiles(comparison);
}

}  // namespace corvane
