// A report: rows of findings that the user reads in a box, copies as text and saves as text. What a
// command has to say in more than a line or a message box is one of these. The box itself is the
// view's (View::showReport).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "database/check.h"

namespace corvane {

struct ReportColumn {
    std::wstring title;
    std::wstring sample;  // as long as the texts usually are; the last column takes what is left
    bool alignsRight = false;
};

struct ReportRow {
    std::vector<std::wstring> cells;  // one for each column
    // What the box shows below the list while the row is selected; lines end with a carriage
    // return. Empty: nothing.
    std::wstring details;
    std::optional<Severity> severity = std::nullopt;  // the picture in the first column
};

struct Report {
    uint16_t command = 0;   // the menu item that it comes from; its caption is that of the prompt
    std::wstring title;     // of the box
    std::wstring summary;   // above the list; lines end with a carriage return
    std::wstring fileName;  // proposed by "Save as text", without its extension
    std::vector<ReportColumn> columns;  // at least one
    std::vector<ReportRow> rows;        // any number

    // The caption of one more button, such as "&Repair..."; empty at first: the box does not have
    // it, and later: it cannot be pressed.
    std::wstring action;
    // What that button does, while the box is open; it may change the report, which the box then
    // shows again. True: the box closes.
    std::function<bool(Report& report)> act;
    bool isQuestion = false;  // the last button says Cancel instead of Close

    size_t selected = 0;  // index of the row that is selected, at first and now
};

// Title, summary, titles of the columns, and the rows with these indices with a tab between cells.
// A row's details follow as one more cell. A tab or a line end in a cell is a blank.
std::wstring ReportAsText(const Report& report, const std::vector<size_t>& rows);
// All rows.
std::wstring ReportAsText(const Report& report);

// Puts these rows on the clipboard, and says so in the status line; without any, all of them. A
// clipboard that another program uses is reported.
void CopyReport(const Report& report, const std::vector<size_t>& rows);

// Asks for a file, and writes the report there as UTF-8 text. The open database is refused; a
// failure is reported, and a file of that name is then as it was.
void SaveReport(const Report& report);

}  // namespace corvane
