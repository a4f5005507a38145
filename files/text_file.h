// Text files line by line, through a fixed buffer: no copy per line, and memory does not grow with
// the file. Texts are bytes in the ANSI code page.
//
// Lines end with CR LF or LF when read, the last one also with the end of the file; they are
// written with CR LF. A line longer than kLongestLine is cut there when it is read; what is copied
// as a span is never cut.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "files/progress.h"
#include "platform/system.h"
#include "text/digest.h"

namespace corvane {

inline constexpr size_t kTextBufferSize = 256 * 1024;
inline constexpr size_t kLongestLine = 64 * 1024;
inline constexpr size_t kKeptTail = 8 * 1024;
// Asked of a file at once where little of it is wanted.
inline constexpr size_t kSmallRead = 16 * 1024;

// ---- Kinds of lines ----------------------------------------------------------------------------

// The first character is "*". An empty line is not a comment.
bool IsCommentLine(std::string_view line);
// The line, trimmed, begins with six dashes.
bool IsHeaderLine(std::string_view line);

// ---- Reading -----------------------------------------------------------------------------------

// One open text file and the part of it that is in memory. Made by OpenText, closed with the
// record.
struct TextReader {
    system::File file;
    std::unique_ptr<char[]> buffer;
    // buffer[first, end) holds the file's bytes from place bufferOffset + first on; those from
    // `next` on are unread.
    size_t first = 0;
    size_t next = 0;
    size_t end = 0;
    int64_t bufferOffset = 0;
    size_t readSize = kTextBufferSize;  // bytes that are asked of the file at once, at most these
    Progress* progress = nullptr;       // of the operation that reads, if it shows itself
    bool atEnd = false;                 // the file has no bytes after `end`
    // Of the first read that failed; kErrorCancelled after one that the user did not want.
    system::ErrorNumber error = system::kErrorNone;

    TextReader() = default;
    ~TextReader() { system::CloseFile(file); }
    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;
};

// Opens a file at its start; others may go on reading, writing, renaming and deleting it.
bool OpenText(TextReader& reader, const std::wstring& path);
// Reads a file that the caller has opened, from its start; the reader closes it.
void AdoptFile(TextReader& reader, system::File file);

// The next line without its end; false at the end of the file or after a failed read. The view
// holds until the next call with this reader.
bool ReadLine(TextReader& reader, std::string_view& line);
// The next line that is not a comment.
bool ReadSignificantLine(TextReader& reader, std::string_view& line);

// Where the next line begins, in bytes from the start of the file.
inline int64_t LinePosition(const TextReader& reader) {
    return reader.bufferOffset + static_cast<int64_t>(reader.next);
}
// Goes to a place that LinePosition gave.
void SeekLine(TextReader& reader, int64_t position);

// Goes to the next line that equals `text` (not empty, at most 1,000 bytes, without "*" in front);
// the next ReadLine gives that line. False, and the reader at the end, when there is none. This
// goes through a file at the speed of memory: no line in between is looked at.
bool FindLine(TextReader& reader, std::string_view text);
// The same; `digest` gets the bytes before that line, at the end of the file all that there are.
bool FindLine(TextReader& reader, std::string_view text, Digest& digest);

// ---- Writing -----------------------------------------------------------------------------------

// A text file being written. A write that fails is remembered in `error`, and nothing is written
// after it.
struct TextWriter {
    system::File file;
    std::unique_ptr<char[]> buffer;
    size_t used = 0;
    size_t writtenOut = 0;  // of the `used` bytes: the file has them, they are kept for WrittenTail
    system::ErrorNumber error = system::kErrorNone;

    TextWriter() = default;
    ~TextWriter() { system::CloseFile(file); }
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;
};

// Creates the file, or empties an old one.
bool CreateText(TextWriter& writer, const std::wstring& path);
void WriteText(TextWriter& writer, std::string_view text);
void WriteLine(TextWriter& writer, std::string_view line);  // with CR LF
// What was written last: kKeptTail bytes at least, or all. The view holds until the next write.
std::string_view WrittenTail(const TextWriter& writer);
// Writes out what is in memory, and waits until the disk has it.
void FlushText(TextWriter& writer);
// Writes out what is in memory and closes the file; false when any write failed.
bool CloseText(TextWriter& writer);

// Copies the bytes from the reader's next line up to the place `position` (-1: to the end of the
// file), unchanged; the reader is then there. A file whose last line has no end gets one.
void CopySpan(TextReader& from, int64_t position, TextWriter& to);

// Copies the lines before the next one that equals `text`, where the reader then is, as
// FindLine does; all lines, as CopySpan does, when there is none, and the result is false.
bool CopyToLine(TextReader& from, std::string_view text, TextWriter& to);

}  // namespace corvane
