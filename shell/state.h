// The state of the process: one record, and nothing else in the program is global but what the
// reporters, the keeper of old texts (files/rewrite.h) and the companion libraries are called
// through.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/log_file.h"
#include "shell/edit_history.h"
#include "shell/help_pages.h"
#include "shell/open_database.h"
#include "shell/preview_pane.h"
#include "shell/printing.h"
#include "shell/settings.h"
#include "shell/shown_list.h"
#include "shell/view.h"
#include "shell/window_place.h"

namespace corvane {

struct ShellState {
    bool debugMode = false;  // switch "/d"
    bool milMode = false;    // switch "/mil", rule set "QUOR MIL"
    bool jbpMode = false;    // switch "/JBP", rule set "CSR for BC"
    bool childRunning = false;
    // The main window accepts no commands; see LockShell.
    bool locked = false;
    // While the Open dialog is up and while a model is being created; the import dialog's list
    // accepts no clicks then.
    bool suppressListEvents = false;

    // The application's title, with the rule set's suffix " JBP" or " MIL".
    std::wstring title = L"Corvane";
    // The current directory when Main began, restored at shutdown.
    std::wstring startDirectory;

    LogFile log;                    // see shell/program_log.h
    std::wstring restartArguments;  // see shell/restart.h

    std::vector<std::wstring> reportedLeftOvers;  // paths; see shell/left_overs.h

    // What F1 in a box is about (shell/help_pages.h).
    uint16_t helpAbout = kHelpContents;
    std::wstring lastWarning;  // the text of the box that was shown last

    std::vector<std::wstring> recent;  // databases, the last one first; shell/recent_databases.h

    WindowPlace windowPlace;  // as the user left the window at the end of the last run

    ShellSettings settings;
    OpenDatabase database;  // changed by shell/open_database.h alone
    ShownList list;         // changed by shell/shown_list.h alone
    PreviewPane preview;    // changed by shell/preview_pane.h alone
    PageChoice pages;       // changed by shell/page_preview.h alone
    EditHistory history;    // changed by shell/edit_history.h alone

    View view;
    // The main window's handle, for the user interface alone; null without a window.
    void* mainWindow = nullptr;
};

extern ShellState shell;

// From now on `view` is what the program shows itself through, its reporters included.
void UseView(const View& view);

// Keeps the user from the window's commands while a program of the suite runs, and gives them back;
// the window continues to paint itself.
void LockShell(bool locked);
// The window is locked for as long as this lives: on every way out, by a fault too, it is given
// back.
class ShellLock {
public:
    ShellLock() { LockShell(true); }
    ~ShellLock() {
        shell.childRunning = false;
        LockShell(false);
    }
    ShellLock(const ShellLock&) = delete;
    ShellLock& operator=(const ShellLock&) = delete;
};

}  // namespace corvane
