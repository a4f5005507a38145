#include "files/file_system.h"

#include <memory>

#include "files/paths.h"
#include "files/progress.h"
#include "platform/patience.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

using system::CallPatiently;
using system::ErrorNumber;
using system::IsHeldByAnother;
using system::IsLocked;
using system::kErrorNone;

constexpr size_t kCopyBufferSize = 64 * 1024;

ErrorNumber CopyOpenFile(system::File from, system::File to) {
    const auto buffer = std::make_unique<char[]>(kCopyBufferSize);
    system::FileStamp stamp;
    ErrorNumber error = system::GetFileStamp(from, stamp);
    Progress progress(stamp.size);
    size_t count = 1;
    while (error == kErrorNone && count > 0) {
        error = system::ReadBytes(from, buffer.get(), kCopyBufferSize, count);
        if (error == kErrorNone) error = system::WriteBytes(to, buffer.get(), count);
        const auto done = static_cast<int64_t>(count);
        if (error == kErrorNone && !Advance(progress, done)) error = system::kErrorCancelled;
    }
    return error;
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
    return CallPatiently(IsHeldByAnother, [&] { return system::RenameOver(from, to); });
}

void RemoveOrTell(const std::wstring& path, ReplaceResult& result) {
    if (RemoveOwnFile(path) != kErrorNone) result.leftOver = path;
}

// A swap failed. The target may be missing, which must be known, and its old text may be in the
// backup, which began as an empty file.
void UndoSwap(const std::wstring& backup, const std::wstring& target, ReplaceResult& result) {
    system::FileStatus targetStatus;
    system::FileStatus backupStatus;
    const bool isTargetKnown = system::GetFileStatus(target, targetStatus) == kErrorNone;
    system::GetFileStatus(backup, backupStatus);
    if (backupStatus.size == 0 || (isTargetKnown && targetStatus.exists)) {
        RemoveOrTell(backup, result);
    } else if (!isTargetKnown || RenamePatiently(backup, target) != kErrorNone) {
        result.oldText = backup;
    }
}

bool IsChanged(const std::wstring& path, const system::FileStamp* old) {
    system::FileStamp now;
    return old != nullptr && !(system::GetFileStamp(path, now) == kErrorNone && now == *old);
}

// The way for a target that a reader holds for good. The old text is under the backup name
// until the new one is in place; it is not removed unless the target has one of the two.
void SwapWithBackup(const std::wstring& copy, const std::wstring& target, ReplaceResult& result) {
    std::wstring backup;
    result.error = system::NewTemporaryName(DirectoryOf(target), kTemporaryPrefix, backup);
    if (result.error != kErrorNone) return;
    result.error = system::SwapIn(target, copy, backup);
    result.Done() ? RemoveOrTell(backup, result) : UndoSwap(backup, target, result);
}

void LogWritten(const ReplaceResult& result) {
    if (result.Done()) Log(LogKind::kWrite, result.target);
}

// Nobody was asked about a target that was not there.
void PutInNewPlace(const std::wstring& copy, ReplaceResult& result) {
    result.error = CallPatiently(IsHeldByAnother,
                                 [&] { return system::RenameToNewName(copy, result.target); });
    LogWritten(result);
}

// Each attempt looks first whether the target still has the text that is to go; `old` null: any.
void PutInPlaceOfOld(const std::wstring& copy, const system::FileStamp* old,
                     ReplaceResult& result) {
    result.error = CallPatiently(IsHeldByAnother, [&] {
        return IsChanged(result.target, old) ? system::kErrorFileChanged
                                             : system::RenameOver(copy, result.target);
    });
    if (IsHeldByAnother(result.error)) SwapWithBackup(copy, result.target, result);
    LogWritten(result);
}

// Why a target cannot be replaced at all.
ErrorNumber RefusalOf(const system::FileStatus& target, TargetKind kind) {
    if (!target.exists) return kErrorNone;
    if (kind == TargetKind::kNew) return system::kErrorFileExists;
    return target.isReadOnly || target.isDirectory ? system::kErrorAccessDenied : kErrorNone;
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

bool IsOutOfReach(const std::wstring& path) {
    if (FileExists(path)) return false;
    system::FileStatus status;
    if (system::GetFileStatus(path, status) != kErrorNone) return true;
    return status.exists ? !status.isDirectory : !IsDirectory(DirectoryOf(path));
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

bool CanBeRewritten(const std::wstring& path) {
    const std::wstring target = system::LinkedFile(path);
    return !IsReadOnlyFile(target) && system::TakesNewFiles(DirectoryOf(target));
}

bool IsSameFile(const std::wstring& a, const std::wstring& b) {
    system::FileStamp first;
    system::FileStamp second;
    if (system::GetFileStamp(a, first) == kErrorNone &&
        system::GetFileStamp(b, second) == kErrorNone) {
        return first.identity == second.identity;
    }
    return EqualsIgnoringCase(system::AbsolutePath(a), system::AbsolutePath(b));
}

void KillFile(const std::wstring& path) {
    if (!FileExists(path)) return;
    const ErrorNumber error = system::RemoveFile(path);
    if (error != kErrorNone) ReportDebugError(L"ExKill " + path, error);
}

ErrorNumber AwaitReadable(const std::wstring& path) {
    return CallPatiently(IsLocked, [&] {
        system::File file;
        const ErrorNumber error = system::OpenForReading(path, file);
        system::CloseFile(file);
        return error;
    });
}

ErrorNumber OpenPatiently(const std::wstring& path, system::File& file) {
    return CallPatiently(IsLocked, [&] { return system::OpenForEditing(path, file); });
}

bool IsOpenForWriting(const std::wstring& path) {
    system::File file;
    const ErrorNumber error = system::OpenForEditing(path, file);
    system::CloseFile(file);
    return IsLocked(error);
}

ErrorNumber RemoveOwnFile(const std::wstring& path) {
    const auto isThere = [](ErrorNumber error) {
        return error != kErrorNone && error != system::kErrorFileNotFound;
    };
    const ErrorNumber error = CallPatiently(isThere, [&] { return system::RemoveFile(path); });
    if (!isThere(error)) return kErrorNone;
    ReportDebugError(L"ExKill " + path, error);
    return error;
}

bool HasTemporaryName(const std::wstring& path) {
    const std::wstring name = UpperCase(FileNameOf(path));
    const std::wstring prefix = UpperCase(std::wstring(kTemporaryPrefix, 3));
    if (!name.starts_with(prefix) || !name.ends_with(L".TMP")) return false;
    const size_t digits = name.find_first_not_of(L"0123456789ABCDEF", prefix.size());
    return digits == name.size() - 4 && digits > prefix.size();
}

ErrorNumber NewTemporaryFile(std::wstring& path) {
    path.clear();
    const std::wstring directory = system::TemporaryDirectory();
    if (directory.empty()) return system::kErrorPathNotFound;
    return system::NewTemporaryName(directory, kTemporaryPrefix, path);
}

std::wstring TempFileName() {
    std::wstring name;
    const ErrorNumber error = NewTemporaryFile(name);
    KillFile(name);
    return error == kErrorNone ? name : std::wstring();
}

ReplaceResult PutInPlace(const std::wstring& newText, const std::wstring& target,
                         const system::FileStamp* old) {
    ReplaceResult result;
    result.target = target;
    result.newText = newText;
    if (old == nullptr) {
        PutInNewPlace(newText, result);
        return result;
    }
    system::FileStatus status;
    result.error = system::GetFileStatus(target, status);
    if (result.Done()) result.error = RefusalOf(status, TargetKind::kAny);
    if (result.Done()) PutInPlaceOfOld(newText, old, result);
    return result;
}

ReplaceResult PutLinkOrCopy(const std::wstring& source, const std::wstring& target) {
    ReplaceResult result;
    result.target = target;
    result.newText = source;
    system::FileStatus status;
    result.error = system::GetFileStatus(target, status);
    if (result.Done()) result.error = RefusalOf(status, TargetKind::kAny);
    // Two links to one file cannot be renamed to each other.
    if (!result.Done() || (status.exists && IsSameFile(source, target))) return result;
    std::wstring link;
    result.error = system::NewTemporaryName(DirectoryOf(target), kTemporaryPrefix, link);
    if (!result.Done()) {
        if (!link.empty()) RemoveOrTell(link, result);
        return result;
    }
    RemoveOrTell(link, result);  // only its name is wanted
    if (!result.leftOver.empty() || system::MakeLink(source, link) != kErrorNone) {
        ReplaceResult copied = PutCopy(source, target);
        if (copied.leftOver.empty()) copied.leftOver = result.leftOver;
        return copied;
    }
    status.exists ? PutInPlaceOfOld(link, nullptr, result) : PutInNewPlace(link, result);
    if (!result.Done()) RemoveOrTell(link, result);
    return result;
}

ReplaceResult PutCopy(const std::wstring& source, const std::wstring& target, TargetKind kind,
                      const LastLook& lastLook) {
    ReplaceResult result;
    result.target = system::AbsolutePath(target);
    result.newText = source;
    system::FileStatus status;
    result.error = system::GetFileStatus(result.target, status);
    if (result.Done()) result.error = RefusalOf(status, kind);
    if (!result.Done()) return result;
    std::wstring copy;
    result.error = CopyBeside(source, result.target, copy);
    if (result.Done() && status.exists) result.error = system::CopyAttributes(result.target, copy);
    if (result.Done() && lastLook) result.error = lastLook(copy);
    if (result.Done())
        status.exists ? PutInPlaceOfOld(copy, nullptr, result) : PutInNewPlace(copy, result);
    if (!result.Done() && !copy.empty()) RemoveOrTell(copy, result);
    return result;
}

ReplaceResult ReplaceFile(const std::wstring& temporary, const std::wstring& target) {
    ReplaceResult result = PutCopy(temporary, target);
    if (result.Done()) RemoveOrTell(temporary, result);
    return result;
}

ErrorNumber CopyToNewFile(const std::wstring& source, const std::wstring& copy) {
    system::File file;
    ErrorNumber error = OpenPatiently(source, file);
    if (error == kErrorNone) error = CopyToDisk(file, copy);
    system::CloseFile(file);
    return error;
}

void ChangeToDirectory(const std::wstring& path) {
    if (path.size() >= 2 && path[1] == L':') system::SetCurrentTo(path.substr(0, 2));
    std::wstring folder = StripTrailingBackslash(path);
    if (folder.empty() || folder.ends_with(L':')) folder += L'\\';
    system::SetCurrentTo(folder);
}

}  // namespace corvane
