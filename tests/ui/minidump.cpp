#include "tests/ui/minidump.h"

#include <cstring>

#include "tests/support/support.h"

namespace corvane::ui {
namespace {

constexpr uint32_t kSignature = 0x504D444D;  // "MDMP"
constexpr uint32_t kThreadList = 3;
constexpr uint32_t kModuleList = 4;
constexpr uint32_t kException = 6;
constexpr size_t kHeaderSize = 32;
constexpr size_t kEntrySize = 12;  // of the directory: type, size, offset
constexpr size_t kModuleSize = 108;
constexpr size_t kNameInModule = 20;  // after base, size, checksum, time

// The bytes of a dump; reading outside of them gives 0 and marks it as damaged.
struct Bytes {
    std::string text;
    bool isWhole = true;

    template <class Number>
    Number At(size_t offset) {
        Number number{};
        if (offset > text.size() || text.size() - offset < sizeof number) {
            isWhole = false;
        } else {
            std::memcpy(&number, text.data() + offset, sizeof number);
        }
        return number;
    }
    // A length in bytes, and UTF-16.
    std::wstring TextAt(size_t offset) {
        std::wstring letters;
        const size_t count = At<uint32_t>(offset) / sizeof(char16_t);
        for (size_t i = 0; i < count && isWhole; ++i) {
            letters += static_cast<wchar_t>(At<char16_t>(offset + 4 + i * sizeof(char16_t)));
        }
        return letters;
    }
};

void ReadModules(Bytes& bytes, size_t offset, Dump& dump) {
    const auto count = bytes.At<uint32_t>(offset);
    for (size_t i = 0; i < count && bytes.isWhole; ++i) {
        const size_t module = offset + 4 + i * kModuleSize;
        dump.modules.push_back(bytes.TextAt(bytes.At<uint32_t>(module + kNameInModule)));
    }
}

void ReadException(Bytes& bytes, size_t offset, Dump& dump) {
    dump.exceptionThread = bytes.At<uint32_t>(offset);
    dump.exceptionCode = bytes.At<uint32_t>(offset + 8);
    dump.exceptionAddress = bytes.At<uint64_t>(offset + 24);
}

}  // namespace

Dump ReadDump(const std::wstring& path) {
    Bytes bytes{test::ReadFileBytes(path)};
    Dump dump;
    if (bytes.At<uint32_t>(0) != kSignature) return dump;
    const auto streams = bytes.At<uint32_t>(8);
    const auto directory = bytes.At<uint32_t>(12);
    for (size_t i = 0; i < streams && bytes.isWhole; ++i) {
        const size_t entry = directory + i * kEntrySize;
        const auto type = bytes.At<uint32_t>(entry);
        const auto offset = bytes.At<uint32_t>(entry + 8);
        if (type == kModuleList) ReadModules(bytes, offset, dump);
        if (type == kException) ReadException(bytes, offset, dump);
        if (type == kThreadList) dump.threads = bytes.At<uint32_t>(offset);
    }
    dump.isWhole = bytes.isWhole && directory >= kHeaderSize;
    return dump;
}

}  // namespace corvane::ui
