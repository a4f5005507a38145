// Pictures on paper: a model to a page, with a title block, shown in the page preview first.
#pragma once

namespace corvane {

// The model that the preview shows. Without one nothing happens.
void PrintShownPicture();
// Every section of the open database, in the order of the list's rows, a page for each. What cannot
// be read or drawn has a page that says so.
void PrintAllSections();

}  // namespace corvane
