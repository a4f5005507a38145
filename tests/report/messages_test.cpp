#include "report/reporters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "platform/grvelk.h"
#include "platform/system.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeCatalogue;
using test::FakeFunction;
using test::Narrow;
using test::RecordedReports;
using Events = std::vector<std::string>;

class MessagesTest : public testing::Test {
protected:
    RecordedReports screen;
    // On any code page A4 is the mark of an argument, B2 of a line break, A7 of a tab; E9 is a
    // letter of the page.
    FakeCatalogue catalogue{{
        {10, "Plain"},
        {11, "Can not find BHA \xA4 in file '\xA4'"},
        {12, "Two \xA4 and \xA4"},
        {13, "Three \xA4 \xA4 \xA4"},
        {14, "a\xB2\xB2z"},
        {15, "line\xB2line\xA7tab"},
        {16, "caf\xE9"},
        {1020, "No file \xA4"},
    }};
};

// ---- The catalogue -----------------------------------------------------------------------------

TEST_F(MessagesTest, TextIsTheCatalogues) {
    EXPECT_EQ(GetMessage(10), L"Plain");
    EXPECT_EQ(GetMessage(16), L"caf" + system::WideFromAnsi("\xE9"));
    EXPECT_EQ(GetMessageBytes(16), "caf\xE9");
}

TEST_F(MessagesTest, UnknownNumberIsResAndTheNumber) {
    EXPECT_EQ(GetMessage(9999), L"Res #9999");
    EXPECT_EQ(GetMessage(0), L"Res #0");
    EXPECT_EQ(GetMessage(-7), L"Res #-7");
    EXPECT_EQ(GetMessage(INT32_MAX), L"Res #2147483647");
    EXPECT_EQ(GetMessage(INT32_MIN), L"Res #-2147483648");
    EXPECT_EQ(GetMessageBytes(9999), "Res #9999");
}

TEST_F(MessagesTest, TheBufferHasRoomFor3000Characters) {
    FakeFunction library(ZTGrVel32_LoadVelkinString, [](int32_t, char* buffer, int32_t size) {
        EXPECT_EQ(size, 3000);
        std::fill_n(buffer, size, 'x');
        return size;
    });
    EXPECT_EQ(GetMessage(1), std::wstring(3000, L'x'));
}

TEST_F(MessagesTest, ALengthBeyondTheBufferIsHeldToIt) {
    FakeFunction library(ZTGrVel32_LoadVelkinString, [](int32_t, char* buffer, int32_t size) {
        std::fill_n(buffer, size, 'x');
        return int32_t{1000000};
    });
    EXPECT_EQ(GetMessage(1).size(), 3000u);
}

TEST_F(MessagesTest, ANegativeLengthIsNoMessage) {
    FakeFunction library(ZTGrVel32_LoadVelkinString,
                         [](int32_t, char*, int32_t) { return int32_t{-1}; });
    EXPECT_EQ(GetMessage(5), L"Res #5");
}

TEST_F(MessagesTest, OnlyTheTextsOwnLengthIsUsed) {
    FakeFunction library(ZTGrVel32_LoadVelkinString, [](int32_t, char* buffer, int32_t) {
        std::string_view("abcdef").copy(buffer, 6);
        return int32_t{3};
    });
    EXPECT_EQ(GetMessage(1), L"abc");
}

TEST_F(MessagesTest, MissingCatalogueGivesResTextsAndNoCrash) {
    FakeFunction library(ZTGrVel32_LoadVelkinString, nullptr);
    ZTGrVel32_LoadVelkinString.fileName = "NoSuchLibrary.dll";
    EXPECT_EQ(GetMessage(1020), L"Res #1020");
    ReportMessage(1020, {L"ship.ve2"});
    EXPECT_EQ(RecordedReports::Of("warning"), Events{"Res #1020 ship.ve2"});
}

// ---- Arguments ---------------------------------------------------------------------------------

TEST_F(MessagesTest, ArgumentsTakeTheirPlaces) {
    EXPECT_EQ(FormatMessage(11, {L"BH1", L"C:\\ship.ve2"}),
              L"Can not find BHA BH1 in file 'C:\\ship.ve2'");
}

TEST_F(MessagesTest, UnknownNumberShowsItsArgumentsAfterBlanks) {
    EXPECT_EQ(FormatMessage(9999, {L"ship.ve2", 7}), L"Res #9999 ship.ve2 7");
}

TEST_F(MessagesTest, ThirdArgumentOfTwoPlacesIsAtTheEnd) {
    EXPECT_EQ(FormatMessage(12, {1, 2, 3}), L"Two 1 and 2 3");
}

TEST_F(MessagesTest, PlacesWithoutAnArgumentStay) {
    EXPECT_EQ(FormatMessage(13, {1}), L"Three 1 ¤ ¤");
}

struct SubstitutionCase {
    const wchar_t* text;
    const wchar_t* result;
};

TEST_F(MessagesTest, SubstitutionTable) {
    const SubstitutionCase cases[] = {
        {L"", L" A B"},         {L"no place", L"no place A B"},
        {L"¤", L"A B"},         {L"¤¤", L"AB"},
        {L"¤¤¤", L"AB¤"},       {L"²", L"\r A B"},
        {L"²²", L"² A B"},      {L"²²²", L"²\r A B"},
        {L"²²²²", L"²² A B"},   {L"§", L"\t A B"},
        {L"§§", L"§ A B"},      {L"§§§", L"§\t A B"},
        {L"²§", L"\r\t A B"},   {L"§²²§", L"\t²\t A B"},
        {L"x²¤§¤", L"x\rA\tB"},
    };
    for (const SubstitutionCase& each : cases) {
        EXPECT_EQ(Narrow(SubstituteArguments(each.text, {L"A", L"B"})), Narrow(each.result))
            << Narrow(each.text);
    }
    EXPECT_EQ(SubstituteArguments(L"", {}), L"");
    EXPECT_EQ(SubstituteArguments(L"¤²", {}), L"¤\r");
}

TEST_F(MessagesTest, SignsInsideAnArgumentAreNotInterpreted) {
    EXPECT_EQ(SubstituteArguments(L"¤ ¤", {L"¤²§", L"b"}), L"¤²§ b");
}

TEST_F(MessagesTest, AnEmptyArgumentStillTakesItsPlace) {
    EXPECT_EQ(SubstituteArguments(L"[¤][¤]", {L"", L"b", L""}), L"[][b] ");
}

TEST_F(MessagesTest, NumbersAreInTheirGeneralForm) {
    EXPECT_EQ(SubstituteArguments(L"¤", {-12}), L"-12");
    EXPECT_EQ(SubstituteArguments(L"¤", {0.5f}), L"0.5");
    EXPECT_EQ(SubstituteArguments(L"¤", {2.25}), L"2.25");
    EXPECT_EQ(SubstituteArguments(L"¤", {1e38f}), L"1E+38");
    EXPECT_EQ(SubstituteArguments(L"¤", {uint32_t{4294967295u}}), L"4294967295");
    EXPECT_EQ(SubstituteArguments(L"¤", {std::wstring(L"text")}), L"text");
}

TEST_F(MessagesTest, ATextThatReadsAsANumberIsFormattedAsTheText) {
    EXPECT_EQ(FormatMessage(L"1020", {L"a"}), L"1020 a");
}

// ---- ReportMessage and ShowWarning -------------------------------------------------------------

TEST_F(MessagesTest, ReportMessageDoesItsStepsInOrder) {
    ReportMessage(1020, {L"ship.ve2"});
    EXPECT_EQ(RecordedReports::events,
              (Events{"pointer reset", "pending", "colour red", "splash unload", "pointer reset",
                      "warning No file ship.ve2"}));
}

TEST_F(MessagesTest, ATextThatReadsAsANumberIsReportedAsThatMessage) {
    ReportMessage(L"1020", {L"a"});
    ReportMessage(L" 1020 ", {L"b"});
    ReportMessage(L"1020 files", {L"c"});
    ReportMessage(L"", {L"d"});
    EXPECT_EQ(RecordedReports::Of("warning"),
              (Events{"No file a", "No file b", "1020 files c", " d"}));
}

TEST_F(MessagesTest, LineBreaksAndTabsReachTheBox) {
    ReportMessage(15);
    EXPECT_EQ(RecordedReports::Of("warning"), Events{"line\rline\ttab"});
}

TEST_F(MessagesTest, ADoubledLineBreakSignIsOneSignInAStatusLine) {
    ReportStatus(14);
    EXPECT_EQ(RecordedReports::caption, L"a²z...");
}

// The box knows no doubling: a doubled sign leaves a line empty.
TEST_F(MessagesTest, ADoubledLineBreakSignIsTwoLineBreaksInABox) {
    ReportMessage(14);
    ShowWarning(L"a²²z");
    ReportMessage(L"a²²²z");
    EXPECT_EQ(RecordedReports::Of("warning"), (Events{"a\r\rz", "a\r\rz", "a\r\r\rz"}));
}

TEST_F(MessagesTest, ShowWarningResetsThePointerAndShowsTheBox) {
    ShowWarning(L"text");
    EXPECT_EQ(RecordedReports::events, (Events{"pointer reset", "warning text"}));
}

// ---- ReportSilent and FlagStatusFailed ---------------------------------------------------------

TEST_F(MessagesTest, ReportSilentOnlyTurnsTheLabelRed) {
    ReportSilent(1020, {L"ship.ve2"});
    ReportSilent(L"some text");
    EXPECT_EQ(RecordedReports::events, (Events{"colour red", "colour red"}));
}

TEST_F(MessagesTest, AFailureThatTheLabelShowsAlreadyIsNotFlagged) {
    ReportStatus(1020, {L"ship.ve2"});
    RecordedReports::events.clear();
    ReportSilent(1020, {L"ship.ve2"});
    ReportSilent(L"1020", {L"ship.ve2"});
    EXPECT_EQ(RecordedReports::events, Events{});
    FlagStatusFailed(L"No file");
    EXPECT_EQ(RecordedReports::events, Events{"colour red"});
}

TEST_F(MessagesTest, TheCaptionStaysWhereTheWorkStopped) {
    ShowStatus(L"Reading");
    ReportMessage(10);
    EXPECT_EQ(RecordedReports::caption, L"Reading...");
}

// ---- Status lines ------------------------------------------------------------------------------

TEST_F(MessagesTest, StatusLineEndsInDotsAndIsPaintedAtOnce) {
    ReportStatus(1020, {L"ship.ve2"});
    EXPECT_EQ(RecordedReports::events,
              (Events{"colour text", "caption No file ship.ve2...", "pending"}));
}

TEST_F(MessagesTest, UnknownStatusNumberIsShownAsRes) {
    ReportStatus(77, {L"a"});
    EXPECT_EQ(RecordedReports::caption, L"Res #77 a...");
}

TEST_F(MessagesTest, EmptyStatusClearsTheCaption) {
    ShowStatus(L"Reading");
    RecordedReports::events.clear();
    ShowStatus(L"");
    EXPECT_EQ(RecordedReports::events, (Events{"colour text", "caption ", "pending"}));
    EXPECT_EQ(RecordedReports::caption, L"");
}

TEST_F(MessagesTest, SameStatusTwiceChangesOnlyTheColour) {
    ReportStatus(10);
    RecordedReports::events.clear();
    ReportStatus(10);
    EXPECT_EQ(RecordedReports::events, Events{"colour text"});
}

TEST_F(MessagesTest, TheNextStatusSetsTheColourBack) {
    ReportStatus(10);
    ReportSilent(11);
    RecordedReports::events.clear();
    ReportStatus(10);
    EXPECT_EQ(RecordedReports::events, Events{"colour text"});
}

TEST_F(MessagesTest, WithStatusLinesOffOnlyTheColourChanges) {
    ShowStatus(L"Reading");
    for (const wchar_t* tag : {L"0", L"", L"1", L"-2", L"text"}) {
        RecordedReports::tag = tag;
        RecordedReports::events.clear();
        ReportStatus(10);
        EXPECT_EQ(RecordedReports::events, Events{"colour text"}) << Narrow(tag);
        EXPECT_EQ(RecordedReports::caption, L"Reading...") << Narrow(tag);
    }
}

TEST_F(MessagesTest, StatusLinesAreSwitchedByTheTag) {
    StatusLinesOff();
    EXPECT_EQ(RecordedReports::tag, L"0");
    ShowStatus(L"not shown");
    EXPECT_EQ(RecordedReports::caption, L"");
    StatusLinesOn();
    EXPECT_EQ(RecordedReports::tag, L"-1");
    ShowStatus(L"shown");
    EXPECT_EQ(RecordedReports::caption, L"shown...");
}

TEST_F(MessagesTest, TheTagIsReadAsAnInteger) {
    RecordedReports::tag = L" -1 ";
    ShowStatus(L"shown");
    EXPECT_EQ(RecordedReports::caption, L"shown...");
}

// ---- Pointer -----------------------------------------------------------------------------------

TEST_F(MessagesTest, PointerIsBusyAndBack) {
    SetBusyPointer();
    ResetMousePointer();
    EXPECT_EQ(RecordedReports::events, (Events{"pointer busy", "pointer reset"}));
}

// ---- Debug report ------------------------------------------------------------------------------

TEST_F(MessagesTest, DebugErrorIsShownInDebugModeOnly) {
    ReportDebugError(L"ExKill a.ve2", system::kErrorAccessDenied);
    EXPECT_EQ(RecordedReports::events, Events{});
    RecordedReports::debugMode = true;
    ReportDebugError(L"ExKill a.ve2", system::kErrorAccessDenied);
    EXPECT_EQ(
        RecordedReports::events,
        Events{"plain ExKill a.ve2 5 " + Narrow(system::ErrorText(system::kErrorAccessDenied))});
}

TEST(MessageCatalogue, HasEveryNumberThatTheProgramUses) {
#define CORVANE_EXPECT_TEXT(name, number) \
    EXPECT_NE(GetMessageBytes(name), "Res #" #number) << #name;
    CORVANE_MESSAGE_NUMBERS(CORVANE_EXPECT_TEXT)
#undef CORVANE_EXPECT_TEXT
}

}  // namespace
}  // namespace corvane
