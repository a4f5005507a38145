// For targets that read model blocks: a block's text is read and written in memory, and what was
// written must read back as itself.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "files/text_file.h"
#include "report/messages.h"

namespace corvane::fuzz {

inline void Require(bool condition) {
    if (!condition) std::abort();
}

// One buffer for all texts: a new one for each would cost more than the rest of a run.
inline std::unique_ptr<char[]>& Buffer() {
    static auto buffer = std::make_unique<char[]>(kTextBufferSize + 1);
    return buffer;
}

// Lets the procedure read the bytes as the text of a file.
template <class Read>
void ReadBytes(std::string_view bytes, Read read) {
    TextReader reader;
    reader.buffer = std::move(Buffer());
    std::copy(bytes.begin(), bytes.end(), reader.buffer.get());
    reader.end = bytes.size();
    reader.atEnd = true;
    read(reader);
    Buffer() = std::move(reader.buffer);
}

// The block as far as a reader looks at it: the marker, the name label and the body that the
// procedure writes. Empty when it has no room.
template <class Write>
std::string WrittenBlock(Write writeBody) {
    TextWriter writer;
    writer.buffer = std::move(Buffer());
    writer.error = system::kErrorPathNotFound;  // so that nothing goes to a file
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    WriteLine(writer, marker);
    WriteLine(writer, GetMessageBytes(kMsgNameLabel));
    writeBody(writer);
    std::string text(writer.buffer.get(), writer.used);
    Buffer() = std::move(writer.buffer);
    return text.starts_with(marker) ? text : std::string();
}

// The only power of ten whose text is not that of the single nearest to it; from then on it stays.
inline constexpr std::string_view kShiftingNumber = "1E+28";

// The texts of the first and the second writing of a record are equal. `read` makes a record of a
// text, `writeBody` writes one.
template <class Record, class Read, class Write>
void RequireStable(Record& record, Read read, Write writeBody) {
    const auto write = [&](Record& each) {
        return WrittenBlock([&](TextWriter& writer) { writeBody(writer, each); });
    };
    const std::string once = write(record);
    if (once.empty()) return;
    Record second = read(once);
    const std::string twice = write(second);
    if (twice == once) return;
    Require(once.find(kShiftingNumber) != once.npos);
    Record third = read(twice);
    Require(write(third) == twice);
}

}  // namespace corvane::fuzz
