// Printing: the order in which a printer is called, and what the user reads when it ends otherwise.
#include "shell/printing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/messages.h"
#include "tests/shell/command_support.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"
#include "tests/support/wrapped_system.h"
#include "text/text.h"

namespace corvane {
namespace {

using test::Narrow;
using test::RecordedReports;

constexpr system::ErrorNumber kNoPaper = 28;

// A printer that writes down what is asked of it, and fails where the test says.
struct PrintingTest : testing::Test {
    RecordedReports reports;
    std::vector<std::string> calls;
    std::string failsAt;  // a call
    system::ErrorNumber error = kNoPaper;
    Printer printer;
    PrintJob job;

    PrintingTest() {
        printer.paper = {297, 210, {5, 5, 5, 5}};
        printer.lastPage = 3;
        printer.beginDocument = [this](const std::wstring& name) {
            return Call("begin " + Narrow(name));
        };
        printer.beginPage = [this] { return Call("page"); };
        printer.drawPage = [this](const Figure& page) {
            Call("draw " + std::to_string(static_cast<int>(page.width_mm)));
        };
        printer.endPage = [this] { return Call("end page"); };
        printer.endDocument = [this] { return Call("end"); };
        printer.abortDocument = [this] { Call("abort"); };
        job.name = L"Midship";
        job.pageCount = 3;
        // The breadth of a page says which one it is.
        job.makePage = [](int page, const Paper& paper) {
            return Page{.figure = MakeFigure(paper.width_mm + page, paper.height_mm, 1, {0, 0})};
        };
    }
    system::ErrorNumber Call(const std::string& call) {
        calls.push_back(call);
        return call == failsAt ? error : system::kErrorNone;
    }
    PrintEnd Print() { return PrintDocument(job, printer); }
};

TEST_F(PrintingTest, PagesArePrintedOneAfterTheOther) {
    EXPECT_EQ(Print(), PrintEnd::kPrinted);
    EXPECT_EQ(calls, (std::vector<std::string>{"begin Midship", "page", "draw 298", "end page",
                                               "page", "draw 299", "end page", "page", "draw 300",
                                               "end page", "end"}));
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgPrinted, {L"Midship", 3}));
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
    EXPECT_EQ(RecordedReports::Of("caption").front(), "Printing 'Midship'...");
}

TEST_F(PrintingTest, OnlyThePagesThatTheUserWantsArePrinted) {
    printer.firstPage = printer.lastPage = 2;
    EXPECT_EQ(Print(), PrintEnd::kPrinted);
    EXPECT_EQ(calls,
              (std::vector<std::string>{"begin Midship", "page", "draw 299", "end page", "end"}));
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgPrinted, {L"Midship", 1}));
}

TEST_F(PrintingTest, WhatIsPrintedToAFileSaysWhere) {
    printer.file = L"D:\\printed.prn";
    EXPECT_EQ(Print(), PrintEnd::kPrinted);
    EXPECT_EQ(RecordedReports::caption,
              FormatMessage(kMsgPrintedToFile, {L"Midship", 3, printer.file}));
}

struct PrintFileTest : test::CommandTest {};

TEST_F(PrintFileTest, NameIsAskedForAndIsNeverThatOfTheOpenDatabase) {
    MakeOpen(L"ship.ve2", {ModelKind::kSection});
    PrintJob job;
    job.name = L"Frame 7/8";
    const test::FakePrompt prompt({File(L"frame.prn"), L"", File(L"ship.ve2")});
    EXPECT_EQ(AskForPrintFile(job), File(L"frame.prn"));
    EXPECT_EQ(prompt.questions[0].caption, L"Print");
    EXPECT_EQ(prompt.questions[0].proposed, CleanFileName(job.name) + L".prn");
    EXPECT_EQ(AskForPrintFile(job), L"");
    EXPECT_TRUE(Warnings().empty());
    EXPECT_EQ(AskForPrintFile(job), L"");
    EXPECT_TRUE(OnlyWarning("is the open database itself"));
}

TEST_F(PrintingTest, FileThatCannotBeWrittenHasAdviceOfItsOwn) {
    printer.file = L"D:\\printed.prn";
    failsAt = "end";
    EXPECT_EQ(Print(), PrintEnd::kFailed);
    EXPECT_EQ(calls.back(), "abort");
    const std::vector<std::string> warnings = RecordedReports::Of("warning");
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_NE(warnings[0].find("'Midship' could not be printed to the file 'D:\\printed.prn': "),
              std::string::npos);
    EXPECT_NE(warnings[0].find("choose a folder"), std::string::npos);
}

TEST_F(PrintingTest, PrinterThatFailsInTheMiddleIsReportedAndTheDocumentTakenBack) {
    for (const std::string call : {"page", "end page", "end"}) {
        calls.clear();
        RecordedReports::events.clear();
        failsAt = call;
        EXPECT_EQ(Print(), PrintEnd::kFailed) << call;
        EXPECT_EQ(calls.back(), "abort") << call;
        const std::vector<std::string> warnings = RecordedReports::Of("warning");
        ASSERT_EQ(warnings.size(), 1U) << call;
        EXPECT_NE(warnings[0].find("'Midship' could not be printed: " +
                                   Narrow(system::ErrorText(kNoPaper))),
                  std::string::npos)
            << warnings[0];
    }
}

TEST_F(PrintingTest, DocumentThatDidNotBeginIsNotTakenBack) {
    failsAt = "begin Midship";
    EXPECT_EQ(Print(), PrintEnd::kFailed);
    EXPECT_EQ(calls, (std::vector<std::string>{"begin Midship"}));
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

TEST_F(PrintingTest, CancellingAtThePrinterIsNoFault) {
    error = system::kErrorCancelled;
    for (const std::string call : {"begin Midship", "page"}) {
        calls.clear();
        failsAt = call;
        EXPECT_EQ(Print(), PrintEnd::kCancelled) << call;
        EXPECT_EQ(calls.back() == "abort", call == "page");
        EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgPrintingCancelled, {L"Midship"}));
    }
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(PrintingTest, CancellingInTheProgressBoxTakesTheDocumentBack) {
    const test::SlowSystem slow;
    RecordedReports::cancelAt = 2;
    EXPECT_EQ(Print(), PrintEnd::kCancelled);
    EXPECT_EQ(calls, (std::vector<std::string>{"begin Midship", "page", "draw 298", "end page",
                                               "page", "draw 299", "end page", "abort"}));
    EXPECT_EQ(RecordedReports::Of("progress"), (std::vector<std::string>{"33", "66"}));
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgPrintingCancelled, {L"Midship"}));
}

TEST_F(PrintingTest, CancellingAfterTheLastPageComesTooLate) {
    const test::SlowSystem slow;
    RecordedReports::cancelAt = 3;
    EXPECT_EQ(Print(), PrintEnd::kPrinted);
    EXPECT_EQ(calls.back(), "end");
}

}  // namespace
}  // namespace corvane
