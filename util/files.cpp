#include "util/files.h"

#include <array>
#include <cassert>
#include <memory>

#include "app/messages.h"
#include "util/paths.h"

namespace corvane {
namespace {

using system::ErrorNumber;
using system::kErrorNone;

// The system uses the first three characters.
constexpr wchar_t kTemporaryPrefix[] = L"Corvane";

constexpr size_t kCopyBufferSize = 64 * 1024;

// Pauses between the attempts to rename over a file that another program holds: a second in all.
constexpr std::array kRenameDelays_ms = {10, 30, 60, 120, 240, 540};

bool IsHeldByAnother(ErrorNumber error) {
    return error == system::kErrorAccessDenied || error == system::kErrorSharingViolation ||
           error == system::kErrorLockViolation;
}

ErrorNumber CopyOpenFile(system::File from, system::File to) {
    const auto buffer = std::make_unique<char[]>(kCopyBufferSize);
    while (true) {
        size_t count = 0;
        ErrorNumber error = system::ReadBytes(from, buffer.get(), kCopyBufferSize, count);
        if (error != kErrorNone || count == 0) return error;
        error = system::WriteBytes(to, buffer.get(), count);
        if (error != kErrorNone) return error;
    }
}

// Fills the empty file `copy` from `source` and sees to it that the disk has it.
ErrorNumber CopyToDisk(system::File source, const std::wstring& copy) {
    system::File file;
    ErrorNumber error = system::CreateForWriting(copy, file);
    if (error != kErrorNone) return error;
    error = CopyOpenFile(source, file);
    if (error == kErrorNone) error = system::FlushToDisk(file);
    const ErrorNumber closing = system::CloseFile(file);
    return error != kErrorNone ? error : closing;
}

// Makes a new file beside `target` with the text of `temporary`. `copy` gets its name once there
// is one to be removed.
ErrorNumber CopyBeside(const std::wstring& temporary, const std::wstring& target,
                       std::wstring& copy) {
    system::File source;
    ErrorNumber error = system::OpenForReading(temporary, source);
    if (error != kErrorNone) return error;
    error = system::NewTemporaryName(DirectoryOf(target), kTemporaryPrefix, copy);
    if (error == kErrorNone) error = CopyToDisk(source, copy);
    system::CloseFile(source);
    return error;
}

ErrorNumber RenamePatiently(const std::wstring& from, const std::wstring& to) {
    ErrorNumber error = system::RenameOver(from, to);
    for (const int delay : kRenameDelays_ms) {
        if (!IsHeldByAnother(error)) break;
        system::SleepFor(delay);
        error = system::RenameOver(from, to);
    }
    return error;
}

// The way for a target that a reader holds for good. The old text stands under the backup name
// until the new one is in place.
ErrorNumber SwapWithBackup(const std::wstring& copy, const std::wstring& target) {
    std::wstring backup;
    ErrorNumber error = system::NewTemporaryName(DirectoryOf(target), kTemporaryPrefix, backup);
    if (error != kErrorNone) return error;
    KillFile(backup);  // only its name is wanted
    error = system::SwapIn(target, copy, backup);
    if (error == kErrorNone) KillFile(backup);
    return error;
}

ErrorNumber PutInPlace(const std::wstring& copy, const std::wstring& target, bool targetExists) {
    if (targetExists) {
        const ErrorNumber error = system::CopyAttributes(target, copy);
        if (error != kErrorNone) return error;
    }
    const ErrorNumber error = RenamePatiently(copy, target);
    return targetExists && IsHeldByAnother(error) ? SwapWithBackup(copy, target) : error;
}

}  // namespace

bool FileExists(const std::wstring& path) {
    if (path.empty()) return false;
    system::File file;
    const ErrorNumber error = system::OpenForReading(path, file);
    system::CloseFile(file);
    // A file that is missing is an answer, no error.
    if (error != kErrorNone && error != system::kErrorFileNotFound &&
        error != system::kErrorPathNotFound) {
        ReportDebugError(L"FileExist(" + path + L")", error);
    }
    return error == kErrorNone;
}

bool IsDirectory(const std::wstring& path) {
    system::FileStatus status;
    return system::GetFileStatus(StripTrailingBackslash(path), status) == kErrorNone &&
           status.exists && status.isDirectory;
}

bool IsReadOnlyFile(const std::wstring& path) {
    system::FileStatus status;
    return system::GetFileStatus(path, status) == kErrorNone && status.exists && status.isReadOnly;
}

void KillFile(const std::wstring& path) {
    if (!FileExists(path)) return;
    const ErrorNumber error = system::RemoveFile(path);
    if (error != kErrorNone) ReportDebugError(L"ExKill " + path, error);
}

std::wstring TempFileName() {
    const std::wstring directory = system::TemporaryDirectory();
    if (directory.empty()) return {};
    std::wstring name;
    if (system::NewTemporaryName(directory, kTemporaryPrefix, name) != kErrorNone) return {};
    KillFile(name);
    return name;
}

ReplaceResult PutCopy(const std::wstring& source, const std::wstring& target) {
    const std::wstring path = system::AbsolutePath(target);
    assert(system::AbsolutePath(source) != path);
    system::FileStatus status;
    ErrorNumber error = system::GetFileStatus(path, status);
    if (error != kErrorNone) return {error};
    if (status.exists && (status.isReadOnly || status.isDirectory)) {
        return {system::kErrorAccessDenied};
    }
    std::wstring copy;
    error = CopyBeside(source, path, copy);
    if (error == kErrorNone) error = PutInPlace(copy, path, status.exists);
    if (error != kErrorNone && !copy.empty()) KillFile(copy);
    return {error};
}

ReplaceResult ReplaceFile(const std::wstring& temporary, const std::wstring& target) {
    const ReplaceResult result = PutCopy(temporary, target);
    if (result.Done()) KillFile(temporary);
    return result;
}

void ChangeToDirectory(const std::wstring& path) {
    if (path.size() >= 2 && path[1] == L':') system::SetCurrentTo(path.substr(0, 2));
    std::wstring folder = StripTrailingBackslash(path);
    if (folder.empty() || folder.ends_with(L':')) folder += L'\\';
    system::SetCurrentTo(folder);
}

}  // namespace corvane
