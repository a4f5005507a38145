#include "shell/settings.h"

#include <array>
#include <cfloat>
#include <cmath>

#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// The value of a key in the main section.
std::wstring ReadKey(const std::wstring& file, MessageNumber key, const std::wstring& fallback) {
    return GetIniString(GetMessage(kMsgSettingsSection), GetMessage(key), fallback, file);
}

// False, and the limit as it was, when the number is too large for it.
bool ReadLimit(const std::wstring& file, MessageNumber key, const wchar_t* fallback, float& limit) {
    const double value = LeadingNumber(ReadKey(file, key, fallback));
    if (std::abs(value) > static_cast<double>(FLT_MAX)) return false;
    limit = static_cast<float>(value);
    return true;
}

void ReadDirectories(const std::wstring& file, const std::wstring& programDirectory,
                     ShellSettings& settings) {
    settings.DataDirectory = programDirectory;
    // A folder that holds this file is the suite's data folder, whatever the key says.
    if (!FileExists(programDirectory + L"Bulafn.dat")) {
        const std::wstring value = ReadKey(file, kMsgDataDirectoryKey, programDirectory);
        if (!Trim(value).empty()) settings.DataDirectory = WithTrailingBackslash(value);
    }
    settings.WorkDirectory =
        WithTrailingBackslash(ReadKey(file, kMsgWorkDirectoryKey, programDirectory));
    if (!IsDirectory(settings.WorkDirectory)) settings.WorkDirectory = settings.DataDirectory;
    settings.BrowseDirectory = ReadKey(file, kMsgBrowseDirectoryKey, settings.WorkDirectory);
    if (!IsDirectory(settings.BrowseDirectory)) settings.BrowseDirectory = settings.WorkDirectory;
}

bool WriteKey(const std::wstring& file, MessageNumber key, const std::wstring& value) {
    return system::WriteProfileText(GetMessageBytes(kMsgSettingsSection), GetMessageBytes(key),
                                    system::AnsiFromWide(value), file) == system::kErrorNone;
}

std::wstring UserName() {
    std::array<char, kLongestSetting + 1> buffer{};
    LoginName(buffer.data(), kLongestSetting);
    return system::WideFromAnsi(buffer.data());
}

bool WriteKeys(const std::wstring& file, const ShellSettings& settings) {
    return WriteKey(file, kMsgWorkDirectoryKey, settings.WorkDirectory) &&
           WriteKey(file, kMsgBrowseDirectoryKey, settings.BrowseDirectory) &&
           WriteKey(file, kMsgLoginNameKey, UserName()) &&
           (settings.KeepDatabasePath ||
            WriteKey(file, kMsgDatabasePathKey, settings.DatabasePath)) &&
           WriteKey(file, kMsgFirstLimitKey, GeneralText(settings.FirstLimit)) &&
           WriteKey(file, kMsgIntegerSettingKey, GeneralText(settings.IntegerSetting)) &&
           WriteKey(file, kMsgSecondLimitKey, GeneralText(settings.SecondLimit)) &&
           WriteKey(file, kMsgThirdLimitKey, GeneralText(settings.ThirdLimit));
}

}  // namespace

std::wstring GetIniString(const std::wstring& section, const std::wstring& key,
                          const std::wstring& fallback, const std::wstring& file) {
    // Stands for a missing key, so that a fallback outside the ANSI range comes back whole.
    static constexpr char kMissing[] = "\x01";
    const std::string value = system::ReadProfileText(
        system::AnsiFromWide(section), system::AnsiFromWide(key), kMissing, file, kLongestSetting);
    return CutAtNul(value == kMissing ? fallback.substr(0, kLongestSetting)
                                      : system::WideFromAnsi(value));
}

void ReadSettings(const std::wstring& file, ShellSettings& settings) {
    ReadSettings(file, WithTrailingBackslash(DirectoryOf(system::ProgramPath())), settings);
}

void ReadSettings(const std::wstring& file, const std::wstring& programDirectory,
                  ShellSettings& settings) {
    ReadDirectories(file, programDirectory, settings);
    settings.DatabasePath = ReadKey(file, kMsgDatabasePathKey, L"");
    if (!FileExists(settings.DatabasePath)) settings.DatabasePath.clear();
    // A number out of range ends the reading; the fields behind it stay as they were.
    if (!ReadLimit(file, kMsgFirstLimitKey, L"1.5", settings.FirstLimit)) return;
    settings.IntegerSetting = system::ReadProfileInteger(
        GetMessageBytes(kMsgSettingsSection), GetMessageBytes(kMsgIntegerSettingKey), -1, file);
    if (!ReadLimit(file, kMsgSecondLimitKey, L"3.0", settings.SecondLimit)) return;
    ReadLimit(file, kMsgThirdLimitKey, L"1.5", settings.ThirdLimit);
}

bool WriteSettings(const std::wstring& file, const ShellSettings& settings) {
    if (WriteKeys(file, settings)) return true;
    ReportStatus(kMsgSettingsNotWritten);
    return false;
}

}  // namespace corvane
