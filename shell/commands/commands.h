// The commands of the program, in one table: identifier, caption, key, what it does, and when it
// can be chosen. Menus, buttons and keys of the main window follow from it.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "database/model_kind.h"
#include "shell/commands/keys.h"

namespace corvane {

// What the enabling of a command asks of the program's state.
enum class EnabledWhen {
    kAlways,
    kDatabaseOpen,    // a database path is set
    kBsdDefined,      // and its Basic Ship Data are valid
    kModelSelected,   // at least one line of the list is selected
    kOneSelected,     // and no other
    kUndoThere,       // the history has an edit to undo
    kRedoThere,       // and one that was undone
    kPictureShown,    // the preview shows a picture
    kBulkheadsShown,  // of a bulkhead arrangement
    kSampleThere      // the sample ship is beside the program
};

// The top menus, from left to right; a command of kNone is in no menu, only its key runs it.
enum class Menu { kFile, kEdit, kView, kBsd, kCreate, kSection, kHelp, kNone };
inline constexpr int kMenuCount = static_cast<int>(Menu::kNone);

struct Command {
    uint16_t id;  // 0: a separator
    Menu menu;
    const char* name;  // the item's name, for tests and tools
    const wchar_t* caption;
    EnabledWhen enabledWhen;
    void (*run)();  // null for a separator
    Key key = {};
    bool (*isChecked)() = nullptr;  // whether the item has a check mark; null: never
};

// Identifiers of menu items, in the order of the menus.
enum CommandId : uint16_t {
    ME_FileNew = 100,
    ME_FileOpen,
    ME_FileSaveAs,
    ME_FileSaveLegacy,
    ME_FileQuit,
    ME_FileVersions,
    ME_FileExportList,
    ME_FileExportPicture,
    ME_FilePrint,
    ME_FilePrintAll,
    ME_FileExportAllPictures,
    ME_FileCheck,
    ME_FileCompare,
    ME_FileSettings = 118,
    ME_FileBSD = 120,
    ME_FileImportBSD,
    ME_SectionNew = 140,
    ME_NewBulkhead,
    ME_NewTorsion,
    ME_SectionInput = 160,
    ME_SectionVelkRule,
    ME_SectionCopy,
    ME_SectionRemove,
    ME_SectionImport,
    ME_SectionExport,
    ME_SectionRename,
    ME_SectionProperties,
    ME_HelpAbout = 180,
    ME_HelpSample,
    ME_HelpContents,
    ME_HelpDetails,
    ME_HelpLog,
    ME_EditUndo = 200,
    ME_EditRedo,
    ME_EditFind,
    ME_EditSelectAll,
    ME_EditCopyList,
    ME_EditCopyPicture,
    ME_ViewSortName = 220,
    ME_ViewSortX,
    ME_ViewSortNumber,
    ME_ViewSortKind,
    ME_ViewSortFrame,
    ME_ViewFileOrder,
    ME_ViewDescending,
    ME_ViewRefresh,
    ME_ViewZoomIn,
    ME_ViewZoomOut,
    ME_ViewFit,
    ME_ViewLarger,
    ME_ViewScaleBar,
    ME_ViewAxes,
    ME_ViewLegend,
    ME_ViewNames,
    ME_ViewNumbers,
    ME_ViewThickness,
    ME_ViewTable,
    ME_ViewNextBulkhead,
    ME_NextPane = 240,
    ME_PreviousPane,
    ME_SortByNext,
    ME_SortByPrevious,
    ME_SortUp,
    ME_SortDown,
    // The recent databases, kRecentCount of them (shell/recent_databases.h); not in the table.
    ME_FileRecent = 300,
};

std::span<const Command> Commands();
// The command of an identifier; null for one that no command has.
const Command* FindCommand(uint16_t id);
// The command of a key, wherever it acts; null when no command has it.
const Command* FindCommand(const Key& key);

bool IsEnabled(const Command& command);
// What a command that cannot be chosen now waits for; empty for one that can.
std::wstring WhyDisabled(const Command& command);
// The caption as menus show it now: "&Undo" is followed by what it would undo, and after a tab
// comes the key.
std::wstring CaptionNow(const Command& command);
// Whether a top menu opens at all.
bool IsMenuEnabled(Menu menu);
// Runs a command that can be chosen now; nothing happens with any other, with an unknown identifier
// and while the window is locked.
void RunCommand(uint16_t id);

// Captions of the top menus; that of the Section menu follows the selected model's kind: its name,
// with a keyboard letter that no other top menu has.
const wchar_t* MenuCaption(Menu menu);
const wchar_t* SectionMenuCaption(ModelKind kind);

// Shows the user that a command does not exist in this version.
void NotImp();

}  // namespace corvane
