// The editor of the Basic Ship Data: names, type, main dimensions and frames.
#include "bsd/bsd_file.h"
#include "bsd/labels.h"
#include "report/reporters.h"
#include "stand_ins/stand_ins.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane::stand_ins {
namespace {

constexpr int kTypeCount = 21;
constexpr int kMostZones = 40;

// The fields, in their order in the form.
enum BsdField : size_t {
    kDisplayName,
    kShipName,
    kShipType,
    kLength,
    kBreadth,
    kDepth,
    kDraught,
    kSpeed,
    kBlockCoefficient,
    kFirstFrame,
    kFrameZeroX,
    kZones,
};

// ---- The ship's data as fields -----------------------------------------------------------------

template <class Title>
Field TitleField(const wchar_t* label, const Title& title) {
    Field field;
    field.label = label;
    field.value = title.Trimmed();
    field.longest = title.Whole().size();
    return field;
}

// A type for which the rule set has no name is offered under its usual name.
Field TypeField(int type, bool milMode) {
    Field field;
    field.label = L"Ship &type";
    field.kind = FieldKind::kChoice;
    for (int i = 1; i <= kTypeCount; ++i) {
        std::wstring name = ShipTypeName(i, milMode);
        if (name.empty() && i == type) name = ShipTypeName(i, false);
        if (!name.empty()) field.choices.push_back(name);
        if (i == type) field.value = name;
    }
    if (field.value.empty()) {
        field.value = ShipTypeName(type, false);
        field.choices.insert(field.choices.begin(), field.value);
    }
    return field;
}

Field ZonesField(const BasicShipData& bsd) {
    Field field;
    field.label = L"Frame &zones";
    field.kind = FieldKind::kLines;
    field.unit = L"on each line: last frame, spacing in m, such as 60 0.75";
    for (int k = 1; k <= bsd.FrameZoneCount && k <= kMostZones; ++k) {
        field.value += GeneralText(int32_t{bsd.FrameNumbers(k)}) + L"  " +
                       GeneralText(bsd.ZoneSpacing(k)) + L"\r\n";
    }
    return field;
}

// On one line with the number before it.
Field Beside(Field field) {
    field.isBeside = true;
    return field;
}

Field FirstFrameField(const BasicShipData& bsd) {
    Field field = NumberField(L"&First frame", L"(the first zone begins here)", bsd.FrameNumbers(0),
                              {-1000, 1000});
    field.kind = FieldKind::kInteger;
    return field;
}

bool FillFields(Form& form) {
    BasicShipData bsd;
    if (!LoadBsdFromDatabase(form.request.databasePath, bsd)) return false;
    const auto& main = bsd.MainData;
    form.fields = {
        TitleField(L"&Display name", bsd.Titles(1)),
        TitleField(L"Ship &name", bsd.Titles(5)),
        TypeField(bsd.ShipType(), form.request.mil),
        NumberField(L"&Length", L"m between perpendiculars", main(1), {1, 1000}),
        NumberField(L"&Breadth", L"m", main(2), {1, 200}),
        Beside(NumberField(L"De&pth", L"m", main(3), {1, 100})),
        NumberField(L"D&raught", L"m", main(6), {0, 100}),
        Beside(NumberField(L"Sp&eed", L"knots", main(8), {0, 100})),
        NumberField(L"Block c&oefficient", L"", main(9), {0.1, 1}),
        FirstFrameField(bsd),
        NumberField(L"&x of frame 0", L"m from the aft perpendicular", bsd.FrameZeroX, {-100, 100}),
        ZonesField(bsd),
    };
    return true;
}

// ---- Fields as the ship's data -----------------------------------------------------------------

int16_t TypeOf(const Field& field, bool milMode, int16_t before) {
    // The type that the ship has keeps its number, whatever its name is.
    for (const bool mil : {milMode, false}) {
        if (before >= 1 && before <= kTypeCount && ShipTypeName(before, mil) == field.value) {
            return before;
        }
    }
    for (int16_t i = 1; i <= kTypeCount; ++i) {
        if (ShipTypeName(i, milMode) == field.value) return i;
    }
    return before;
}

// The heights of the ship's section that were equal to its depth follow it.
void SetDepth(BasicShipData& bsd, float depth) {
    for (const int height : {4, 5}) {
        if (bsd.MainData(height) == bsd.MainData(3)) bsd.MainData(height) = depth;
    }
    bsd.MainData(3) = depth;
}

struct Zone {
    double lastFrame;
    double spacing;
};

// Two numbers with blanks between them.
bool ReadZone(const std::wstring& line, Zone& zone) {
    constexpr wchar_t kBlanks[] = L" \t";
    const std::wstring text = line.substr(line.find_first_not_of(kBlanks));
    const size_t blank = text.find_first_of(kBlanks);
    if (blank == std::wstring::npos) return false;
    const std::wstring last = text.substr(0, blank);
    const size_t next = text.find_first_not_of(kBlanks, blank);
    if (next == std::wstring::npos) return false;
    const std::wstring spacing = text.substr(next, text.find_last_not_of(kBlanks) + 1 - next);
    if (!ReadsAsNumber(last) || !ReadsAsNumber(spacing)) return false;
    zone = {LeadingNumber(last), LeadingNumber(spacing)};
    return zone.lastFrame == LeadingInteger(last);
}

bool ReportZone(const wchar_t* fault, const std::wstring& line) {
    ReportMessage(
        L"Frame zones: ¤²²'¤'²²Write one zone on each line: its last frame, a blank, and "
        L"the frame spacing in m, as in '60 0.75'.",
        {fault, line});
    return false;
}

bool AddZone(const std::wstring& line, BasicShipData& bsd) {
    constexpr double kLargestSpacing_m = 10;
    Zone zone{};
    if (!ReadZone(line, zone)) return ReportZone(L"this line is not a zone.", line);
    if (bsd.FrameZoneCount == kMostZones) return ReportZone(L"there are more than 40 zones.", line);
    if (zone.lastFrame <= bsd.FrameNumbers(bsd.FrameZoneCount) || zone.lastFrame > INT16_MAX) {
        return ReportZone(L"the last frame of this zone is not above those before it.", line);
    }
    if (zone.spacing <= 0 || zone.spacing > kLargestSpacing_m) {
        return ReportZone(L"the spacing is not above 0 and up to 10 m.", line);
    }
    ++bsd.FrameZoneCount;
    bsd.FrameNumbers(bsd.FrameZoneCount) = static_cast<int16_t>(zone.lastFrame);
    bsd.ZoneSpacing(bsd.FrameZoneCount) = static_cast<float>(zone.spacing);
    return true;
}

bool ReadZones(const std::wstring& text, BasicShipData& bsd) {
    bsd.FrameZoneCount = 0;
    for (int k = 1; k <= kMostZones; ++k) {
        bsd.FrameNumbers(k) = 0;
        bsd.ZoneSpacing(k) = 0;
    }
    size_t begin = 0;
    while (begin < text.size()) {
        const size_t end = std::min(text.find_first_of(L"\r\n", begin), text.size());
        const std::wstring line = text.substr(begin, end - begin);
        const bool isEmpty = line.find_first_not_of(L" \t") == std::wstring::npos;
        if (!isEmpty && !AddZone(line, bsd)) return false;
        begin = end + 1;
    }
    return true;
}

bool ApplyFields(Form& form, BasicShipData& bsd) {
    const std::vector<Field>& fields = form.fields;
    bsd.Titles(1).Assign(Trim(fields[kDisplayName].value));
    bsd.Titles(5).Assign(Trim(fields[kShipName].value));
    bsd.TypeCodes(1) = TypeOf(fields[kShipType], form.request.mil, bsd.ShipType());
    bsd.MainData(1) = NumberOf(fields[kLength]);
    bsd.MainData(2) = NumberOf(fields[kBreadth]);
    SetDepth(bsd, NumberOf(fields[kDepth]));
    bsd.MainData(6) = NumberOf(fields[kDraught]);
    bsd.MainData(8) = NumberOf(fields[kSpeed]);
    bsd.MainData(9) = NumberOf(fields[kBlockCoefficient]);
    bsd.FrameNumbers(0) = static_cast<int16_t>(NumberOf(fields[kFirstFrame]));
    bsd.FrameZeroX = NumberOf(fields[kFrameZeroX]);
    if (ReadZones(fields[kZones].value, bsd)) return true;
    form.fault = kZones;
    return false;
}

// What has no field in the form stays as it is in the file.
bool SaveFields(Form& form, Question) {
    BasicShipData bsd;
    const std::wstring& path = form.request.databasePath;
    return LoadBsdFromDatabase(path, bsd) && ApplyFields(form, bsd) && SaveBsdToDatabase(path, bsd);
}

}  // namespace

const StandIn kBsdEditor{
    L"Basic Ship Data (stand-in)",
    L"This stand-in edits the ship's names, type, main dimensions and frames. All other data of "
    L"the ship stay as they are.",
    ModelUse::kNone,
    ModelKind::kSection,
    FillFields,
    SaveFields,
};

}  // namespace corvane::stand_ins
