#include "files/read_fault.h"

#include "report/reporters.h"

namespace corvane {

bool ReportReadFault(const TextReader& reader, const std::wstring& path) {
    if (reader.error == system::kErrorNone) return false;
    if (reader.error == system::kErrorCancelled) {
        ReportNote(kMsgReadingCancelled, {path});
        return true;
    }
    ReportMessage(kMsgFileNotRead, {path, SystemError{reader.error}});
    return true;
}

std::wstring HoldersOf(const std::wstring& path) {
    const std::wstring names = system::ProgramsThatHold(path);
    return names.empty() ? GetMessage(kMsgAnotherProgram) : names;
}

}  // namespace corvane
