#include "preview/svg_writer.h"

#include <array>
#include <string>
#include <string_view>

#include "text/markup.h"
#include "text/numbers.h"
#include "text/utf8.h"

namespace corvane {
namespace {

struct SvgLayer {
    FigureLayer layer;
    const char* id;
};
constexpr SvgLayer kLayers[] = {{FigureLayer::kCompartment, "compartment"},
                                {FigureLayer::kPlate, "plate"},
                                {FigureLayer::kStiffener, "stiffener"},
                                {FigureLayer::kText, "text"}};
static_assert(std::size(kLayers) == kFigureLayerCount);

// A thousandth of a millimetre is finer than any printer.
std::string Number(double value) {
    return Utf8Text(DecimalText(value, 0, 3));
}

std::string Colour(int32_t colour) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (const int shift : {4, 0, 12, 8, 20, 16}) text += kDigits[colour >> shift & 0xF];
    return text;
}

void WritePoints(std::span<const SheetPoint> points, TextWriter& writer) {
    WriteText(writer, " points=\"");
    for (const SheetPoint& point : points) {
        WriteText(writer, Number(point.x) + ',' + Number(point.y));
        WriteText(writer, &point == &points.back() ? "\"" : " ");
    }
}

void WriteTextItem(const Figure& figure, const FigureItem& item, TextWriter& writer) {
    constexpr const char* kAnchors[] = {"start", "middle", "end"};
    const SheetPoint at = PointsOf(figure, item).front();
    WriteLine(writer, "<text x=\"" + Number(at.x) + "\" y=\"" +
                          Number(at.y + kCapitalHeight / 2 * item.size_mm) + "\" font-size=\"" +
                          Number(item.size_mm) + "\" text-anchor=\"" +
                          kAnchors[static_cast<int>(item.side)] + "\" fill=\"" +
                          Colour(item.colour) + "\">" +
                          Utf8Text(MarkupText(figure.texts[item.text])) + "</text>");
}

void WriteItem(const Figure& figure, const FigureItem& item, TextWriter& writer) {
    if (item.shape == FigureShape::kText) return WriteTextItem(figure, item, writer);
    const bool isLine = item.shape == FigureShape::kLine;
    WriteText(writer, isLine ? "<polyline" : "<polygon");
    WritePoints(PointsOf(figure, item), writer);
    if (isLine) {
        WriteLine(writer, " fill=\"none\" stroke=\"" + Colour(item.colour) + "\" stroke-width=\"" +
                              Number(item.size_mm) + "\"/>");
    } else {
        WriteLine(writer, " fill=\"" + Colour(item.colour) + "\"/>");
    }
}

}  // namespace

void WriteSvg(const Figure& figure, TextWriter& writer) {
    const std::string width = Number(figure.width_mm);
    const std::string height = Number(figure.height_mm);
    WriteLine(writer, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    WriteLine(writer, "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"" + width +
                          "mm\" height=\"" + height + "mm\" viewBox=\"0 0 " + width + ' ' + height +
                          "\" stroke-linecap=\"round\" stroke-linejoin=\"round\"" +
                          " font-family=\"'Segoe UI', Arial, sans-serif\">");
    for (const SvgLayer& layer : kLayers) {
        WriteLine(writer, "<g id=\"" + std::string(layer.id) + "\">");
        for (const FigureItem& item : figure.items) {
            if (item.layer == layer.layer) WriteItem(figure, item, writer);
        }
        WriteLine(writer, "</g>");
    }
    WriteLine(writer, "</svg>");
}

}  // namespace corvane
