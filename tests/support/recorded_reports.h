// A screen for the reporters that writes down what happens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/reporters.h"

namespace corvane::test {

// While one of these lives, what the reporters do goes to `events`, such as "caption text",
// "colour red", "warning text", "pointer reset", "pending"; afterwards to where it went before.
struct RecordedReports {
    RecordedReports();
    ~RecordedReports();
    RecordedReports(const RecordedReports&) = delete;
    RecordedReports& operator=(const RecordedReports&) = delete;

    static std::vector<std::string> events;
    static std::wstring caption;
    static std::wstring tag;
    static bool debugMode;
    // At which of the times that the progress of an operation is shown the user cancels it; 0:
    // never. How often it has been shown.
    static int cancelAt;
    static int timesShown;
    // All events that begin with `word`, without it and the blank after it.
    static std::vector<std::string> Of(std::string_view word);
    static bool Happened(std::string_view event);
    static void Record(std::string event);

    // The recording procedures.
    static ReportView View();

private:
    ReportView before;
};

// A message with another one as advice below it, as a box shows them.
std::string AdvisedText(const std::wstring& text, int32_t advice, MessageArguments arguments = {});
std::string AdvisedText(int32_t number, MessageArguments arguments, int32_t advice);

}  // namespace corvane::test
