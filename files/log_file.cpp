#include "files/log_file.h"

#include <array>
#include <cstdio>

#include "files/paths.h"
#include "platform/system.h"
#include "text/utf8.h"

namespace corvane {
namespace {

// What takes an entry so long is not the log's file, but the way there [ms].
constexpr int64_t kLongWrite = 1000;

std::wstring_view NameOf(LogKind kind) {
    static constexpr std::wstring_view kNames[] = {L"start", L"command", L"open", L"write",
                                                   L"run",   L"fault",   L"end"};
    return kNames[static_cast<size_t>(kind)];
}

// Control characters, and the separators of lines and paragraphs.
bool EndsLine(wchar_t character) {
    return character < L' ' || (character >= 0x7F && character < 0xA0) || character == 0x2028 ||
           character == 0x2029;
}

std::wstring OneLine(std::wstring_view text) {
    std::wstring line(text.substr(0, kLongestEntry));
    for (wchar_t& character : line) {
        if (EndsLine(character)) character = L' ';
    }
    return line;
}

// False when the log is full and cannot become the older one: another program reads that one.
bool HasRoom(const std::wstring& path, size_t bytes) {
    system::FileStatus status;
    system::GetFileStatus(path, status);
    if (status.size + static_cast<int64_t>(bytes) <= kLongestLog) return true;
    return system::RenameOver(path, OlderLog(path)) == system::kErrorNone;
}

void Append(const std::wstring& path, const std::string& line) {
    if (!HasRoom(path, line.size())) return;
    system::File file;
    if (system::OpenForAppending(path, file) != system::kErrorNone) {
        system::MakeDirectory(StripTrailingBackslash(DirectoryOf(path)));
        if (system::OpenForAppending(path, file) != system::kErrorNone) return;
    }
    system::WriteBytes(file, line.data(), line.size());
    system::CloseFile(file);
}

}  // namespace

std::wstring OlderLog(const std::wstring& path) {
    return StripExtension(path) + L".old.log";
}

std::string LogLine(const system::LocalTime& time, LogKind kind, std::wstring_view text) {
    std::array<char, 64> head;
    std::snprintf(head.data(), head.size(), "%04d-%02d-%02d %02d:%02d:%02d %u ", time.year,
                  time.month, time.day, time.hour, time.minute, time.second,
                  system::ProcessNumber());
    return head.data() + Utf8Text(NameOf(kind)) + ' ' + Utf8Text(OneLine(text)) + "\r\n";
}

void WriteEntry(LogFile& log, LogKind kind, std::wstring_view text) {
    if (log.path.empty() || log.slowEntries >= kMostSlowEntries) return;
    const int64_t begin = system::Milliseconds();
    Append(log.path, LogLine(system::Now(), kind, text));
    if (system::Milliseconds() - begin >= kLongWrite) ++log.slowEntries;
}

}  // namespace corvane
