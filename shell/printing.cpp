#include "shell/printing.h"

#include "files/progress.h"
#include "report/reporters.h"

namespace corvane {
namespace {

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
    const Figure page = job.makePage(course.page, printer.paper);
    if (!Follow(course, printer.beginPage())) return false;
    printer.drawPage(page);
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

}  // namespace

PrintEnd PrintDocument(const PrintJob& job, const Printer& printer) {
    ReportStatus(kMsgPrinting, {job.name});
    Course course;
    const bool isBegun = Follow(course, printer.beginDocument(job.name));
    const bool isPrinted =
        isBegun && PrintAllPages(job, printer, course) && Follow(course, printer.endDocument());
    if (isPrinted) {
        ReportNote(kMsgPrinted, {job.name, printer.lastPage - printer.firstPage + 1});
        return PrintEnd::kPrinted;
    }
    if (isBegun) printer.abortDocument();
    if (course.isCancelled) {
        ReportNote(kMsgPrintingCancelled, {job.name});
        return PrintEnd::kCancelled;
    }
    ReportMessage(kMsgNotPrinted, {job.name, system::ErrorText(course.error)});
    return PrintEnd::kFailed;
}

}  // namespace corvane
