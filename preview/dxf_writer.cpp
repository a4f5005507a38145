#include "preview/dxf_writer.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "text/numbers.h"
#include "text/utf8.h"

namespace corvane {
namespace {

// Numbers of the drawing's 255 colours; 7 is black on white and white on black.
constexpr int kBlackOrWhite = 7;

struct DxfLayer {
    const char* name;
    int colour;
};
// In the order of FigureLayer.
constexpr DxfLayer kLayers[] = {
    {"PLATE", 5}, {"STIFFENER", 94}, {"COMPARTMENT", 8}, {"TEXT", kBlackOrWhite}};
static_assert(std::size(kLayers) == kFigureLayerCount);

// ---- Colours -----------------------------------------------------------------------------------

struct Rgb {
    int red, green, blue;
};

Rgb RgbOf(int32_t colour) {
    return {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF};
}

// Colour 10 to 249: 24 hues, each in five degrees of brightness, the odd ones half as strong.
constexpr Rgb HueColour(int number) {
    constexpr std::array kBrightness{255, 165, 127, 76, 38};
    const int high = kBrightness[static_cast<size_t>(number % 10 / 2)];
    const int low = number % 2 == 0 ? 0 : high / 2;
    const int hue = number / 10 - 1;  // steps of 15 degrees from red
    // How much of a colour is in a hue that is so many steps from it.
    const auto part = [&](int steps) {
        const int away = std::min(steps, 24 - steps);
        return away <= 4 ? high : away >= 8 ? low : low + (high - low) * (8 - away) / 4;
    };
    return {part(hue), part((hue + 16) % 24), part((hue + 8) % 24)};
}

constexpr std::array<Rgb, 256> NumberedColours() {
    // 0 is no colour; 7 is black, as paper is white.
    std::array<Rgb, 256> colours{{{0, 0, 0},
                                  {255, 0, 0},
                                  {255, 255, 0},
                                  {0, 255, 0},
                                  {0, 255, 255},
                                  {0, 0, 255},
                                  {255, 0, 255},
                                  {0, 0, 0},
                                  {128, 128, 128},
                                  {192, 192, 192}}};
    for (int number = 10; number < 250; ++number) {
        colours[static_cast<size_t>(number)] = HueColour(number);
    }
    constexpr std::array kGreys{51, 91, 132, 173, 214, 255};
    for (size_t i = 0; i < kGreys.size(); ++i) colours[250 + i] = {kGreys[i], kGreys[i], kGreys[i]};
    return colours;
}

int NearestNumber(int32_t colour) {
    static constexpr std::array<Rgb, 256> kColours = NumberedColours();
    const Rgb wanted = RgbOf(colour);
    const auto distance = [&wanted](const Rgb& there) {
        const int red = wanted.red - there.red;
        const int green = wanted.green - there.green;
        const int blue = wanted.blue - there.blue;
        return red * red + green * green + blue * blue;
    };
    const auto nearest =
        std::ranges::min_element(kColours.begin() + 1, kColours.end(), {}, distance);
    return static_cast<int>(nearest - kColours.begin());
}

// ---- Groups ------------------------------------------------------------------------------------

// A thousandth of a millimetre.
std::string Number(double value_m) {
    return Utf8Text(DecimalText(value_m, 1, 6));
}

// Each value comes after its group code, on a line of its own.
void Write(TextWriter& writer, int code, std::string_view value) {
    WriteLine(writer, std::to_string(code));
    WriteLine(writer, value);
}

void Write(TextWriter& writer, int code, int value) {
    Write(writer, code, std::to_string(value));
}

// With the codes `code`, `code` + 10 and `code` + 20.
void WritePoint(TextWriter& writer, int code, ShipPoint point) {
    Write(writer, code, Number(point.y));
    Write(writer, code + 10, Number(point.z));
    Write(writer, code + 20, "0.0");
}

// A letter in ASCII, as a reader need not know which page of letters this machine has: others have
// their number. "^" and two "%" begin marks of the format.
std::string Coded(char32_t letter, bool isDoubled) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    if (letter < U' ') return " ";
    if (letter > 0xFFFF) return "?";
    if (letter == U'^') return "^ ";
    if (letter == U'%' && isDoubled) return "%%%";
    if (letter <= U'~' && letter != U'\\') return {static_cast<char>(letter)};
    std::string number = "\\U+";
    for (const int shift : {12, 8, 4, 0}) number += kDigits[letter >> shift & 0xF];
    return number;
}

// Cut to what a line of release 12 may have.
std::string DxfText(std::wstring_view text) {
    constexpr size_t kMostBytes = 250;
    const std::u32string letters = CharactersOf(text);
    std::string bytes;
    for (size_t i = 0; i < letters.size(); ++i) {
        const bool isDoubled = (i > 0 && letters[i - 1] == letters[i]) ||
                               (i + 1 < letters.size() && letters[i + 1] == letters[i]);
        const std::string coded = Coded(letters[i], isDoubled);
        if (bytes.size() + coded.size() > kMostBytes) break;
        bytes += coded;
    }
    return bytes;
}

// ---- Header and tables -------------------------------------------------------------------------

void WriteExtent(const Figure& figure, TextWriter& writer) {
    Write(writer, 9, "$EXTMIN");
    WritePoint(writer, 10, InShip(figure, {0, figure.height_mm}));
    Write(writer, 9, "$EXTMAX");
    WritePoint(writer, 10, InShip(figure, {figure.width_mm, 0}));
}

void WriteHeader(const Figure& figure, TextWriter& writer) {
    constexpr int kDecimal = 2;
    Write(writer, 999, "Lengths are in m");
    Write(writer, 0, "SECTION");
    Write(writer, 2, "HEADER");
    Write(writer, 9, "$ACADVER");
    Write(writer, 1, "AC1009");
    WriteExtent(figure, writer);
    Write(writer, 9, "$LUNITS");
    Write(writer, 70, kDecimal);
    Write(writer, 9, "$LUPREC");
    Write(writer, 70, 3);
    Write(writer, 0, "ENDSEC");
}

void WriteLayers(TextWriter& writer) {
    Write(writer, 0, "TABLE");
    Write(writer, 2, "LAYER");
    Write(writer, 70, kFigureLayerCount);
    for (const DxfLayer& layer : kLayers) {
        Write(writer, 0, "LAYER");
        Write(writer, 2, layer.name);
        Write(writer, 70, 0);
        Write(writer, 62, layer.colour);
        Write(writer, 6, "CONTINUOUS");
    }
    Write(writer, 0, "ENDTAB");
}

void WriteTables(TextWriter& writer) {
    constexpr int kPlain = 65;  // what the format wants of a line without dashes
    Write(writer, 0, "SECTION");
    Write(writer, 2, "TABLES");
    Write(writer, 0, "TABLE");
    Write(writer, 2, "LTYPE");
    Write(writer, 70, 1);
    Write(writer, 0, "LTYPE");
    Write(writer, 2, "CONTINUOUS");
    Write(writer, 70, 0);
    Write(writer, 3, "Solid line");
    Write(writer, 72, kPlain);
    Write(writer, 73, 0);
    Write(writer, 40, "0.0");
    Write(writer, 0, "ENDTAB");
    WriteLayers(writer);
    Write(writer, 0, "ENDSEC");
}

// ---- Items -------------------------------------------------------------------------------------

void WriteBeginning(const FigureItem& item, const char* entity, TextWriter& writer) {
    const DxfLayer& layer = kLayers[static_cast<size_t>(item.layer)];
    Write(writer, 0, entity);
    Write(writer, 8, layer.name);
    // The outline of a tank in its light colour would not be seen on paper: it has the layer's.
    if (item.layer == FigureLayer::kCompartment) return;
    const int colour = NearestNumber(item.colour);
    if (colour != layer.colour) Write(writer, 62, colour);
}

void WritePolyline(const Figure& figure, const FigureItem& item, TextWriter& writer) {
    WriteBeginning(item, "POLYLINE", writer);
    Write(writer, 66, 1);  // its corners follow
    WritePoint(writer, 10, {0, 0});
    Write(writer, 70, item.shape == FigureShape::kArea ? 1 : 0);  // closed
    for (const SheetPoint& point : PointsOf(figure, item)) {
        Write(writer, 0, "VERTEX");
        Write(writer, 8, kLayers[static_cast<size_t>(item.layer)].name);
        WritePoint(writer, 10, InShip(figure, point));
    }
    Write(writer, 0, "SEQEND");
}

// The height of a text is that of a capital there.
void WriteTextItem(const Figure& figure, const FigureItem& item, TextWriter& writer) {
    constexpr int kMiddle = 2;
    const ShipPoint at = InShip(figure, PointsOf(figure, item).front());
    WriteBeginning(item, "TEXT", writer);
    WritePoint(writer, 10, at);
    Write(writer, 40, Number(kCapitalHeight * item.size_mm / figure.mmPerMetre));
    Write(writer, 1, DxfText(figure.texts[item.text]));
    Write(writer, 72, static_cast<int>(item.side));  // left, centred, right: as TextSide
    Write(writer, 73, kMiddle);
    WritePoint(writer, 11, at);
}

void WriteItem(const Figure& figure, const FigureItem& item, TextWriter& writer) {
    if (item.shape == FigureShape::kText) return WriteTextItem(figure, item, writer);
    if (item.shape == FigureShape::kArea || item.count > 2) {
        return WritePolyline(figure, item, writer);
    }
    const std::span<const SheetPoint> ends = PointsOf(figure, item);
    WriteBeginning(item, "LINE", writer);
    WritePoint(writer, 10, InShip(figure, ends.front()));
    WritePoint(writer, 11, InShip(figure, ends.back()));
}

}  // namespace

void WriteDxf(const Figure& figure, TextWriter& writer) {
    WriteHeader(figure, writer);
    WriteTables(writer);
    Write(writer, 0, "SECTION");
    Write(writer, 2, "ENTITIES");
    for (const FigureItem& item : figure.items) WriteItem(figure, item, writer);
    Write(writer, 0, "ENDSEC");
    Write(writer, 0, "EOF");
}

}  // namespace corvane
