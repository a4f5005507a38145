// The page preview: a page of a document drawn small, with the choices that change it.
#pragma once

#include "shell/printing.h"

namespace corvane {

// Shows the pages of a document until the user has printed it or closes the window.
void PreviewPages(const PrintJob& job);

}  // namespace corvane
