// Unique identifiers, and the user's name.
#include <array>
#include <cstdio>
#include <string>

#include "companions/ztutil32/texts.h"
#include "platform/system.h"
#include "platform/win32/win32.h"
#include "platform/ztutil32.h"

#include <objbase.h>

namespace {

std::string TextOf(const GUID& id) {
    std::array<char, 40> text{};
    const unsigned char* tail = id.Data4;
    std::snprintf(text.data(), text.size(), "%08lX-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X",
                  id.Data1, id.Data2, id.Data3, tail[0], tail[1], tail[2], tail[3], tail[4],
                  tail[5], tail[6], tail[7]);
    return text.data();
}

}  // namespace

CORVANE_EXPORT void CORVANE_STDCALL GenerateID(char* buffer, int32_t size) {
    GUID id;
    const bool made = SUCCEEDED(CoCreateGuid(&id));
    corvane::ztutil::CopyText(made ? TextOf(id) : std::string(), buffer, size);
}

CORVANE_EXPORT void CORVANE_STDCALL LoginName(char* buffer, int32_t size) {
    std::array<wchar_t, 257> name{};  // the longest user name and a NUL
    DWORD length = name.size();
    if (GetUserNameW(name.data(), &length) == 0) name[0] = L'\0';
    corvane::ztutil::CopyText(corvane::system::AnsiFromWide(name.data()), buffer, size);
}
