#include "shell/printing.h"

#include <algorithm>
#include <iterator>

#include "files/progress.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/file_prompt.h"
#include "shell/open_database.h"
#include "shell/settings.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr char kSettingsSection[] = "Corvane window";
constexpr char kScaleKey[] = "PageScale";
constexpr char kPortraitKey[] = "PagePortrait";

// How far it came: the page that was at work, from 1; the error that ended it.
struct Course {
    int page = 0;
    system::ErrorNumber error = system::kErrorNone;
    bool isCancelled = false;
};

// Whether it goes on.
bool Follow(Course& course, system::ErrorNumber error) {
    course.isCancelled = error == system::kErrorCancelled;
    course.error = error;
    return error == system::kErrorNone;
}

bool PrintPage(const PrintJob& job, const Printer& printer, Course& course) {
    const Page page = job.makePage(course.page, printer.paper);
    if (!Follow(course, printer.beginPage())) return false;
    printer.drawPage(page.figure);
    return Follow(course, printer.endPage());
}

bool PrintAllPages(const PrintJob& job, const Printer& printer, Course& course) {
    Progress progress(printer.lastPage - printer.firstPage + 1);
    for (course.page = printer.firstPage; course.page <= printer.lastPage; ++course.page) {
        if (!PrintPage(job, printer, course)) return false;
        course.isCancelled = !Advance(progress, 1) && course.page < printer.lastPage;
        if (course.isCancelled) return false;
    }
    return true;
}

void ReportPrinted(const PrintJob& job, const Printer& printer) {
    const int pages = printer.lastPage - printer.firstPage + 1;
    if (printer.file.empty()) {
        ReportNote(kMsgPrinted, {job.name, pages});
    } else {
        ReportNote(kMsgPrintedToFile, {job.name, pages, printer.file});
    }
}

void ReportFailure(const PrintJob& job, const Printer& printer, system::ErrorNumber error) {
    if (printer.file.empty()) {
        ReportMessage(kMsgNotPrinted, {job.name, SystemError{error}});
    } else {
        ReportMessage(kMsgNotPrintedToFile, {job.name, printer.file, SystemError{error}});
    }
}

}  // namespace

PageChoice ReadPageChoice(const std::wstring& file) {
    const int scale = system::ReadProfileInteger(kSettingsSection, kScaleKey, 0, file);
    const bool isKnown = std::ranges::find(kPageScales, scale) != std::end(kPageScales);
    return {isKnown ? scale : 0,
            system::ReadProfileInteger(kSettingsSection, kPortraitKey, 0, file) == 1};
}

bool WritePageChoice(const std::wstring& file, const PageChoice& choice) {
    return WriteIniText(kSettingsSection, kScaleKey, std::to_string(choice.scale), file) ==
               system::kErrorNone &&
           WriteIniText(kSettingsSection, kPortraitKey, choice.isPortrait ? "1" : "0", file) ==
               system::kErrorNone;
}

std::wstring AskForPrintFile(const PrintJob& job) {
    const std::wstring path = AskForFile({.command = ME_FilePrint,
                                          .types = GetMessage(kMsgPrinterFiles),
                                          .defaultExtension = L"prn",
                                          .proposed = CleanFileName(job.name) + L".prn",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    return path.empty() || !RequireOtherFile(path) ? std::wstring() : path;
}

PrintEnd PrintDocument(const PrintJob& job, const Printer& printer) {
    ReportStatus(kMsgPrinting, {job.name});
    Course course;
    const bool isBegun = Follow(course, printer.beginDocument(job.name));
    const bool isPrinted =
        isBegun && PrintAllPages(job, printer, course) && Follow(course, printer.endDocument());
    if (isPrinted) {
        ReportPrinted(job, printer);
        return PrintEnd::kPrinted;
    }
    if (isBegun) printer.abortDocument();
    if (course.isCancelled) {
        ReportNote(kMsgPrintingCancelled, {job.name});
        return PrintEnd::kCancelled;
    }
    ReportFailure(job, printer, course.error);
    return PrintEnd::kFailed;
}

}  // namespace corvane
