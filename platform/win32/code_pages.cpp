#include "platform/single_byte.h"
#include "platform/system.h"
#include "platform/win32/win32.h"

namespace corvane::system {
namespace {

// Stands for a byte that the page leaves undefined, so that it survives the way there and back.
constexpr wchar_t kUndefinedByte = 0xF700;

UINT SingleByteOr(UINT fallback, UINT page) {
    CPINFO info;
    return GetCPInfo(page, &info) != 0 && info.MaxCharSize == 1 ? page : fallback;
}

SingleBytePage LoadPage(UINT number) {
    SingleBytePage page;
    for (unsigned code = 0; code < page.size(); ++code) {
        const char byte = static_cast<char>(code);
        if (MultiByteToWideChar(number, MB_ERR_INVALID_CHARS, &byte, 1, &page[code], 1) != 1) {
            page[code] = static_cast<wchar_t>(code < 0x80 ? code : kUndefinedByte + code);
        }
    }
    return page;
}

const SingleBytePage& AnsiPage() {
    static const SingleBytePage page = LoadPage(SingleByteOr(1252, GetACP()));
    return page;
}

const SingleBytePage& OemPage() {
    static const SingleBytePage page = LoadPage(SingleByteOr(850, GetOEMCP()));
    return page;
}

}  // namespace

std::wstring WideFromAnsi(std::string_view bytes) {
    return WideFromBytes(bytes, AnsiPage());
}

std::string AnsiFromWide(std::wstring_view text) {
    return BytesFromWide(text, AnsiPage());
}

std::string OemFromAnsi(std::string_view bytes) {
    return BytesFromWide(WideFromAnsi(bytes), OemPage());
}

std::string AnsiFromOem(std::string_view bytes) {
    return AnsiFromWide(WideFromBytes(bytes, OemPage()));
}

}  // namespace corvane::system
