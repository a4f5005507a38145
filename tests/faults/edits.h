// The edits that faults are injected into: each rewrites a file through the program's own
// procedures.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::faults {

// The database that most edits begin with: a torsion model whose text alone fills a buffer, two
// sections and a bulkhead arrangement. Made by the program's procedures at the first call.
const std::string& OldDatabase();

inline constexpr wchar_t kSourceName[] = L"ship.vel";

struct Edit {
    std::string name;
    bool startsWithFile = true;
    bool startsWithBackup = false;  // an older one
    bool keepsBackup = false;
    // True when the procedure says that the file has the new text.
    bool (*run)(const std::wstring& path) = nullptr;
    // What it must make of an old text (tests/faults/expected.h). Null: what it makes of it when
    // nothing fails.
    std::string (*expected)(const std::string& oldText) = nullptr;
    bool keepsText = true;  // in it is what the edit did not change of the old text
    // What another program makes of the file meanwhile stays, and the edit is refused; otherwise it
    // is made in their text.
    bool yields = false;
    // The file that it starts with.
    const std::string& (*oldText)() = OldDatabase;
    // Another file beside it, kSourceName, that is read; null: none.
    const std::string& (*source)() = nullptr;
    // How many texts of the new size are in the temporary folder at a time, at most.
    int temporaryTexts = 0;
    // What was written is read again at the end, and is a failure when that fails.
    bool isReadAgain = false;
    // A file that another program lets others read and delete is replaced while that holds it.
    bool replacesHeld = true;
    // What was done to the file before; null: nothing.
    void (*prepare)(const std::wstring& path) = nullptr;
    // The old text enters the history, in the folder of temporaries.
    bool keepsHistory = false;
};

// GoogleTest's way to show one.
inline void PrintTo(const Edit& edit, std::ostream* out) {
    *out << edit.name;
}

const std::vector<Edit>& Edits();
// Those that read or write a DOS database, or copy a file; a part of the above.
std::vector<Edit> DosEdits();
// The DOS library as a part of this program, with the hooks below it.
void UseDosLibrary();
// A later call of the library, which removes what an earlier one could not.
void CallDosLibraryAgain(const std::wstring& path);
// Null when there is none of that name.
const Edit* FindEdit(std::string_view name);

// Loads the libraries that the edits call, so that none is looked for while calls are counted.
void LoadLibraries();
// What an older backup holds.
inline constexpr std::string_view kOlderBackup = "an older backup\r\n";

}  // namespace corvane::faults
