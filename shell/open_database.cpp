#include "shell/open_database.h"

#include <algorithm>
#include <utility>

#include "bsd/bsd_file.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/edit_history.h"
#include "shell/left_overs.h"
#include "shell/state.h"

namespace corvane {
namespace {

void ShowModel(const ModelRow& row) {
    shell.database.currentModel = row.tag;
    shell.database.currentOffset = row.offset;
    shell.database.isCurrentHidden = false;
    ShowInPreview(row);
    shell.view.setSectionMenuCaption(SectionMenuCaption(row.kind));
    shell.view.showModelButtons(row.kind);
    shell.view.updateEnabling();
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

// Lists the models again. When the user cancels, the list stays as it was; without one, no database
// is open.
bool ListModelsAgain() {
    OpenDatabase& database = shell.database;
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
    ShowLines(false);
    DeselectModel();
}

// What the window shows of the state as it is.
void ShowWholeWindow() {
    if (IsDatabaseOpen()) {
        ShowModels();
    } else {
        ShowNoDatabase();
    }
    shell.view.setMainCaption(MainWindowCaption());
    ReadUndoNames();
    shell.view.updateEnabling();
    ShowNextStep();
    if (IsLineSelected()) shell.view.focusList();
    ResetMousePointer();
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
    shell.preview = PreviewPane();
}

void ShowDatabase(const std::wstring& path, const BasicShipData& bsd) {
    std::vector<ModelRow> rows;
    if (!FillModelList(path, rows)) return ResetMousePointer();
    AdoptDatabase(path, bsd);
    AdoptRows(std::move(rows));
    shell.database.isListed = true;
    ShowWholeWindow();
    ReportLeftOvers(path);
}

void LoadDatabase(const std::wstring& path) {
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

void ReadShipRecordAgain() {
    const std::wstring& path = shell.database.path;
    BasicShipData bsd;
    if (LoadBsdFromDatabase(path, bsd) || FileExists(path)) shell.database.bsd = bsd;
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

void ShowSelectedLineAgain() {
    if (IsLineSelected()) SelectLine(shell.view.selectedLine());
}

void DeselectModel() {
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
    return shell.title + L" - " + FileNameOf(shell.database.path) + L" - " + shipName.Trimmed();
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
