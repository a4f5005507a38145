// The commands of the Basic Ship Data: bsd show and bsd import.
#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "bsd/labels.h"
#include "files/file_system.h"
#include "report/reporters.h"
#include "shell/commands/bsd_commands.h"
#include "shell/state.h"
#include "text/numbers.h"
#include "tools/console.h"
#include "tools/editing_command.h"
#include "tools/formats.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

bool ReadShipData(const std::wstring& operand, std::wstring& path, BasicShipData& bsd) {
    if (!RequirePath(operand, path)) return false;
    if (!FileExists(path)) {
        ReportMessage(kMsgFileMissing, {path});
        return false;
    }
    return ReadShipDataOf(path, bsd);
}

std::wstring Metres(float value) {
    return GeneralText(value) + L" m";
}

std::wstring FramesText(const BasicShipData& bsd) {
    if (bsd.FrameZoneCount < 1) return L"none";
    std::wstring text = GeneralText(int32_t{bsd.FrameNumbers(0)});
    for (int zone = 1; zone <= bsd.FrameZoneCount; ++zone) {
        text += L" to " + GeneralText(int32_t{bsd.FrameNumbers(zone)}) + L" at " +
                Metres(bsd.ZoneSpacing(zone));
    }
    return text + L", frame 0 at x = " + Metres(bsd.FrameZeroX);
}

std::wstring AsText(const BasicShipData& bsd) {
    return AlignedText({{L"Name", bsd.Titles(1).Trimmed()},
                        {L"Ship", bsd.Titles(5).Trimmed()},
                        {L"Type", ShipTypeName(bsd.ShipType(), false)},
                        {L"Length", Metres(bsd.MainData(1))},
                        {L"Breadth", Metres(bsd.MainData(2))},
                        {L"Depth", Metres(bsd.MainData(3))},
                        {L"Draught", Metres(bsd.MainData(6))},
                        {L"Frames", FramesText(bsd)},
                        {L"Remark", bsd.Remark.Trimmed()},
                        {L"Valid", IsBsdDefined(bsd) ? L"yes" : L"no"}},
                       {false, false});
}

std::wstring FramesAsJson(const BasicShipData& bsd) {
    std::wstring text = L"{\"first\": " + GeneralText(int32_t{bsd.FrameNumbers(0)}) +
                        L", \"zeroAt_m\": " + JsonNumber(bsd.FrameZeroX) + L", \"zones\": [";
    for (int zone = 1; zone <= bsd.FrameZoneCount; ++zone) {
        text += std::wstring(zone == 1 ? L"" : L", ") + L"{\"last\": " +
                GeneralText(int32_t{bsd.FrameNumbers(zone)}) + L", \"spacing_m\": " +
                JsonNumber(bsd.ZoneSpacing(zone)) + L"}";
    }
    return text + L"]}";
}

std::wstring AsJson(const BasicShipData& bsd) {
    return L"{\n  \"name\": " + JsonText(bsd.Titles(1).Trimmed()) + L",\n  \"ship\": " +
           JsonText(bsd.Titles(5).Trimmed()) + L",\n  \"type\": " +
           JsonText(ShipTypeName(bsd.ShipType(), false)) + L",\n  \"length_m\": " +
           JsonNumber(bsd.MainData(1)) + L",\n  \"breadth_m\": " + JsonNumber(bsd.MainData(2)) +
           L",\n  \"depth_m\": " + JsonNumber(bsd.MainData(3)) + L",\n  \"draught_m\": " +
           JsonNumber(bsd.MainData(6)) + L",\n  \"frames\": " + FramesAsJson(bsd) +
           L",\n  \"remark\": " + JsonText(bsd.Remark.Trimmed()) + L",\n  \"valid\": " +
           (IsBsdDefined(bsd) ? L"true" : L"false") + L"\n}\n";
}

}  // namespace

ExitCode RunShipShow(const Request& request) {
    std::wstring path;
    BasicShipData bsd;
    if (!ReadShipData(request.operands[0], path, bsd)) return kExitFailed;
    Print(request.Value(Option::kFormat) == L"json" ? AsJson(bsd) : AsText(bsd));
    return kExitDone;
}

ExitCode RunShipImport(const Request& request) {
    std::wstring source;
    BasicShipData bsd;
    if (!OpenForEditing(request.operands[0]) || !ReadShipData(request.operands[1], source, bsd) ||
        !RequireOtherFile(source)) {
        return kExitFailed;
    }
    const std::wstring& path = shell.database.path;
    if (IsBsdDefined(shell.database.bsd) &&
        !RequireForce(L"replace the ship's data of '" + path + L"'")) {
        return kExitFailed;
    }
    return RunEdit(request, GetMessage(kMsgImportOfShipData),
                   [&] { return SaveBsdToDatabase(path, bsd); });
}

}  // namespace corvane
