// Any arguments of the command line program, one on each line: how they are read, and, when they
// name nothing outside of a folder of the run, what comes of them there. Each byte is one
// character.
#include <algorithm>
#include <string>
#include <vector>

#include "database/creating.h"
#include "database/editing.h"
#include "files/paths.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch_file.h"
#include "shell/state.h"
#include "tools/tool.h"
#include "tools/tool_commands.h"

namespace {

using namespace corvane;
using fuzz::Check;
using Words = std::vector<std::wstring>;

Words WordsOf(std::string_view bytes) {
    Words words;
    while (!bytes.empty()) {
        const size_t end = std::min(bytes.find('\n'), bytes.size());
        std::wstring& word = words.emplace_back();
        for (const char byte : bytes.substr(0, end)) {
            word += static_cast<wchar_t>(static_cast<unsigned char>(byte));
        }
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return words;
}

void CheckRequest(const Request& request, const Words& words) {
    Check((request.kind == RequestKind::kFault) == !request.fault.empty());
    if (request.kind != RequestKind::kCommand) return;
    Check(request.command != nullptr);
    Check(request.operands.size() >= request.command->leastOperands);
    Check(request.operands.size() <= request.command->mostOperands);
    for (const std::wstring& operand : request.operands) {
        Check(!operand.empty() && std::ranges::find(words, operand) != words.end());
    }
    for (const OptionFacts& facts : OptionTable()) {
        const bool belongs = std::ranges::find(request.command->options, facts.option) !=
                             request.command->options.end();
        const std::wstring& value = request.Value(facts.option);
        Check(belongs || value.empty());
        if (value.empty() || facts.choices.empty()) continue;
        Check((L' ' + std::wstring(facts.choices)).find(L' ' + value + L' ') != std::wstring::npos);
    }
}

// Whether a text is a name in the current folder, and nowhere else.
bool IsNameHere(const std::wstring& text) {
    return text.find_first_of(L"/\\:") == std::wstring::npos && text != L".." &&
           text.find(L'\0') == std::wstring::npos && !IsDeviceName(text);
}

bool StaysHere(const Request& request) {
    return std::ranges::all_of(request.operands, IsNameHere) &&
           std::ranges::all_of(request.values, IsNameHere);
}

// A folder of the run that is the current one, with a database of two sections.
struct Scene {
    std::wstring before = system::CurrentDirectory();
    fuzz::ScratchFile name;  // keeps the folder's name
    std::wstring folder = name.path + L".d\\";
    std::wstring database = folder + L"ship.ve2";
    std::string text;

    Scene() {
        Check(system::MakeDirectory(folder) == system::kErrorNone);
        BasicShipData bsd;
        SectionModel section;
        section.name = L"One";
        Check(CreateDatabaseFile(database, bsd) && AppendSection(database, section, {}));
        section = SectionModel();
        section.name = L"Two";
        Check(AppendSection(database, section, {}));
        text = fuzz::BytesOf(database);
    }
    ~Scene() {
        RemoveFiles();
        system::RemoveEmptyDirectory(folder);
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    void RemoveFiles() const {
        for (const std::wstring& file : system::NamesIn(folder)) system::RemoveFile(folder + file);
    }
    void Restore() const {
        RemoveFiles();
        fuzz::WriteBytesTo(database, text);
    }
};

}  // namespace

CORVANE_FUZZ_TARGET(tool_arguments) {
    if (bytes.size() > 1024) return;
    const Words words = WordsOf(bytes);
    Request request = ReadRequest(words);
    CheckRequest(request, words);
    if (!StaysHere(request)) return;
    static const Scene scene;
    scene.Restore();
    Check(system::SetCurrentTo(scene.folder) == system::kErrorNone);
    // The history is the user's.
    request.values.at(static_cast<size_t>(Option::kNoHistory)) = L"--no-history";
    const ExitCode code = RunRequest(request, {});
    shell = ShellState();
    Check(system::SetCurrentTo(scene.before) == system::kErrorNone);
    const bool isCommand = request.kind == RequestKind::kCommand;
    Check(isCommand || code == (request.kind == RequestKind::kFault ? kExitUsage : kExitDone));
    if (code == kExitUsage || code == kExitFailed) {
        Check(fuzz::BytesOf(scene.database) == scene.text);
        Check(system::NamesIn(scene.folder).size() == 1);
    }
}
