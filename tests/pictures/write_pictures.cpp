// write_pictures FOLDER: writes figures into the folder, each as an SVG file, as a DXF drawing, as
// a PNG file, and as the list of its items, which check_pictures.py compares them with: first the
// sheet, then a line for each item.
#include <array>
#include <cstdio>
#include <string>

#include "database/section_block.h"
#include "database/section_view.h"
#include "files/text_file.h"
#include "platform/system.h"
#include "preview/dxf_writer.h"
#include "preview/section_figure.h"
#include "preview/svg_writer.h"
#include "tests/preview/section_sheet.h"
#include "tests/support/support.h"
#include "tools/host/png_output.h"

namespace corvane {
namespace {

constexpr int32_t kSections = 9;

const char* NameOf(FigureShape shape) {
    constexpr const char* kNames[] = {"line", "area", "text"};
    return kNames[static_cast<int>(shape)];
}

std::string Number(double value) {
    char text[64];
    std::snprintf(text, sizeof text, " %.17g", value);
    return text;
}

std::string Number(int value) {
    return ' ' + std::to_string(value);
}

void WriteList(const Figure& figure, TextWriter& writer) {
    WriteLine(writer, "sheet" + Number(figure.width_mm) + Number(figure.height_mm) +
                          Number(figure.mmPerMetre) + Number(figure.origin.x) +
                          Number(figure.origin.y));
    for (const FigureItem& item : figure.items) {
        std::string line = NameOf(item.shape) + Number(static_cast<int>(item.layer)) +
                           Number(item.colour) + Number(item.size_mm) +
                           Number(static_cast<int>(item.side));
        for (const SheetPoint& point : PointsOf(figure, item)) {
            line += Number(point.x) + Number(point.y);
        }
        if (item.shape == FigureShape::kText) {
            // As numbers, which are the same in any encoding.
            line += " :";
            for (const wchar_t letter : figure.texts[item.text]) {
                line += Number(static_cast<int>(letter));
            }
        }
        WriteLine(writer, line);
    }
}

bool WriteFile(const std::wstring& path, void (*write)(const Figure&, TextWriter&),
               const Figure& figure) {
    TextWriter writer;
    if (!CreateText(writer, path)) return false;
    write(figure, writer);
    return CloseText(writer);
}

bool WriteAll(const std::wstring& path, const Figure& figure) {
    return WriteFile(path + L".svg", WriteSvg, figure) &&
           WriteFile(path + L".dxf", WriteDxf, figure) &&
           FindPngWriter()(figure, path + L".png") == system::kErrorNone &&
           WriteFile(path + L".txt", WriteList, figure);
}

Figure FigureOfSample(int32_t number) {
    SectionModel model;
    ReadSectionBlock(test::DataPath("../samples/aurora_bay.ve2"), number, false, model);
    // One of them has both sides.
    if (number == 2) model.symmetryMode = 1;
    LibraryView view;
    MakeLibraryView(model, view);
    QuickCompute(&view.section, nullptr);
    return test::MakeSectionFigure(view.section, {297, 210, 10});
}

// What no section has: texts on all sides, with every kind of letter, and colours.
Figure FigureOfTexts() {
    Figure figure = MakeFigure(210, 297, 2.5, {3, -4});
    const std::wstring texts[] = {L"Hold 4", L"a<b & \"c\" 'd' >e", L"50 % 100%% \\U+0041 ^J {}",
                                  L"\u00C9tambot \u0141\u00F3d\u017A \u0394\u03BF"};
    const int32_t colours[] = {0x000804F0, 0x0004A208, 0x00F88004, 0x008040F8};
    int number = 0;
    for (const std::wstring& text : texts) {
        const int32_t colour = colours[number];
        const auto side = static_cast<TextSide>(number % 3);
        const double down = 20.0 * ++number;
        AddText(figure, {colour, 2.5 + number, side}, {100, down}, text);
        AddSheetArea(
            figure, FigureLayer::kText, colour,
            std::array<SheetPoint, 4>{{{10, down}, {30, down}, {30, down + 5}, {10, down + 5}}});
        AddSheetLine(figure, {FigureLayer::kStiffener, colour, 1.0 * number},
                     std::array<SheetPoint, 3>{{{40, down}, {60, down}, {60, down + 7}}});
    }
    return figure;
}

}  // namespace
}  // namespace corvane

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("write_pictures FOLDER\n", stderr);
        return 2;
    }
    const std::wstring folder = corvane::system::WideFromAnsi(arguments[1]) + L"/";
    bool isWritten = corvane::WriteAll(folder + L"texts", corvane::FigureOfTexts()) &&
                     corvane::WriteAll(folder + L"empty", corvane::MakeFigure(50, 40, 1, {0, 0}));
    for (int32_t number = 1; number <= corvane::kSections; ++number) {
        const std::wstring path = folder + L"section" + std::to_wstring(number);
        isWritten = isWritten && corvane::WriteAll(path, corvane::FigureOfSample(number));
    }
    return isWritten ? 0 : 1;
}
