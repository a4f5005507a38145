// The services of Windows that the portable core calls. win32/ calls Windows; host/ does the same
// over POSIX, so that the core runs, and is tested, natively.
//
// Paths are Windows paths: "\" separates folders, a drive is a letter and ":". On the host the
// drives C: and Z: are both the root of the file system, "/" is accepted as a separator, and the
// current directory is given as "C:\..." unless Z: was chosen.
//
// A procedure that can fail returns a Windows error number, kErrorNone on success. Nothing here
// shows a message.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::system {

using ErrorNumber = uint32_t;

inline constexpr ErrorNumber kErrorNone = 0;
inline constexpr ErrorNumber kErrorFileNotFound = 2;
inline constexpr ErrorNumber kErrorPathNotFound = 3;
inline constexpr ErrorNumber kErrorAccessDenied = 5;
inline constexpr ErrorNumber kErrorSharingViolation = 32;
inline constexpr ErrorNumber kErrorLockViolation = 33;
inline constexpr ErrorNumber kErrorFileExists = 80;
inline constexpr ErrorNumber kErrorInvalidParameter = 87;
inline constexpr ErrorNumber kErrorDiskFull = 112;
inline constexpr ErrorNumber kErrorInvalidName = 123;
inline constexpr ErrorNumber kErrorModuleNotFound = 126;
inline constexpr ErrorNumber kErrorProcedureNotFound = 127;
// A file is no longer the one that was looked at.
inline constexpr ErrorNumber kErrorFileChanged = 1006;
inline constexpr ErrorNumber kErrorIoDevice = 1117;
// The user does not want what was begun.
inline constexpr ErrorNumber kErrorCancelled = 1223;

// The system's description of an error, without a line end: "Access is denied."
std::wstring ErrorText(ErrorNumber error);

// ---- Open files --------------------------------------------------------------------------------
// A file that is open; closed by CloseFile, which the owner must call once.

struct File {
    intptr_t handle = -1;
    bool IsOpen() const { return handle != -1; }
};

// For reading. Other programs may read, write, rename and delete the file meanwhile.
ErrorNumber OpenForReading(const std::wstring& path, File& file);
// For reading a text that is to be rewritten: nobody else can write into the file meanwhile.
// kErrorSharingViolation while another program has it open for writing.
ErrorNumber OpenForEditing(const std::wstring& path, File& file);
// A new file for writing, taking the place of what an old one of that name held. Others may read.
ErrorNumber CreateForWriting(const std::wstring& path, File& file);
// As above, but fails with kErrorFileExists when a file has the name.
ErrorNumber CreateNewForWriting(const std::wstring& path, File& file);

// For writing at the end, whatever others write there meanwhile: what one call of WriteBytes is
// given stays together. A missing file is made. Others may read, write, rename and delete the file.
ErrorNumber OpenForAppending(const std::wstring& path, File& file);

// Reads up to `most` bytes at the file's position; count 0 is the end of the file.
ErrorNumber ReadBytes(File file, void* bytes, size_t most, size_t& count);
// Writes all bytes; a short write is an error.
ErrorNumber WriteBytes(File file, const void* bytes, size_t count);
// Sets the position, in bytes from the start.
ErrorNumber SetPosition(File file, int64_t position);
// Hands what was written over to the disk.
ErrorNumber FlushToDisk(File file);
// Closes the file and makes the record a closed one; harmless on a closed record. The error is
// one of the system's last writes.
ErrorNumber CloseFile(File& file);

// ---- Files by name -----------------------------------------------------------------------------

struct FileStatus {
    bool exists = false;
    bool isDirectory = false;
    bool isReadOnly = false;
    int64_t size = 0;         // bytes
    int64_t modified = 0;     // time of the last write; see LocalTimeOf
    uint32_t attributes = 0;  // as the system has them, for CopyAttributes' sake; 0 on the host
};

// Fills `status`; a missing file is not an error (exists is false then).
ErrorNumber GetFileStatus(const std::wstring& path, FileStatus& status);
// What distinguishes a file from all others in the system, whatever the path: a link, a short name
// and a mapped drive lead to the same file.
struct FileIdentity {
    uint64_t volume = 0;
    uint64_t file = 0;
    bool operator==(const FileIdentity&) const = default;
};
// What a text is known by: a file whose stamp is the same has not been written meanwhile.
struct FileStamp {
    FileIdentity identity;
    int64_t size = 0;      // bytes
    int64_t modified = 0;  // as in FileStatus
    int64_t linkCount =
        0;  // names that the file has; a new name changes no text, so == leaves it out
    bool isReadOnly = false;  // likewise
    bool operator==(const FileStamp& other) const {
        return identity == other.identity && size == other.size && modified == other.modified;
    }
};
// Of an existing file or folder.
ErrorNumber GetFileStamp(const std::wstring& path, FileStamp& stamp);
ErrorNumber GetFileStamp(File file, FileStamp& stamp);
ErrorNumber SetReadOnly(const std::wstring& path, bool readOnly);
// Gives `to` the attributes (on the host: permissions), the access list, the owner and the creation
// time of `from`, as far as the user may. Attributes that cannot be set are an error.
ErrorNumber CopyAttributes(const std::wstring& from, const std::wstring& to);
ErrorNumber RemoveFile(const std::wstring& path);
// Copies the bytes of a file; fails when `to` exists and `overwrite` is false.
ErrorNumber CopyBytes(const std::wstring& from, const std::wstring& to, bool overwrite);
// Renames a file on one volume, replacing `to`, and waits until the disk has it. Once the file is
// in place there is no longer a failure: when the disk is late, it has the whole old text.
ErrorNumber RenameOver(const std::wstring& from, const std::wstring& to);
// Renames a file on one volume to a name that nobody has: kErrorFileExists when somebody does.
ErrorNumber RenameToNewName(const std::wstring& from, const std::wstring& to);
// Replaces an existing `target` by `replacement`. Works where a reader that permits
// deletion holds the target open. The old text goes to `backup`, or is gone, where the system can
// exchange the files in one step. After a failure `target` may be missing; its text is then in
// `backup`. Absolute paths only.
ErrorNumber SwapIn(const std::wstring& target, const std::wstring& replacement,
                   const std::wstring& backup);
// Gives a file one more name, which nobody has yet, on the same volume. Not every volume can.
ErrorNumber MakeLink(const std::wstring& existing, const std::wstring& name);
// The file that a symbolic link leads to; the path itself, made absolute, where it is not one.
std::wstring LinkedFile(const std::wstring& path);
// Names of the files and folders in a folder; none when it cannot be read.
std::vector<std::wstring> NamesIn(const std::wstring& folder);
// Whether the user may make files in a folder, as far as the system says without one being made.
bool TakesNewFiles(const std::wstring& folder);
ErrorNumber MakeDirectory(const std::wstring& path);
ErrorNumber RemoveEmptyDirectory(const std::wstring& path);

// ---- Folders -----------------------------------------------------------------------------------

// The current directory of the process, without trailing "\" but for a drive's root.
std::wstring CurrentDirectory();
ErrorNumber SetCurrentTo(const std::wstring& path);
// Whether a path is on a disk of this computer, which answers at once, and not on a network, a
// stick or a disc. Asks no disk.
bool IsOnLocalDisk(const std::wstring& path);
// The absolute path of a name, relative to the current directory.
std::wstring AbsolutePath(const std::wstring& path);
// The folder for temporary files, with a trailing "\". Empty on failure.
std::wstring TemporaryDirectory();
// A new unique name in `directory` that begins with the first three characters of `prefix`; an
// empty file of that name is created. `name` is empty after a failure, unless a file was made that
// could not be removed.
ErrorNumber NewTemporaryName(const std::wstring& directory, const std::wstring& prefix,
                             std::wstring& name);
// The full path of the running program's file.
std::wstring ProgramPath();
// Where profile files without a folder in their name are, with a trailing "\".
std::wstring WindowsDirectory();
// The folder of the user's application data (%APPDATA%), with a trailing "\"; empty: none.
std::wstring UserDataDirectory();
// The same for data that stay on this machine (%LOCALAPPDATA%).
std::wstring LocalDataDirectory();

// ---- Profile functions -------------------------------------------------------------------------
// INI files. A name without a folder is in the Windows folder; on the host, in the folder that
// the environment variable CORVANE_WINDOWS_DIRECTORY names, else in the temporary folder. Texts
// are ANSI.

// The value of a key, without quotes and blanks around it, cut to `most` characters; `fallback`
// when file, section or key is missing.
std::string ReadProfileText(const std::string& section, const std::string& key,
                            const std::string& fallback, const std::wstring& file, size_t most);
int32_t ReadProfileInteger(const std::string& section, const std::string& key, int32_t fallback,
                           const std::wstring& file);
ErrorNumber WriteProfileText(const std::string& section, const std::string& key,
                             const std::string& value, const std::wstring& file);

// ---- Code pages --------------------------------------------------------------------------------
// ANSI is the system's code page, OEM the DOS one; a code page that is not single-byte counts as
// 1252 (ANSI) or 850 (OEM), which are also the host's. A character that a code page lacks becomes
// "?". One byte is always one character.

std::wstring WideFromAnsi(std::string_view bytes);
std::string AnsiFromWide(std::wstring_view text);
std::string OemFromAnsi(std::string_view bytes);
std::string AnsiFromOem(std::string_view bytes);

// ---- Date and time -----------------------------------------------------------------------------

struct LocalTime {
    int year, month, day;  // month 1..12, day 1..31
    int hour, minute, second;
};
LocalTime Now();
// Of a file's last write (FileStatus, FileStamp).
LocalTime LocalTimeOf(int64_t modified);
// In the user's short date format, and in the user's long time format.
std::wstring ShortDateText(const LocalTime& time);
std::wstring LongTimeText(const LocalTime& time);

// ---- Process -----------------------------------------------------------------------------------

// What follows the program's own name on the command line, untouched.
std::wstring RawCommandLine();
// Claims, for as long as the process lives, the name of the running instance; false when another
// process of the user's session holds it. The name is made from the program's path, so that a copy
// elsewhere is another program.
bool ClaimSingleInstance();
// The system's name and version: "Windows 10.0.19045".
std::wstring SystemVersion();
// The number by which the system knows this process.
uint32_t ProcessNumber();
// Whether a process runs that was started from this program file. Processes that this user may not
// look at do not count.
bool IsProgramRunning(const std::wstring& path);
// Why the last call of the system failed, for what a companion library has called; kErrorNone when
// nothing has failed since ClearLastError.
ErrorNumber LastError();
void ClearLastError();
// The names of the programs that have a file open, as the system shows them to users: "One, Two".
// Empty when the system does not say.
std::wstring ProgramsThatHold(const std::wstring& path);
// Milliseconds since some moment in the past.
int64_t Milliseconds();
void SleepFor(int milliseconds);

}  // namespace corvane::system
