#include "shell/picture_file.h"

#include <algorithm>
#include <string_view>

#include "files/paths.h"
#include "preview/dxf_writer.h"
#include "preview/section_figure.h"
#include "preview/svg_writer.h"
#include "report/reporters.h"
#include "shell/state.h"

namespace corvane {
namespace {

constexpr SheetSize kSheet{297, 210, 10};

struct PictureWriter {
    std::wstring_view extension;
    system::ErrorNumber (*write)(const Figure& figure, const std::wstring& path);
};
constexpr PictureWriter kWriters[] = {
    {L"emf", [](const Figure& figure,
                const std::wstring& path) { return shell.view.writeMetafile(figure, path); }},
    {L"svg", WriteSvgFile},
    {L"png", [](const Figure& figure,
                const std::wstring& path) { return shell.view.writePng(figure, path); }},
    {L"dxf", WriteDxfFile},
};

// The drawing as large as the sheet lets it, beside the table.
Figure MakeSheet(const ModelDrawing& drawing, const std::vector<PageTableLine>& table) {
    SheetSize room = kSheet;
    if (!table.empty()) room.width_mm -= kPageTable_mm + kSheet.margin_mm;
    const ShipBox nothing{0, 0, 0, 0};
    Figure figure = MakeFittedFigure(room, IsEmpty(drawing.extent) ? nothing : drawing.extent);
    drawing.draw(figure);
    if (table.empty()) return figure;
    figure.width_mm = kSheet.width_mm;
    AddTable(figure,
             {room.width_mm, kSheet.margin_mm, kSheet.width_mm - kSheet.margin_mm,
              kSheet.height_mm - kSheet.margin_mm},
             table);
    return figure;
}

}  // namespace

Figure PictureShown() {
    return MakeSheet(DrawingOfShown(kSheet.width_mm - 2 * kSheet.margin_mm,
                                    kSheet.height_mm - 2 * kSheet.margin_mm),
                     TableOfMarked());
}

Figure PictureOf(SectionModel& section) {
    return MakeSheet(DrawingOf(section), {});
}

std::vector<PictureKind> PictureKinds() {
    std::vector<PictureKind> kinds;
    const std::wstring types = GetMessage(kMsgPictureFiles);
    for (size_t begin = 0; begin < types.size();) {
        const size_t bar = std::min(types.find(L'|', begin), types.size());
        const size_t end = std::min(types.find(L'|', bar + 1), types.size());
        kinds.push_back(
            {types.substr(begin, bar - begin), FileExtension(types.substr(begin, end - begin))});
        begin = end + 1;
    }
    return kinds;
}

system::ErrorNumber WriteSvgFile(const Figure& figure, const std::wstring& path) {
    return WriteTextFile(path, [&figure](TextWriter& writer) { WriteSvg(figure, writer); });
}

system::ErrorNumber WriteDxfFile(const Figure& figure, const std::wstring& path) {
    return WriteTextFile(path, [&figure](TextWriter& writer) { WriteDxf(figure, writer); });
}

FileEnd WritePicture(const Figure& figure, const std::wstring& path) {
    const auto* writer =
        std::ranges::find(kWriters, FileExtension(path), &PictureWriter::extension);
    if (writer == std::end(kWriters)) {
        ReportMessage(kMsgNoKindOfPicture, {path});
        return FileEnd::kFailed;
    }
    return ExportFile(
        path, [&](const std::wstring& temporary) { return writer->write(figure, temporary); });
}

}  // namespace corvane
