// The commands of the main window's menus, in one table: identifier, caption, what it does, and
// when it can be chosen.
#pragma once

#include <cstdint>
#include <span>

#include "database/model_kind.h"

namespace corvane {

// What the enabling of a command asks of the program's state.
enum class EnabledWhen {
    kAlways,
    kDatabaseOpen,  // a database path is set
    kBsdDefined,    // and its Basic Ship Data are valid
    kModelSelected  // a row of the list is selected
};

// The top menus, from left to right.
enum class Menu { kFile, kBsd, kCreate, kSection, kHelp };
inline constexpr int kMenuCount = 5;

struct Command {
    uint16_t id;  // 0: a separator
    Menu menu;
    const char* name;  // the item's name, for tests and tools
    const wchar_t* caption;
    EnabledWhen enabledWhen;
    void (*run)();  // null for a separator
};

// Identifiers of menu items, in the order of the menus.
enum CommandId : uint16_t {
    ME_FileNew = 100,
    ME_FileOpen,
    ME_FileSaveAs,
    ME_FileSaveLegacy,
    ME_FileQuit,
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
    ME_HelpAbout = 180,
};

std::span<const Command> Commands();
const Command* FindCommand(uint16_t id);

// Captions of the top menus; that of the Section menu follows the selected model's kind: its name,
// with a keyboard letter that no other top menu has.
const wchar_t* MenuCaption(Menu menu);
const wchar_t* SectionMenuCaption(ModelKind kind);

}  // namespace corvane
