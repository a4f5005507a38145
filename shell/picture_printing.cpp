#include "shell/picture_printing.h"

#include <algorithm>
#include <string>
#include <vector>

#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/model_drawing.h"
#include "shell/preview_pane.h"
#include "shell/printing.h"
#include "shell/state.h"
#include "text/numbers.h"
#include "text/version.h"

namespace corvane {
namespace {

// Free along the paper's edges, at least [mm].
constexpr double kLeastMargin_mm = 10;

std::wstring ProgramText() {
    return L"Corvane " + VersionText(kProgramVersion, false);
}

Page PageWith(PageContents contents, const ModelDrawing& drawing) {
    contents.extent = drawing.extent;
    contents.draw = drawing.draw;
    contents.scale = shell.pages.scale;
    return MakePage(contents);
}

Page PageOfShown(const Paper& paper) {
    const PreviewPane& pane = shell.preview;
    PageContents contents =
        PageFor(paper, ShownModelName(), pane.isShown ? pane.section.x_m : pane.bulkheads.x_m);
    contents.table = TableOfMarked();
    return PageWith(contents, DrawingOfShown(paper.width_mm, paper.height_mm));
}

// A page with the title block alone, and why.
Page EmptyPage(const ModelRow& row, const Paper& paper, const std::wstring& why) {
    Page page = MakePage(PageFor(paper, row.name, row.x_m));
    constexpr double kLetters_mm = 4;
    AddText(page.figure, {0, kLetters_mm, TextSide::kMiddle},
            {paper.width_mm / 2, paper.height_mm / 2}, why);
    return page;
}

Page PageOfRow(const ModelRow& row, const Paper& paper) {
    SectionModel section;
    const std::wstring why = ReadToDraw(row, section);
    if (!why.empty()) return EmptyPage(row, paper, why);
    return PageWith(PageFor(paper, section.name, section.x_m), DrawingOf(section));
}

}  // namespace

PageContents PageFor(const Paper& paper, const std::wstring& model, float x_m) {
    PageContents page{};
    page.width_mm = paper.width_mm;
    page.height_mm = paper.height_mm;
    page.margins = paper.margins;
    for (double* margin :
         {&page.margins.left, &page.margins.top, &page.margins.right, &page.margins.bottom}) {
        *margin = std::max(*margin, kLeastMargin_mm);
    }
    page.title.ship = shell.database.bsd.Titles(5).Trimmed();
    page.title.database = FileNameOf(shell.database.path);
    page.title.model = model;
    page.title.x = DecimalText(double{x_m} + 0.0, 3, 3) + L" m";
    page.title.frame = FrameText(x_m);
    page.title.date = DateText(system::Now(), true);
    page.title.program = ProgramText();
    return page;
}

void PrintShownPicture() {
    if (!shell.preview.isShown && !shell.preview.areBulkheadsShown) return;
    PrintJob job;
    job.pageCount = 1;
    job.name = ShownModelName();
    job.hasMarks = IsAnythingMarked();
    job.makePage = [](int, const Paper& paper) { return PageOfShown(paper); };
    shell.view.previewPages(job);
}

void PrintAllSections() {
    const std::vector<ModelRow> sections = SectionsToDraw();
    if (sections.empty()) return ReportNote(kMsgNoSectionsToPrint);
    PrintJob job;
    job.name = FileNameOf(shell.database.path);
    job.pageCount = static_cast<int>(sections.size());
    job.makePage = [&sections](int page, const Paper& paper) {
        return PageOfRow(sections[static_cast<size_t>(page) - 1], paper);
    };
    shell.view.previewPages(job);
}

}  // namespace corvane
