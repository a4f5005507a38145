#include "shell/picture_file.h"

#include <algorithm>
#include <string_view>

#include "database/section_view.h"
#include "files/paths.h"
#include "preview/bulkhead_figure.h"
#include "preview/dxf_writer.h"
#include "preview/outline.h"
#include "preview/section_figure.h"
#include "preview/svg_writer.h"
#include "report/reporters.h"
#include "shell/new_file.h"
#include "shell/state.h"

namespace corvane {
namespace {

constexpr SheetSize kSheet{297, 210, 10};

template <void (*write)(const Figure&, TextWriter&)>
system::ErrorNumber WriteAsText(const Figure& figure, const std::wstring& path) {
    return WriteTextFile(path, [&figure](TextWriter& writer) { write(figure, writer); });
}

struct PictureKind {
    std::wstring_view extension;
    system::ErrorNumber (*write)(const Figure& figure, const std::wstring& path);
};
constexpr PictureKind kKinds[] = {
    {L"emf", [](const Figure& figure,
                const std::wstring& path) { return shell.view.writeMetafile(figure, path); }},
    {L"svg", WriteAsText<WriteSvg>},
    {L"png", [](const Figure& figure,
                const std::wstring& path) { return shell.view.writePng(figure, path); }},
    {L"dxf", WriteAsText<WriteDxf>},
};

}  // namespace

Figure PictureShown() {
    if (shell.preview.areBulkheadsShown) {
        const BulkheadLayout layout = LayOutShownBulkheads(kSheet.width_mm, kSheet.height_mm);
        return MakeBulkheadFigure(layout, kSheet.width_mm, kSheet.height_mm, {});
    }
    LibraryView view;
    if (shell.preview.isShown) {
        MakeLibraryView(shell.preview.section, view);
        ComputeSection(view.section);
    }
    return MakeSectionFigure(view.section, kSheet);
}

bool WritePicture(const Figure& figure, const std::wstring& path) {
    const auto* kind = std::ranges::find(kKinds, FileExtension(path), &PictureKind::extension);
    if (kind == std::end(kKinds)) {
        ReportMessage(kMsgNoKindOfPicture, {path});
        return false;
    }
    return ExportFile(
        path, [&](const std::wstring& temporary) { return kind->write(figure, temporary); });
}

}  // namespace corvane
