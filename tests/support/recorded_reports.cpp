#include "tests/support/recorded_reports.h"

#include <algorithm>
#include <utility>

#include "tests/support/support.h"

namespace corvane::test {

std::vector<std::string> RecordedReports::events;
std::wstring RecordedReports::caption;
std::wstring RecordedReports::tag;
bool RecordedReports::debugMode = false;
int RecordedReports::cancelAt = 0;
int RecordedReports::timesShown = 0;

RecordedReports::RecordedReports() : before(std::exchange(reportView, View())) {
    events.clear();
    caption.clear();
    tag = L"-1";
    debugMode = false;
    cancelAt = timesShown = 0;
}

RecordedReports::~RecordedReports() {
    reportView = before;
}

std::vector<std::string> RecordedReports::Of(std::string_view word) {
    std::vector<std::string> found;
    for (const std::string& event : events) {
        if (event.compare(0, word.size(), word) == 0 && event.size() > word.size() &&
            event[word.size()] == ' ') {
            found.push_back(event.substr(word.size() + 1));
        }
    }
    return found;
}

bool RecordedReports::Happened(std::string_view event) {
    return std::ranges::find(events, event) != events.end();
}

void RecordedReports::Record(std::string event) {
    events.push_back(std::move(event));
}

ReportView RecordedReports::View() {
    ReportView view;
    view.statusCaption = [] { return caption; };
    view.setStatusCaption = [](const std::wstring& text) {
        caption = text;
        Record("caption " + Narrow(text));
    };
    view.setStatusColour = [](StatusColour colour) {
        Record(colour == StatusColour::kRed ? "colour red" : "colour text");
    };
    view.statusTag = [] { return tag; };
    view.setStatusTag = [](const std::wstring& text) { tag = text; };
    view.showWarningBox = [](const std::wstring& text) { Record("warning " + Narrow(text)); };
    view.showPlainBox = [](const std::wstring& text) { Record("plain " + Narrow(text)); };
    view.setBusyPointer = [] { Record("pointer busy"); };
    view.resetPointer = [] { Record("pointer reset"); };
    view.processPendingMessages = [] { Record("pending"); };
    view.unloadSplash = [] { Record("splash unload"); };
    view.showProgress = [](int percent) {
        if (percent == kNoProgress) return false;
        Record("progress " + std::to_string(percent));
        return ++timesShown == cancelAt;
    };
    view.isDebugMode = [] { return debugMode; };
    return view;
}

std::string AdvisedText(const std::wstring& text, int32_t advice, MessageArguments arguments) {
    return Narrow(WithAdvice(text, BoxText(advice, arguments)));
}

std::string AdvisedText(int32_t number, MessageArguments arguments, int32_t advice) {
    return AdvisedText(BoxText(number, arguments), advice);
}

}  // namespace corvane::test
