// The file prompt.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "companions/ztutil32/boolean.h"
#include "companions/ztutil32/file_types.h"
#include "companions/ztutil32/texts.h"
#include "platform/system.h"
#include "platform/win32/win32.h"
#include "platform/ztutil32.h"

#include <cderr.h>
#include <commdlg.h>

namespace {

struct Prompt {
    std::wstring extension;
    std::wstring filter;
    std::wstring caption;
    std::wstring fileName;  // proposed, then chosen
    bool toSave = false;
};

enum class Answer { kChosen, kCancelled, kUnusable };

std::wstring WideText(const char* text) {
    return corvane::system::WideFromAnsi(text == nullptr ? "" : text);
}

std::wstring CurrentFolder() {
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

// Shows the system's prompt once. A proposed name that Windows refuses is left out.
Answer ShowOnce(Prompt& prompt) {
    constexpr size_t kLongestPath = 32768;
    std::vector<wchar_t> name(kLongestPath);
    prompt.fileName.copy(name.data(), kLongestPath - 1);
    const std::wstring folder = CurrentFolder();

    OPENFILENAMEW options{};
    options.lStructSize = sizeof options;
    options.hwndOwner = GetActiveWindow();
    options.lpstrFilter = prompt.filter.c_str();
    options.lpstrFile = name.data();
    options.nMaxFile = kLongestPath;
    options.lpstrInitialDir = folder.c_str();
    options.lpstrTitle = prompt.caption.c_str();
    options.lpstrDefExt = prompt.extension.c_str();
    options.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST |
                    (prompt.toSave ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);

    const auto show = prompt.toSave ? GetSaveFileNameW : GetOpenFileNameW;
    if (show(&options) == 0) {
        if (CommDlgExtendedError() != FNERR_INVALIDFILENAME) return Answer::kCancelled;
        name[0] = L'\0';
        if (show(&options) == 0) return Answer::kCancelled;
    }
    prompt.fileName = name.data();
    return Answer::kChosen;
}

// Whether the name fits into the shell's buffer, without any character lost.
bool IsUsable(const std::wstring& name, int32_t size) {
    return name.size() < static_cast<size_t>(size) &&
           corvane::system::WideFromAnsi(corvane::system::AnsiFromWide(name)) == name;
}

Answer Ask(Prompt& prompt, int32_t size) {
    const Answer answer = ShowOnce(prompt);
    if (answer != Answer::kChosen || IsUsable(prompt.fileName, size)) return answer;
    MessageBoxW(GetActiveWindow(),
                L"This name cannot be used.\n\nUse at most 259 characters, folders included, and "
                L"only letters of the language that Windows is set to.",
                prompt.caption.c_str(), MB_OK | MB_ICONEXCLAMATION);
    return Answer::kUnusable;
}

}  // namespace

CORVANE_EXPORT int16_t CORVANE_STDCALL ZTUtilPromptForName(char* defaultExtension, char* title,
                                                           char* buffer, int32_t size,
                                                           int32_t flags, char* caption) {
    if (buffer == nullptr || size <= 0) return corvane::ztutil::Boolean(false);
    Prompt prompt;
    prompt.extension = WideText(defaultExtension);
    const auto types = corvane::ztutil::FileTypesOf(WideText(title), prompt.extension);
    prompt.filter = corvane::ztutil::FilterOf(types);
    prompt.caption = WideText(caption);
    if (prompt.caption.empty()) prompt.caption = types[0].description;
    prompt.fileName = corvane::system::WideFromAnsi({buffer, strnlen(buffer, size)});
    prompt.toSave = flags == -1;

    Answer answer = Answer::kUnusable;
    while (answer == Answer::kUnusable) answer = Ask(prompt, size);
    if (answer == Answer::kCancelled) return corvane::ztutil::Boolean(false);
    corvane::ztutil::CopyText(corvane::system::AnsiFromWide(prompt.fileName), buffer, size);
    return corvane::ztutil::Boolean(true);
}
