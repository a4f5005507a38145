// Printing through the system: its dialog, and the printer that the user chooses in it.
#pragma once

#include "platform/win32/win32.h"
// windows.h must come first.
#include <commdlg.h>

#include "shell/printing.h"

namespace corvane {

// The printer, as the system's dialog keeps it: at first the default one, then the one that the
// user chose. The device context and the memory are gone with the record.
struct PrinterChoice {
    PRINTDLGW dialog{};

    PrinterChoice() = default;
    ~PrinterChoice();
    PrinterChoice(const PrinterChoice&) = delete;
    PrinterChoice& operator=(const PrinterChoice&) = delete;
};

// Takes the default printer, if there is one, without a dialog.
void TakeDefaultPrinter(PrinterChoice& choice);
// Turns the printer's paper, and returns it; without a printer it is UsualPaper.
Paper TurnPaper(PrinterChoice& choice, bool isPortrait);

// Asks for the printer and the pages, and for the file when it is to be one, and prints them, while
// the main window accepts no commands. What hinders the dialog is reported.
PrintEnd PrintThroughSystem(const PrintJob& job, PrinterChoice& choice);

// ---- The same, of a device ---------------------------------------------------------------------

// A device context as the system describes it, or another one.
struct PrintDevice {
    HDC dc;
    int across, down;     // dots per inch
    POINT unprintable{};  // from the corner of the paper to that of what can be printed [dots]
};
PrintDevice DeviceOf(HDC dc);
// What a device prints on: the paper of a printer, or all of another device.
Paper PaperOf(const PrintDevice& device);
// A figure as large as the paper, at its true size.
void DrawPage(const PrintDevice& device, const Figure& page);

}  // namespace corvane
