#include "shell/picture_facts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "database/section_view.h"
#include "platform/system.h"
#include "preview/section_geometry.h"
#include "report/messages.h"
#include "shell/settings.h"
#include "text/numbers.h"

namespace corvane {
namespace {

constexpr int32_t kMarkColour = 0x000060FF;
constexpr double kMark_mm = 2;  // half the length of a mark's lines
constexpr double kMarkLine_mm = 0.4;
constexpr double kMarkLetters_mm = 2.8;

// On one line, or as lines "label tab value".
enum class TextForm { kLine, kFacts };

std::wstring Metres(double value) {
    return DecimalText(value + 0.0, 3, 3);
}

std::wstring Millimetres(float value) {
    return DecimalText(double{value}, 0, 2);
}

const Panel& PanelOf(const SectionModel& section, const SectionHit& hit) {
    return section.panels[static_cast<size_t>(hit.strake) - 1];
}

std::wstring PanelText(const SectionModel& section, const SectionHit& hit) {
    const std::wstring& name = PanelOf(section, hit).name;
    const std::wstring number = std::to_wstring(hit.strake);
    return name.empty() ? number : number + L" " + name;
}

// ---- Plates ------------------------------------------------------------------------------------

// The plate at an abscissa, from 0; beyond the last plate, how many there are.
size_t PlateAt(const Panel& panel, double s) {
    const auto found = std::ranges::find_if(
        panel.plates, [s](const Plate& plate) { return s <= double{plate.end_m} + 1e-4; });
    return static_cast<size_t>(found - panel.plates.begin());
}

// What the panel says counts where it has no plate.
Plate PlateOrUsual(const Panel& panel, size_t index) {
    if (index < panel.plates.size()) return panel.plates[index];
    Plate usual;
    usual.thickness_mm = panel.thickness_mm;
    usual.material = panel.material;
    usual.spacing_m = panel.spacing_m;
    usual.span_m = panel.span_m;
    return usual;
}

std::wstring PlateNumberText(const Panel& panel, size_t index) {
    if (index >= panel.plates.size()) return L"-";
    return FormatMessage(
        kMsgOneOf, {static_cast<int32_t>(index + 1), static_cast<int32_t>(panel.plates.size())});
}

std::wstring PlatingText(TextForm form, const SectionModel& section, const SectionHit& hit) {
    const Panel& panel = PanelOf(section, hit);
    const size_t index = PlateAt(panel, hit.s);
    const Plate plate = PlateOrUsual(panel, index);
    const std::wstring number = PlateNumberText(panel, index);
    const std::wstring thickness = Millimetres(plate.thickness_mm);
    const std::wstring name = PanelText(section, hit);
    if (form == TextForm::kLine) {
        return FormatMessage(kMsgPlateLine, {name, number, thickness, plate.material});
    }
    return FormatMessage(kMsgPlateFacts,
                         {name, number, thickness, plate.material, Metres(plate.spacing_m),
                          Metres(plate.span_m), Metres(hit.s)});
}

// ---- Stiffeners --------------------------------------------------------------------------------

std::wstring ProfileText(const Scantlings& profile) {
    const std::wstring web = Millimetres(profile.webHeight_mm);
    const std::wstring webThickness = Millimetres(profile.webThickness_mm);
    if (profile.type != kProfileAngle && profile.type != kProfileTee) {
        return FormatMessage(profile.type == kProfileBulb ? kMsgProfileBulb : kMsgProfileFlat,
                             {web, webThickness});
    }
    return FormatMessage(profile.type == kProfileTee ? kMsgProfileTee : kMsgProfileAngle,
                         {web, webThickness, Millimetres(profile.flangeBreadth_mm),
                          Millimetres(profile.flangeThickness_mm)});
}

std::wstring StiffenerText(TextForm form, const SectionModel& section, const SectionHit& hit) {
    const Panel& panel = PanelOf(section, hit);
    const auto row = static_cast<size_t>(hit.row) - 1;
    const Stiffener& stiffener = panel.stiffeners[row];
    Span span;
    if (row < panel.stiffenerDetails.size() && !panel.stiffenerDetails[row].spans.empty()) {
        span = panel.stiffenerDetails[row].spans.front();
    }
    const std::wstring name = PanelText(section, hit);
    const std::wstring number = FormatMessage(kMsgOneOf, {hit.inRow, int32_t{stiffener.count}});
    const std::wstring profile = ProfileText(span.scantlings);
    const std::wstring spacing = Metres(stiffener.spacing);
    const std::wstring length = Metres(span.length_m);
    if (form == TextForm::kLine) {
        return FormatMessage(kMsgStiffenerLine, {name, hit.row, number, profile, spacing, length,
                                                 int32_t{span.material}});
    }
    return FormatMessage(kMsgStiffenerFacts, {name, hit.row, number, profile, spacing, length,
                                              int32_t{span.material}, Metres(hit.s)});
}

std::wstring CompartmentText(TextForm form, const SectionModel& section, const SectionHit& hit) {
    const Compartment& compartment = section.compartments[static_cast<size_t>(hit.compartment) - 1];
    const std::wstring area = DecimalText(hit.area_m2, 2, 2);
    if (form == TextForm::kLine) {
        return FormatMessage(kMsgCompartmentLine, {compartment.name, area, compartment.contents});
    }
    return FormatMessage(kMsgCompartmentFacts,
                         {compartment.name, area, compartment.contents, compartment.kind});
}

std::wstring HitText(TextForm form, const SectionModel& section, const SectionHit& hit) {
    switch (hit.kind) {
        case HitKind::kPlating:
            return PlatingText(form, section, hit);
        case HitKind::kStiffener:
            return StiffenerText(form, section, hit);
        case HitKind::kCompartment:
            return CompartmentText(form, section, hit);
        case HitKind::kNothing:
            break;
    }
    return {};
}

std::wstring DistanceText(ShipPoint from, ShipPoint to) {
    const double dy = to.y - from.y;
    const double dz = to.z - from.z;
    return FormatMessage(kMsgDistanceFacts, {Metres(std::hypot(dy, dz)), Metres(dy), Metres(dz)});
}

// A click near a line means the line.
ShipPoint PlaceMeant(const Section& section, const PicturePlace& place) {
    const SectionHit hit = FindHit(section, place.at, place.reach_m);
    return hit.kind == HitKind::kNothing ? place.at : hit.at;
}

// ---- Marks -------------------------------------------------------------------------------------

void AddCross(Figure& figure, SheetPoint at) {
    const FigurePen pen{FigureLayer::kText, kMarkColour, kMarkLine_mm};
    AddSheetLine(figure, pen,
                 std::array{SheetPoint{at.x - kMark_mm, at.y}, SheetPoint{at.x + kMark_mm, at.y}});
    AddSheetLine(figure, pen,
                 std::array{SheetPoint{at.x, at.y - kMark_mm}, SheetPoint{at.x, at.y + kMark_mm}});
}

void AddMarks(const Section& section, const std::vector<PicturePlace>& places, Figure& figure) {
    std::vector<ShipPoint> meant;
    for (const PicturePlace& place : places) {
        meant.push_back(PlaceMeant(section, place));
        const SheetPoint at = OnSheet(figure, meant.back());
        if (IsInWindow(figure, at)) AddCross(figure, at);
    }
    if (meant.size() < 2) return;
    AddLine(figure, {FigureLayer::kText, kMarkColour, kMarkLine_mm}, meant);
    const SheetPoint middle =
        OnSheet(figure, {(meant[0].y + meant[1].y) / 2, (meant[0].z + meant[1].z) / 2});
    if (!IsInWindow(figure, middle)) return;
    AddText(figure, {kMarkColour, kMarkLetters_mm, TextSide::kMiddle}, {middle.x, middle.y - 2.5},
            Metres(std::hypot(meant[1].y - meant[0].y, meant[1].z - meant[0].z)) + L" m");
}

AnnotationTexts TextsOf(const SectionModel& section) {
    AnnotationTexts texts;
    texts.plate = GetMessage(kMsgLegendPlate);
    texts.stiffener = GetMessage(kMsgLegendStiffener);
    texts.plateEnd = GetMessage(kMsgLegendPlateEnd);
    texts.compartment = GetMessage(kMsgLegendCompartment);
    int strake = 0;
    for (const Panel& panel : section.panels) {
        ++strake;
        texts.panelNames.push_back(panel.name);
        double from_m = 0;
        for (const Plate& plate : panel.plates) {
            texts.plates.push_back({strake, from_m, plate.end_m, plate.thickness_mm});
            from_m = plate.end_m;
        }
    }
    return texts;
}

// ---- Settings ----------------------------------------------------------------------------------

constexpr char kSettingsSection[] = "Corvane window";
constexpr std::pair<const char*, bool PictureOptions::*> kOptionKeys[] = {
    {"PictureScaleBar", &PictureOptions::hasScaleBar},
    {"PictureAxes", &PictureOptions::hasAxes},
    {"PictureLegend", &PictureOptions::hasLegend},
    {"PictureNames", &PictureOptions::hasPanelNames},
    {"PictureNumbers", &PictureOptions::hasNumbers},
    {"PictureThickness", &PictureOptions::hasThickness},
    {"PictureTable", &PictureOptions::hasTable},
};

}  // namespace

std::wstring PlaceLine(SectionModel& section, const PicturePlace& place) {
    LibraryView view;
    ComputeSection(section, view);
    const SectionHit hit = FindHit(view.section, place.at, place.reach_m);
    const std::wstring where =
        FormatMessage(kMsgPlaceLine, {Metres(place.at.y), Metres(place.at.z)});
    const std::wstring what = HitText(TextForm::kLine, section, hit);
    return what.empty() ? where : where + L"   " + what;
}

std::wstring PlaceFacts(SectionModel& section, const std::vector<PicturePlace>& places) {
    if (places.empty()) return {};
    LibraryView view;
    ComputeSection(section, view);
    const PicturePlace& last = places.back();
    const SectionHit hit = FindHit(view.section, last.at, last.reach_m);
    const ShipPoint at = PlaceMeant(view.section, last);
    std::wstring facts = FormatMessage(kMsgPlaceFacts, {Metres(at.y), Metres(at.z)});
    if (places.size() > 1) {
        const ShipPoint from = PlaceMeant(view.section, places.front());
        facts += DistanceText(from, at);
    }
    return facts + HitText(TextForm::kFacts, section, hit);
}

void AnnotatePicture(const ComputedSection& computed, const PictureOptions& options,
                     const std::vector<PicturePlace>& places, Figure& figure) {
    if (options != PictureOptions()) {
        AddAnnotations(figure, computed.section, TextsOf(computed.model), options);
    }
    AddMarks(computed.section, places, figure);
}

PictureOptions ReadPictureOptions(const std::wstring& file) {
    PictureOptions options;
    for (const auto& [key, option] : kOptionKeys) {
        options.*option = system::ReadProfileInteger(kSettingsSection, key, 0, file) == 1;
    }
    return options;
}

bool WritePictureOptions(const std::wstring& file, const PictureOptions& options) {
    return std::ranges::all_of(kOptionKeys, [&](const auto& entry) {
        return WriteIniText(kSettingsSection, entry.first, options.*entry.second ? "1" : "0",
                            file) == system::kErrorNone;
    });
}

}  // namespace corvane
