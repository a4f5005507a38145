#include "shell/commands/commands.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "files/file_system.h"
#include "report/reporters.h"
#include "shell/all_pictures.h"
#include "shell/commands/bsd_commands.h"
#include "shell/commands/create_commands.h"
#include "shell/commands/edit_commands.h"
#include "shell/commands/file_commands.h"
#include "shell/commands/help_commands.h"
#include "shell/commands/section_commands.h"
#include "shell/commands/several_models.h"
#include "shell/commands/view_commands.h"
#include "shell/database_check.h"
#include "shell/database_comparison.h"
#include "shell/picture_printing.h"
#include "shell/recent_databases.h"
#include "shell/state.h"

namespace corvane {
namespace {

constexpr Command Separator(Menu menu) {
    return {0, menu, "", L"", EnabledWhen::kAlways, nullptr};
}

constexpr Key Control(char letter, KeyReach reach = KeyReach::kWindow) {
    return {.code = static_cast<uint16_t>(letter), .control = true, .reach = reach};
}
constexpr Key Control(KeyCode code) {
    return {.code = code, .control = true};
}
constexpr Key ControlShift(char letter) {
    return {.code = static_cast<uint16_t>(letter), .control = true, .shift = true};
}
constexpr Key Plain(KeyCode code) {
    return {.code = code};
}
constexpr Key Alt(KeyCode code) {
    return {.code = code, .alt = true};
}
constexpr Key Shift(KeyCode code) {
    return {.code = code, .shift = true};
}
constexpr Key AltShift(KeyCode code) {
    return {.code = code, .shift = true, .alt = true};
}
constexpr Key InList(KeyCode code) {
    return {.code = code, .reach = KeyReach::kList};
}

template <ListColumn column>
constexpr Command SortBy(uint16_t id, const char* name, const wchar_t* caption) {
    Command command{id, Menu::kView, name, caption, EnabledWhen::kAlways, nullptr};
    command.run = [] { SortByColumn(column); };
    command.isChecked = [] { return IsSortedBy(column); };
    return command;
}

template <bool PictureOptions::* option>
constexpr Command Switch(uint16_t id, const char* name, const wchar_t* caption) {
    Command command{id, Menu::kView, name, caption, EnabledWhen::kAlways, nullptr};
    command.run = [] { TurnPictureOption(option); };
    command.isChecked = [] { return shell.preview.options.*option; };
    return command;
}

constexpr std::array kCommands = {
    Command{ME_FileNew, Menu::kFile, "ME_FileNew", L"&New database...", EnabledWhen::kAlways,
            ME_FileNew_Click, Control('N')},
    Command{ME_FileOpen, Menu::kFile, "ME_FileOpen", L"&Open database...", EnabledWhen::kAlways,
            ME_FileOpen_Click, Control('O')},
    Command{ME_FileSaveAs, Menu::kFile, "ME_FileSaveAs", L"&Save database as...",
            EnabledWhen::kDatabaseOpen, ME_FileSaveAs_Click, Control('S')},
    Command{ME_FileSaveLegacy, Menu::kFile, "ME_FileSaveLegacy", L"Save as &Velk Dos...",
            EnabledWhen::kDatabaseOpen, ME_FileSaveLegacy_Click},
    Command{ME_FileVersions, Menu::kFile, "ME_FileVersions", L"&Earlier versions...",
            EnabledWhen::kDatabaseOpen, ME_FileVersions_Click},
    Command{ME_FileCheck, Menu::kFile, "ME_FileCheck", L"&Check database...",
            EnabledWhen::kDatabaseOpen, CheckOpenDatabase},
    Command{ME_FileCompare, Menu::kFile, "ME_FileCompare", L"Co&mpare with...",
            EnabledWhen::kDatabaseOpen, CompareWithFile},
    Command{ME_FileExportList, Menu::kFile, "ME_FileExportList", L"Export &list...",
            EnabledWhen::kDatabaseOpen, ME_FileExportList_Click},
    Command{ME_FileExportPicture, Menu::kFile, "ME_FileExportPicture", L"Export &picture...",
            EnabledWhen::kPictureShown, ME_FileExportPicture_Click},
    Command{ME_FileExportAllPictures, Menu::kFile, "ME_FileExportAllPictures",
            L"E&xport all pictures...", EnabledWhen::kDatabaseOpen, ExportAllPictures},
    Command{ME_FilePrint, Menu::kFile, "ME_FilePrint", L"Pr&int...", EnabledWhen::kPictureShown,
            PrintShownPicture, Control('P')},
    Command{ME_FilePrintAll, Menu::kFile, "ME_FilePrintAll", L"Print &all sections...",
            EnabledWhen::kDatabaseOpen, PrintAllSections},
    Command{ME_FileSettings, Menu::kFile, "ME_FileSettings", L"Se&ttings...", EnabledWhen::kAlways,
            ME_FileSettings_Click},
    Separator(Menu::kFile),
    Command{ME_FileQuit, Menu::kFile, "ME_FileQuit", L"&Quit", EnabledWhen::kAlways,
            ME_FileQuit_Click},

    Command{ME_EditUndo, Menu::kEdit, "ME_EditUndo", L"&Undo", EnabledWhen::kUndoThere,
            ME_EditUndo_Click, Control('Z', KeyReach::kNotText)},
    Command{ME_EditRedo, Menu::kEdit, "ME_EditRedo", L"&Redo", EnabledWhen::kRedoThere,
            ME_EditRedo_Click, Control('Y', KeyReach::kNotText)},
    Separator(Menu::kEdit),
    Command{ME_EditFind, Menu::kEdit, "ME_EditFind", L"&Find", EnabledWhen::kDatabaseOpen,
            ME_EditFind_Click, Control('F')},
    Command{ME_EditSelectAll, Menu::kEdit, "ME_EditSelectAll", L"Select &all",
            EnabledWhen::kDatabaseOpen, ME_EditSelectAll_Click, Control('A', KeyReach::kList)},
    Command{ME_EditCopyList, Menu::kEdit, "ME_EditCopyList", L"Copy l&ist",
            EnabledWhen::kDatabaseOpen, ME_EditCopyList_Click, ControlShift('C')},
    Command{ME_EditCopyPicture, Menu::kEdit, "ME_EditCopyPicture", L"Copy &picture",
            EnabledWhen::kPictureShown, ME_EditCopyPicture_Click, ControlShift('P')},

    SortBy<ListColumn::kName>(ME_ViewSortName, "ME_ViewSortName", L"Sort by &name"),
    SortBy<ListColumn::kX>(ME_ViewSortX, "ME_ViewSortX", L"Sort by &X"),
    SortBy<ListColumn::kNumber>(ME_ViewSortNumber, "ME_ViewSortNumber", L"Sort by n&umber"),
    SortBy<ListColumn::kKind>(ME_ViewSortKind, "ME_ViewSortKind", L"Sort by &kind"),
    SortBy<ListColumn::kFrame>(ME_ViewSortFrame, "ME_ViewSortFrame", L"Sort by &frame"),
    Command{ME_ViewFileOrder,
            Menu::kView,
            "ME_ViewFileOrder",
            L"File &order",
            EnabledWhen::kAlways,
            ME_ViewFileOrder_Click,
            {},
            IsInFileOrder},
    Command{ME_ViewDescending,
            Menu::kView,
            "ME_ViewDescending",
            L"&Descending",
            EnabledWhen::kAlways,
            ME_ViewDescending_Click,
            {},
            IsDescending},
    Separator(Menu::kView),
    Command{ME_ViewRefresh, Menu::kView, "ME_ViewRefresh", L"&Refresh", EnabledWhen::kDatabaseOpen,
            ME_ViewRefresh_Click, Plain(kF5Key)},
    Separator(Menu::kView),
    Command{ME_ViewZoomIn, Menu::kView, "ME_ViewZoomIn", L"&Zoom in", EnabledWhen::kPictureShown,
            [] { shell.view.zoomPreview(true); }, Control(kPlusKey)},
    Command{ME_ViewZoomOut, Menu::kView, "ME_ViewZoomOut", L"Zoom ou&t", EnabledWhen::kPictureShown,
            [] { shell.view.zoomPreview(false); }, Control(kMinusKey)},
    Command{ME_ViewFit, Menu::kView, "ME_ViewFit", L"Fit to the &window",
            EnabledWhen::kPictureShown, [] { shell.view.fitPreview(); }, Control('0')},
    Command{ME_ViewLarger, Menu::kView, "ME_ViewLarger", L"&Larger preview",
            EnabledWhen::kDatabaseOpen, ME_ViewLarger_Click, Plain(kF11Key), IsPreviewLarger},
    Separator(Menu::kView),
    Switch<&PictureOptions::hasScaleBar>(ME_ViewScaleBar, "ME_ViewScaleBar", L"Scale &bar"),
    Switch<&PictureOptions::hasAxes>(ME_ViewAxes, "ME_ViewAxes", L"&Axes"),
    Switch<&PictureOptions::hasLegend>(ME_ViewLegend, "ME_ViewLegend", L"Le&gend"),
    Switch<&PictureOptions::hasPanelNames>(ME_ViewNames, "ME_ViewNames", L"Names of &panels"),
    Switch<&PictureOptions::hasNumbers>(ME_ViewNumbers, "ME_ViewNumbers",
                                        L"Numbers of nodes and &strakes"),
    Switch<&PictureOptions::hasThickness>(ME_ViewThickness, "ME_ViewThickness",
                                          L"Th&ickness by colour"),
    Switch<&PictureOptions::hasTable>(ME_ViewTable, "ME_ViewTable", L"Table with pi&ctures"),
    Separator(Menu::kView),
    Command{ME_ViewNextBulkhead, Menu::kView, "ME_ViewNextBulkhead", L"N&ext bulkhead",
            EnabledWhen::kBulkheadsShown, ShowNextBulkhead, Control('B')},

    Command{ME_FileBSD, Menu::kBsd, "ME_FileBSD", L"&Open...", EnabledWhen::kDatabaseOpen,
            ME_FileBSD_Click},
    Command{ME_FileImportBSD, Menu::kBsd, "ME_FileImportBSD", L"&Import...",
            EnabledWhen::kDatabaseOpen, ME_FileImportBSD_Click},

    Command{ME_SectionNew, Menu::kCreate, "ME_SectionNew", L"&Section...", EnabledWhen::kBsdDefined,
            ME_SectionNew_Click},
    Command{ME_NewBulkhead, Menu::kCreate, "ME_NewBulkhead", L"&Bulkhead Arrangement",
            EnabledWhen::kBsdDefined, ME_NewBulkhead_Click},
    Command{ME_NewTorsion, Menu::kCreate, "ME_NewTorsion", L"&Model for Torsion",
            EnabledWhen::kBsdDefined, ME_NewTorsion_Click},

    Command{ME_SectionInput, Menu::kSection, "ME_SectionInput", L"&Edit...",
            EnabledWhen::kOneSelected, ME_SectionInput_Click, InList(kEnterKey)},
    Command{ME_SectionVelkRule, Menu::kSection, "ME_SectionVelkRule", L"&Rule...",
            EnabledWhen::kOneSelected, ME_SectionVelkRule_Click},
    Separator(Menu::kSection),
    Command{ME_SectionCopy, Menu::kSection, "ME_SectionCopy", L"&Copy...",
            EnabledWhen::kModelSelected, ME_SectionCopy_Click, Control('C', KeyReach::kList)},
    Command{ME_SectionRemove, Menu::kSection, "ME_SectionRemove", L"&Delete...",
            EnabledWhen::kModelSelected, ME_SectionRemove_Click, InList(kDeleteKey)},
    Separator(Menu::kSection),
    Command{ME_SectionImport, Menu::kSection, "ME_SectionImport", L"&Import...",
            EnabledWhen::kDatabaseOpen, ME_SectionImport_Click},
    Command{ME_SectionExport, Menu::kSection, "ME_SectionExport", L"E&xport to Velk Dos...",
            EnabledWhen::kModelSelected, ME_SectionExport_Click},
    Separator(Menu::kSection),
    Command{ME_SectionRename, Menu::kSection, "ME_SectionRename", L"Re&name...",
            EnabledWhen::kOneSelected, ME_SectionRename_Click, Plain(kF2Key)},
    Command{ME_SectionProperties, Menu::kSection, "ME_SectionProperties", L"&Properties...",
            EnabledWhen::kOneSelected, ME_SectionProperties_Click, Alt(kEnterKey)},

    Command{ME_HelpAbout, Menu::kHelp, "ME_HelpAbout", L"&About...", EnabledWhen::kAlways,
            ME_HelpAbout_Click},
    Command{ME_HelpSample, Menu::kHelp, "ME_HelpSample", L"Open the &sample ship...",
            EnabledWhen::kSampleThere, ME_HelpSample_Click},
    Separator(Menu::kHelp),
    Command{ME_HelpContents, Menu::kHelp, "ME_HelpContents", L"&Contents", EnabledWhen::kAlways,
            ME_HelpContents_Click, Plain(kF1Key)},
    Command{ME_HelpDetails, Menu::kHelp, "ME_HelpDetails", L"Copy &details", EnabledWhen::kAlways,
            ME_HelpDetails_Click},
    Command{ME_HelpLog, Menu::kHelp, "ME_HelpLog", L"Open &log folder", EnabledWhen::kAlways,
            ME_HelpLog_Click},

    Command{ME_NextPane, Menu::kNone, "ME_NextPane", L"Next pane", EnabledWhen::kAlways,
            [] { shell.view.focusPane(true); }, Plain(kF6Key)},
    Command{ME_PreviousPane, Menu::kNone, "ME_PreviousPane", L"Previous pane", EnabledWhen::kAlways,
            [] { shell.view.focusPane(false); }, Shift(kF6Key)},

    Command{ME_SortByNext, Menu::kNone, "ME_SortByNext", L"Sort by the next column",
            EnabledWhen::kAlways, [] { SortByNeighbour(true); }, AltShift(kRightKey)},
    Command{ME_SortByPrevious, Menu::kNone, "ME_SortByPrevious", L"Sort by the previous column",
            EnabledWhen::kAlways, [] { SortByNeighbour(false); }, AltShift(kLeftKey)},
    Command{ME_SortUp, Menu::kNone, "ME_SortUp", L"Sort from the smallest up", EnabledWhen::kAlways,
            [] { SortDescending(false); }, AltShift(kUpKey)},
    Command{ME_SortDown, Menu::kNone, "ME_SortDown", L"Sort from the largest down",
            EnabledWhen::kAlways, [] { SortDescending(true); }, AltShift(kDownKey)},
};

template <class Test>
const Command* FindFirst(Test test) {
    const auto found = std::ranges::find_if(kCommands, test);
    return found == kCommands.end() ? nullptr : &*found;
}

bool NeedsDatabase(const Command& command) {
    return command.enabledWhen != EnabledWhen::kAlways &&
           command.enabledWhen != EnabledWhen::kSampleThere;
}

void RunRecent(uint16_t id) {
    if (shell.locked) return;
    const HelpAbout running(ME_FileRecent);
    ShowNextStep();
    Log(LogKind::kCommand, L"ME_FileRecent");
    OpenRecent(id - ME_FileRecent);
}

bool IsBsdThere() {
    return IsDatabaseOpen() && IsBsdDefined(shell.database.bsd);
}

}  // namespace

std::span<const Command> Commands() {
    return kCommands;
}

const Command* FindCommand(uint16_t id) {
    if (id == 0) return nullptr;
    return FindFirst([id](const Command& command) { return command.id == id; });
}

const Command* FindCommand(const Key& key) {
    if (key.code == kNoKey) return nullptr;
    return FindFirst([&key](const Command& command) { return IsSameKey(command.key, key); });
}

bool IsEnabled(const Command& command) {
    switch (command.enabledWhen) {
        case EnabledWhen::kAlways:
            return true;
        case EnabledWhen::kDatabaseOpen:
            return IsDatabaseOpen();
        case EnabledWhen::kBsdDefined:
            return IsBsdThere();
        case EnabledWhen::kModelSelected:
            return IsLineSelected();
        case EnabledWhen::kOneSelected:
            return IsLineSelected() && !AreSeveralSelected();
        case EnabledWhen::kUndoThere:
            return !shell.history.undoName.empty();
        case EnabledWhen::kRedoThere:
            return !shell.history.redoName.empty();
        case EnabledWhen::kPictureShown:
            return shell.preview.isShown || shell.preview.areBulkheadsShown;
        case EnabledWhen::kBulkheadsShown:
            return shell.preview.areBulkheadsShown;
        case EnabledWhen::kSampleThere:
            return FileExists(SamplePath());
    }
    return false;
}

std::wstring WhyDisabled(const Command& command) {
    if (IsEnabled(command)) return {};
    const bool isForModels = command.enabledWhen == EnabledWhen::kModelSelected ||
                             command.enabledWhen == EnabledWhen::kOneSelected;
    if (isForModels && AreSeveralSelected()) {
        return FormatMessage(kMsgOneModelOnly, {shell.view.selectedCount()});
    }
    if (command.enabledWhen == EnabledWhen::kUndoThere) return GetMessage(kMsgNothingToUndo);
    if (command.enabledWhen == EnabledWhen::kRedoThere) return GetMessage(kMsgNothingToRedo);
    if (!IsDatabaseOpen()) return GetMessage(kMsgNoDatabaseOpen);
    if (command.enabledWhen == EnabledWhen::kPictureShown) return GetMessage(kMsgNoPictureShown);
    if (command.enabledWhen == EnabledWhen::kBulkheadsShown) {
        return GetMessage(kMsgNoBulkheadsShown);
    }
    return GetMessage(isForModels ? kMsgNoModelSelected : kMsgInputBsdFirst);
}

std::wstring CaptionNow(const Command& command) {
    std::wstring caption = command.caption;
    std::wstring name;
    if (command.enabledWhen == EnabledWhen::kUndoThere) name = shell.history.undoName;
    if (command.enabledWhen == EnabledWhen::kRedoThere) name = shell.history.redoName;
    if (!name.empty()) caption += L' ';
    for (const wchar_t letter : name) caption += letter == L'&' ? L"&&" : std::wstring(1, letter);
    const std::wstring key = KeyText(command.key);
    return key.empty() ? caption : caption + L'\t' + key;
}

bool IsMenuEnabled(Menu menu) {
    if (menu == Menu::kBsd) return IsDatabaseOpen();
    if (menu == Menu::kCreate) return IsBsdThere();
    return true;
}

void RunCommand(uint16_t id) {
    if (id >= ME_FileRecent && id < ME_FileRecent + kRecentCount) return RunRecent(id);
    const Command* command = FindCommand(id);
    if (command == nullptr || shell.locked || !IsEnabled(*command)) return;
    const HelpAbout running(id);
    if (NeedsDatabase(*command)) RefreshWhenChanged();
    // What it needs may have gone with another program's change, which the status line says.
    if (!IsEnabled(*command)) return;
    ShowNextStep();
    const std::string_view name = command->name;
    Log(LogKind::kCommand, std::wstring(name.begin(), name.end()));
    command->run();
}

const wchar_t* MenuCaption(Menu menu) {
    static constexpr const wchar_t* kCaptions[kMenuCount] = {
        L"&File", L"Ed&it", L"&View", L"&BSD", L"&Create", nullptr, L"&Help"};
    const wchar_t* caption = kCaptions[static_cast<size_t>(menu)];
    return caption != nullptr ? caption : SectionMenuCaption(ModelKind::kSection);
}

const wchar_t* SectionMenuCaption(ModelKind kind) {
    return FactsOf(kind).menuCaption;
}

void NotImp() {
    reportView.showPlainBox(GetMessage(kMsgNotImplemented));
}

}  // namespace corvane
