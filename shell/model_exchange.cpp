#include "shell/model_exchange.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "database/bulkhead_block.h"
#include "database/editing.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "files/progress.h"
#include "legacy/exchange.h"
#include "platform/ztvelk32.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/copy_losses.h"
#include "shell/exchange_boxes.h"
#include "shell/file_prompt.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr int kMostModels = std::numeric_limits<int16_t>::max();

// ---- Import ------------------------------------------------------------------------------------

struct Import {
    std::wstring source;
    std::vector<ModelEntry> models;  // of the source, when it is a model database
    std::wstring path;               // of the database that the models are added to
    int appended = 0;
    ExchangeLosses losses;
    CopyLosses copyLosses = {};  // of models of a model database
};

// The backup is made with the first model, so that it holds what was there before.
EditOptions OptionsOf(const Import& import) {
    return {import.appended == 0, AskForWritableDatabase, nullptr};
}

AppendResult AppendLegacySection(Import& import, int32_t number) {
    SectionModel section;
    if (!ImportSection(import.source, static_cast<int16_t>(number), section, import.losses) ||
        !RequireAllRead(import.source)) {
        return AppendResult::kNoSource;
    }
    section.identifier.clear();  // the writer makes a new one
    const bool isAppended = AppendSection(import.path, section, OptionsOf(import));
    return isAppended ? AppendResult::kAppended : AppendResult::kNotWritten;
}

AppendResult AppendItem(Import& import, const ExchangeItem& item) {
    if (IsLegacyDatabase(import.source)) return AppendLegacySection(import, item.number);
    ModelEntry model;
    if (!RequireModel(import.models, item.number, import.source, model)) {
        return AppendResult::kNoSource;
    }
    CopyLosses losses = import.copyLosses;  // and those of this model, if it is appended
    if (!FindCopyLosses(losses, PlaceOf(model))) return AppendResult::kNoSource;
    const AppendResult result =
        AppendModel(import.path, {import.source, PlaceOf(model)}, item.kind, OptionsOf(import));
    if (result == AppendResult::kAppended) import.copyLosses = std::move(losses);
    return result;
}

// Whether the file still has what the user chose; reported when not.
bool RequireStillThere(const ImportChoice& choice) {
    std::vector<ExchangeItem> items;
    if (!ListForExchange(choice.path, items)) return false;
    const bool areThere =
        std::all_of(choice.items.begin(), choice.items.end(), [&items](const ExchangeItem& chosen) {
            return std::find(items.begin(), items.end(), chosen) != items.end();
        });
    if (!areThere) ReportMessage(kMsgModelChanged, {choice.path});
    return areThere;
}

// ---- Export ------------------------------------------------------------------------------------

// The slot that the user chose. False, and reported, when it cannot be written.
bool RequireSlot(const ExportChoice& choice, LegacySlot& slot) {
    if (!FileExists(choice.path)) {
        ReportMessage(kMsgFileMissing, {choice.path});
        return false;
    }
    if (IsReadOnlyFile(choice.path)) {
        ReportMessage(kMsgReadOnly, {choice.path});
        return false;
    }
    int16_t status = 0;
    const size_t listed = ListLegacySections(choice.path, status).size();
    if (!RequireLegacyRead(choice.path, status)) return false;
    const int16_t count = CountLegacySections(choice.path, listed);
    if (choice.createNew && count == kMostModels) {
        ReportMessage(kMsgLegacyNotExtended, {choice.path}, LegacyStatusText(kLegacyFull));
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

}  // namespace

void ImportModels(const ImportChoice& choice) {
    if (choice.items.empty() || !RequireStillThere(choice)) return;
    Import import;
    import.source = import.copyLosses.source = choice.path;
    if (!IsLegacyDatabase(choice.path) && !ListModels(choice.path, import.models)) return;
    import.path = shell.database.path;
    Progress progress(static_cast<int64_t>(choice.items.size()));
    for (const ExchangeItem& item : choice.items) {
        const AppendResult result =
            Advance(progress, 1) ? AppendItem(import, item) : AppendResult::kNotWritten;
        if (result == AppendResult::kAppended) ++import.appended;
        if (result == AppendResult::kNoSource) {
            NoteLoss(import.losses.whole, kMsgModelLeftOut, {item.text});
        }
        if (result == AppendResult::kNotWritten) {
            NoteLoss(import.losses.whole, kMsgNotAllImported,
                     {import.appended, static_cast<int32_t>(choice.items.size())});
            break;
        }
    }
    if (import.appended == 0) {
        if (progress.isCancelled) ReportNote(kMsgCancelled, {import.path});
        return;
    }
    if (import.path != shell.database.path) ContinueInWritableFile(import.path);
    SelectLastModelNext();
    RefreshMainWindow();
    ReportLosses(import.source, import.losses);
    ShowCopyLosses(import.copyLosses, ME_SectionImport);
}

bool ReadForPreview(const BlockPlace& place, ExportChoice& choice) {
    const QuietStatus quiet;
    return ReadSectionBlock(shell.database.path, place, false, choice.section);
}

bool ExportSectionAt(const BlockPlace& place, const ExportChoice& choice) {
    SectionModel section;
    LegacySlot slot;
    if (!ReadSectionBlock(shell.database.path, place, false, section) ||
        !RequireSlot(choice, slot)) {
        return false;
    }
    const std::wstring name = Trim(choice.name);
    if (choice.createNew && !name.empty()) section.name = name;
    if (!ExportSection(slot, section, shell.database.bsd)) return false;
    ReportNote(kMsgSectionExported, {Trim(section.name), slot.path});
    return true;
}

}  // namespace corvane
