// The list of models as other programs take it: the columns and lines as they are shown, sorted and
// filtered; when several lines are selected, these alone. The first line has the columns' titles.
// Numbers have a point, whatever the regional settings.
#pragma once

#include <string>

#include "files/text_file.h"

namespace corvane {

// How many lines it has besides the titles.
int ListedCount();

// A tab between cells; a tab or a line end in a name is a blank.
std::wstring ListAsText();
// As a table, in the form of the clipboard's "HTML Format": UTF-8 after a head with byte offsets.
std::string ListAsHtml();
// As comma separated values: UTF-8 with a byte order mark, by which spreadsheets know it; a cell
// with a comma, a quote or a line end is in quotes. Writes them to a file that has been created.
void WriteListAsCsv(TextWriter& writer);

}  // namespace corvane
