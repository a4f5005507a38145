#include "shell/picture_printing.h"

#include <algorithm>
#include <string>
#include <vector>

#include "database/section_block.h"
#include "database/section_view.h"
#include "files/paths.h"
#include "platform/system.h"
#include "preview/bulkhead_figure.h"
#include "preview/page_layout.h"
#include "preview/section_figure.h"
#include "report/reporters.h"
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

PageContents PageOf(const Paper& paper, const std::wstring& model, float x_m) {
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

// ---- Sections ----------------------------------------------------------------------------------

Figure SectionPage(SectionModel& model, const Paper& paper) {
    LibraryView view;
    MakeLibraryView(model, view);
    ComputeSection(view.section);
    PageContents page = PageOf(paper, model.name, model.x_m);
    ShipBox extent;
    if (ExtentOf(view.section, extent)) page.extent = extent;
    page.draw = [&view](Figure& figure) { AddSection(figure, view.section); };
    return MakePage(page).figure;
}

// A page with the title block alone, and why.
Figure EmptyPage(const ModelRow& row, const Paper& paper, const std::wstring& why) {
    Figure figure = MakePage(PageOf(paper, row.name, row.x_m)).figure;
    constexpr double kLetters_mm = 4;
    AddText(figure, {0, kLetters_mm, TextSide::kMiddle}, {paper.width_mm / 2, paper.height_mm / 2},
            why);
    return figure;
}

Figure PageOfRow(const ModelRow& row, const Paper& paper) {
    SectionModel model;
    if (!ReadSectionBlock(shell.database.path, PlaceOf(row), false, model)) {
        return EmptyPage(row, paper, GetMessage(kMsgSectionNotRead));
    }
    const std::wstring why = WhyNoPicture(model, shell.database.bsd);
    return why.empty() ? SectionPage(model, paper) : EmptyPage(row, paper, why);
}

// ---- Bulkheads ---------------------------------------------------------------------------------

Figure BulkheadPage(const Paper& paper) {
    const BulkheadLayout layout = LayOutShownBulkheads(paper.width_mm, paper.height_mm);
    PageContents page = PageOf(paper, shell.preview.bulkheads.name, shell.preview.bulkheads.x_m);
    page.extent = layout.extent;
    page.draw = [&layout](Figure& figure) { DrawBulkheads(figure, layout, {}); };
    return MakePage(page).figure;
}

}  // namespace

void PrintShownPicture() {
    PrintJob job;
    job.pageCount = 1;
    job.name = ShownModelName();
    if (shell.preview.isShown) {
        job.makePage = [](int, const Paper& paper) {
            return SectionPage(shell.preview.section, paper);
        };
    } else if (shell.preview.areBulkheadsShown) {
        job.makePage = [](int, const Paper& paper) { return BulkheadPage(paper); };
    } else {
        return;
    }
    shell.view.printPages(job);
}

void PrintAllSections() {
    std::vector<ModelRow> sections;
    for (const ModelRow& row : shell.database.rows) {
        if (row.kind == ModelKind::kSection && row.hasOwnNumber) sections.push_back(row);
    }
    if (sections.empty()) return ReportNote(kMsgNoSectionsToPrint);
    PrintJob job;
    job.name = FileNameOf(shell.database.path);
    job.pageCount = static_cast<int>(sections.size());
    job.makePage = [&sections](int page, const Paper& paper) {
        return PageOfRow(sections[static_cast<size_t>(page) - 1], paper);
    };
    shell.view.printPages(job);
}

}  // namespace corvane
