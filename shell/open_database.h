// The open database, one thing: its path, its ship record, the rows that the list shows, and the
// current model. Whatever changes one of them is a procedure of this module; everybody else reads.
//
// The database itself stays in its file: every list, preview and command reads the file, and every
// edit rewrites it, so another program of the suite may change it between two commands. A row has
// the number of the model that the file had there when the list was filled, and commands go by it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "database/listing.h"
#include "shell/model_list.h"

namespace corvane {

struct OpenDatabase {
    std::wstring path;           // absolute; empty: no database is open
    BasicShipData bsd;           // its ship record; fresh where the file has none
    std::vector<ModelRow> rows;  // as RefreshMainWindow listed them last
    bool isListed = false;       // whether the rows are those of this database
    system::FileStamp stamp;     // of the file when it was listed
    bool isReadOnly = false;     // an edit of the file would be refused
    std::wstring whyGone;        // what the user reads while the file cannot be reached; else empty
    bool isSlow = false;         // the last look at the file took long
    // Number of the selected model, that of its block; 0 none yet. It stays when no line is
    // selected: after the last model was deleted no row has it.
    int32_t currentModel = 0;
    // Where its block was when it was selected. It distinguishes rows that have one number.
    int64_t currentOffset = 0;
    bool isModelShown = false;  // the current one, in the preview, the labels and the menu
    // No line is selected because none shows the current model; one is when the model is shown
    // again.
    bool isCurrentHidden = false;
};

bool IsDatabaseOpen();

// ---- Another database, or another part of it ---------------------------------------------------

// Makes a database the open one, with its first model as the current one. The window shows it at
// the next RefreshMainWindow.
void AdoptDatabase(const std::wstring& path, const BasicShipData& bsd);
// The same, and shows it. When the user cancels the listing of its models, what was open stays so.
void ShowDatabase(const std::wstring& path, const BasicShipData& bsd);
// AdoptDatabase with the ship record that the file has.
void LoadDatabase(const std::wstring& path);

// A byte-for-byte copy of the open database becomes the open one.
void ContinueInCopy(const std::wstring& path);
// Another file, to which the user took a read-only database for an edit, becomes the open one, and
// its folder BrowseDirectory. The ship record is read from it.
void ContinueInWritableFile(const std::wstring& path);

void AdoptShipRecord(const BasicShipData& bsd);
// Reads the ship record again. While the file cannot be read the record stays as it is.
void ReadShipRecordAgain(NoBlock noBlock = NoBlock::kWarns);

// The blocks of the models as they were listed last.
BlockNumbers ListedBlocks();

void SetCurrentModel(int32_t number);
// The database's last model becomes the current one.
void SelectLastModelNext();

// ---- The window's view of it -------------------------------------------------------------------

// Rebuilds everything that the window shows from the file and the state of the process. The current
// model's row is selected when there is one, as by a click. When the user cancels, the list stays
// as it was; that of a database that was not shown yet is not opened.
void RefreshMainWindow();

// Compares the file with the one that was listed: one look at its stamp, no reading. Where another
// program has changed it, models and ship record are read again, and the selected model stays
// selected under whatever number it has now; where that model is no longer there, none is. While
// the file cannot be reached, the rows stay, greyed, with a line that says so; while another
// program writes it, they stay as they are, and the status line says so. Called before each command
// that needs the database.
void RefreshWhenChanged();
// The same when the window is activated: not after a look that took long, as one at a drive that is
// not connected does.
void RefreshOnActivation();
// The same, read again even if nothing has changed, as the user wants it.
void RefreshAtOnce();
// The same after an edit that leaves all models in their places, but may have given them other
// numbers and identifiers.
void RefreshAfterRepair();

// The status line between two commands: what is to be done next while there is no database or no
// valid ship record, otherwise empty. A red line, and one that reported a success, is cleared.
void ShowNextStep();

// The list in another order, or with another filter. The selected model stays selected; one that
// is no longer shown is selected again when it is.
void ShowLinesAgain();

// A line of the list was clicked or reached by the keyboard: its model becomes the current one, and
// preview, labels, buttons and the Section menu follow it.
void SelectLine(int line);
// What is selected has changed by more than that: several lines, or another one of them. The model
// of the line that has the focus becomes the current one.
void ShowSelection();
// The selected line is shown again, after the preview was switched on or off.
void ShowSelectedLineAgain();
// No line is selected: preview and labels are empty, and the Section menu has its own name again.
// The current model's number stays.
void DeselectModel();
bool IsLineSelected();

// Title - file name - ship name, and a mark where the file cannot be changed; the title alone
// without a database. The ship's name is stored back trimmed.
std::wstring MainWindowCaption();

// ---- What a command requires -------------------------------------------------------------------

// The open database's file can be read; a missing one is reported (message 1020). False without a
// message when no database is open.
bool RequireDatabase();

// The open database may be changed; a read-only file is reported (message 1086).
bool RequireWritableDatabase();
// A file is another one than the open database; reported when it is the same.
bool RequireOtherFile(const std::wstring& path);

// The model of this number in a database's list. False when no model has it, and when it does not
// lead to one model alone, which is reported (1011, 3522).
bool RequireModel(const std::vector<ModelEntry>& models, int32_t number, const std::wstring& path,
                  ModelEntry& model);

// The current model as the file has it now. False, and reported, when the open database is missing,
// or has no such model; the list is then read again.
bool RequireCurrentModel(ModelEntry& model);

// The current model is still the one that the user was asked about; reported when not.
bool RequireUnchanged(const ModelEntry& asked);

}  // namespace corvane
