// What the boxes FM_Export and FM_Inport show and ask, decided without a window. The boxes convert
// nothing: the commands do, with what the boxes return.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/model_kind.h"
#include "database/scanning.h"
#include "database/section.h"

namespace corvane {

struct PreviewPane;  // shell/preview_pane.h

// What FM_Export returns.
struct ExportChoice {
    std::wstring path;      // of an existing legacy database, absolute
    bool createNew = true;  // OP_CreateNew; else the section in `slot` is replaced
    int16_t slot = 0;       // from 1
    // TX_Name: proposed by the caller; then the name that a new section gets.
    std::wstring name;
    // How many sections are exported. With more than one they become new ones, with their own
    // names.
    int sections = 1;
    // The section that is exported, of several the first one, for the preview.
    SectionModel section = {};
    std::wstring room = {};  // whether a DOS database has room for all of it
};

// An item of LI_Sections in either box.
struct ExchangeItem {
    std::wstring text;  // as the list shows it
    int32_t number =
        0;  // slot of a legacy database, from 1; of a model database the model's number
    ModelKind kind = ModelKind::kSection;
    BlockPlace place = number;  // of a model database
    // Position [m]; -1 of a torsion model, of a legacy section, and where the number does not lead
    // to the model.
    float x_m = -1;
    // The same model, wherever its block is now.
    bool operator==(const ExchangeItem& other) const {
        return text == other.text && number == other.number && kind == other.kind;
    }
};

// What FM_Inport returns: the items that are selected, in the order of the list. None only
// when the box accepts a file without sections.
struct ImportChoice {
    std::wstring path;  // absolute
    std::vector<ExchangeItem> items;
    std::wstring name = {};  // of the file, for the user; empty: its path
};

// Whether a path names a legacy database: by its extension, "vel".
bool IsLegacyDatabase(const std::wstring& path);

// The sections of a legacy database, those beyond the 20 that the library lists with their numbers
// in front, as far as it can be asked for them; or the models of a model database, with
// " (bulkhead)" and " (torsion)" after the names of those that are not sections. What cannot be
// read is reported; the list is empty then.
std::vector<ExchangeItem> ListForExchange(const std::wstring& path);
// The same; false when the user has cancelled, which is noted in the status line.
bool ListForExchange(const std::wstring& path, std::vector<ExchangeItem>& items);

// What LI_Sections shows of a file: its items, or why there are none.
struct ExchangeList {
    std::vector<ExchangeItem> items;
    std::wstring hint;  // empty while there are items
    std::wstring ship;  // what distinguishes the file's ship from that of the open database
};
// The open database itself is refused: a hint says so.
ExchangeList ListOfFile(const std::wstring& path);

// What OK requires: a selection in the list, and a chosen file. What is missing is shown.
bool RequireSelection(bool isThere);
bool RequireChosenFile(const std::wstring& path);

// File types of the import box's Browse prompt, for the pattern of its list of files.
std::wstring BrowseTypes(const std::wstring& pattern);

// Reads the section or the bulkhead arrangement of an item into a pane (shell/preview_pane.h), and
// the ship's data of its file, which are fresh when a model database has none. False when it could
// not be read, which is reported, and for a torsion model.
bool ReadForExchange(const std::wstring& path, const ExchangeItem& item, PreviewPane& pane,
                     BasicShipData& bsd);

// LB_Service: the ship's display name and, in brackets, the name of its type.
std::wstring ServiceText(const BasicShipData& bsd);

}  // namespace corvane
