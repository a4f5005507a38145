#include "ui/dialogs/print_dialog.h"

// windows.h must come first.
#include <cderr.h>
#include <winspool.h>

#include <algorithm>
#include <string_view>

#include "report/reporters.h"
#include "shell/page_preview.h"
#include "shell/state.h"
#include "ui/base/own_window.h"
#include "ui/pictures/figure_player.h"

namespace corvane {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kLeastMargin_mm = 10;

// ---- The system's dialog, bound late -----------------------------------------------------------

struct SystemLibrary {
    HMODULE module;

    explicit SystemLibrary(const wchar_t* name)
        : module(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {}
    ~SystemLibrary() {
        if (module != nullptr) FreeLibrary(module);
    }
    SystemLibrary(const SystemLibrary&) = delete;
    SystemLibrary& operator=(const SystemLibrary&) = delete;

    template <class Signature>
    Signature* Function(const char* name) const {
        return module == nullptr ? nullptr : AsFunction<Signature>(GetProcAddress(module, name));
    }
};

constexpr system::ErrorNumber kNoPrinters = 3012;
constexpr system::ErrorNumber kPrinterNotUsable = 1801;

// Without printers some systems show their dialog all the same.
bool HasPrinter() {
    const SystemLibrary spooler(L"winspool.drv");
    const auto enumPrinters = spooler.Function<decltype(::EnumPrintersW)>("EnumPrintersW");
    if (enumPrinters == nullptr) return true;
    DWORD size = 0, count = 0;
    enumPrinters(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 4, nullptr, 0, &size,
                 &count);
    return size > 0;
}

// The system's error of a dialog that did not come up.
system::ErrorNumber ErrorOfDialog(DWORD extended) {
    const bool areNone = extended == PDERR_NODEFAULTPRN || extended == PDERR_NODEVICES;
    return areNone ? kNoPrinters : kPrinterNotUsable;
}

// Shows the dialog with what the record has; kErrorCancelled when the user closed it.
system::ErrorNumber RunPrintDialog(PRINTDLGW& dialog) {
    if (!HasPrinter()) return kNoPrinters;
    const SystemLibrary dialogs(L"comdlg32.dll");
    const auto printDialog = dialogs.Function<decltype(::PrintDlgW)>("PrintDlgW");
    const auto extendedError =
        dialogs.Function<decltype(::CommDlgExtendedError)>("CommDlgExtendedError");
    if (printDialog == nullptr || extendedError == nullptr) return system::kErrorProcedureNotFound;
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = DialogOwner();
    if (printDialog(&dialog) != FALSE) return system::kErrorNone;
    const DWORD extended = extendedError();
    return extended == 0 ? system::kErrorCancelled : ErrorOfDialog(extended);
}

void DropDevice(PRINTDLGW& dialog) {
    if (dialog.hDC != nullptr) DeleteDC(dialog.hDC);
    dialog.hDC = nullptr;
}

system::ErrorNumber AskPrinter(const PrintJob& job, PRINTDLGW& dialog) {
    DropDevice(dialog);
    dialog.Flags = PD_RETURNDC | PD_USEDEVMODECOPIESANDCOLLATE | PD_NOSELECTION | PD_NOWARNING;
    if (job.pageCount < 2) dialog.Flags |= PD_NOPAGENUMS;
    dialog.nMinPage = dialog.nFromPage = 1;
    dialog.nMaxPage = dialog.nToPage = static_cast<WORD>(std::clamp(job.pageCount, 1, 0xFFFF));
    dialog.nCopies = 1;
    const system::ErrorNumber error = RunPrintDialog(dialog);
    if (error == system::kErrorNone && dialog.hDC == nullptr) return kPrinterNotUsable;
    return error;
}

// ---- Its paper ---------------------------------------------------------------------------------

// The memory of the system's, for as long as this lives; null for none.
template <class Record>
struct Locked {
    HGLOBAL memory;
    Record* record;

    explicit Locked(HGLOBAL itsMemory)
        : memory(itsMemory),
          record(itsMemory == nullptr ? nullptr : static_cast<Record*>(GlobalLock(itsMemory))) {}
    ~Locked() {
        if (record != nullptr) GlobalUnlock(memory);
    }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
};

// A device context that knows the printer's paper and prints nothing; null without a printer.
HDC OpenForFacts(const DEVNAMES* names, const DEVMODEW* mode) {
    if (names == nullptr) return nullptr;
    const auto* text = reinterpret_cast<const wchar_t*>(names);
    return CreateICW(text + names->wDriverOffset, text + names->wDeviceOffset, nullptr, mode);
}

// ---- The printer -------------------------------------------------------------------------------

// The error of a call that gives a positive number on success.
system::ErrorNumber ErrorOf(int result) {
    if (result > 0) return system::kErrorNone;
    const DWORD error = GetLastError();
    if (error == ERROR_PRINT_CANCELLED) return system::kErrorCancelled;
    return error == ERROR_SUCCESS ? system::kErrorIoDevice : error;
}

// Called while the system prepares a page, which may take long: the program paints its windows.
BOOL CALLBACK KeepAlive(HDC, int) {
    reportView.processPendingMessages();
    return TRUE;
}

system::ErrorNumber BeginDocument(HDC dc, const std::wstring& name, const std::wstring& file) {
    DOCINFOW document{};
    document.cbSize = sizeof(document);
    document.lpszDocName = name.c_str();
    if (!file.empty()) document.lpszOutput = file.c_str();
    SetAbortProc(dc, KeepAlive);
    return ErrorOf(StartDocW(dc, &document));
}

// Whether the user ticked "Print to file", or chose a printer at the port that stands for files.
bool WantsFile(const PRINTDLGW& dialog) {
    if ((dialog.Flags & PD_PRINTTOFILE) != 0) return true;
    const Locked<DEVNAMES> names(dialog.hDevNames);
    if (names.record == nullptr) return false;
    const auto* text = reinterpret_cast<const wchar_t*>(names.record);
    return std::wstring_view(text + names.record->wOutputOffset) == L"FILE:";
}

Printer PrinterOf(const PRINTDLGW& dialog, int pageCount, const std::wstring& file) {
    const HDC dc = dialog.hDC;
    const PrintDevice device = DeviceOf(dc);
    Printer printer;
    printer.paper = PaperOf(device);
    printer.lastPage = pageCount;
    if ((dialog.Flags & PD_PAGENUMS) != 0) {
        printer.firstPage = std::clamp<int>(dialog.nFromPage, 1, pageCount);
        printer.lastPage = std::clamp<int>(dialog.nToPage, printer.firstPage, pageCount);
    }
    printer.file = file;
    printer.beginDocument = [dc, file](const std::wstring& name) {
        return BeginDocument(dc, name, file);
    };
    printer.beginPage = [dc] { return ErrorOf(StartPage(dc)); };
    printer.drawPage = [device](const Figure& page) { DrawPage(device, page); };
    printer.endPage = [dc] { return ErrorOf(EndPage(dc)); };
    printer.endDocument = [dc] { return ErrorOf(EndDoc(dc)); };
    printer.abortDocument = [dc] { AbortDoc(dc); };
    return printer;
}

}  // namespace

PrinterChoice::~PrinterChoice() {
    DropDevice(dialog);
    if (dialog.hDevMode != nullptr) GlobalFree(dialog.hDevMode);
    if (dialog.hDevNames != nullptr) GlobalFree(dialog.hDevNames);
}

void TakeDefaultPrinter(PrinterChoice& choice) {
    choice.dialog.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
    RunPrintDialog(choice.dialog);
}

Paper TurnPaper(PrinterChoice& choice, bool isPortrait) {
    const Locked<DEVMODEW> mode(choice.dialog.hDevMode);
    const Locked<DEVNAMES> names(choice.dialog.hDevNames);
    if (mode.record != nullptr) {
        mode.record->dmFields |= DM_ORIENTATION;
        mode.record->dmOrientation = isPortrait ? DMORIENT_PORTRAIT : DMORIENT_LANDSCAPE;
    }
    const HDC dc = OpenForFacts(names.record, mode.record);
    if (dc == nullptr) return UsualPaper(isPortrait);
    const Paper paper = PaperOf(DeviceOf(dc));
    DeleteDC(dc);
    return paper;
}

PrintDevice DeviceOf(HDC dc) {
    PrintDevice device{dc, GetDeviceCaps(dc, LOGPIXELSX), GetDeviceCaps(dc, LOGPIXELSY)};
    device.across = std::max(device.across, 1);
    device.down = std::max(device.down, 1);
    device.unprintable = {GetDeviceCaps(dc, PHYSICALOFFSETX), GetDeviceCaps(dc, PHYSICALOFFSETY)};
    return device;
}

Paper PaperOf(const PrintDevice& device) {
    const auto across = [&](int dots) { return dots * kMmPerInch / device.across; };
    const auto down = [&](int dots) { return dots * kMmPerInch / device.down; };
    const auto margin = [](double unprintable_mm) {
        return std::max(kLeastMargin_mm, unprintable_mm);
    };
    const double right = across(GetDeviceCaps(device.dc, HORZRES));
    const double bottom = down(GetDeviceCaps(device.dc, VERTRES));
    Paper paper{across(GetDeviceCaps(device.dc, PHYSICALWIDTH)),
                down(GetDeviceCaps(device.dc, PHYSICALHEIGHT)),
                {}};
    // Another device than a printer has no paper.
    if (!(paper.width_mm > 0)) paper.width_mm = right;
    if (!(paper.height_mm > 0)) paper.height_mm = bottom;
    const double left = across(device.unprintable.x);
    const double top = down(device.unprintable.y);
    paper.margins = {margin(left), margin(top), margin(paper.width_mm - left - right),
                     margin(paper.height_mm - top - bottom)};
    return paper;
}

void DrawPage(const PrintDevice& device, const Figure& page) {
    const int saved = SaveDC(device.dc);
    FigureDevice drawn{device.dc, device.across / kMmPerInch};
    drawn.corner = {-device.unprintable.x, -device.unprintable.y};
    if (device.across != device.down) {
        // As if there were as many dots downwards as across.
        SetMapMode(device.dc, MM_ANISOTROPIC);
        SetWindowExtEx(device.dc, device.across, device.across, nullptr);
        SetViewportExtEx(device.dc, device.across, device.down, nullptr);
        drawn.corner.y = MulDiv(drawn.corner.y, device.across, device.down);
    }
    PlayFigure(drawn, page);
    RestoreDC(device.dc, saved);
}

PrintEnd PrintThroughSystem(const PrintJob& job, PrinterChoice& choice) {
    const system::ErrorNumber error = AskPrinter(job, choice.dialog);
    if (error == system::kErrorCancelled) return PrintEnd::kCancelled;
    if (error != system::kErrorNone) {
        ReportMessage(kMsgNotPrinted, {job.name, SystemError{error}});
        return PrintEnd::kFailed;
    }
    const bool isToFile = WantsFile(choice.dialog);
    const std::wstring file = isToFile ? AskForPrintFile(job) : std::wstring();
    if (isToFile && file.empty()) return PrintEnd::kCancelled;
    const ShellLock lock;
    return PrintDocument(job, PrinterOf(choice.dialog, job.pageCount, file));
}

}  // namespace corvane
