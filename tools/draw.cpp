// The command draw: a section or a bulkhead arrangement on a sheet, as a file.
#include <algorithm>
#include <functional>

#include "database/bulkhead_block.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "files/rewrite.h"
#include "platform/system.h"
#include "preview/bulkhead_figure.h"
#include "preview/page_layout.h"
#include "report/reporters.h"
#include "shell/bulkhead_outline.h"
#include "shell/model_drawing.h"
#include "shell/model_list.h"
#include "shell/new_file.h"
#include "shell/picture_file.h"
#include "shell/picture_printing.h"
#include "shell/printing.h"
#include "shell/state.h"
#include "text/numbers.h"
#include "tools/console.h"
#include "tools/model_choice.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

// A4, across.
constexpr double kWidth_mm = 297;
constexpr double kHeight_mm = 210;

// Null: there is no such kind, or not on this system.
FigureWriter WriterOf(const std::wstring& kind) {
    if (kind == L"svg") return WriteSvgFile;
    if (kind == L"dxf") return WriteDxfFile;
    return kind == L"png" ? toolState.output.findPngWriter() : nullptr;
}

// The writer of this kind, and kExitDone; a kind that cannot be written is reported.
ExitCode RequireWriter(const Request& request, const std::wstring& kind, FigureWriter& write) {
    write = WriterOf(kind);
    if (write != nullptr) return kExitDone;
    if (kind != L"png") {
        return ComplainOfUsage(request,
                               L"'" + request.operands[2] + L"' must end in .svg, .dxf or .png");
    }
    Complain(L"the library that makes PNG files is not there: install cairo (libcairo.so.2)");
    return kExitFailed;
}

// ---- Pages -------------------------------------------------------------------------------------

PageContents PageOf(const ModelEntry& model) {
    return PageFor({kWidth_mm, kHeight_mm, {}}, model.name, model.x);
}

// A page of a model, or why there is nothing to draw. One that cannot be read is reported, and is
// not a page.
struct ModelPage {
    bool isRead = false;
    std::wstring why;
    Figure figure{};
};

ModelPage SectionPage(const ModelEntry& model) {
    ModelPage made;
    SectionModel section;
    if (!ReadSectionBlock(shell.database.path, PlaceOf(model), false, section)) return made;
    made.isRead = true;
    const ModelDrawing drawing = DrawingOf(section);
    if (IsEmpty(drawing.extent)) {
        made.why = GetMessage(kMsgNoPlating);
        return made;
    }
    PageContents page = PageOf(model);
    page.extent = drawing.extent;
    page.draw = drawing.draw;
    made.figure = MakePage(page).figure;
    return made;
}

ModelPage BulkheadPage(const ModelEntry& model) {
    ModelPage made;
    BulkheadArrangement arrangement;
    const std::wstring& path = shell.database.path;
    if (!ReadBulkheadBlock(path, PlaceOf(model), arrangement)) return made;
    made.isRead = true;
    const auto outline = [&] {
        const std::vector<ModelRow> rows = FillModelList(path);
        return OutlineAt(path, SectionPlaces(rows), shell.database.bsd, arrangement.x_m);
    };
    const BulkheadLayout layout = LayOutBulkheads({arrangement, outline, kWidth_mm, kHeight_mm});
    if (layout.why != WhyNoBulkhead::kNone) {
        const bool hasNone = layout.why == WhyNoBulkhead::kNoBulkheads;
        made.why = GetMessage(hasNone ? kMsgNoBulkheads : kMsgNoBulkheadOutline);
        return made;
    }
    PageContents page = PageOf(model);
    page.extent = layout.extent;
    page.draw = [&layout](Figure& figure) { DrawBulkheads(figure, layout, {}); };
    made.figure = MakePage(page).figure;
    return made;
}

bool IsDrawn(ModelKind kind) {
    return kind == ModelKind::kSection || kind == ModelKind::kBulkhead;
}

ModelPage PageOfModel(const ModelEntry& model) {
    if (model.kind == ModelKind::kSection) return SectionPage(model);
    if (model.kind == ModelKind::kBulkhead) return BulkheadPage(model);
    return {true, WhyNoPicture(model.kind), {}};
}

// Draws a model into a file. What is in the way is reported: false.
bool DrawModel(const ModelEntry& model, const std::wstring& path, FigureWriter write) {
    const ModelPage page = PageOfModel(model);
    if (!page.why.empty()) Complain(L"'" + model.name + L"' is not drawn: " + page.why);
    if (!page.isRead || !page.why.empty()) return false;
    return MakeFile(path, L"", [&](const std::wstring& temporary) {
        const system::ErrorNumber error = write(page.figure, temporary);
        if (error != system::kErrorNone) ReportTextNotWritten(path, error);
        return error == system::kErrorNone;
    });
}

// ---- All of a database -------------------------------------------------------------------------

// "12 Midship section.svg", without what a file's name cannot have.
std::wstring FileNameFor(const ModelEntry& model, const std::wstring& kind) {
    constexpr size_t kLongestName = 100;
    std::wstring name = model.name.substr(0, kLongestName);
    std::ranges::replace_if(
        name,
        [](wchar_t c) {
            return c < L' ' || c == 0x7F ||
                   std::wstring_view(L"<>:\"/\\|?*").find(c) != std::wstring_view::npos;
        },
        L'_');
    name.erase(name.find_last_not_of(L" .") + 1);
    return GeneralText(model.number) + (name.empty() ? L"" : L" " + name) + L'.' + kind;
}

struct Drawing {
    ModelEntry model;
    std::wstring path;
};

// What there is to draw, and where. False, and reported, when a model has no number of its own, or
// a file is there already.
bool PlanDrawings(const std::wstring& folder, const std::wstring& kind,
                  std::vector<Drawing>& drawings) {
    std::vector<ModelEntry> models;
    for (const ModelEntry& model : toolState.models) {
        if (IsDrawn(model.kind)) models.push_back(model);
    }
    if (!RequireAllModels(shell.database.path, models)) return false;
    for (const ModelEntry& model : models) {
        const std::wstring name = FileNameFor(model, kind);
        const std::wstring path = WithTrailingBackslash(folder) + name;
        if (!RequireFree(path, shell.database.path)) return false;
        drawings.push_back({model, path});
    }
    return true;
}

ExitCode DrawAll(const Request& request) {
    std::wstring folder;
    std::vector<Drawing> drawings;
    FigureWriter write = nullptr;
    const std::wstring& kind = request.Value(Option::kKind);
    const ExitCode found = RequireWriter(request, kind, write);
    if (found != kExitDone) return found;
    if (!OpenForCommand(request.operands[0]) || !RequirePath(request.operands[1], folder)) {
        return kExitFailed;
    }
    if (!IsDirectory(folder)) {
        Complain(L"there is no folder '" + folder + L"': make it first");
        return kExitFailed;
    }
    if (!PlanDrawings(folder, kind, drawings)) return kExitFailed;
    for (const Drawing& drawing : drawings) {
        const int before = toolState.complaints;
        if (DrawModel(drawing.model, drawing.path, write)) {
            Print(FileNameOf(drawing.path) + L'\n');
        } else if (toolState.complaints == before) {
            Complain(L"'" + drawing.model.name + L"' is not drawn");
        }
    }
    return kExitDone;
}

ExitCode DrawOne(const Request& request) {
    FigureWriter write = nullptr;
    const ExitCode found = RequireWriter(request, FileExtension(request.operands[2]), write);
    if (found != kExitDone) return found;
    std::wstring path;
    std::vector<ModelEntry> chosen;
    if (!OpenForCommand(request.operands[0]) ||
        !RequireModels(shell.database.path, toolState.models, {&request.operands[1], 1}, chosen) ||
        !RequirePath(request.operands[2], path) || !RequireFree(path, shell.database.path)) {
        return kExitFailed;
    }
    return DrawModel(chosen.front(), path, write) ? kExitDone : kExitFailed;
}

}  // namespace

ExitCode RunDraw(const Request& request) {
    const bool hasFile = request.operands.size() == 3;
    if (request.Has(Option::kAll)) {
        if (hasFile) return ComplainOfUsage(request, L"a model and '--all' exclude each other");
        if (!request.Has(Option::kKind)) return ComplainOfUsage(request, L"'--kind' is missing");
        return DrawAll(request);
    }
    if (!hasFile) return ComplainOfUsage(request, L"an argument is missing");
    if (request.Has(Option::kKind)) {
        return ComplainOfUsage(request, L"'--kind' is for '--all' alone: FILE says its kind");
    }
    return DrawOne(request);
}

}  // namespace corvane
