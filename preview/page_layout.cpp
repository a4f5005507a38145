#include "preview/page_layout.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "preview/figure_text.h"
#include "report/messages.h"

namespace corvane {
namespace {

constexpr int32_t kBlack = 0x00000000;
constexpr int32_t kGrey = 0x00606060;
constexpr double kFrame_mm = 0.35;
constexpr double kRule_mm = 0.18;

// The title block has two rows, and a third of the page at most.
constexpr double kRow_mm = 8.5;
constexpr int kRows = 2;
constexpr double kMostTitle = 1.0 / 3;
constexpr double kLabel_mm = 1.9;  // letters in a row of full height
constexpr double kValue_mm = 3;
constexpr double kPadding_mm = 1;

// The table, with a third of the page at most.
constexpr double kMostTable = 0.35;
constexpr double kTableRow_mm = 4.2;
constexpr double kTableText_mm = 2.4;
constexpr double kLabelShare = 0.55;  // of the table's breadth

constexpr double kAroundModel_mm = 4;  // free at each side of it
constexpr double kRemark_mm = 2.4;     // letters of a remark below the model
constexpr double kRemarkRow_mm = 4;

double WidthOf(const SheetArea& area) {
    return area.right - area.left;
}
double HeightOf(const SheetArea& area) {
    return area.bottom - area.top;
}

void AddRectangle(Figure& figure, const SheetArea& area, double width_mm) {
    const SheetPoint corners[] = {{area.left, area.top},
                                  {area.right, area.top},
                                  {area.right, area.bottom},
                                  {area.left, area.bottom},
                                  {area.left, area.top}};
    AddSheetLine(figure, {FigureLayer::kText, kBlack, width_mm}, corners);
}

void AddRule(Figure& figure, SheetPoint from, SheetPoint to) {
    const SheetPoint ends[] = {from, to};
    AddSheetLine(figure, {FigureLayer::kText, kBlack, kRule_mm}, ends);
}

// ---- The title block ---------------------------------------------------------------------------

// A field of a row, with its share of the row's breadth.
struct Field {
    int32_t label;
    std::wstring value;
    double share;
};

void AddField(Figure& figure, const SheetArea& area, const Field& field) {
    const double size = HeightOf(area) / kRow_mm;
    const double room = WidthOf(area) - 2 * kPadding_mm;
    const auto write = [&](const std::wstring& text, double height, double down, int32_t colour) {
        AddText(figure, {colour, height * size},
                {area.left + kPadding_mm, area.top + down * HeightOf(area)},
                FittingText(text, height * size, room));
    };
    write(GetMessage(field.label), kLabel_mm, 0.22, kGrey);
    write(field.value, kValue_mm, 0.66, kBlack);
}

void AddRow(Figure& figure, const SheetArea& row, std::span<const Field> fields) {
    double left = row.left;
    for (const Field& field : fields) {
        const double right = left + field.share * WidthOf(row);
        if (left > row.left) AddRule(figure, {left, row.top}, {left, row.bottom});
        AddField(figure, {left, row.top, right, row.bottom}, field);
        left = right;
    }
}

void AddTitleBlock(Figure& figure, const SheetArea& block, const PageTitle& title,
                   const std::wstring& scale) {
    const double middle = (block.top + block.bottom) / 2;
    const Field upper[] = {{kMsgPageShip, title.ship, 0.3},
                           {kMsgPageDatabase, title.database, 0.3},
                           {kMsgPageModel, title.model, 0.4}};
    const Field lower[] = {{kMsgPageX, title.x, 0.15},
                           {kMsgPageFrame, title.frame, 0.25},
                           {kMsgPageScale, scale, 0.15},
                           {kMsgPageDate, title.date, 0.2},
                           {kMsgPageProgram, title.program, 0.25}};
    AddRow(figure, {block.left, block.top, block.right, middle}, upper);
    AddRow(figure, {block.left, middle, block.right, block.bottom}, lower);
    AddRule(figure, {block.left, middle}, {block.right, middle});
    AddRectangle(figure, block, kFrame_mm);
}

// ---- The table ---------------------------------------------------------------------------------

void AddTableLine(Figure& figure, const SheetArea& row, const PageTableLine& line) {
    const double middle = (row.top + row.bottom) / 2;
    const double room = WidthOf(row) - 3 * kPadding_mm;
    const std::wstring value = FittingText(line.value, kTableText_mm,
                                           line.label.empty() ? room : room * (1 - kLabelShare));
    AddText(figure, {kBlack, kTableText_mm, TextSide::kLeft}, {row.right - kPadding_mm, middle},
            value);
    AddText(figure, {kGrey, kTableText_mm}, {row.left + kPadding_mm, middle},
            FittingText(line.label, kTableText_mm, room - TextWidth(value, kTableText_mm)));
    AddRule(figure, {row.left, row.bottom}, {row.right, row.bottom});
}

// ---- The model ---------------------------------------------------------------------------------

bool CanBeDrawn(const ShipBox& extent) {
    return !IsEmpty(extent) && IsOfShip(extent.left) && IsOfShip(extent.right) &&
           IsOfShip(extent.bottom) && IsOfShip(extent.top);
}

// 1:N, so that the extent is in the window.
double FittingScale(const SheetArea& window, const ShipBox& extent) {
    constexpr double kMillimetres = 1000;
    constexpr double kRoundingRoom = 1e-9;
    const double across = (extent.right - extent.left) * kMillimetres / WidthOf(window);
    const double upwards = (extent.top - extent.bottom) * kMillimetres / HeightOf(window);
    return std::max(1.0, std::ceil(std::max(across, upwards) * (1 - kRoundingRoom)));
}

// The window shows the middle of the extent at 1:N.
void SetWindow(Figure& figure, const SheetArea& window, const ShipBox& extent, double scale) {
    figure.window = window;
    figure.mmPerMetre = 1000 / scale;
    figure.origin = {
        (window.left + window.right) / 2 - (extent.left + extent.right) / 2 * figure.mmPerMetre,
        (window.top + window.bottom) / 2 + (extent.bottom + extent.top) / 2 * figure.mmPerMetre};
}

bool IsLarger(const ShipBox& extent, const SheetArea& window, double mmPerMetre) {
    constexpr double kTolerance_mm = 0.01;
    return (extent.right - extent.left) * mmPerMetre > WidthOf(window) + kTolerance_mm ||
           (extent.top - extent.bottom) * mmPerMetre > HeightOf(window) + kTolerance_mm;
}

// Draws the model into its part of the page, with the remark below it where it is cut off.
void AddModel(Page& page, SheetArea area, const PageContents& contents) {
    area = {area.left + kAroundModel_mm, area.top + kAroundModel_mm, area.right - kAroundModel_mm,
            area.bottom - kAroundModel_mm};
    if (!CanBeDrawn(contents.extent) || !(WidthOf(area) > 0) || !(HeightOf(area) > kRemarkRow_mm)) {
        return;
    }
    page.scale = contents.scale > 0 ? contents.scale : FittingScale(area, contents.extent);
    page.isCutOff = IsLarger(contents.extent, area, 1000 / page.scale);
    if (page.isCutOff) {
        area.bottom -= kRemarkRow_mm;
        const std::wstring remark = GetMessage(kMsgPageCutOff);
        AddText(page.figure, {kBlack, kRemark_mm}, {area.left, area.bottom + kRemarkRow_mm / 2},
                FittingText(remark, kRemark_mm, WidthOf(area)));
    }
    SetWindow(page.figure, area, contents.extent, page.scale);
    if (contents.draw) contents.draw(page.figure);
}

}  // namespace

size_t AddTable(Figure& figure, const SheetArea& area, const std::vector<PageTableLine>& table) {
    const auto room = static_cast<size_t>(std::max(0.0, HeightOf(area) / kTableRow_mm));
    const size_t shown = table.size() <= room ? table.size() : std::max<size_t>(room, 1) - 1;
    const auto row = [&](size_t i) {
        const double top = area.top + kTableRow_mm * static_cast<double>(i);
        return SheetArea{area.left, top, area.right, top + kTableRow_mm};
    };
    for (size_t i = 0; i < shown; ++i) AddTableLine(figure, row(i), table[i]);
    const size_t hidden = table.size() - shown;
    if (hidden > 0 && room > 0) {
        AddTableLine(figure, row(shown),
                     {FormatMessage(kMsgMoreNotShown, {static_cast<int32_t>(hidden)}), L""});
    }
    AddRectangle(figure, area, kFrame_mm);
    return hidden;
}

Page MakePage(const PageContents& contents) {
    Page page;
    page.figure = MakeFigure(contents.width_mm, contents.height_mm, 1, {0, 0});
    const SheetArea sheet{contents.margins.left, contents.margins.top,
                          contents.width_mm - contents.margins.right,
                          contents.height_mm - contents.margins.bottom};
    if (!(WidthOf(sheet) > 0) || !(HeightOf(sheet) > 0)) return page;
    SheetArea title = sheet;
    title.top = title.bottom - std::min(kRows * kRow_mm, HeightOf(sheet) * kMostTitle);
    SheetArea model = sheet;
    model.bottom = title.top;
    if (!contents.table.empty()) {
        model.right -= std::min(kPageTable_mm, WidthOf(sheet) * kMostTable);
        page.hiddenLines =
            AddTable(page.figure, {model.right, sheet.top, sheet.right, title.top}, contents.table);
    }
    AddModel(page, model, contents);
    const std::wstring scale =
        page.scale > 0 ? FormatMessage(kMsgPageScaleOf, {page.scale}) : std::wstring();
    AddRectangle(page.figure, sheet, kFrame_mm);
    AddTitleBlock(page.figure, title, contents.title, scale);
    return page;
}

}  // namespace corvane
