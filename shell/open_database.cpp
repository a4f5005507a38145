#include "shell/open_database.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/edit_history.h"
#include "shell/left_overs.h"
#include "shell/recent_databases.h"
#include "shell/restart.h"
#include "shell/state.h"
#include "shell/status_parts.h"

namespace corvane {
namespace {

void ShowModel(const ModelRow& row) {
    shell.database.currentModel = row.tag;
    shell.database.currentOffset = row.offset;
    shell.database.isModelShown = true;
    shell.database.isCurrentHidden = false;
    ShowInPreview(row);
    shell.view.setSectionMenuCaption(SectionMenuCaption(row.kind));
    shell.view.showModelButtons(row.kind);
    shell.view.updateEnabling();
}

// A number that no block has: the selected model has gone, and no row is to be selected instead.
constexpr int32_t kModelHasGone = std::numeric_limits<int32_t>::min();
// A look at a file that takes longer is not repeated at each activation [ms].
constexpr int64_t kLongLook = 500;

// Looks at the open database's file.
system::ErrorNumber LookAtFile(system::FileStamp& stamp) {
    const int64_t begin = system::Milliseconds();
    const system::ErrorNumber error = system::GetFileStamp(shell.database.path, stamp);
    shell.database.isSlow = system::Milliseconds() - begin > kLongLook;
    return error;
}

// The current model's row. Of rows that have one number it is the one that was selected.
std::vector<ModelRow>::const_iterator CurrentRow(const OpenDatabase& database) {
    const auto selected =
        std::ranges::find(database.rows, database.currentOffset, &ModelRow::offset);
    if (selected != database.rows.end() && selected->tag == database.currentModel) return selected;
    return std::ranges::find(database.rows, database.currentModel, &ModelRow::tag);
}

// The line of the current model's row; -1 when there is no such row, and when no line shows it.
int CurrentLine() {
    const OpenDatabase& database = shell.database;
    const auto row = CurrentRow(database);
    return row == database.rows.end() ? -1
                                      : LineOfRow(static_cast<size_t>(row - database.rows.begin()));
}

// Shows the lines, and selects the current model's when it `isWanted`. Returns that line, or -1.
int ShowLines(bool isWanted) {
    ArrangeLines();
    shell.view.setLines(LineCount());
    shell.view.setModelCount(ModelCountText());
    shell.view.showStatusParts(CurrentStatusParts());
    const int line = isWanted ? CurrentLine() : -1;
    shell.view.selectLine(line);
    return line;
}

// Shows the rows and selects the current model's, when there is such a row; the first one, when
// there was no current model.
void ShowModels() {
    OpenDatabase& database = shell.database;
    shell.view.setDatabaseText(database.path);
    if (database.currentModel == 0) {
        database.currentModel = database.rows.empty() ? 1 : database.rows.front().tag;
    }
    FillInFrames(database.bsd, database.rows);
    shell.view.showWhyGone(database.whyGone);
    const int line = ShowLines(true);
    if (line >= 0) return ShowModel(RowOfLine(line));
    database.isCurrentHidden = CurrentRow(database) != database.rows.end();
    DeselectModel();
}

// The list may ask for its lines before they are made of these rows.
void AdoptRows(std::vector<ModelRow> rows) {
    ForgetLines();
    shell.database.rows = std::move(rows);
}

// The stamp of the file that is listed.
void NoteStamp(const system::FileStamp& stamp) {
    shell.database.stamp = stamp;
    shell.database.isReadOnly = !CanBeRewritten(shell.database.path);
}

// The rows stay as they were read last.
void NoteGone(system::ErrorNumber error) {
    OpenDatabase& database = shell.database;
    database.whyGone =
        FormatMessage(kMsgDatabaseOutOfSight, {FileNameOf(database.path), SystemError{error}});
}

// Lists the models again. When the user cancels, the list stays as it was; without one, no database
// is open.
bool ListModelsAgain() {
    OpenDatabase& database = shell.database;
    system::FileStamp stamp;
    const system::ErrorNumber error = LookAtFile(stamp);
    if (error != system::kErrorNone && database.isListed) {
        NoteGone(error);
        return true;
    }
    NoteStamp(stamp);
    database.whyGone.clear();
    std::vector<ModelRow> rows;
    if (FillModelList(database.path, rows)) {
        AdoptRows(std::move(rows));
        database.isListed = true;
        return true;
    }
    if (database.isListed) return false;
    AdoptRows({});
    database = OpenDatabase();
    return false;
}

void ShowNoDatabase() {
    shell.view.setDatabaseText(L"No database selected");
    AdoptRows({});
    shell.view.showWhyGone(L"");
    ShowLines(false);
    DeselectModel();
}

// What the window shows of the state as it is.
enum class Focus { kStays, kToList };
void ShowWholeWindow(Focus focus = Focus::kToList) {
    if (IsDatabaseOpen()) {
        NoteRecent(shell.database.path);
        ShowModels();
    } else {
        ShowNoDatabase();
    }
    ShowCaptionAndParts();
    NoteRestart();
    ReadUndoNames();
    shell.view.updateEnabling();
    ShowNextStep();
    if (focus == Focus::kToList && IsLineSelected()) shell.view.focusList();
    ResetMousePointer();
}

// The model that had the row `before` becomes the current one, where it is now.
void FollowModel(const ModelRow& before) {
    OpenDatabase& database = shell.database;
    const int row = FindSameModel(database.rows, before);
    const bool isThere = row >= 0;
    const ModelRow now = isThere ? database.rows[static_cast<size_t>(row)] : ModelRow();
    database.currentModel = isThere ? now.tag : kModelHasGone;
    database.currentOffset = isThere ? now.offset : -1;
}

// How the model that was selected is found again: as the same one, or in its place of the file.
enum class Follow { kModel, kPlace };

// Reads the file again, and says in the status line what has become of it.
void ReadFileAgain(MessageNumber note, Follow follow = Follow::kModel) {
    OpenDatabase& database = shell.database;
    const std::wstring name = FileNameOf(database.path);
    const auto current = CurrentRow(database);
    const bool wasRow = current != database.rows.end();
    const auto place = static_cast<size_t>(current - database.rows.begin());
    ModelRow before = wasRow ? *current : ModelRow();
    if (!ListModelsAgain()) return shell.view.showWhyGone(database.whyGone);
    ReadShipRecordAgain(NoBlock::kIsNoFault);
    if (follow == Follow::kPlace && place < database.rows.size()) before = database.rows[place];
    if (wasRow) FollowModel(before);
    ShowWholeWindow(Focus::kStays);
    if (!database.whyGone.empty()) return;
    if (database.currentModel == kModelHasGone) {
        ReportNote(kMsgSelectedModelGone, {name, before.name});
    } else {
        ReportNote(note, {name});
    }
}

// The file can no longer be reached. What is shown of it is greyed once.
void ShowGone(system::ErrorNumber error) {
    const bool wasGone = !shell.database.whyGone.empty();
    NoteGone(error);
    if (!wasGone) ShowWholeWindow(Focus::kStays);
}

}  // namespace

bool IsDatabaseOpen() {
    return !shell.database.path.empty();
}

void AdoptDatabase(const std::wstring& path, const BasicShipData& bsd) {
    shell.database.path = path;
    shell.database.bsd = bsd;
    shell.database.currentModel = 0;
    AdoptRows({});
    shell.database.isListed = false;
    shell.database.whyGone.clear();
    PreviewPane empty;
    empty.isLarge = shell.preview.isLarge;
    empty.options = shell.preview.options;
    shell.preview = std::move(empty);
}

void ShowDatabase(const std::wstring& path, const BasicShipData& bsd) {
    std::vector<ModelRow> rows;
    system::FileStamp stamp;
    system::GetFileStamp(path, stamp);
    if (!FillModelList(path, rows)) return ResetMousePointer();
    AdoptDatabase(path, bsd);
    AdoptRows(std::move(rows));
    NoteStamp(stamp);
    shell.database.isListed = true;
    ShowWholeWindow();
    ReportLeftOvers(path);
}

void LoadDatabase(const std::wstring& path) {
    Log(LogKind::kOpen, path);
    BasicShipData bsd;
    LoadBsdFromDatabase(path, bsd);
    AdoptDatabase(path, bsd);
}

void ContinueInCopy(const std::wstring& path) {
    shell.database.path = path;
}

void ContinueInWritableFile(const std::wstring& path) {
    OpenDatabase& database = shell.database;
    database.path = system::AbsolutePath(path);
    shell.settings.BrowseDirectory = WithTrailingBackslash(DirectoryOf(database.path));
    database.bsd = BasicShipData();
    LoadBsdFromDatabase(database.path, database.bsd);
}

void AdoptShipRecord(const BasicShipData& bsd) {
    shell.database.bsd = bsd;
}

void ReadShipRecordAgain(NoBlock noBlock) {
    const std::wstring& path = shell.database.path;
    BasicShipData bsd;
    if (LoadBsdFromDatabase(path, bsd, noBlock) || FileExists(path)) {
        shell.database.bsd = bsd;
    }
}

BlockNumbers ListedBlocks() {
    BlockNumbers blocks;
    for (const ModelRow& row : shell.database.rows) {
        blocks.numbers.push_back(row.tag);
        blocks.offsets.push_back(row.offset);
        blocks.stamp = row.stamp;
    }
    return blocks;
}

void SetCurrentModel(int32_t number) {
    shell.database.currentModel = number;
}

void SelectLastModelNext() {
    const std::vector<ModelEntry> models = ListModels(shell.database.path);
    if (models.empty()) return;
    shell.database.currentModel = models.back().number;
    shell.database.currentOffset = models.back().offset;
}

void RefreshMainWindow() {
    const bool isCancelled = IsDatabaseOpen() && !ListModelsAgain();
    const std::wstring note = isCancelled ? reportView.statusCaption() : std::wstring();
    ShowWholeWindow();
    if (isCancelled) ShowNote(note);
}

void RefreshWhenChanged() {
    OpenDatabase& database = shell.database;
    if (!database.isListed || shell.locked) return;
    system::FileStamp now;
    const system::ErrorNumber error = LookAtFile(now);
    if (error != system::kErrorNone) return ShowGone(error);
    if (database.whyGone.empty() && now == database.stamp) {
        if (now.isReadOnly == database.stamp.isReadOnly) return;
        NoteStamp(now);
        return ShowCaptionAndParts();
    }
    if (IsOpenForWriting(database.path)) {
        return ReportNote(kMsgNotYetReadAgain, {FileNameOf(database.path)});
    }
    ReadFileAgain(kMsgChangedByOthers);
}

void RefreshOnActivation() {
    if (!shell.database.isSlow) RefreshWhenChanged();
}

void RefreshAtOnce() {
    if (IsDatabaseOpen()) ReadFileAgain(kMsgReadAgain);
}

void RefreshAfterRepair() {
    if (IsDatabaseOpen()) ReadFileAgain(kMsgReadAgain, Follow::kPlace);
}

void ShowNextStep() {
    const std::wstring& remembered = shell.settings.DatabasePath;
    ShowStatus(L"");
    if (!IsDatabaseOpen()) {
        if (remembered.empty()) return ReportNote(kMsgNoDatabaseOpen);
        return ReportNote(kMsgDatabaseOutOfReach, {remembered});
    }
    if (!IsBsdDefined(shell.database.bsd)) ReportStatus(kMsgInputBsdFirst);
}

void ShowLinesAgain() {
    OpenDatabase& database = shell.database;
    const bool wasSelected = IsLineSelected();
    const bool isWanted = wasSelected || database.isCurrentHidden;
    const int line = ShowLines(isWanted);
    database.isCurrentHidden = isWanted && line < 0;
    if (line >= 0 && !wasSelected) return ShowModel(RowOfLine(line));
    if (line < 0 && wasSelected) return DeselectModel();
    shell.view.updateEnabling();
}

void SelectLine(int line) {
    ShowModel(RowOfLine(line));
}

void ShowSelection() {
    const OpenDatabase& database = shell.database;
    const int line = shell.view.selectedLine();
    shell.view.setModelCount(ModelCountText());
    if (line < 0) return DeselectModel();
    const ModelRow& row = RowOfLine(line);
    const bool isCurrent = row.offset == database.currentOffset && row.tag == database.currentModel;
    if (!database.isModelShown || !isCurrent) return ShowModel(row);
    shell.view.updateEnabling();
}

void ShowSelectedLineAgain() {
    if (IsLineSelected()) SelectLine(shell.view.selectedLine());
}

void DeselectModel() {
    shell.database.isModelShown = false;
    ClearPreviewPane();
    shell.view.setSectionMenuCaption(MenuCaption(Menu::kSection));
    shell.view.showModelButtons(ModelKind::kSection);
    shell.view.updateEnabling();
}

bool IsLineSelected() {
    return shell.view.selectedLine() >= 0;
}

std::wstring MainWindowCaption() {
    if (!IsDatabaseOpen()) return shell.title;
    FixedText<30>& shipName = shell.database.bsd.Titles(5);
    shipName.Assign(shipName.Trimmed());
    std::wstring caption =
        shell.title + L" - " + FileNameOf(shell.database.path) + L" - " + shipName.Trimmed();
    if (shell.database.isReadOnly) caption += GetMessage(kMsgReadOnlyMark);
    return caption;
}

bool RequireDatabase() {
    if (!IsDatabaseOpen()) return false;
    const bool isThere = FileExists(shell.database.path);
    if (!isThere) {
        ReportMessage(kMsgFileMissing, {shell.database.path}, BoxText(kMsgFileAdvice));
    }
    return isThere;
}

bool RequireWritableDatabase() {
    const std::wstring& path = shell.database.path;
    const bool isReadOnly = IsReadOnlyFile(path);
    if (isReadOnly) ReportMessage(kMsgReadOnly, {path}, BoxText(kMsgReadOnlyAdvice));
    return !isReadOnly;
}

bool RequireOtherFile(const std::wstring& path) {
    const bool isOpen = IsDatabaseOpen() && IsSameFile(path, shell.database.path);
    if (isOpen) ReportMessage(kMsgIsOpenDatabase, {path});
    return !isOpen;
}

bool RequireModel(const std::vector<ModelEntry>& models, int32_t number, const std::wstring& path,
                  ModelEntry& model) {
    const auto found = std::ranges::find(models, number, &ModelEntry::number);
    if (found == models.end()) {
        ReportMessage(kMsgModelMissing, {number, path});
        return false;
    }
    if (!found->hasOwnNumber) {
        ReportNumberNotOwn(number, path);
        return false;
    }
    model = *found;
    return true;
}

bool RequireCurrentModel(ModelEntry& model) {
    const std::wstring& path = shell.database.path;
    AwaitReadable(path);
    if (!RequireDatabase()) return false;
    const int32_t number = shell.database.currentModel;
    const auto row = CurrentRow(shell.database);
    if (row != shell.database.rows.end() && ReadModelAt(path, PlaceOf(*row), model)) return true;
    std::vector<ModelEntry> models;
    if (!ListModels(path, models)) return false;
    if (std::ranges::find(models, number, &ModelEntry::number) != models.end()) {
        return RequireModel(models, number, path, model);
    }
    ReportMessage(kMsgModelMissing, {number, path}, BoxText(kMsgModelGoneAdvice));
    RefreshMainWindow();
    return false;
}

bool RequireUnchanged(const ModelEntry& asked) {
    ModelEntry now;
    if (!RequireCurrentModel(now)) return false;
    if (now.name == asked.name && now.kind == asked.kind) return true;
    ReportMessage(kMsgModelChanged, {shell.database.path});
    return false;
}

}  // namespace corvane
