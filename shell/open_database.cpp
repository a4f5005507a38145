#include "shell/open_database.h"

#include <algorithm>
#include <limits>

#include "bsd/bsd_file.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/state.h"

namespace corvane {
namespace {

void ShowModel(const ModelRow& row) {
    shell.database.currentModel = row.tag;
    ShowInPreview(row);
    shell.view.setSectionMenuCaption(SectionMenuCaption(row.kind));
    shell.view.showModelButtons(row.kind);
    shell.view.updateEnabling();
}

// Lists the models and selects the current one, when there is such a row.
void ShowModels() {
    OpenDatabase& database = shell.database;
    if (database.currentModel == 0) database.currentModel = 1;
    shell.view.setDatabaseText(database.path);
    database.rows = FillModelList(database.path);
    shell.view.setRows(database.rows);
    const auto current = std::ranges::find(database.rows, database.currentModel, &ModelRow::tag);
    if (current == database.rows.end()) {
        shell.view.selectRow(-1);
        DeselectModel();
        return;
    }
    shell.view.selectRow(static_cast<int>(current - database.rows.begin()));
    ShowModel(*current);
}

void ShowNoDatabase() {
    shell.view.setDatabaseText(L"No database selected");
    shell.database.rows.clear();
    shell.view.setRows({});
    shell.view.selectRow(-1);
    DeselectModel();
}

}  // namespace

bool IsDatabaseOpen() {
    return !shell.database.path.empty();
}

void AdoptDatabase(const std::wstring& path, const BasicShipData& bsd) {
    shell.database.path = path;
    shell.database.bsd = bsd;
    shell.database.currentModel = 1;
    shell.preview = PreviewPane();
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

void SetCurrentModel(int16_t number) {
    shell.database.currentModel = number;
}

void SelectLastModelNext() {
    const int last = CountModels(shell.database.path);
    if (last <= std::numeric_limits<int16_t>::max()) SetCurrentModel(static_cast<int16_t>(last));
}

void RefreshMainWindow() {
    if (IsDatabaseOpen()) {
        ShowModels();
    } else {
        ShowNoDatabase();
    }
    shell.view.setMainCaption(MainWindowCaption());
    shell.view.updateEnabling();
    ShowNextStep();
    if (IsRowSelected()) shell.view.focusList();
    ResetMousePointer();
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

void SelectRow(int index) {
    ShowModel(shell.database.rows.at(static_cast<size_t>(index)));
}

void ShowSelectedRowAgain() {
    if (IsRowSelected()) SelectRow(shell.view.selectedRow());
}

void DeselectModel() {
    ClearPreviewPane();
    shell.view.setSectionMenuCaption(MenuCaption(Menu::kSection));
    shell.view.showModelButtons(ModelKind::kSection);
    shell.view.updateEnabling();
}

bool IsRowSelected() {
    return shell.view.selectedRow() >= 0;
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

bool RequireModelInRow(const std::vector<ModelEntry>& models, int32_t row, const std::wstring& path,
                       ModelEntry& model) {
    const auto found = std::ranges::find(models, row, &ModelEntry::number);
    if (row < 1 || found == models.end()) {
        ReportMessage(kMsgModelMissing, {row, path});
        return false;
    }
    if (found - models.begin() != row - 1) {
        ReportMessage(kMsgNumbersNotInOrder, {row, path});
        return false;
    }
    model = *found;
    return true;
}

bool RequireCurrentModel(ModelEntry& model) {
    const std::wstring& path = shell.database.path;
    AwaitReadable(path);
    return RequireDatabase() &&
           RequireModelInRow(ListModels(path), shell.database.currentModel, path, model);
}

bool RequireUnchanged(const ModelEntry& asked) {
    ModelEntry now;
    if (!RequireCurrentModel(now)) return false;
    if (now.name == asked.name && now.kind == asked.kind) return true;
    ReportMessage(kMsgModelChanged, {shell.database.path});
    return false;
}

}  // namespace corvane
