// The program's entry: arguments are wide; a console gets wide text, a file or a pipe UTF-8.
#include <algorithm>
#include <string>
#include <vector>

#include "platform/companion.h"
#include "platform/win32/win32.h"
#include "text/utf8.h"
#include "tools/tool.h"
#include "ui/pictures/picture_output.h"

namespace corvane {
namespace {

// A console takes some 30,000 characters at once; half of a pair is not cut off.
bool WriteToConsole(HANDLE console, std::wstring_view text) {
    constexpr size_t kMost = 8192;
    while (!text.empty()) {
        size_t count = std::min(text.size(), kMost);
        if (count < text.size() && IS_HIGH_SURROGATE(text[count - 1])) --count;
        DWORD written = 0;
        if (!WriteConsoleW(console, text.data(), static_cast<DWORD>(count), &written, nullptr) ||
            written == 0) {
            return false;
        }
        text.remove_prefix(written);
    }
    return true;
}

bool WriteToFile(HANDLE file, std::string_view bytes) {
    constexpr size_t kMost = 1 << 20;
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min(bytes.size(), kMost));
        if (!::WriteFile(file, bytes.data(), count, &written, nullptr) || written == 0) {
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

bool Write(DWORD stream, std::wstring_view text) {
    const HANDLE handle = GetStdHandle(stream);
    DWORD mode = 0;
    if (GetConsoleMode(handle, &mode)) return WriteToConsole(handle, text);
    return WriteToFile(handle, Utf8Text(text));
}

}  // namespace
}  // namespace corvane

int wmain(int count, wchar_t** arguments) {
    using namespace corvane;
    RestrictLibrarySearch();
    const ToolOutput output{[](std::wstring_view text) { return Write(STD_OUTPUT_HANDLE, text); },
                            [](std::wstring_view text) { Write(STD_ERROR_HANDLE, text); },
                            []() -> FigureWriter { return WritePng; }};
    const std::vector<std::wstring> read(arguments + std::min(count, 1), arguments + count);
    return RunTool(read, output);
}
