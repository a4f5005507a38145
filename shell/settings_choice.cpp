#include "shell/settings_choice.h"

#include <cfloat>
#include <charconv>
#include <climits>
#include <cmath>

#include "files/file_system.h"
#include "files/paths.h"
#include "files/settings_file.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/edit_history.h"
#include "shell/settings.h"
#include "shell/state.h"
#include "shell/suite_programs.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// A name without the mark of its keyboard letter and what is in brackets.
std::wstring NameOf(SettingsField field) {
    const std::wstring label = MenuCaptionText(SettingsLabels()[static_cast<size_t>(field)]);
    return Trim(std::wstring_view(label).substr(0, label.find(L'(')));
}

template <class Number>
bool ParseWhole(const std::wstring& text, Number& number) {
    const std::string bytes = system::AnsiFromWide(Trim(text));
    const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
    return error == std::errc() && end == bytes.data() + bytes.size();
}

bool ParseLimit(const std::wstring& text, float& limit) {
    double number = 0;
    if (!ParseWhole(text, number) || !(std::abs(number) <= double{FLT_MAX})) return false;
    limit = static_cast<float>(number);
    return true;
}

struct WholeRange {
    SettingsField field;
    int32_t least;
    int32_t most;
};
constexpr WholeRange kRanges[] = {{kIntegerSetting, INT32_MIN, INT32_MAX},
                                  {kHistoryVersions, 1, kMostVersions},
                                  {kHistoryMegabytes, 1, kMostMegabytes}};

// What is wrong with a folder; empty: nothing.
std::wstring FaultOfFolder(const std::wstring& name, const std::wstring& folder) {
    const std::wstring kept = WithTrailingBackslash(folder);
    if (!IsFullPath(folder)) return BoxText(kMsgFolderNotFull, {name, folder});
    if (!IsDirectory(folder)) return BoxText(kMsgSettingsFolderMissing, {name, folder});
    const bool isKept =
        kept.size() <= kLongestSetting && system::WideFromAnsi(system::AnsiFromWide(kept)) == kept;
    return isKept ? std::wstring() : BoxText(kMsgFolderNotKept, {name, folder, kLongestSetting});
}

std::wstring FaultOf(const SettingsChoice& choice, SettingsField field) {
    const std::wstring& text = choice.texts[static_cast<size_t>(field)];
    if (field < kFolderFieldCount) {
        const bool isFixed = field == kProgramsFolder && choice.isProgramsFolderFixed;
        return isFixed ? std::wstring() : FaultOfFolder(NameOf(field), Trim(text));
    }
    for (const auto& [whole, least, most] : kRanges) {
        int32_t number = 0;
        if (whole != field) continue;
        if (ParseWhole(text, number) && number >= least && number <= most) return {};
        return BoxText(kMsgNotWholeNumber, {NameOf(field), text, least, most});
    }
    float limit = 0;
    return ParseLimit(text, limit) ? std::wstring()
                                   : BoxText(kMsgNotANumber, {NameOf(field), text});
}

std::wstring FolderOf(const SettingsChoice& choice, SettingsField field) {
    return WithTrailingBackslash(Trim(choice.texts[static_cast<size_t>(field)]));
}

int32_t WholeOf(const SettingsChoice& choice, SettingsField field) {
    int32_t number = 0;
    ParseWhole(choice.texts[static_cast<size_t>(field)], number);
    return number;
}

void ReportNotSaved() {
    ReportMessage(kMsgSettingsNotSaved, {SettingsFilePath()});
}

// DataDirectory is written when the user has chosen another one, never at shutdown.
bool SetProgramsFolder(const std::wstring& folder) {
    shell.settings.DataDirectory = WithTrailingBackslash(folder);
    return WriteIniText(GetMessageBytes(kMsgSettingsSection), GetMessageBytes(kMsgDataDirectoryKey),
                        system::AnsiFromWide(shell.settings.DataDirectory),
                        SettingsFile()) == system::kErrorNone;
}

}  // namespace

std::span<const wchar_t* const> SettingsLabels() {
    static constexpr const wchar_t* kLabels[kSettingsFieldCount] = {
        L"&Programs of the suite",
        L"&Working folder",
        L"F&older of the file dialogs",
        L"&First limit",
        L"&Second limit",
        L"&Third limit",
        L"&Integer setting (other than 0: Delete keeps a backup)",
        L"Earlier &versions of a database",
        L"&Megabytes for all earlier versions"};
    return kLabels;
}

SettingsChoice ReadSettingsChoice() {
    const ShellSettings& settings = shell.settings;
    const HistoryLimits& limits = shell.history.limits;
    SettingsChoice choice;
    choice.texts = {settings.DataDirectory,
                    settings.WorkDirectory,
                    settings.BrowseDirectory,
                    GeneralText(settings.FirstLimit),
                    GeneralText(settings.SecondLimit),
                    GeneralText(settings.ThirdLimit),
                    GeneralText(settings.IntegerSetting),
                    std::to_wstring(limits.versions),
                    std::to_wstring(limits.bytes >> 20)};
    choice.isProgramsFolderFixed = IsSuiteBesideProgram();
    choice.file = SettingsFilePath();
    return choice;
}

std::wstring ProgramsText(const std::wstring& folder) {
    std::wstring missing;
    for (const std::wstring& program : SuitePrograms()) {
        if (FileExists(WithTrailingBackslash(Trim(folder)) + program)) continue;
        missing += (missing.empty() ? L"" : L", ") + program;
    }
    return missing.empty() ? GetMessage(kMsgAllProgramsThere)
                           : FormatMessage(kMsgProgramsMissing, {missing});
}

bool RequireValidSettings(const SettingsChoice& choice, SettingsField& wrong) {
    for (int field = 0; field < kSettingsFieldCount; ++field) {
        wrong = static_cast<SettingsField>(field);
        const std::wstring fault = FaultOf(choice, wrong);
        if (fault.empty()) continue;
        ShowWarning(fault);
        return false;
    }
    return true;
}

void KeepSettings(const SettingsChoice& choice) {
    ShellSettings& settings = shell.settings;
    const std::wstring programs = FolderOf(choice, kProgramsFolder);
    const bool hasMoved = !choice.isProgramsFolderFixed && programs != settings.DataDirectory;
    settings.WorkDirectory = FolderOf(choice, kWorkFolder);
    settings.BrowseDirectory = FolderOf(choice, kBrowseFolder);
    ParseLimit(choice.texts[kFirstLimit], settings.FirstLimit);
    ParseLimit(choice.texts[kSecondLimit], settings.SecondLimit);
    ParseLimit(choice.texts[kThirdLimit], settings.ThirdLimit);
    settings.IntegerSetting = WholeOf(choice, kIntegerSetting);
    ChangeToDirectory(settings.WorkDirectory);
    bool isKept = !hasMoved || SetProgramsFolder(programs);
    isKept = isKept && KeepHistoryLimits(WholeOf(choice, kHistoryVersions),
                                         WholeOf(choice, kHistoryMegabytes));
    isKept = isKept && WriteSettings(SettingsFile(), settings);
    if (!isKept) return ReportNotSaved();
    ReportNote(kMsgSettingsKept, {SettingsFilePath()});
}

void KeepProgramsFolder(const std::wstring& folder) {
    if (!SetProgramsFolder(folder)) ReportNotSaved();
}

}  // namespace corvane
