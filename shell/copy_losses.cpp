#include "shell/copy_losses.h"

#include "files/paths.h"
#include "report/messages.h"
#include "shell/finding_report.h"
#include "shell/state.h"

namespace corvane {

bool FindCopyLosses(CopyLosses& losses, const BlockPlace& place) {
    std::vector<Finding> found;
    if (!FindLossesOfCopy(losses.source, place, found)) return false;
    if (!found.empty()) ++losses.models;
    losses.findings.insert(losses.findings.end(), found.begin(), found.end());
    return true;
}

void ShowCopyLosses(const CopyLosses& losses, uint16_t command) {
    if (losses.findings.empty()) return;
    const std::wstring name = FileNameOf(losses.source);
    Report report = ReportOfFindings(losses.findings);
    report.command = command;
    report.title = GetMessage(kMsgLeftOutOfCopies);
    report.summary =
        FormatMessage(kMsgCopiesLack, {losses.models, name}) + L'\r' + GetMessage(kMsgLossAdvice);
    report.fileName = StripExtension(name) + L" left out";
    shell.view.showReport(report);
}

}  // namespace corvane
