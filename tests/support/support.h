// What several unit tests share: their own folders, whole files, and fakes of the libraries.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/companion.h"

namespace corvane::test {

// A new empty folder in the temporary folder, with a trailing "\"; removed with all files in it at
// the end of the test.
struct TemporaryFolder {
    std::wstring path;
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::wstring File(std::wstring_view name) const { return path + std::wstring(name); }
};

// While one of these lives, the system's temporary folder is one that does not exist.
struct NoTemporaryFolder {
    NoTemporaryFolder();
    ~NoTemporaryFolder();
    NoTemporaryFolder(const NoTemporaryFolder&) = delete;
    NoTemporaryFolder& operator=(const NoTemporaryFolder&) = delete;

private:
    std::wstring usual;
};

// The folder of the user's local application data is this one from now on.
void SetLocalDataDirectory(const std::wstring& folder);

// While one of these lives, the history of databases is in a folder of its own (files/history.h).
struct OwnHistory {
    TemporaryFolder folder;
    OwnHistory();
    ~OwnHistory();
    OwnHistory(const OwnHistory&) = delete;
    OwnHistory& operator=(const OwnHistory&) = delete;
    // Path of a file of the history: "index.txt", "1\\2.ve2".
    std::wstring File(std::wstring_view name) const {
        return folder.File(L"Corvane\\history\\" + std::wstring(name));
    }

private:
    std::wstring usual;
};

// While one of these lives, temporary files are in memory, where the system has a folder for that:
// flushing them to the disk takes no time.
struct TemporaryFilesInMemory {
    TemporaryFilesInMemory();
    ~TemporaryFilesInMemory();
    TemporaryFilesInMemory(const TemporaryFilesInMemory&) = delete;
    TemporaryFilesInMemory& operator=(const TemporaryFilesInMemory&) = delete;

private:
    std::wstring usual;
};

void WriteFileBytes(const std::wstring& path, std::string_view bytes);
std::string ReadFileBytes(const std::wstring& path);
// Names of the files in a folder, sorted.
std::vector<std::wstring> FilesIn(const std::wstring& folder);

// Path of a file below tests/, "golden/head.ve2".
std::wstring DataPath(std::string_view name);

// A file whose reads fail, on the host and under Wine.
inline constexpr wchar_t kUnreadableFile[] = L"Z:\\proc\\self\\mem";

// Whether this user is kept from writing a file that is marked read-only: an administrator of the
// host is not.
bool ReadOnlyHasEffect();

// Keeps the process's current directory: what a test makes of it is undone at its end.
struct KeepCurrentDirectory {
    std::wstring path;
    KeepCurrentDirectory();
    ~KeepCurrentDirectory();
    KeepCurrentDirectory(const KeepCurrentDirectory&) = delete;
    KeepCurrentDirectory& operator=(const KeepCurrentDirectory&) = delete;
};

// There is no "Corvane.ini" when the test begins; what it then writes is at `path`. The file that
// was there before comes back at the end.
struct FreshSettingsFile {
    TemporaryFolder folder;
    std::wstring path;
    FreshSettingsFile();
    ~FreshSettingsFile();
    FreshSettingsFile(const FreshSettingsFile&) = delete;
    FreshSettingsFile& operator=(const FreshSettingsFile&) = delete;

private:
    std::wstring userFolder;  // where the user's own file would be
    std::string before;       // the old file's bytes, or the old place of the file
    bool wasThere = false;
};

// A procedure with the calling convention of the companion libraries, for one that captures
// nothing.
template <class Pointer>
struct Called;
template <class Result, class... Arguments>
struct Called<Result(CORVANE_STDCALL*)(Arguments...)> {
    template <class Fake>
    static Result CORVANE_STDCALL By(Arguments... arguments) {
        return Fake{}(arguments...);
    }
};

// Puts a procedure instead of a companion library's function:
//     FakeFunction fake(corvane::IsRegionalOK, [] { return int16_t{0}; });
template <class Function>
struct FakeFunction {
    using Pointer = typename Function::Pointer;

    Function& function;
    Function saved;
    FakeFunction(Function& replaced, Pointer fake) : function(replaced), saved(replaced) {
        function.pointer = fake;
    }
    template <class Fake>
        requires std::is_empty_v<Fake>
    FakeFunction(Function& replaced, Fake)
        : FakeFunction(replaced, &Called<Pointer>::template By<Fake>) {}
    ~FakeFunction() { function = saved; }
    FakeFunction(const FakeFunction&) = delete;
    FakeFunction& operator=(const FakeFunction&) = delete;
};
template <class Function, class Fake>
FakeFunction(Function&, Fake) -> FakeFunction<Function>;

// A catalogue that has these messages (ANSI bytes) and no others. `asked` holds the numbers that
// were fetched, in order.
struct FakeCatalogue {
    explicit FakeCatalogue(std::map<int32_t, std::string> texts);
    ~FakeCatalogue();
    FakeCatalogue(const FakeCatalogue&) = delete;
    FakeCatalogue& operator=(const FakeCatalogue&) = delete;

    static std::map<int32_t, std::string> texts;
    static std::vector<int32_t> asked;
};

// The texts of the program's catalogue, to change some of them for a FakeCatalogue.
std::map<int32_t, std::string> CatalogueTexts();

// The same text with LF alone as line end.
std::string WithLineFeeds(std::string_view text);

// Text as UTF-8, for messages of tests.
std::string Narrow(std::wstring_view text);

}  // namespace corvane::test
