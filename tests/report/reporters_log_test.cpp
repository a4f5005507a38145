// What the reporters write into the log: numbers, never what a message says.
#include <gtest/gtest.h>

#include "platform/system.h"
#include "report/reporters.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::Narrow;
using Entries = std::vector<std::string>;

struct ReportersLog : testing::Test {
    test::RecordedReports screen;
    static inline Entries entries;
    test::FakeCatalogue catalogue{{{11, "Model \xA4 in '\xA4': \xA4"}, {12, "Advice"}}};

    ReportersLog() {
        entries.clear();
        reportView.writeLog = [](LogKind kind, std::wstring_view text) {
            EXPECT_EQ(kind, LogKind::kFault);
            entries.push_back(Narrow(text));
        };
    }
};

TEST_F(ReportersLog, ReportHasTheMessagesNumberAndTheSystemsErrorsAlone) {
    ReportMessage(11, {L"SECRET", L"C:\\ship.ve2", SystemError{system::kErrorDiskFull}});
    ReportMessage(11, {L"SECRET"}, L"SECRET advice");
    ReportSilent(11, {SystemError{5}, L"SECRET", SystemError{32}});
    EXPECT_EQ(entries, (Entries{"message 11, system error 112", "message 11",
                                "message 11, system error 5, system error 32"}));
}

TEST_F(ReportersLog, TextOfAReportIsNotWritten) {
    ReportMessage(L"The model SECRET");
    ReportMessage(L"11", {SystemError{5}});
    ReportSilent(L"The model SECRET");
    ShowWarning(L"The model SECRET");
    EXPECT_EQ(entries, (Entries{"a message without a number", "message 11, system error 5",
                                "a message without a number", "a message without a number"}));
}

TEST_F(ReportersLog, NoteOfAFaultIsWrittenAndOthersAreNot) {
    ReportNote(12);
    ReportStatus(12);
    ReportNote(11, {L"SECRET", SystemError{system::kErrorAccessDenied}});
    EXPECT_EQ(entries, Entries{"message 11, system error 5"});
}

TEST_F(ReportersLog, ErrorOfAUtilityIsWrittenWithoutDebugModeToo) {
    ReportDebugError(L"ExKill C:\\old.tmp", system::kErrorSharingViolation);
    EXPECT_EQ(entries, Entries{"ExKill C:\\old.tmp, system error 32"});
    EXPECT_TRUE(test::RecordedReports::events.empty());
}

TEST_F(ReportersLog, SystemErrorIsItsTextInTheMessage) {
    EXPECT_EQ(FormatMessage(L"because: ¤", {SystemError{system::kErrorDiskFull}}),
              L"because: " + system::ErrorText(system::kErrorDiskFull));
}

}  // namespace
}  // namespace corvane
