#include "files/history.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string_view>
#include <utility>

#include "files/file_system.h"
#include "files/paths.h"
#include "files/settings_file.h"
#include "files/text_file.h"
#include "text/text.h"

namespace corvane {
namespace {

using system::ErrorNumber;
using system::FileStamp;
using system::kErrorNone;

constexpr std::string_view kHead = "Corvane history 1";

struct KeptDatabase {
    int32_t number = 0;
    std::wstring path;
};

struct HistoryIndex {
    std::vector<KeptDatabase> databases;
    std::vector<TextVersion> versions;  // of all databases, the oldest first
};

// ---- Where -------------------------------------------------------------------------------------

// With a trailing "\"; empty when the user has no folder for such data.
std::wstring HistoryFolder() {
    const std::wstring portable = PortableFolder();
    if (!portable.empty()) return portable + L"history\\";
    const std::wstring folder = system::LocalDataDirectory();
    return folder.empty() ? folder : folder + L"Corvane\\history\\";
}

std::wstring FolderOf(int32_t database) {
    return HistoryFolder() + std::to_wstring(database) + L'\\';
}

std::wstring FileOf(const TextVersion& version) {
    return FolderOf(version.database) + std::to_wstring(version.number) + L".ve2";
}

std::wstring IndexPath() {
    return HistoryFolder() + L"index.txt";
}

// Makes the history's folders as far as they are missing; whether they are there is seen when
// something is written into them.
void MakeHistoryFolder() {
    const std::wstring folder = StripTrailingBackslash(HistoryFolder());
    if (IsDirectory(folder)) return;
    system::MakeDirectory(StripTrailingBackslash(DirectoryOf(folder)));
    system::MakeDirectory(folder);
}

// ---- The index as text -------------------------------------------------------------------------

// A text as a field of a line: what is not plain is written as its number, "%E9;".
std::string Field(std::wstring_view text) {
    std::string field;
    for (const wchar_t letter : text) {
        if (letter >= L' ' && letter < 0x7F && letter != L'%') {
            field += static_cast<char>(letter);
            continue;
        }
        std::array<char, 16> number;
        std::snprintf(number.data(), number.size(), "%%%X;", static_cast<unsigned>(letter));
        field += number.data();
    }
    return field;
}

std::wstring TextOf(std::string_view field) {
    std::wstring text;
    for (size_t i = 0; i < field.size(); ++i) {
        const size_t end = field[i] == '%' ? field.find(';', i) : std::string_view::npos;
        if (end == std::string_view::npos) {
            text += static_cast<wchar_t>(static_cast<unsigned char>(field[i]));
            continue;
        }
        const std::string number(field.substr(i + 1, end - i - 1));
        text += static_cast<wchar_t>(std::strtoul(number.c_str(), nullptr, 16));
        i = end;
    }
    return text;
}

// The fields of a line, read one after the other; those that are missing are 0 and empty.
struct FieldReader {
    std::string_view rest;

    std::string_view Next() {
        const size_t end = std::min(rest.find('\t'), rest.size());
        const std::string_view field = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        return field;
    }
    std::wstring Text() { return TextOf(Next()); }
    uint64_t Number() { return std::strtoull(std::string(Next()).c_str(), nullptr, 10); }
    int32_t Count() { return static_cast<int32_t>(Number()); }
    FileStamp Stamp() {
        FileStamp stamp;
        stamp.identity.volume = Number();
        stamp.identity.file = Number();
        stamp.size = static_cast<int64_t>(Number());
        stamp.modified = static_cast<int64_t>(Number());
        return stamp;
    }
};

std::string StampFields(const FileStamp& stamp) {
    return std::to_string(stamp.identity.volume) + '\t' + std::to_string(stamp.identity.file) +
           '\t' + std::to_string(stamp.size) + '\t' + std::to_string(stamp.modified);
}

std::string DatabaseLine(const KeptDatabase& database) {
    return "database\t" + std::to_string(database.number) + '\t' + Field(database.path);
}

std::string VersionLine(const TextVersion& version) {
    return "version\t" + std::to_string(version.database) + '\t' + std::to_string(version.number) +
           '\t' + static_cast<char>(version.kind) + '\t' + Field(version.time) + '\t' +
           Field(version.user) + '\t' + Field(version.what) + '\t' +
           std::to_string(version.models) + '\t' + StampFields(version.old) + '\t' +
           StampFields(version.now) + '\t' + std::to_string(version.kept);
}

TextVersion ReadVersion(FieldReader& fields) {
    TextVersion version;
    version.database = fields.Count();
    version.number = fields.Count();
    const std::string_view kind = fields.Next();
    version.kind = kind.empty() ? VersionKind::kOld : static_cast<VersionKind>(kind[0]);
    version.time = fields.Text();
    version.user = fields.Text();
    version.what = fields.Text();
    version.models = fields.Count();
    version.old = fields.Stamp();
    version.now = fields.Stamp();
    version.kept = static_cast<int64_t>(fields.Number());
    return version;
}

// A missing index is an empty one; one that another version of the program wrote is an error.
ErrorNumber ReadIndex(HistoryIndex& index) {
    if (HistoryFolder().empty()) return system::kErrorPathNotFound;
    TextReader reader;
    if (!OpenText(reader, IndexPath())) {
        const bool isMissing = reader.error == system::kErrorFileNotFound ||
                               reader.error == system::kErrorPathNotFound;
        return isMissing ? kErrorNone : reader.error;
    }
    std::string_view line;
    if (ReadLine(reader, line) && line != kHead) return system::kErrorInvalidParameter;
    while (ReadLine(reader, line)) {
        FieldReader fields{line};
        const std::string_view kind = fields.Next();
        if (kind == "database") {
            const int32_t number = fields.Count();
            index.databases.push_back({number, fields.Text()});
        } else if (kind == "version") {
            index.versions.push_back(ReadVersion(fields));
        }
    }
    return reader.error;
}

ErrorNumber WriteIndex(const HistoryIndex& index) {
    const std::wstring newIndex = HistoryFolder() + L"index.new";
    TextWriter writer;
    if (CreateText(writer, newIndex)) {
        WriteLine(writer, kHead);
        for (const KeptDatabase& database : index.databases) {
            WriteLine(writer, DatabaseLine(database));
        }
        for (const TextVersion& version : index.versions) WriteLine(writer, VersionLine(version));
        FlushText(writer);
        CloseText(writer);
    }
    return writer.error != kErrorNone ? writer.error : system::RenameOver(newIndex, IndexPath());
}

// ---- The databases and versions of the index ---------------------------------------------------

bool IsAt(const std::wstring& path, const system::FileIdentity& identity) {
    FileStamp stamp;
    return system::GetFileStamp(path, stamp) == kErrorNone && stamp.identity == identity;
}

const TextVersion* NewestOf(const HistoryIndex& index, int32_t database) {
    const auto newest =
        std::find_if(index.versions.rbegin(), index.versions.rend(),
                     [&](const TextVersion& version) { return version.database == database; });
    return newest == index.versions.rend() ? nullptr : &*newest;
}

// The database of the index that the file at `path` is; null: none. The file that came last is the
// database wherever it was moved to and whatever its name is now; not when it is still where it was
// and `path` is another name of it.
KeptDatabase* FindDatabase(HistoryIndex& index, const std::wstring& path,
                           const system::FileIdentity& identity) {
    KeptDatabase* atPath = nullptr;
    for (KeptDatabase& database : index.databases) {
        const bool isAtPath = EqualsIgnoringCase(database.path, path);
        const TextVersion* newest = NewestOf(index, database.number);
        const bool isFile = newest != nullptr && newest->now.identity == identity;
        if (isFile && (isAtPath || !IsAt(database.path, identity))) return &database;
        if (isAtPath) atPath = &database;
    }
    return atPath;
}

int32_t DatabaseNumber(HistoryIndex& index, const std::wstring& path,
                       const system::FileIdentity& identity) {
    const KeptDatabase* found = FindDatabase(index, path, identity);
    int32_t number = found != nullptr ? found->number : 1;
    for (KeptDatabase& database : index.databases) {
        if (found == nullptr) number = std::max(number, database.number + 1);
        // Another database was there before this one.
        if (EqualsIgnoringCase(database.path, path)) database.path.clear();
        if (database.number == number) database.path = path;
    }
    if (found == nullptr) index.databases.push_back({number, path});
    return number;
}

// What the disk has of a version. False: nothing. A file that cannot be looked at now is there.
bool LookAtFile(TextVersion& version) {
    version.file = FileOf(version);
    system::FileStatus status;
    if (system::GetFileStatus(version.file, status) != kErrorNone) return true;
    version.isChanged = status.size != version.old.size || status.modified != version.kept;
    return status.exists;
}

void DropLinesWithoutFile(HistoryIndex& index, int32_t database) {
    std::erase_if(index.versions, [&](TextVersion& version) {
        return version.database == database && !LookAtFile(version);
    });
}

// Makes room for a version of this size: the oldest go, but never the newest of a database.
void RemoveOldVersions(HistoryIndex& index, int32_t database, int64_t newSize,
                       const HistoryLimits& limits) {
    int64_t bytes = newSize;
    int32_t count = 1;
    for (const TextVersion& version : index.versions) {
        bytes += version.old.size;
        if (version.database == database) ++count;
    }
    std::vector<TextVersion> left;
    for (const TextVersion& version : index.versions) {
        const bool isOwn = version.database == database;
        const bool isBeyond = bytes > limits.bytes || (isOwn && count > limits.versions);
        if (!isBeyond || &version == NewestOf(index, version.database) ||
            RemoveOwnFile(FileOf(version)) != kErrorNone) {
            left.push_back(version);
            continue;
        }
        bytes -= version.old.size;
        if (isOwn) --count;
    }
    index.versions = std::move(left);
}

// ---- Keeping -----------------------------------------------------------------------------------

// Open for as long as the history is changed: another instance of the program waits or goes
// without.
struct HistoryLock {
    system::File file;
    ErrorNumber error;
    HistoryLock() {
        MakeHistoryFolder();
        error = system::CreateForWriting(HistoryFolder() + L"lock", file);
    }
    ~HistoryLock() { system::CloseFile(file); }
    HistoryLock(const HistoryLock&) = delete;
    HistoryLock& operator=(const HistoryLock&) = delete;
};

ErrorNumber MakeVersionFile(const VersionToKeep& toKeep, TextVersion& version) {
    version.file = FileOf(version);
    system::MakeDirectory(StripTrailingBackslash(FolderOf(version.database)));
    ErrorNumber error = RemoveOwnFile(version.file);  // one that has no line
    if (error != kErrorNone) return error;
    const bool isLinked =
        !toKeep.asCopy && system::MakeLink(toKeep.path, version.file) == kErrorNone;
    if (!isLinked) error = CopyToNewFile(toKeep.path, version.file);
    FileStamp stamp;
    if (error == kErrorNone) error = system::GetFileStamp(toKeep.path, stamp);
    if (error == kErrorNone && !(stamp == version.old)) error = system::kErrorFileChanged;
    if (error == kErrorNone) error = system::GetFileStamp(version.file, stamp);
    version.kept = stamp.modified;
    return error;
}

// The lines as they are with the new version: what it makes of the others.
void AddLine(const VersionToKeep& toKeep, const TextVersion& version, HistoryIndex& index) {
    for (TextVersion& other : index.versions) {
        if (other.database != version.database) continue;
        // The text that comes back is the one that this line's edit made.
        if (other.now == toKeep.putBack) other.now = version.now;
        const bool clearsRedo = version.kind == VersionKind::kEdit && !toKeep.keepsRedo;
        if (clearsRedo && other.kind == VersionKind::kUndo) other.kind = VersionKind::kOld;
    }
    index.versions.push_back(version);
}

// The newest version, when it is the text that is to be kept, and its file; it leaves the index.
bool TakeSameVersion(HistoryIndex& index, int32_t database, TextVersion& version) {
    const TextVersion* newest = NewestOf(index, database);
    if (newest == nullptr || !(newest->old == version.old) || newest->isChanged) return false;
    version.number = newest->number;
    version.file = newest->file;
    version.kept = newest->kept;
    index.versions.erase(index.versions.begin() + (newest - index.versions.data()));
    return true;
}

}  // namespace

ErrorNumber ReadHistory(const std::wstring& path, std::vector<TextVersion>& versions) {
    versions.clear();
    HistoryIndex index;
    const ErrorNumber error = ReadIndex(index);
    if (error != kErrorNone) return error;
    FileStamp stamp;
    system::GetFileStamp(path, stamp);
    const KeptDatabase* database = FindDatabase(index, system::LinkedFile(path), stamp.identity);
    if (database == nullptr) return kErrorNone;
    for (TextVersion& version : index.versions) {
        if (version.database != database->number || !LookAtFile(version)) continue;
        versions.push_back(version);
    }
    return kErrorNone;
}

ErrorNumber KeepVersion(const VersionToKeep& toKeep, std::wstring& file) {
    file.clear();
    if (HistoryFolder().empty()) return system::kErrorPathNotFound;
    const HistoryLock lock;
    HistoryIndex index;
    ErrorNumber error = lock.error != kErrorNone ? lock.error : ReadIndex(index);
    if (error != kErrorNone) return error;
    TextVersion version = toKeep.version;
    version.database = DatabaseNumber(index, toKeep.path, version.old.identity);
    version.time = TimeText(system::Now());
    DropLinesWithoutFile(index, version.database);
    const bool isThere = TakeSameVersion(index, version.database, version);
    if (!isThere) {
        const TextVersion* newest = NewestOf(index, version.database);
        version.number = newest == nullptr ? 1 : newest->number + 1;
        RemoveOldVersions(index, version.database, version.old.size, toKeep.limits);
        error = MakeVersionFile(toKeep, version);
    }
    if (error == kErrorNone) {
        AddLine(toKeep, version, index);
        error = WriteIndex(index);
    }
    if (error == kErrorNone) {
        file = version.file;
    } else if (!isThere) {
        RemoveOwnFile(version.file);
    }
    return error;
}

ErrorNumber NoteNewStamp(const std::wstring& path, const FileStamp& before, const FileStamp& now) {
    if (HistoryFolder().empty()) return system::kErrorPathNotFound;
    const HistoryLock lock;
    HistoryIndex index;
    const ErrorNumber error = lock.error != kErrorNone ? lock.error : ReadIndex(index);
    if (error != kErrorNone) return error;
    const KeptDatabase* database = FindDatabase(index, system::LinkedFile(path), before.identity);
    if (database == nullptr) return kErrorNone;
    const TextVersion* newest = NewestOf(index, database->number);
    if (newest == nullptr || !(newest->now == before)) return kErrorNone;
    index.versions[static_cast<size_t>(newest - index.versions.data())].now = now;
    return WriteIndex(index);
}

UndoSteps NextSteps(const std::vector<TextVersion>& versions, const FileStamp& current) {
    UndoSteps steps;
    for (const TextVersion& version : versions) {
        if (version.old == current) continue;
        if (version.kind == VersionKind::kEdit) steps.undo = &version;
        if (version.kind == VersionKind::kUndo) steps.redo = &version;
    }
    return steps;
}

std::wstring TimeText(const system::LocalTime& time) {
    std::array<wchar_t, 80> text;
    std::swprintf(text.data(), text.size(), L"%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month,
                  time.day, time.hour, time.minute, time.second);
    return text.data();
}

}  // namespace corvane
