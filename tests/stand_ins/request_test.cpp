// The command line of a program of the suite.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/system.h"
#include "stand_ins/request.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane::stand_ins {
namespace {

using test::Narrow;
using test::RecordedReports;

struct RequestTest : testing::Test {
    RecordedReports screen;
    Request request;
};

struct GoodLine {
    const wchar_t* line;
    const wchar_t* switches;
    const wchar_t* path;
    int32_t model;
};

TEST_F(RequestTest, EveryLineThatTheShellBuildsIsRead) {
    for (const GoodLine& good : std::vector<GoodLine>{
             {L"\"C:\\a\\ship.ve2\"", L"none", L"C:\\a\\ship.ve2", 0},
             {L"\"C:\\a\\ship.ve2\" 3", L"none", L"C:\\a\\ship.ve2", 3},
             {L"/mil \"C:\\a\\ship.ve2\" 3", L"/mil", L"C:\\a\\ship.ve2", 3},
             {L"/d /mil /JBP \"C:\\my ships\\a b.ve2\" 12", L"/d /mil /JBP",
              L"C:\\my ships\\a b.ve2", 12},
         }) {
        ASSERT_TRUE(ReadRequest(good.line, request)) << Narrow(good.line);
        EXPECT_EQ(Narrow(SwitchText(request)), Narrow(good.switches));
        EXPECT_EQ(Narrow(request.databasePath), Narrow(system::AbsolutePath(good.path)));
        EXPECT_EQ(request.model, good.model);
    }
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(RequestTest, SwitchesMayBeAnywhereAndInEitherCase) {
    ASSERT_TRUE(ReadRequest(L"  /jbp\t\"C:\\x.ve2\"/D 7 /MIL ", request));
    EXPECT_TRUE(request.debug && request.mil && request.jbp);
    EXPECT_EQ(request.model, 7);
}

TEST_F(RequestTest, QuotedTextIsNoSwitch) {
    ASSERT_TRUE(ReadRequest(L"\"/d\" 2", request));
    EXPECT_FALSE(request.debug);
    EXPECT_EQ(Narrow(request.databasePath), Narrow(system::AbsolutePath(L"/d")));
}

TEST_F(RequestTest, DatabaseWithoutBlanksNeedsNoQuotes) {
    ASSERT_TRUE(ReadRequest(L"C:\\ship.ve2 2", request));
    EXPECT_EQ(Narrow(request.databasePath), Narrow(system::AbsolutePath(L"C:\\ship.ve2")));
}

struct BadLine {
    const wchar_t* line;
    const char* report;  // begins with this
};

TEST_F(RequestTest, GarbageIsReportedWithTheRightForm) {
    for (const BadLine& bad : std::vector<BadLine>{
             {L"", "No database was given."},
             {L"   ", "No database was given."},
             {L"/d /mil", "No database was given."},
             {L"\"\" 3", "No database was given."},
             {L"/x \"C:\\a.ve2\"", "There is no switch '/x'."},
             {L"/dd \"C:\\a.ve2\"", "There is no switch '/dd'."},
             {L"\"C:\\a.ve2", "The command line has a quote that is not closed:\r\r\"C:\\a.ve2"},
             {L"\"C:\\a.ve2\" 3 4", "The command line has more than a database and a model number"},
             {L"\"C:\\a.ve2\" three", "'three' is not the number of a model."},
             {L"\"C:\\a.ve2\" 0", "'0' is not the number of a model."},
             {L"\"C:\\a.ve2\" -1", "'-1' is not the number of a model."},
             {L"\"C:\\a.ve2\" 3x", "'3x' is not the number of a model."},
             {L"\"C:\\a.ve2\" 32768", "'32768' is not the number of a model."},
             {L"\"C:\\a.ve2\" 99999999999", "'99999999999' is not the number of a model."},
             {L"\"C:\\a.ve2\" \"\"", "'' is not the number of a model."},
         }) {
        RecordedReports::events.clear();
        EXPECT_FALSE(ReadRequest(bad.line, request)) << Narrow(bad.line);
        const std::vector<std::string> shown = RecordedReports::Of("warning");
        ASSERT_EQ(shown.size(), 1U) << Narrow(bad.line);
        EXPECT_TRUE(shown[0].starts_with(bad.report)) << shown[0];
        EXPECT_NE(shown[0].find("[/d] [/mil] [/JBP] \"database\" [model number]"),
                  std::string::npos)
            << shown[0];
    }
}

TEST_F(RequestTest, LongestModelNumberOfTheShellIsAccepted) {
    ASSERT_TRUE(ReadRequest(L"\"C:\\a.ve2\" 32767", request));
    EXPECT_EQ(request.model, 32767);
}

}  // namespace
}  // namespace corvane::stand_ins
