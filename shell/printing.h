// Printing: the pages of a document, one after the other, until they are printed, the user cancels,
// or the printer fails. What a printer is, the user interface knows.
#pragma once

#include <functional>
#include <string>

#include "platform/system.h"
#include "preview/page_layout.h"

namespace corvane {

// The paper in a printer.
struct Paper {
    double width_mm, height_mm;
    SheetArea margins;  // their breadths at the four sides, where the printer cannot print [mm]
};

// What the user chose for all pages.
struct PageChoice {
    int scale = 0;  // 1:N, one of kPageScales; 0: as large as the page lets it
    bool isPortrait = false;
    bool operator==(const PageChoice&) const = default;
};
// As keys of the section "Corvane window" of the settings file.
PageChoice ReadPageChoice(const std::wstring& file);
// False when the file took not all of it.
bool WritePageChoice(const std::wstring& file, const PageChoice& choice);

// A document to be printed.
struct PrintJob {
    std::wstring name;  // for the user, and in the system's list of documents
    int pageCount = 0;
    bool hasMarks = false;  // a table of what is marked can go with it
    // A page, from 1, on this paper, as the user wants pages now (PageChoice).
    std::function<Page(int page, const Paper& paper)> makePage;
};

// A printer that the user has chosen. A procedure gives the system's error: kErrorCancelled when
// the user cancelled there.
struct Printer {
    Paper paper{};
    int firstPage = 1, lastPage = 1;  // that the user wants, within the document
    std::wstring file;                // its path, when the user wants a file; else empty
    std::function<system::ErrorNumber(const std::wstring& name)> beginDocument;
    std::function<system::ErrorNumber()> beginPage;
    std::function<void(const Figure& page)> drawPage;
    std::function<system::ErrorNumber()> endPage;
    std::function<system::ErrorNumber()> endDocument;
    std::function<void()> abortDocument;
};

enum class PrintEnd { kCancelled, kPrinted, kFailed };

// Asks where to print a document to, when the user wants a file. Empty when the user cancels, and
// when the file cannot be used, which is reported.
std::wstring AskForPrintFile(const PrintJob& job);

// Prints the pages, shows how far it is, and reports how it ended: a failure in a box, the rest in
// the status line. A document that is not finished is taken back, as far as the printer has not yet
// printed it.
PrintEnd PrintDocument(const PrintJob& job, const Printer& printer);

}  // namespace corvane
