#include "tests/support/wrapped_system.h"

#include "platform/system.h"

using corvane::system::ErrorNumber;
using corvane::system::File;

namespace {

int64_t readSoFar = 0;
bool isSlow = false;
int64_t passed_ms = 0;
bool hasLinks = true;

}  // namespace

// The names that the linker gives to the procedures and to what is called instead of them.
extern "C" {
ErrorNumber CORVANE_REAL_READ_BYTES(File file, void* bytes, size_t most, size_t& count);

ErrorNumber CORVANE_WRAPPED_READ_BYTES(File file, void* bytes, size_t most, size_t& count) {
    const ErrorNumber error = CORVANE_REAL_READ_BYTES(file, bytes, most, count);
    readSoFar += static_cast<int64_t>(count);
    return error;
}

int64_t CORVANE_REAL_MILLISECONDS();

int64_t CORVANE_WRAPPED_MILLISECONDS() {
    constexpr int64_t kSecond_ms = 1000;
    if (isSlow) passed_ms += kSecond_ms;
    return CORVANE_REAL_MILLISECONDS() + passed_ms;
}

ErrorNumber CORVANE_REAL_MAKE_LINK(const std::wstring& existing, const std::wstring& name);

ErrorNumber CORVANE_WRAPPED_MAKE_LINK(const std::wstring& existing, const std::wstring& name) {
    if (!hasLinks) return corvane::system::kErrorInvalidParameter;
    return CORVANE_REAL_MAKE_LINK(existing, name);
}
}

namespace corvane::test {

CountedReads::CountedReads() : before(readSoFar) {}

int64_t CountedReads::Bytes() const {
    return readSoFar - before;
}

SlowSystem::SlowSystem() {
    isSlow = true;
}

SlowSystem::~SlowSystem() {
    isSlow = false;
}

NoLinks::NoLinks() {
    hasLinks = false;
}

NoLinks::~NoLinks() {
    hasLinks = true;
}

}  // namespace corvane::test
