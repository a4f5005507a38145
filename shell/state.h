// The state of the process: one record, and nothing else in the program is global.
#pragma once

#include <cstdint>
#include <string>

#include "bsd/basic_ship_data.h"
#include "database/section.h"
#include "report/messages.h"
#include "shell/screen.h"
#include "shell/settings.h"

namespace corvane {

struct MainWindow;  // shell/window_contents.h

struct ShellState {
    bool debugMode = false;  // switch "/d"
    bool milMode = false;    // switch "/mil", rule set "QUOR MIL"
    bool jbpMode = false;    // switch "/JBP", rule set "CSR for BC"
    bool childRunning = false;
    // While the Open dialog is up and while a model is being created; the import dialog's list
    // takes no clicks then.
    bool suppressListEvents = false;

    // The application's title, with the rule set's suffix " JBP" or " MIL".
    std::wstring title = L"Corvane";
    // The current directory when Main began, restored at shutdown.
    std::wstring startDirectory;

    ShellSettings settings;
    // The Basic Ship Data of the open database.
    BasicShipData bsd;
    // Number of the selected model, 1 the first; 0 none; -1 and -2 while a bulkhead arrangement or
    // a torsion model is being created.
    int16_t currentModel = 0;

    // The section in the preview, as it was read when its row was selected.
    SectionModel previewSection;
    bool previewShown = false;

    Screen screen;
    // What the main window can do; null while there is none.
    const MainWindow* mainWindow = nullptr;
};

extern ShellState shell;

}  // namespace corvane
