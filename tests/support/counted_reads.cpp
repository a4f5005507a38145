#include "tests/support/counted_reads.h"

#include "platform/system.h"

using corvane::system::ErrorNumber;
using corvane::system::File;

namespace {

int64_t readSoFar = 0;

}  // namespace

// The names that the linker gives to ReadBytes and to what is called instead of it; the names of
// the procedure itself are different on each system.
extern "C" {
ErrorNumber CORVANE_REAL_READ_BYTES(File file, void* bytes, size_t most, size_t& count);

ErrorNumber CORVANE_WRAPPED_READ_BYTES(File file, void* bytes, size_t most, size_t& count) {
    const ErrorNumber error = CORVANE_REAL_READ_BYTES(file, bytes, most, count);
    readSoFar += static_cast<int64_t>(count);
    return error;
}
}

namespace corvane::test {

CountedReads::CountedReads() : before(readSoFar) {}

int64_t CountedReads::Bytes() const {
    return readSoFar - before;
}

}  // namespace corvane::test
