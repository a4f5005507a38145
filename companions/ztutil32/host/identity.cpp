// Unique identifiers, and the user's name.
#include <sys/random.h>
#include <unistd.h>

#include <pwd.h>
#include <array>
#include <cstdio>
#include <string>

#include "companions/ztutil32/texts.h"
#include "platform/ztutil32.h"

namespace {

std::string TextOf(const std::array<unsigned char, 16>& id) {
    std::string text;
    for (size_t i = 0; i < id.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        std::array<char, 3> byte{};
        std::snprintf(byte.data(), byte.size(), "%02X", id[i]);
        text += byte.data();
    }
    return text;
}

}  // namespace

CORVANE_EXPORT void CORVANE_STDCALL GenerateID(char* buffer, int32_t size) {
    std::array<unsigned char, 16> id{};
    const bool made = getrandom(id.data(), id.size(), 0) == static_cast<ssize_t>(id.size());
    // The marks of a random identifier: version 4, variant 1.
    id[6] = static_cast<unsigned char>((id[6] & 0x0F) | 0x40);
    id[8] = static_cast<unsigned char>((id[8] & 0x3F) | 0x80);
    corvane::ztutil::CopyText(made ? TextOf(id) : std::string(), buffer, size);
}

CORVANE_EXPORT void CORVANE_STDCALL LoginName(char* buffer, int32_t size) {
    passwd entry;
    passwd* found = nullptr;
    std::array<char, 4096> memory;
    const int error = getpwuid_r(geteuid(), &entry, memory.data(), memory.size(), &found);
    const bool isKnown = error == 0 && found != nullptr;
    corvane::ztutil::CopyText(isKnown ? found->pw_name : "", buffer, size);
}
