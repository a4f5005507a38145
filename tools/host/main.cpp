// The program's entry: arguments and streams are UTF-8.
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/host/native.h"
#include "text/utf8.h"
#include "tools/host/png_output.h"
#include "tools/tool.h"

namespace corvane {
namespace {

bool Write(std::FILE* stream, std::wstring_view text) {
    const std::string bytes = Utf8Text(text);
    return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() &&
           std::fflush(stream) == 0;
}

// Where a variable that names a folder is not set, it gets the user's own folder for that.
void SetFolder(const char* variable, const char* usual, const char* inHome) {
    const char* const folder = std::getenv(usual);
    const char* const home = std::getenv("HOME");
    if (folder != nullptr && *folder != '\0') {
        setenv(variable, folder, 0);
    } else if (home != nullptr && *home != '\0') {
        setenv(variable, (std::string(home) + inHome).c_str(), 0);
    }
}

// False when an argument is not UTF-8: no file could be found by it.
bool ReadArguments(int count, char** arguments, std::vector<std::wstring>& read) {
    for (int i = 1; i < count; ++i) {
        read.push_back(system::WideFromUtf8(arguments[i]));
        if (Utf8Text(read.back()) != arguments[i]) return false;
    }
    return true;
}

}  // namespace
}  // namespace corvane

int main(int count, char** arguments) {
    using namespace corvane;
    // Settings and history, in the folders that the system has for them.
    SetFolder("APPDATA", "XDG_CONFIG_HOME", "/.config");
    SetFolder("CORVANE_WINDOWS_DIRECTORY", "XDG_CONFIG_HOME", "/.config");
    SetFolder("LOCALAPPDATA", "XDG_DATA_HOME", "/.local/share");
    const ToolOutput output{[](std::wstring_view text) { return Write(stdout, text); },
                            [](std::wstring_view text) { Write(stderr, text); }, FindPngWriter};
    std::vector<std::wstring> read;
    if (!ReadArguments(count, arguments, read)) {
        std::fputs("corvane: an argument is not valid UTF-8\n", stderr);
        return kExitUsage;
    }
    return RunTool(read, output);
}
