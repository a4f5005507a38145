#include "shell/commands/exchange_commands.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "database/bulkhead_file.h"
#include "database/database_file.h"
#include "database/editing.h"
#include "database/section_file.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "files/running.h"
#include "legacy/exchange.h"
#include "report/messages.h"
#include "shell/commands/commands.h"
#include "shell/commands/file_commands.h"
#include "shell/current_model.h"
#include "shell/exchange_boxes.h"
#include "shell/file_prompt.h"
#include "shell/state.h"
#include "shell/window_contents.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr int kMostModels = std::numeric_limits<int16_t>::max();

// ---- Whole database ----------------------------------------------------------------------------

// Whether the open database may be written to `path`, which must be another file.
bool IsOtherFile(const std::wstring& path) {
    const bool isOther = !IsSamePath(path, shell.settings.DatabasePath);
    if (!isOther) ReportMessage(kMsgLegacyNotCreated, {path});
    return isOther;
}

void SaveAsLegacy(const std::wstring& path) {
    const std::wstring temporary = TempFileName();
    if (temporary.empty()) return ReportMessage(kMsgLegacyNotCreated, {path});
    if (ExportDatabase(shell.settings.DatabasePath, temporary, path)) {
        const ReplaceResult result = PutCopy(temporary, path);
        if (!result.Done()) {
            ReportMessage(kMsgFileNotMade, {path, system::ErrorText(result.error)});
        }
    }
    KillFile(temporary);
}

// ---- Import ------------------------------------------------------------------------------------

struct Import {
    std::wstring source;
    std::vector<ModelEntry> models;  // of the source, when it is a model database
    std::wstring path;               // of the database that takes the models
    int appended = 0;
};

// The backup is made with the first model, so that it holds what was there before.
EditOptions OptionsOf(const Import& import) {
    return {import.appended == 0, AskForWritableDatabase};
}

AppendResult AppendLegacySection(Import& import, int32_t number) {
    SectionModel section;
    if (!ImportSection(import.source, static_cast<int16_t>(number), section)) {
        return AppendResult::kNoSource;
    }
    section.identifier.clear();  // the writer makes a new one
    const int32_t newNumber = NumberForAppending(import.path, AskForWritableDatabase);
    const bool isAppended =
        newNumber != 0 && ReplaceSection(import.path, section, newNumber, OptionsOf(import));
    return isAppended ? AppendResult::kAppended : AppendResult::kNotWritten;
}

AppendResult AppendItem(Import& import, const ExchangeItem& item) {
    if (IsLegacyDatabase(import.source)) return AppendLegacySection(import, item.number);
    ModelEntry model;
    if (!FindInRow(import.models, item.number, import.source, model)) {
        return AppendResult::kNoSource;
    }
    return AppendModel(import.path, {import.source, item.number}, item.kind, OptionsOf(import));
}

// Whether the file still has what the user chose; reported when not.
bool AreStillThere(const ImportChoice& choice) {
    const std::vector<ExchangeItem> items = ListForExchange(choice.path);
    const bool areThere =
        std::all_of(choice.items.begin(), choice.items.end(), [&items](const ExchangeItem& chosen) {
            return std::find(items.begin(), items.end(), chosen) != items.end();
        });
    if (!areThere) ReportMessage(kMsgModelChanged, {choice.path});
    return areThere;
}

// The list has no row for a number beyond 16 bits: the current model stays then.
void ShowLastModel(const std::wstring& path) {
    if (path != shell.settings.DatabasePath) OpenInstead(path);
    const int last = CountModels(path);
    if (last <= kMostModels) shell.currentModel = static_cast<int16_t>(last);
    RefreshMainWindow();
}

void ImportModels(const ImportChoice& choice) {
    if (choice.items.empty() || !AreStillThere(choice)) return;
    Import import;
    import.source = choice.path;
    if (!IsLegacyDatabase(choice.path)) import.models = ListModels(choice.path);
    import.path = shell.settings.DatabasePath;
    for (const ExchangeItem& item : choice.items) {
        const AppendResult result = AppendItem(import, item);
        if (result == AppendResult::kAppended) ++import.appended;
        if (result == AppendResult::kNotWritten) break;
    }
    if (import.appended > 0) ShowLastModel(import.path);
}

// ---- Export ------------------------------------------------------------------------------------

// The slot that the user chose. False, and reported, when it can't be written.
bool FindSlot(const ExportChoice& choice, LegacySlot& slot) {
    if (!FileExists(choice.path)) {
        ReportMessage(kMsgFileMissing, {choice.path});
        return false;
    }
    if (IsReadOnlyFile(choice.path)) {
        ReportMessage(kMsgReadOnly, {choice.path});
        return false;
    }
    int16_t status = 0;
    const int16_t count = CountLegacySections(choice.path, status);
    if (!WasLegacyRead(choice.path, status)) return false;
    if (choice.createNew && count == kMostModels) {
        ReportMessage(kMsgLegacyNotExtended, {choice.path});
        return false;
    }
    if (!choice.createNew && (choice.slot < 1 || choice.slot > count)) {
        ReportMessage(kMsgNoLegacySection, {int32_t{choice.slot}, choice.path});
        return false;
    }
    slot.path = choice.path;
    slot.number = choice.createNew ? static_cast<int16_t>(count + 1) : choice.slot;
    slot.isNew = choice.createNew;
    return true;
}

void ExportCurrentSection(const ExportChoice& choice) {
    SectionModel section;
    LegacySlot slot;
    if (!ReadSectionBlock(shell.settings.DatabasePath, shell.currentModel, false, section) ||
        !FindSlot(choice, slot)) {
        return;
    }
    const std::wstring name = Trim(choice.name);
    if (choice.createNew && !name.empty()) section.name = name;
    ExportSection(slot, section, shell.bsd);
}

}  // namespace

void ME_FileSaveLegacy_Click() {
    if (!IsDatabaseThere()) return;
    const std::wstring& source = shell.settings.DatabasePath;
    if (!IsDatabaseFile(source)) return ReportMessage(kMsgNoDatabase, {source});
    const std::wstring path = AskForFile({.command = ME_FileSaveLegacy,
                                          .types = GetMessage(kMsgLegacyFiles),
                                          .defaultExtension = L"vel",
                                          .proposed = StripExtension(FileNameOf(source)) + L".vel",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty() || !IsOtherFile(path)) return;
    SetBusyPointer();
    SaveAsLegacy(path);
    ResetMousePointer();
}

void ME_SectionImport_Click() {
    if (!IsDatabaseThere()) return;
    ImportChoice choice;
    if (!shell.mainWindow->askImport(choice)) return;
    shell.settings.BrowseDirectory = DirectoryOf(choice.path);
    if (IsSamePath(choice.path, shell.settings.DatabasePath)) {
        return ReportMessage(kMsgIsOpenDatabase, {choice.path});
    }
    SetBusyPointer();
    ImportModels(choice);
    ResetMousePointer();
}

void ME_SectionExport_Click() {
    ModelEntry model;
    if (!ReadCurrentModel(model)) return;
    if (model.kind != ModelKind::kSection) {
        return ReportMessage(kMsgOnlySections, {KindName(model.kind), model.name});
    }
    ExportChoice choice;
    choice.name = model.name;
    if (!shell.mainWindow->askExport(choice)) return;
    shell.settings.BrowseDirectory = DirectoryOf(choice.path);
    if (!IsUnchanged(model)) return RefreshMainWindow();
    SetBusyPointer();
    ExportCurrentSection(choice);
    ResetMousePointer();
}

}  // namespace corvane
