#include "shell/window_contents.h"

#include <algorithm>
#include <limits>

#include "bsd/frames.h"
#include "database/database_file.h"
#include "database/section_file.h"
#include "files/paths.h"
#include "files/running.h"
#include "report/messages.h"
#include "shell/start_up.h"
#include "shell/state.h"
#include "text/numbers.h"

namespace corvane {
namespace {

// A ship's frame and a model stand together when they are no farther apart than this [m].
constexpr double kSamePlace_m = 0.001;

std::wstring IdText(int number) {
    return number < 10 ? L' ' + std::to_wstring(number) : std::to_wstring(number);
}

ModelRow RowOf(const ModelEntry& model, int number) {
    ModelRow row;
    row.name = model.name;
    // The sum makes a negative zero a plain one.
    if (model.x >= 0) row.x = DecimalText(double{model.x} + 0.0, 3, 3);
    row.id = IdText(number);
    row.type = KindName(model.kind);
    row.icon = KindIcon(model.kind);
    row.tag = static_cast<int16_t>(number);
    row.kind = model.kind;
    return row;
}

// A number in a format such as "#0.000" or "0.0##".
std::wstring FormattedNumber(double value, std::wstring_view format) {
    const size_t point = format.find(L'.');
    if (point == std::wstring_view::npos) return DecimalText(value, 0, 0);
    const std::wstring_view decimals = format.substr(point + 1);
    const auto least = static_cast<int>(std::count(decimals.begin(), decimals.end(), L'0'));
    const auto optional = static_cast<int>(std::count(decimals.begin(), decimals.end(), L'#'));
    return DecimalText(value, least, least + optional);
}

// Lists the models and selects the current one, when there is such a row.
void ShowDatabase(const MainWindow& window) {
    if (shell.currentModel == 0) shell.currentModel = 1;
    window.setDatabaseText(shell.settings.DatabasePath);
    const std::vector<ModelRow> rows = FillModelList(shell.settings.DatabasePath);
    window.setRows(rows);
    const auto current = std::find_if(rows.begin(), rows.end(), [](const ModelRow& row) {
        return row.tag == shell.currentModel;
    });
    if (current == rows.end()) {
        window.selectRow(-1);
        DeselectModel();
        return;
    }
    window.selectRow(static_cast<int>(current - rows.begin()));
    SelectModel(*current);
}

bool ReadForPreview(const ModelRow& row) {
    return row.kind == ModelKind::kSection && shell.mainWindow->isPreviewOn() &&
           ReadSectionBlock(shell.settings.DatabasePath, row.tag, false, shell.previewSection);
}

void ClearPreview() {
    shell.previewShown = false;
    shell.mainWindow->clearPreview();
}

// Shows the model in the preview, as far as it can be shown there, and returns its position.
float ShowInPreview(const ModelRow& row) {
    if (!ReadForPreview(row)) {
        ClearPreview();
        return ModelPosition(shell.settings.DatabasePath, row.tag);
    }
    shell.previewShown = true;
    shell.mainWindow->redrawPreview();
    ResetMousePointer();
    return shell.previewSection.x_m;
}

void ShowNoDatabase(const MainWindow& window) {
    window.setDatabaseText(L"No database selected");
    window.setRows({});
    window.selectRow(-1);
    DeselectModel();
}

}  // namespace

int KindIcon(ModelKind kind) {
    switch (kind) {
        case ModelKind::kBulkhead:
            return 2;
        case ModelKind::kTorsion:
            return 3;
        case ModelKind::kSection:
            break;
    }
    return 1;
}

std::vector<ModelRow> FillModelList(const std::wstring& path) {
    ReportStatus(kMsgReadingModels, {path});
    std::vector<ModelRow> rows;
    for (const ModelEntry& model : ListModelsWithPositions(path)) {
        // Model numbers are 16-bit.
        if (rows.size() == std::numeric_limits<int16_t>::max()) break;
        rows.push_back(RowOf(model, static_cast<int>(rows.size()) + 1));
    }
    ShowStatus(L"");
    return rows;
}

void RefreshMainWindow() {
    if (shell.mainWindow == nullptr) return;
    const MainWindow& window = *shell.mainWindow;
    if (IsDatabaseOpen()) {
        ShowDatabase(window);
    } else {
        ShowNoDatabase(window);
    }
    shell.screen.setMainCaption(MainWindowCaption());
    window.updateEnabling();
    ShowStatus(L"");
    if (!IsBsdDefined(shell.bsd)) ReportStatus(kMsgInputBsdFirst);
    if (window.selectedRow() >= 0) window.focusList();
    ResetMousePointer();
}

void SelectModel(const ModelRow& row) {
    const MainWindow& window = *shell.mainWindow;
    shell.currentModel = row.tag;
    const float x = ShowInPreview(row);
    window.setPositionText(FormatMessage(kMsgPosition, {x}));
    window.setFrameText(FrameText(x));
    window.setSectionMenuCaption(SectionMenuCaption(row.kind));
    window.showModelButtons(row.kind);
    window.updateEnabling();
}

void DeselectModel() {
    const MainWindow& window = *shell.mainWindow;
    ClearPreview();
    window.setPositionText(L"");
    window.setFrameText(L"");
    window.setSectionMenuCaption(MenuCaption(Menu::kSection));
    window.showModelButtons(ModelKind::kSection);
    window.updateEnabling();
}

void DrawPreview(Picture& picture) {
    if (!shell.previewShown) return;
    LibraryView view;
    MakeLibraryView(shell.previewSection, view);
    DrawSectionPreview(view.section, shell.bsd, picture);
}

RuleSet CurrentRuleSet() {
    if (shell.jbpMode) return RuleSet::kCsr;
    return shell.milMode ? RuleSet::kMil : RuleSet::kQuor;
}

void RuleSetChosen(RuleSet ruleSet) {
    shell.jbpMode = ruleSet == RuleSet::kCsr;
    shell.milMode = ruleSet == RuleSet::kMil;
    shell.mainWindow->redrawRuleButton();
    shell.title = WithoutRuleSetSuffixes(shell.title);
    if (shell.jbpMode) shell.title += kJbpSuffix;
    if (shell.milMode) shell.title += kMilSuffix;
    shell.screen.setMainCaption(MainWindowCaption());
}

void LockShell(bool locked) {
    if (shell.mainWindow != nullptr) shell.mainWindow->setLocked(locked);
}

void NotImp() {
    shell.screen.showPlainBox(GetMessage(kMsgNotImplemented));
}

std::wstring MainWindowCaption() {
    if (!IsDatabaseOpen()) return shell.title;
    FixedText<30>& shipName = shell.bsd.Titles(5);
    shipName.Assign(shipName.Trimmed());
    return shell.title + L" - " + FileNameOf(shell.settings.DatabasePath) + L" - " +
           shipName.Trimmed();
}

std::wstring FrameText(float x) {
    const NearestFrameResult nearest = NearestFrame(shell.bsd, x);
    if (!nearest.found) return L"No frame in BSD";
    const std::wstring frame = std::to_wstring(nearest.frame);
    if (nearest.distance < kSamePlace_m) return L"Frame : " + frame;
    return L"Closer Frame : " + frame + L" (" +
           FormattedNumber(nearest.distance, GetMessage(kMsgFrameDistanceFormat)) + L" m)";
}

bool IsDatabaseOpen() {
    return !shell.settings.DatabasePath.empty();
}

bool IsEnabled(const Command& command, bool rowSelected) {
    switch (command.enabledWhen) {
        case EnabledWhen::kAlways:
            return true;
        case EnabledWhen::kDatabaseOpen:
            return IsDatabaseOpen();
        case EnabledWhen::kBsdDefined:
            return IsDatabaseOpen() && IsBsdDefined(shell.bsd);
        case EnabledWhen::kModelSelected:
            return rowSelected;
    }
    return false;
}

bool IsMenuEnabled(Menu menu) {
    if (menu == Menu::kBsd) return IsDatabaseOpen();
    if (menu == Menu::kCreate) return IsDatabaseOpen() && IsBsdDefined(shell.bsd);
    return true;
}

}  // namespace corvane
