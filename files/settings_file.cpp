#include "files/settings_file.h"

#include "files/paths.h"
#include "platform/system.h"

namespace corvane {
namespace {

bool IsThere(const std::wstring& path) {
    system::FileStatus status;
    return system::GetFileStatus(path, status) == system::kErrorNone && status.exists &&
           !status.isDirectory;
}

std::wstring FileBesideProgram() {
    return WithTrailingBackslash(DirectoryOf(system::ProgramPath())) + kSettingsFile;
}

// Empty when the user has no folder for application data.
std::wstring OwnFolder() {
    const std::wstring folder = system::UserDataDirectory();
    return folder.empty() ? folder : folder + L"Corvane\\";
}

bool MakeEmptyFile(const std::wstring& path) {
    system::File file;
    return system::CreateNewForWriting(path, file) == system::kErrorNone &&
           system::CloseFile(file) == system::kErrorNone;
}

}  // namespace

bool IsPortable() {
    return IsThere(FileBesideProgram());
}

std::wstring SettingsFile() {
    if (IsPortable()) return FileBesideProgram();
    const std::wstring own = OwnFolder() + kSettingsFile;
    return own != kSettingsFile && IsThere(own) ? own : kSettingsFile;
}

std::wstring SettingsFilePath() {
    const std::wstring file = SettingsFile();
    return file == kSettingsFile ? system::WindowsDirectory() + file : file;
}

std::wstring MakeOwnSettingsFile() {
    const std::wstring folder = OwnFolder();
    if (folder.empty()) return {};
    std::wstring own = folder + kSettingsFile;
    if (IsThere(own)) return own;
    system::MakeDirectory(StripTrailingBackslash(folder));
    const std::wstring shared = system::WindowsDirectory() + kSettingsFile;
    if (!IsThere(shared)) return MakeEmptyFile(own) ? own : std::wstring();
    // The copy of a file that can't be written is one that can.
    if (system::CopyBytes(shared, own, false) != system::kErrorNone) return {};
    system::SetReadOnly(own, false);
    return own;
}

}  // namespace corvane
