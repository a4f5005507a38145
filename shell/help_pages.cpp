#include "shell/help_pages.h"

#include <algorithm>

#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/recent_databases.h"
#include "shell/state.h"

namespace corvane {
namespace {

// Pages that are about more than one thing.
constexpr std::wstring_view kWindow = L"the-window";
constexpr std::wstring_view kCreate = L"3-create-a-section";
constexpr std::wstring_view kCopy = L"4-copy-it";
constexpr std::wstring_view kRules = L"6-check-it-against-the-rules";
constexpr std::wstring_view kEdit = L"7-edit-it";
constexpr std::wstring_view kLists = L"long-lists";
constexpr std::wstring_view kPictures = L"pictures-for-reports-and-drawings";
constexpr std::wstring_view kFiles = L"files";
constexpr std::wstring_view kExchange = L"exchange-models-with-other-databases";
constexpr std::wstring_view kPicture = L"the-picture";
constexpr std::wstring_view kUndo = L"undo-and-earlier-versions";
constexpr std::wstring_view kHelp = L"help";

struct HelpPage {
    uint16_t about;
    std::wstring_view name;
};
constexpr HelpPage kHelpPages[] = {
    {kHelpPath, kFiles},
    {kHelpList, kLists},
    {kHelpFilter, kLists},
    {kHelpPreview, kPicture},
    {kHelpRuleSet, kRules},
    {kHelpWarning, L"when-corvane-refuses-a-command"},
    {kHelpStandIns, L"stand-ins"},
    {ME_FileNew, L"1-create-a-database"},
    {ME_FileOpen, kFiles},
    {ME_FileSaveAs, kFiles},
    {ME_FileSaveLegacy, kExchange},
    {ME_FileQuit, kEdit},
    {ME_FileVersions, kUndo},
    {ME_FileCheck, L"check-a-database"},
    {ME_FileCompare, L"compare-databases"},
    {ME_FileExportList, kLists},
    {ME_FileExportPicture, kPictures},
    {ME_FileExportAllPictures, kPictures},
    {ME_FilePrint, kPictures},
    {ME_FilePrintAll, kPictures},
    {ME_FileSettings, L"settings"},
    {ME_FileBSD, L"2-enter-the-basic-ship-data"},
    {ME_FileImportBSD, kFiles},
    {ME_SectionNew, kCreate},
    {ME_NewBulkhead, kCreate},
    {ME_NewTorsion, kCreate},
    {ME_SectionInput, kEdit},
    {ME_SectionVelkRule, kRules},
    {ME_SectionCopy, kCopy},
    {ME_SectionRemove, L"5-delete-the-copy"},
    {ME_SectionImport, kExchange},
    {ME_SectionExport, kExchange},
    {ME_SectionRename, kCopy},
    {ME_SectionProperties, kCopy},
    {ME_HelpAbout, kHelp},
    {ME_HelpSample, kWindow},
    {ME_HelpContents, kHelp},
    {ME_HelpDetails, kHelp},
    {ME_HelpLog, L"log-and-crashes"},
    {ME_EditUndo, kUndo},
    {ME_EditRedo, kUndo},
    {ME_EditFind, kLists},
    {ME_EditSelectAll, kLists},
    {ME_EditCopyList, kLists},
    {ME_EditCopyPicture, kPictures},
    {ME_ViewSortName, kLists},
    {ME_ViewSortX, kLists},
    {ME_ViewSortNumber, kLists},
    {ME_ViewSortKind, kLists},
    {ME_ViewSortFrame, kLists},
    {ME_ViewFileOrder, kLists},
    {ME_ViewDescending, kLists},
    {ME_ViewRefresh, kFiles},
    {ME_ViewZoomIn, kPicture},
    {ME_ViewZoomOut, kPicture},
    {ME_ViewFit, kPicture},
    {ME_ViewLarger, kPicture},
    {ME_ViewScaleBar, kPicture},
    {ME_ViewAxes, kPicture},
    {ME_ViewLegend, kPicture},
    {ME_ViewNames, kPicture},
    {ME_ViewNumbers, kPicture},
    {ME_ViewThickness, kPicture},
    {ME_ViewTable, kPictures},
    {ME_ViewNextBulkhead, kPicture},
    {ME_NextPane, kWindow},
    {ME_PreviousPane, kWindow},
    {ME_SortByNext, kLists},
    {ME_SortByPrevious, kLists},
    {ME_SortUp, kLists},
    {ME_SortDown, kLists},
    {ME_FileRecent, kFiles},
};

}  // namespace

std::wstring_view HelpPageName(uint16_t about) {
    if (about >= ME_FileRecent && about < ME_FileRecent + kRecentCount) about = ME_FileRecent;
    const auto* found = std::ranges::find(kHelpPages, about, &HelpPage::about);
    return found == std::end(kHelpPages) ? std::wstring_view(L"index") : found->name;
}

std::wstring HelpPagePath(uint16_t about) {
    const std::wstring folder = WithTrailingBackslash(DirectoryOf(system::ProgramPath()));
    return folder + L"help\\" + std::wstring(HelpPageName(about)) + L".html";
}

void ShowHelp(uint16_t about) {
    if (shell.helpAbout == kHelpIsOpening) return;
    const HelpAbout opening(kHelpIsOpening);
    const std::wstring path = HelpPagePath(about);
    if (!FileExists(path)) return ReportMessage(kMsgHelpPageMissing, {path});
    const system::ErrorNumber error = shell.view.openDocument(path);
    if (error == system::kErrorNone) return;
    ReportMessage(kMsgHelpPageNotOpened, {path, SystemError{error}});
}

HelpAbout::HelpAbout(uint16_t about) : before_(shell.helpAbout) {
    if (before_ != kHelpIsOpening) shell.helpAbout = about;
}

HelpAbout::~HelpAbout() {
    shell.helpAbout = before_;
}

}  // namespace corvane
