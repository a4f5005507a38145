#include "database/repair.h"

#include <algorithm>

#include "database/left_overs.h"
#include "files/file_system.h"
#include "files/rewrite.h"
#include "report/reporters.h"
#include "text/numbers.h"

namespace corvane {
namespace {

// Those that change the text, in the order of the file.
std::vector<Repair> RepairsOfText(const std::vector<Repair>& repairs) {
    std::vector<Repair> ofText;
    for (const Repair& repair : repairs) {
        if (repair.kind != RepairKind::kLeftOver) ofText.push_back(repair);
    }
    std::ranges::stable_sort(ofText, {}, &Repair::begin);
    return ofText;
}

// Opens the text that was checked. False, and reported, where it is another one, or cannot be
// written.
bool OpenChecked(Rewrite& rewrite, const std::wstring& path, const system::FileStamp& checked) {
    if (!OpenOldText(rewrite, path)) {
        ReportTextNotWritten(path, rewrite.reader.error);
    } else if (rewrite.stamp != checked) {
        ReportMessage(kMsgChangedSinceCheck, {path});
    } else if (IsReadOnlyFile(path)) {
        ReportMessage(kMsgReadOnly, {path});
    } else {
        return true;
    }
    return false;
}

// A number as its line has it, with the blanks of the print form.
std::string LineOf(const Repair& repair) {
    if (repair.kind == RepairKind::kNumber) return PrintForm(LeadingInteger(repair.becomes));
    return system::AnsiFromWide(repair.becomes);
}

// A last line without an end gets one when it is copied.
void WriteRepaired(Rewrite& rewrite, const std::vector<Repair>& repairs) {
    SeekLine(rewrite.reader, 0);
    for (const Repair& repair : repairs) {
        CopySpan(rewrite.reader, repair.begin, rewrite.writer);
        if (repair.kind == RepairKind::kLastLineEnd) continue;
        WriteLine(rewrite.writer, LineOf(repair));
        SeekLine(rewrite.reader, repair.end);
    }
    CopySpan(rewrite.reader, -1, rewrite.writer);
}

bool RepairText(const std::wstring& path, const system::FileStamp& checked,
                const std::vector<Repair>& repairs) {
    return RepeatUntilUnchanged(path, [&] {
        Rewrite rewrite;
        rewrite.keepBackup = true;
        if (!OpenChecked(rewrite, path, checked)) return RewriteEnd::kFailed;
        ReportStatus(kMsgRepairing, {path});
        BeginRewrite(rewrite, path);
        WriteRepaired(rewrite, repairs);
        return FinishRewrite(rewrite);
    });
}

// A file that can go, as it was when that was found.
struct UselessFile {
    std::wstring path;
    system::FileStamp stamp;
};

std::vector<UselessFile> UselessFiles(const std::wstring& path,
                                      const std::vector<Repair>& repairs) {
    std::vector<UselessFile> files;
    for (const LeftOver& file : FindLeftOvers(path)) {
        const auto isThis = [&file](const Repair& repair) {
            return repair.kind == RepairKind::kLeftOver && repair.was == file.path;
        };
        UselessFile useless{file.path, {}};
        if (!file.isPart || std::ranges::none_of(repairs, isThis) ||
            system::GetFileStamp(file.path, useless.stamp) != system::kErrorNone) {
            continue;
        }
        files.push_back(useless);
    }
    return files;
}

// Whether the file has gone; one that has changed stays. A failure is reported.
bool Remove(const UselessFile& file) {
    system::FileStamp now;
    if (system::GetFileStamp(file.path, now) != system::kErrorNone || now != file.stamp) {
        return false;
    }
    const bool isGone = system::RemoveFile(file.path) == system::kErrorNone;
    if (!isGone) ReportMessage(kMsgFileNotRemoved, {file.path});
    return isGone;
}

}  // namespace

bool RepairDatabase(const std::wstring& path, const system::FileStamp& checked,
                    const std::vector<Repair>& repairs, RepairCounts& done) {
    done = {};
    const std::vector<UselessFile> files = UselessFiles(path, repairs);
    const std::vector<Repair> ofText = RepairsOfText(repairs);
    if (!ofText.empty() && !RepairText(path, checked, ofText)) return false;
    for (const Repair& repair : ofText) ++done[static_cast<size_t>(repair.kind)];
    for (const UselessFile& file : files) {
        if (Remove(file)) ++done[static_cast<size_t>(RepairKind::kLeftOver)];
    }
    ShowStatus(L"");
    return true;
}

}  // namespace corvane
