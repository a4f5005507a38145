// Pictures on paper: a model to a page, with a title block, shown in the page preview first.
#pragma once

#include <string>

#include "preview/page_layout.h"

namespace corvane {

struct Paper;  // shell/printing.h

// A page of the paper's size for a model of the open database, at a position [m] along the ship:
// with its title block, without a picture yet.
PageContents PageFor(const Paper& paper, const std::wstring& model, float x_m);

// The model that the preview shows. Without one nothing happens.
void PrintShownPicture();
// Every section of the open database, in the order of the list's rows, a page for each. What cannot
// be read or drawn has a page that says so.
void PrintAllSections();

}  // namespace corvane
