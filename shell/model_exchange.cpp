#include "shell/model_exchange.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "database/check.h"
#include "database/editing.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "files/progress.h"
#include "files/rewrite.h"
#include "legacy/exchange.h"
#include "platform/ztvelk32.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/exchange_boxes.h"
#include "shell/exchange_ending.h"
#include "shell/exchange_notes.h"
#include "shell/file_prompt.h"
#include "shell/new_file.h"
#include "shell/section_conversion.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr int kMostModels = std::numeric_limits<int16_t>::max();

// ---- Import ------------------------------------------------------------------------------------

struct Import {
    const ImportChoice& choice;
    std::wstring path;  // of the database that the models are added to
    ExchangeReport report = {};
    bool isCancelled = false;
};

// All in one rewrite. True when models were added; what fails is reported.
bool Append(Import& import, const std::wstring& source, const std::vector<ModelEntry>& models) {
    return !models.empty() &&
           AppendModels(import.path, source, models, {true, AskForWritableDatabase, nullptr}) != 0;
}

// Sections of a legacy database: they are converted into a database of their own first.
bool AppendConverted(Import& import) {
    const std::wstring& source = import.choice.path;
    SectionConversion conversion{
        .source = source, .sections = {}, .leavesOut = true, .report = import.report};
    for (const ExchangeItem& item : import.choice.items) {
        ModelEntry& entry = conversion.sections.emplace_back();
        entry.number = item.number;
        entry.name = item.text;
    }
    const TemporaryDatabase made;
    if (made.error != system::kErrorNone) {
        ReportTextNotWritten(import.path, made.error);
        return false;
    }
    std::vector<ModelEntry> models;
    BasicShipData bsd;
    const bool isDone = WriteConverted(made.path, bsd, conversion) &&
                        ListModels(made.path, models) && Append(import, made.path, models);
    import.isCancelled = conversion.progress.isCancelled;
    return isDone;
}

// A model of a model database, with what a copy of it leaves out.
void AddCopied(ExchangeReport& report, const ModelEntry& model, const std::vector<Finding>& lost) {
    const Outcome outcome = lost.empty() ? Outcome::kWentOver : Outcome::kChanged;
    ExchangedModel& copied = report.models.emplace_back();
    copied = {model.name, model.kind, outcome, {}};
    for (const Finding& finding : lost) copied.what.push_back(TextOf(finding));
}

bool AppendChosen(Import& import) {
    const std::wstring& source = import.choice.path;
    std::vector<ModelEntry> all;
    std::vector<ModelEntry> models;
    if (!ListModels(source, all)) return false;
    for (const ExchangeItem& item : import.choice.items) {
        ModelEntry model;
        std::vector<Finding> lost;
        if (RequireModel(all, item.number, source, model) &&
            FindLossesOfCopy(source, PlaceOf(model), lost)) {
            models.push_back(model);
            AddCopied(import.report, model, lost);
        } else {
            AddLeftOut(import.report, item.kind, item.text, kMsgCouldNotBeRead);
        }
    }
    return Append(import, source, models);
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

// Sections of the open database on their way to a legacy database.
struct Export {
    const std::vector<ModelEntry>& models;
    const ExportChoice& choice;
    LegacySlot slot = {};  // of the next one
    ExchangeReport report = {};
};

// A section that cannot be read, which is reported, is left out.
bool ExportNext(Export& work, const ModelEntry& entry) {
    SectionModel section;
    if (!ReadSectionBlock(shell.database.path, PlaceOf(entry), false, section)) {
        AddLeftOut(work.report, entry.kind, entry.name, kMsgCouldNotBeRead);
        return true;
    }
    const std::wstring name = Trim(work.choice.name);
    const bool isOne = work.models.size() == 1;
    if (isOne && work.choice.createNew && !name.empty()) section.name = name;
    if (!ExportSection(work.slot, section, shell.database.bsd, work.report)) return false;
    ++work.slot.number;
    return true;
}

bool ExportAll(Export& work) {
    Progress progress(static_cast<int64_t>(work.models.size()));
    for (const ModelEntry& entry : work.models) {
        if (!Advance(progress, 1)) {
            ReportNote(kMsgCancelled, {work.choice.path});
            return false;
        }
        if (!ExportNext(work, entry)) return false;
    }
    return CountArrived(work.report) > 0;
}

// Whether the file still has the text that was copied; reported when not.
bool RequireStamp(const std::wstring& path, const system::FileStamp& stamp) {
    system::FileStamp now;
    if (system::GetFileStamp(path, now) == system::kErrorNone && now == stamp) return true;
    ReportMessage(kMsgChangedTooOften, {path});
    return false;
}

// The sections go into a copy of the legacy database, which then takes its place: all or nothing.
bool ExportIntoCopy(Export& work) {
    const std::wstring& target = work.choice.path;
    return MakeFile(target, L"", [&](const std::wstring& copy) {
        system::FileStamp stamp;
        system::ErrorNumber error = system::GetFileStamp(target, stamp);
        if (error == system::kErrorNone) error = CopyToNewFile(target, copy);
        if (error != system::kErrorNone) {
            ReportTextNotWritten(target, error);
            return false;
        }
        work.slot.path = copy;
        work.slot.shown = target;
        return ExportAll(work) && RequireStamp(target, stamp);
    });
}

std::wstring ExportedText(const Export& work) {
    const std::wstring& path = work.choice.path;
    if (work.models.size() == 1) {
        return FormatMessage(kMsgSectionExported, {Trim(work.report.models.front().name), path});
    }
    return FormatMessage(kMsgSectionsExported, {CountArrived(work.report),
                                                static_cast<int32_t>(work.models.size()), path});
}

}  // namespace

void ImportModels(const ImportChoice& choice) {
    if (choice.items.empty() || !RequireStillThere(choice)) return;
    Import import{choice, shell.database.path};
    const bool isDone =
        IsLegacyDatabase(choice.path) ? AppendConverted(import) : AppendChosen(import);
    if (!isDone) {
        if (import.isCancelled) ReportNote(kMsgCancelled, {import.path});
        return;
    }
    if (import.path != shell.database.path) ContinueInWritableFile(import.path);
    SelectLastModelNext();
    RefreshMainWindow();
    ShowImported(import.report, ME_SectionImport, choice.name.empty() ? choice.path : choice.name);
}

bool ReadForPreview(const std::vector<ModelEntry>& models, ExportChoice& choice) {
    const QuietStatus quiet;
    const std::wstring& path = shell.database.path;
    if (!ReadSectionBlock(path, PlaceOf(models.front()), false, choice.section)) return false;
    choice.sections = static_cast<int>(models.size());
    choice.room = models.size() == 1 ? RoomNote(choice.section) : RoomNote(path, models);
    return true;
}

bool MakeLegacyDatabase(const std::wstring& path) {
    const bool isMade = MakeFile(path, L"", [&](const std::wstring& temporary) {
        return CreateLegacyDatabase(temporary, path, shell.database.bsd);
    });
    if (isMade) ReportNote(kMsgLegacyMade, {path});
    return isMade;
}

bool ExportModels(const std::vector<ModelEntry>& models, const ExportChoice& choice) {
    Export work{models, choice};
    if (!RequireSlot(choice, work.slot) || !ExportIntoCopy(work)) return false;
    ShowExchange(work.report, {ME_SectionExport, choice.path, ExportedText(work)});
    return true;
}

}  // namespace corvane
