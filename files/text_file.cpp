#include "files/text_file.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "text/line_search.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr size_t kLongestMarker = 1000;
static_assert(kLongestLine + kLongestMarker < kTextBufferSize);

std::string_view WithoutReturn(const char* begin, const char* end) {
    if (end > begin && end[-1] == '\r') --end;
    return {begin, static_cast<size_t>(end - begin)};
}

// Reads bytes to a place in the buffer; how many, 0 at the end, after a failure, and when the user
// has cancelled.
size_t ReadMore(TextReader& reader, size_t place, size_t most) {
    size_t count = 0;
    // After a failure nothing more comes: whoever copies must learn of it at the end.
    if (reader.error != system::kErrorNone) return 0;
    reader.error = system::ReadBytes(reader.file, reader.buffer.get() + place, most, count);
    if (reader.error != system::kErrorNone) return 0;
    if (reader.progress == nullptr || Advance(*reader.progress, static_cast<int64_t>(count))) {
        return count;
    }
    reader.error = system::kErrorCancelled;
    return 0;
}

// Moves the unread bytes to the buffer's front and reads after them. False when nothing came.
bool Refill(TextReader& reader) {
    if (reader.atEnd) return false;
    const size_t unread = reader.end - reader.next;
    assert(unread < kTextBufferSize);
    std::memmove(reader.buffer.get(), reader.buffer.get() + reader.next, unread);
    reader.bufferOffset += static_cast<int64_t>(reader.next);
    reader.first = reader.next = 0;
    reader.end = unread;
    const size_t count =
        ReadMore(reader, unread, std::min(reader.readSize, kTextBufferSize - unread));
    reader.end += count;
    reader.atEnd = count == 0;
    return count != 0;
}

// Passes over what a line has beyond kLongestLine. The line's first bytes stay at the buffer's
// front, where the caller's view shows them; the rest of the buffer takes what is read meanwhile.
std::string_view CutLine(TextReader& reader) {
    char* const buffer = reader.buffer.get();
    std::memmove(buffer, buffer + reader.next, reader.end - reader.next);
    reader.bufferOffset += static_cast<int64_t>(reader.next);
    reader.end -= reader.next;
    reader.next = kLongestLine;
    for (;;) {
        const char* const feed = FindLineFeed(buffer + reader.next, buffer + reader.end);
        if (feed != buffer + reader.end) {
            reader.next = static_cast<size_t>(feed - buffer) + 1;
            break;
        }
        reader.bufferOffset += static_cast<int64_t>(reader.end - kLongestLine);
        const size_t count = ReadMore(reader, kLongestLine, kTextBufferSize - kLongestLine);
        reader.next = kLongestLine;
        reader.end = kLongestLine + count;
        if (count == 0) {
            reader.atEnd = true;
            break;
        }
    }
    reader.first = reader.next;
    return {buffer, kLongestLine};
}

// Whether the line at buffer[at] is `text`. Enough bytes to decide are in the buffer, or the file
// ends there.
bool LineEquals(const TextReader& reader, size_t at, std::string_view text) {
    const char* const buffer = reader.buffer.get();
    const size_t after = at + text.size();
    if (after > reader.end || std::memcmp(buffer + at, text.data(), text.size()) != 0) {
        return false;
    }
    if (after == reader.end || buffer[after] == '\n') return true;
    return buffer[after] == '\r' && (after + 1 == reader.end || buffer[after + 1] == '\n');
}

// Looks for the text in what is in memory. On success the reader is at the line; otherwise at
// the first byte that must be looked at again when more has been read.
bool FindInBuffer(TextReader& reader, std::string_view text) {
    const char* const buffer = reader.buffer.get();
    // A candidate needs its line feed, the text, and two bytes of line end.
    const size_t needed = text.size() + 3;
    const size_t unread = reader.end - reader.next;
    if (unread < needed && !reader.atEnd) return false;
    const size_t last =
        reader.atEnd ? reader.end - std::min<size_t>(unread, 1) : reader.end - needed + 1;
    size_t at = reader.next;
    for (;;) {
        at = static_cast<size_t>(FindLineStart(buffer + at, buffer + last, text[0]) - buffer);
        if (at == last) break;
        if (LineEquals(reader, at + 1, text)) {
            reader.next = at + 1;
            return true;
        }
        ++at;
    }
    reader.next = last;
    return false;
}

// Looks for the text from the reader's position on, like FindLine. What is skipped is given to
// `pass`, piece by piece.
template <class Pass>
bool FindAndPass(TextReader& reader, std::string_view text, Pass pass) {
    assert(!text.empty() && text.size() <= kLongestMarker);
    // The reader is at a line's beginning; every other line is found by the line feed before it.
    while (reader.end - reader.next < text.size() + 2 && Refill(reader)) {
    }
    if (reader.end > reader.next && LineEquals(reader, reader.next, text)) return true;
    for (;;) {
        const size_t begin = reader.next;
        const bool atEnd = reader.atEnd;
        const bool found = FindInBuffer(reader, text);
        // The last bytes cannot be judged before it is known that the file ends with them.
        if (!found && atEnd) reader.next = reader.end;
        pass(std::string_view(reader.buffer.get() + begin, reader.next - begin));
        if (found) return true;
        if (atEnd) return false;
        Refill(reader);
    }
}

void WriteOut(TextWriter& writer, const char* bytes, size_t count) {
    if (writer.error == system::kErrorNone) {
        writer.error = system::WriteBytes(writer.file, bytes, count);
    }
}

// The last bytes stay in memory.
void WriteOutBuffer(TextWriter& writer) {
    char* const buffer = writer.buffer.get();
    const size_t count = writer.used - writer.writtenOut;
    if (count == 0) return;
    WriteOut(writer, buffer + writer.writtenOut, count);
    const size_t kept = std::min(writer.used, kKeptTail);
    std::memmove(buffer, buffer + writer.used - kept, kept);
    writer.used = writer.writtenOut = kept;
}

// Only the file's last line can be without its end, or with half of one: what is written after it
// must begin a separate line.
void EndLastLine(TextWriter& to, char last) {
    if (last == '\r') {
        WriteText(to, "\n");
    } else if (last != '\n') {
        WriteText(to, "\r\n");
    }
}

}  // namespace

bool IsCommentLine(std::string_view line) {
    return !line.empty() && line.front() == '*';
}

bool IsHeaderLine(std::string_view line) {
    return Trim(line).starts_with("------");
}

bool OpenText(TextReader& reader, const std::wstring& path) {
    system::File file;
    const system::ErrorNumber error = system::OpenForReading(path, file);
    AdoptFile(reader, file);
    reader.error = error;
    return error == system::kErrorNone;
}

void AdoptFile(TextReader& reader, system::File file) {
    assert(!reader.file.IsOpen());
    reader.file = file;
    if (!file.IsOpen()) return;
    reader.buffer = std::make_unique_for_overwrite<char[]>(kTextBufferSize);
    reader.first = reader.next = reader.end = 0;
    reader.bufferOffset = 0;
    reader.atEnd = false;
    reader.error = system::kErrorNone;
}

bool ReadLine(TextReader& reader, std::string_view& line) {
    size_t searched = 0;
    for (;;) {
        const char* const begin = reader.buffer.get() + reader.next;
        const char* const end = reader.buffer.get() + reader.end;
        const char* const feed = FindLineFeed(begin + searched, end);
        if (feed != end && feed - begin <= static_cast<ptrdiff_t>(kLongestLine)) {
            line = WithoutReturn(begin, feed);
            reader.next += static_cast<size_t>(feed - begin) + 1;
            return true;
        }
        searched = static_cast<size_t>(end - begin);
        if (searched > kLongestLine) {
            line = CutLine(reader);
            return true;
        }
        if (Refill(reader)) continue;
        if (searched == 0) return false;
        const char* const last = reader.buffer.get() + reader.next;
        line = WithoutReturn(last, last + searched);
        reader.next = reader.end;
        return true;
    }
}

bool ReadSignificantLine(TextReader& reader, std::string_view& line) {
    while (ReadLine(reader, line)) {
        if (!IsCommentLine(line)) return true;
    }
    return false;
}

void SeekLine(TextReader& reader, int64_t position) {
    const int64_t firstPosition = reader.bufferOffset + static_cast<int64_t>(reader.first);
    const int64_t endPosition = reader.bufferOffset + static_cast<int64_t>(reader.end);
    if (position >= firstPosition && position <= endPosition) {
        reader.next = static_cast<size_t>(position - reader.bufferOffset);
        return;
    }
    const system::ErrorNumber error = system::SetPosition(reader.file, position);
    if (reader.error == system::kErrorNone) reader.error = error;
    reader.first = reader.next = reader.end = 0;
    reader.bufferOffset = position;
    reader.atEnd = false;
}

bool FindLine(TextReader& reader, std::string_view text) {
    return FindAndPass(reader, text, [](std::string_view) {});
}

bool FindLine(TextReader& reader, std::string_view text, Digest& digest) {
    return FindAndPass(reader, text, [&digest](std::string_view passed) { Add(digest, passed); });
}

bool CreateText(TextWriter& writer, const std::wstring& path) {
    assert(!writer.file.IsOpen());
    writer.error = system::CreateForWriting(path, writer.file);
    if (writer.error != system::kErrorNone) return false;
    writer.buffer = std::make_unique_for_overwrite<char[]>(kTextBufferSize);
    writer.used = writer.writtenOut = 0;
    return true;
}

void WriteText(TextWriter& writer, std::string_view text) {
    if (text.empty() || writer.error != system::kErrorNone) return;
    if (text.size() > kTextBufferSize - writer.used) {
        WriteOutBuffer(writer);
        if (text.size() > kTextBufferSize - kKeptTail) {
            WriteOut(writer, text.data(), text.size());
            text.remove_prefix(text.size() - kKeptTail);
            text.copy(writer.buffer.get(), kKeptTail);
            writer.used = writer.writtenOut = kKeptTail;
            return;
        }
    }
    std::memcpy(writer.buffer.get() + writer.used, text.data(), text.size());
    writer.used += text.size();
}

void WriteLine(TextWriter& writer, std::string_view line) {
    WriteText(writer, line);
    WriteText(writer, "\r\n");
}

std::string_view WrittenTail(const TextWriter& writer) {
    return {writer.buffer.get(), writer.used};
}

void FlushText(TextWriter& writer) {
    WriteOutBuffer(writer);
    if (writer.error == system::kErrorNone) writer.error = system::FlushToDisk(writer.file);
}

bool CloseText(TextWriter& writer) {
    WriteOutBuffer(writer);
    const system::ErrorNumber error = system::CloseFile(writer.file);
    if (writer.error == system::kErrorNone) writer.error = error;
    return writer.error == system::kErrorNone;
}

void CopySpan(TextReader& from, int64_t position, TextWriter& to) {
    char last = '\n';
    for (;;) {
        const int64_t left = position < 0 ? INT64_MAX : position - LinePosition(from);
        if (left <= 0) break;
        const size_t count =
            static_cast<size_t>(std::min(left, static_cast<int64_t>(from.end - from.next)));
        if (count != 0) {
            WriteText(to, {from.buffer.get() + from.next, count});
            from.next += count;
            last = from.buffer[from.next - 1];
        } else if (!Refill(from)) {
            break;
        }
    }
    EndLastLine(to, last);
}

bool CopyToLine(TextReader& from, std::string_view text, TextWriter& to) {
    char last = '\n';
    const bool found = FindAndPass(from, text, [&to, &last](std::string_view passed) {
        WriteText(to, passed);
        if (!passed.empty()) last = passed.back();
    });
    EndLastLine(to, last);
    return found;
}

}  // namespace corvane
