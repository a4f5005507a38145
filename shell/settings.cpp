#include "shell/settings.h"

#include <array>
#include <cfloat>
#include <cmath>

#include "files/file_system.h"
#include "files/paths.h"
#include "files/settings_file.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/reporters.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// The value of a key in the main section, without blanks around it: the file does not keep those
// that quotes or a NUL have saved when it was read.
std::wstring ReadKey(const std::wstring& file, MessageNumber key, const std::wstring& fallback) {
    constexpr wchar_t kBlanks[] = L" \t\r\n";
    const std::wstring value =
        GetIniString(GetMessage(kMsgSettingsSection), GetMessage(key), fallback, file);
    const size_t begin = value.find_first_not_of(kBlanks);
    if (begin == std::wstring::npos) return {};
    return value.substr(begin, value.find_last_not_of(kBlanks) - begin + 1);
}

// A limit: a key, what it is when the file has none, and where it goes.
struct LimitSetting {
    MessageNumber key;
    const wchar_t* fallback;
    float ShellSettings::* limit;
};
constexpr LimitSetting kFirstLimit{kMsgFirstLimitKey, L"1.5", &ShellSettings::FirstLimit};
constexpr LimitSetting kSecondLimit{kMsgSecondLimitKey, L"3.0", &ShellSettings::SecondLimit};
constexpr LimitSetting kThirdLimit{kMsgThirdLimitKey, L"1.5", &ShellSettings::ThirdLimit};

// False, and the limit as it was, when the number is too large for it.
bool ReadLimit(const std::wstring& file, const LimitSetting& setting, ShellSettings& settings) {
    const double value = LeadingNumber(ReadKey(file, setting.key, setting.fallback));
    if (std::abs(value) > static_cast<double>(FLT_MAX)) return false;
    settings.*setting.limit = static_cast<float>(value);
    return true;
}

// A folder that holds this file is the suite's data folder.
bool IsSuiteFolder(const std::wstring& folder) {
    return FileExists(folder + L"Bulafn.dat");
}

std::wstring ProgramDirectory() {
    return WithTrailingBackslash(DirectoryOf(system::ProgramPath()));
}

void ReadDirectories(const std::wstring& file, const std::wstring& programDirectory,
                     ShellSettings& settings) {
    settings.DataDirectory = programDirectory;
    if (!IsSuiteFolder(programDirectory)) {
        const std::wstring value = ReadKey(file, kMsgDataDirectoryKey, programDirectory);
        if (!Trim(value).empty()) settings.DataDirectory = WithTrailingBackslash(value);
    }
    settings.WorkDirectory =
        WithTrailingBackslash(ReadKey(file, kMsgWorkDirectoryKey, programDirectory));
    if (!IsDirectory(settings.WorkDirectory)) settings.WorkDirectory = settings.DataDirectory;
    settings.BrowseDirectory = ReadKey(file, kMsgBrowseDirectoryKey, settings.WorkDirectory);
    if (!IsDirectory(settings.BrowseDirectory)) settings.BrowseDirectory = settings.WorkDirectory;
}

// A path that cannot be reached now stays remembered; a file that is gone is forgotten.
std::wstring ReadDatabasePath(const std::wstring& file) {
    const std::wstring value = ReadKey(file, kMsgDatabasePathKey, L"");
    if (value.empty() || IsDeviceName(value)) return {};
    const std::wstring path = system::AbsolutePath(value);
    return FileExists(path) || IsOutOfReach(path) ? path : std::wstring();
}

bool WriteKey(const std::wstring& file, MessageNumber key, const std::wstring& value) {
    return WriteIniText(GetMessageBytes(kMsgSettingsSection), GetMessageBytes(key),
                        system::AnsiFromWide(value), file) == system::kErrorNone;
}

std::wstring UserName() {
    std::array<char, kLongestSetting + 1> buffer{};
    LoginName(buffer.data(), kLongestSetting);
    return system::WideFromAnsi(buffer.data());
}

// What is written, in this order: a key, and its text.
struct WrittenSetting {
    MessageNumber key;
    std::wstring (*text)(const ShellSettings& settings);
};
constexpr WrittenSetting kWritten[] = {
    {kMsgWorkDirectoryKey, [](const ShellSettings& s) { return s.WorkDirectory; }},
    {kMsgBrowseDirectoryKey, [](const ShellSettings& s) { return s.BrowseDirectory; }},
    {kMsgLoginNameKey, [](const ShellSettings&) { return UserName(); }},
    {kMsgDatabasePathKey, [](const ShellSettings& s) { return s.DatabasePath; }},
    {kMsgFirstLimitKey, [](const ShellSettings& s) { return GeneralText(s.FirstLimit); }},
    {kMsgIntegerSettingKey, [](const ShellSettings& s) { return GeneralText(s.IntegerSetting); }},
    {kMsgSecondLimitKey, [](const ShellSettings& s) { return GeneralText(s.SecondLimit); }},
    {kMsgThirdLimitKey, [](const ShellSettings& s) { return GeneralText(s.ThirdLimit); }},
};

bool IsWritten(const WrittenSetting& setting, const ShellSettings& settings) {
    return setting.key != kMsgDatabasePathKey || !settings.KeepDatabasePath;
}

}  // namespace

std::wstring GetIniString(const std::wstring& section, const std::wstring& key,
                          const std::wstring& fallback, const std::wstring& file) {
    // Means a missing key, so that a fallback outside the ANSI range comes back whole.
    static constexpr char kMissing[] = "\x01";
    const std::string value = system::ReadProfileText(
        system::AnsiFromWide(section), system::AnsiFromWide(key), kMissing, file, kLongestSetting);
    return CutAtNul(value == kMissing ? fallback.substr(0, kLongestSetting)
                                      : system::WideFromAnsi(value));
}

void ReadSettings(const std::wstring& file, ShellSettings& settings) {
    ReadSettings(file, ProgramDirectory(), settings);
}

bool IsSuiteBesideProgram() {
    return IsSuiteFolder(ProgramDirectory());
}

void ReadSettings(const std::wstring& file, const std::wstring& programDirectory,
                  ShellSettings& settings) {
    ReadDirectories(file, programDirectory, settings);
    settings.DatabasePath = ReadDatabasePath(file);
    // A number out of range ends the reading; the fields after it stay as they were.
    if (!ReadLimit(file, kFirstLimit, settings)) return;
    settings.IntegerSetting = system::ReadProfileInteger(
        GetMessageBytes(kMsgSettingsSection), GetMessageBytes(kMsgIntegerSettingKey), -1, file);
    if (!ReadLimit(file, kSecondLimit, settings)) return;
    ReadLimit(file, kThirdLimit, settings);
}

system::ErrorNumber WriteIniText(const std::string& section, const std::string& key,
                                 const std::string& value, const std::wstring& file) {
    const system::ErrorNumber error = system::WriteProfileText(section, key, value, file);
    if (error == system::kErrorNone || file != kSettingsFile) return error;
    const std::wstring own = MakeOwnSettingsFile();
    return own.empty() ? error : system::WriteProfileText(section, key, value, own);
}

bool WriteSettings(const std::wstring& file, const ShellSettings& settings) {
    for (const WrittenSetting& setting : kWritten) {
        if (!IsWritten(setting, settings)) continue;
        if (WriteKey(file, setting.key, setting.text(settings))) continue;
        ReportStatus(kMsgSettingsNotWritten);
        return false;
    }
    return true;
}

}  // namespace corvane
