// What only a screen or a user can do: one record of procedures. The user interface fills it in at
// start, tests fill it with a fake; nobody else knows a window. A procedure that nobody filled in
// does nothing and answers no.
//
// A procedure decides nothing: what is shown when, and what an answer means, is up to the caller.
// All of them are called on the one thread of the program. Those of the main window do nothing
// before it is made and after its end.
#pragma once

#include <string>
#include <vector>

#include "database/model_kind.h"
#include "platform/system.h"
#include "report/reporters.h"

namespace corvane {

struct Comparison;    // shell/comparison.h
struct ExportChoice;  // shell/exchange_boxes.h
struct Figure;        // preview/figure.h
struct ImportChoice;
struct PicturesChoice;  // shell/all_pictures.h
struct PrintJob;        // shell/printing.h
struct Report;          // shell/report.h
struct Screen;          // shell/report_details.h
struct SettingsChoice;  // shell/settings_choice.h
struct StatusParts;     // shell/status_parts.h
struct VersionChoice;   // shell/edit_history.h
struct WindowPlace;     // shell/window_place.h

// What a start asks for on its command line.
struct StartRequest {
    std::wstring file;   // absolute path of the file to open; empty: none
    bool check = false;  // whether its check is to be shown
};

// What became of a second start.
enum class HandOver {
    kNoWindow,      // the running instance shows no window
    kDone,          // it is in front, and has the file, if there is one
    kFileNotTaken,  // it is in front, but does not take the file
};

struct View {
    // Status label, boxes, pointer: what the reporters need.
    ReportView report;

    // ---- Questions: modal boxes that return when the user has closed them ----------------------

    bool (*askYesNo)(const std::wstring& text) = [](const std::wstring&) { return false; };
    // For what cannot be undone: No is the button that Enter presses.
    bool (*askIrreversible)(const std::wstring& text) = [](const std::wstring&) { return false; };
    // Cancel is the button that Enter presses.
    bool (*askOkCancel)(const std::wstring& text) = [](const std::wstring&) { return false; };
    // An input box: `answer` is proposed, and becomes what the user typed. False when the user
    // cancelled.
    bool (*askText)(const std::wstring& caption, const std::wstring& question,
                    std::wstring& answer) = [](const std::wstring&, const std::wstring&,
                                               std::wstring&) { return false; };
    // FM_Export and FM_Inport: false when the user cancelled. The proposed name is in `choice`.
    bool (*askExport)(ExportChoice& choice) = [](ExportChoice&) { return false; };
    bool (*askImport)(ImportChoice& choice) = [](ImportChoice&) { return false; };
    // Earlier versions: true when the chosen one is to replace the database.
    bool (*askVersion)(VersionChoice& choice) = [](VersionChoice&) { return false; };
    // Settings: true when the user wants those that are in `choice` then.
    bool (*askSettings)(SettingsChoice& choice) = [](SettingsChoice&) { return false; };
    // The system's prompt for a folder, which begins in `folder`; false when the user cancelled.
    bool (*askFolder)(const std::wstring& title, std::wstring& folder) =
        [](const std::wstring&, std::wstring&) { return false; };
    // A box with lines "label tab value", ended by carriage returns, that can be copied.
    void (*showProperties)(const std::wstring& caption, const std::wstring& text) =
        [](const std::wstring&, const std::wstring&) {};
    // The box of a report; true when its own button closed it.
    bool (*showReport)(Report& report) = [](Report&) { return false; };
    // The box of a comparison (shell/comparison_box.h).
    void (*showComparison)(Comparison& comparison) = [](Comparison&) {};
    // Opens a file in the program that the system has for it; the error of a system that cannot.
    system::ErrorNumber (*openDocument)(const std::wstring& path) = [](const std::wstring&) {
        return system::kErrorNone;
    };
    // Puts a text on the clipboard, and with it the same as HTML in the clipboard's form; empty:
    // none. False while another program uses the clipboard.
    bool (*copyText)(const std::wstring& text, const std::string& html) =
        [](const std::wstring&, const std::string&) { return false; };
    // Writes a figure in its true size as an enhanced metafile, or with 300 dots per inch as a PNG
    // file, which may be there already; the system's error.
    system::ErrorNumber (*writeMetafile)(const Figure& figure, const std::wstring& path) =
        [](const Figure&, const std::wstring&) { return system::kErrorNone; };
    system::ErrorNumber (*writePng)(const Figure& figure, const std::wstring& path) =
        [](const Figure&, const std::wstring&) { return system::kErrorNone; };
    // Puts a figure on the clipboard, as a metafile and as a bitmap; false while another program
    // uses the clipboard.
    bool (*copyPicture)(const Figure& figure) = [](const Figure&) { return false; };
    // The page preview, and from there the system's print dialog and PrintDocument on the printer
    // that the user chose; only with a document of one page or more.
    void (*previewPages)(const PrintJob& job) = [](const PrintJob&) {};
    // The box of File > Export all pictures: false when the user cancelled.
    bool (*askPictures)(PicturesChoice& choice) = [](PicturesChoice&) { return false; };
    // The box FM_About; `heading` is its version line.
    void (*showAbout)(const std::wstring& heading) = [](const std::wstring&) {};

    // ---- Windows -------------------------------------------------------------------------------

    // The main window FM_Main: made without being shown; shown; closed as the user does, which then
    // shuts the program down.
    void (*loadMainWindow)() = [] {};
    void (*showMainWindow)() = [] {};
    void (*closeMainWindow)() = [] {};
    // Where the main window is, and how it looks; without a window nothing is changed.
    void (*noteWindowPlace)(WindowPlace& place) = [](WindowPlace&) {};
    void (*setMainCaption)(const std::wstring& caption) = [](const std::wstring&) {};
    // The splash window FM_Load, shown on top of all windows.
    void (*showSplash)(const std::wstring& title) = [](const std::wstring&) {};
    // The screen that the main window is on; without a window nothing is changed.
    void (*noteScreen)(Screen& screen) = [](Screen&) {};
    // What follows the program's name when the system starts it again after a crash, or after an
    // update of the system.
    void (*setRestart)(const std::wstring& arguments) = [](const std::wstring&) {};
    // A database for the system's lists of recent files.
    void (*addToSystemsRecent)(const std::wstring& path) = [](const std::wstring&) {};
    // Brings the instance of this program file that runs already to the front, and hands it the
    // file that it is to open, if there is one. It has two seconds to show its main window.
    HandOver (*handToRunningInstance)(const StartRequest& request) = [](const StartRequest&) {
        return HandOver::kNoWindow;
    };

    // ---- The main window -----------------------------------------------------------------------

    void (*setDatabaseText)(const std::wstring& text) = [](const std::wstring&) {};  // TX_DataBase
    // The status bar's parts beside its message.
    void (*showStatusParts)(const StatusParts& parts) = [](const StatusParts&) {};
    // LI_Sections: so many lines, none of them selected. What is in a line, and in which order they
    // are, is asked for (shell/shown_list.h).
    void (*setLines)(int count) = [](int) {};
    void (*setModelCount)(const std::wstring& text) = [](const std::wstring&) {};  // LB_Count
    // Above the list: why its rows, greyed, are those that were read last. Empty: they are not.
    void (*showWhyGone)(const std::wstring& why) = [](const std::wstring&) {};
    // 0 is the topmost line; -1 none.
    void (*selectLine)(int line) = [](int) {};
    // Of several lines that are selected, the one that has the focus, if it is one of them, else
    // the topmost.
    int (*selectedLine)() = [] { return -1; };
    int (*selectedCount)() = [] { return 0; };
    std::vector<int> (*selectedLines)() = [] { return std::vector<int>(); };  // from the top
    void (*selectAllLines)() = [] {};
    void (*focusList)() = [] {};
    void (*focusFilter)() = [] {};  // TX_Filter, all of its text selected
    // Gives the focus to the next part of the window, or to the one before, around its end.
    void (*focusPane)(bool forward) = [](bool) {};

    bool (*isPreviewOn)() = [] { return false; };  // OP_Preview
    void (*redrawPreview)() = [] {};               // PIC_Section, through DrawPreview
    // Empties PIC_Section, and shows in it why; an empty text shows nothing.
    void (*clearPreview)(const std::wstring& why) = [](const std::wstring&) {};
    // What part of the section PIC_Section shows: around its middle, or all of it.
    void (*zoomPreview)(bool isLarger) = [](bool) {};
    void (*fitPreview)() = [] {};
    // Shows again what is switched on over the section in PIC_Section.
    void (*annotatePreview)() = [] {};
    // PIC_Section alone in the window, or beside the list.
    void (*showLargerPreview)(bool isLarge) = [](bool) {};
    void (*setPositionText)(const std::wstring& text) = [](const std::wstring&) {};  // LB_X
    void (*setFrameText)(const std::wstring& text) = [](const std::wstring&) {};     // LB_Frame
    void (*setSectionMenuCaption)(const std::wstring& text) = [](const std::wstring&) {};

    // OP_Rule: the option that is set, 0 to 2, and setting one; RuleSetChosen is up to the caller.
    int (*selectedRule)() = [] { return 0; };
    void (*selectRule)(int index) = [](int) {};
    // BT_Open and BT_Rule: offsets, visibility and pictures for a model kind and the rule set.
    void (*showModelButtons)(ModelKind kind) = [](ModelKind) {};
    void (*redrawRuleButton)() = [] {};  // BT_Rule's picture, for the rule set

    // Disables all controls and menus, and enables them again.
    void (*setLocked)(bool locked) = [](bool) {};
    // Asks IsEnabled for every command, IsMenuEnabled for every menu, IsDatabaseOpen for the list.
    void (*updateEnabling)() = [] {};
};

}  // namespace corvane
