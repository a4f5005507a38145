// The conversations with the legacy library: calls, their order and arguments, and failures.
#include "legacy/exchange.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "bsd/basic_ship_data.h"
#include "database/copying.h"
#include "database/creating.h"
#include "database/section_block.h"
#include "database/stamps.h"
#include "files/file_system.h"
#include "files/text_file.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "tests/legacy/legacy_support.h"
#include "tests/support/recorded_reports.h"

namespace corvane {
namespace {

using namespace test;
using Calls = std::vector<std::string>;
using Library = FakeLegacyLibrary;

SectionModel SmallSection(const std::wstring& name, float x) {
    SectionModel section;
    section.name = name;
    section.x_m = x;
    section.breadth_m = 32;
    section.depth_m = 19;
    section.draught_m = 12;
    section.panels.push_back(PanelOfNodes(2, 0, 1));
    return section;
}

BasicShipData Ship() {
    BasicShipData bsd;
    bsd.Titles(1).Assign(L"Aurora");
    bsd.MainData(1) = 217.77F;
    bsd.MainData(2) = 32.25F;
    bsd.MainData(3) = 19.6F;
    bsd.MainData(6) = 14;
    bsd.TypeCodes(1) = 3;
    bsd.TypeCodes(2) = 4;
    bsd.TypeCodes(3) = 5;
    return bsd;
}

// Status captions and warnings in order, without the "..." of a status.
Calls Reports() {
    Calls reports;
    for (const std::string& event : RecordedReports::events) {
        if (event.starts_with("caption ") || event.starts_with("warning "))
            reports.push_back(event);
    }
    return reports;
}

std::string Caption(int32_t number, MessageArguments arguments) {
    return "caption " + Narrow(FormatMessage(number, arguments)) + "...";
}
// What a conversation warned of; then the events are forgotten.
Calls Warnings() {
    const Calls warnings = RecordedReports::Of("warning");
    RecordedReports::events.clear();
    return warnings;
}

// What became of the models, each with its losses: "Frame 10: loss; loss".
Calls OutcomesOf(const ExchangeReport& report) {
    Calls outcomes;
    for (const ExchangedModel& model : report.models) {
        std::wstring text = model.name + L" " + OutcomeText(model.outcome) + L":";
        for (const std::wstring& what : model.what) text += L" " + what;
        outcomes.push_back(Narrow(text));
    }
    return outcomes;
}

struct Exchange : testing::Test {
    RecordedReports screen;
    FakeLegacyLibrary library;
    TemporaryFolder folder;
    std::wstring source = folder.File(L"ship.ve2");
    std::wstring target = folder.File(L"ship.vel");
    BasicShipData bsd = Ship();
    ExchangeReport report;

    // A model database of these sections; those without a name are bulkhead arrangements.
    void WriteModels(std::vector<SectionModel> sections) {
        ASSERT_TRUE(CreateDatabaseFile(source, bsd));
        TextWriter writer;
        TextReader reader;
        const std::wstring whole = folder.File(L"whole.ve2");
        ASSERT_TRUE(OpenText(reader, source) && CreateText(writer, whole));
        CopyFileHead(reader, writer);
        int32_t number = 0;
        for (SectionModel& section : sections) {
            if (!section.name.empty()) {
                WriteSectionBlock(writer, section, ++number);
                continue;
            }
            WriteBlockHead(writer, ++number, ModelKind::kBulkhead, Stamp());
            WriteLine(writer, "A bulkhead");
        }
        ASSERT_TRUE(CloseText(writer));
        WriteFileBytes(source, ReadFileBytes(whole));
        RecordedReports::events.clear();
    }
};

// ---- Export of one section ---------------------------------------------------------------------

TEST_F(Exchange, SectionGoesToANewSlotInTheDescribedOrder) {
    SectionModel section = SmallSection(L"Frame 10", 7.5F);
    Library::listCount = 2;
    EXPECT_TRUE(ExportSection({target, 3}, section, bsd, report));
    EXPECT_EQ(Library::calls,
              (Calls{"extendvelkdb ship.vel", "exportvelkmainsec ship.vel 3",
                     "exportsectiongeometry ship.vel 3", "exportvelkcompload ship.vel 3",
                     "addsectvelkdb ship.vel 'Frame 10' 7.5", "getvelksections ship.vel",
                     "importvelkmainsec ship.vel 3", "importsectiongeometry ship.vel 3",
                     "importvelkcompload ship.vel 3"}))
        << "at the end it is read again";
    EXPECT_STREQ(Library::record.main.name, "Frame 10");
    EXPECT_EQ(Library::record.geometry.strakeCount, 1);
}

TEST_F(Exchange, ReplacingASlotNeitherExtendsNorRenames) {
    SectionModel section = SmallSection(L"Frame 10", 7.5F);
    Library::listCount = 2;
    EXPECT_TRUE(ExportSection({target, 2, false}, section, bsd, report));
    EXPECT_EQ(Library::calls,
              (Calls{"exportvelkmainsec ship.vel 2", "exportsectiongeometry ship.vel 2",
                     "exportvelkcompload ship.vel 2", "getvelksections ship.vel",
                     "importvelkmainsec ship.vel 2", "importsectiongeometry ship.vel 2",
                     "importvelkcompload ship.vel 2"}));
}

// What the library answers at one step, the calls with the list that may follow, and the report.
struct Failure {
    int16_t& status;
    int16_t value;
    size_t calls;
    std::string report;
};

TEST_F(Exchange, FailureEndsTheExportOfASectionAndIsReportedInWords) {
    for (const bool isNew : {true, false}) {
        for (const Failure& failure :
             {Failure{Library::extendStatus, 5, 1, FailureText(1002, {target}, 5)},
              Failure{Library::nameStatus, 6, 6, FailureText(1003, {12, target}, 6)},
              Failure{Library::listStatus, 4, isNew ? 6U : 4U,
                      FailureText(1003, {12, target}, 4)}}) {
            if (!isNew && &failure.status != &Library::listStatus) continue;
            Library::calls.clear();
            failure.status = failure.value;
            SectionModel section = SmallSection(L"Frame 10", 7.5F);
            EXPECT_FALSE(ExportSection({target, 12, isNew}, section, bsd, report));
            failure.status = 0;
            EXPECT_EQ(Library::calls.size(), failure.calls);
            EXPECT_EQ(Warnings(), Calls{failure.report});
        }
    }
}

TEST_F(Exchange, StatusLinesOfAnExportFollowOneAnother) {
    SectionModel section = SmallSection(L"A section with a name of more than 20", 7.5F);
    ExportSection({L"C:\\Ships\\Alpha\\a long name.vel", 1}, section, bsd, report);
    const Calls reports = Reports();
    ASSERT_EQ(reports.size(), 3u) << "the steps of the conversion are not shown";
    EXPECT_EQ(reports[0], Caption(620, {L"A sectio..than 20", L"C:\\Ships..name.vel"}));
    EXPECT_EQ(reports[1], Caption(611, {section.name}));
    EXPECT_EQ(reports[2], "caption ");
    EXPECT_EQ(RecordedReports::tag, L"-1") << "status lines are shown again";
}

TEST_F(Exchange, LibraryThatIsMissingHasFailed) {
    const FakeFunction fake(extendvelkdb, [](const char*, int16_t*) {});
    SectionModel section = SmallSection(L"Frame 10", 7.5F);
    EXPECT_FALSE(ExportSection({target, 1}, section, bsd, report));
    EXPECT_TRUE(Library::calls.empty());
    EXPECT_EQ(Warnings(), Calls{WarningText(1002, {target}) + "\r\r" + Narrow(BoxText(3647))});
}

TEST_F(Exchange, StatusIsReportedInWords) {
    for (int16_t status = 1; status <= 6; ++status) {
        EXPECT_EQ(LegacyStatusText(status), BoxText(3639 + status));
    }
    for (const int status : {INT16_MIN, -2, 7, 99, INT16_MAX}) {
        const std::wstring text = LegacyStatusText(static_cast<int16_t>(status));
        EXPECT_EQ(text, BoxText(3646, {status}));
        EXPECT_NE(text.find(std::to_wstring(status)), std::wstring::npos);
    }
    EXPECT_FALSE(RequireLegacyRead(target, 3));
    EXPECT_EQ(Warnings(), Calls{"The DOS database '" + Narrow(target) +
                                "' could not be read.\r\rThe file is damaged. Use an undamaged "
                                "copy of it."});
    EXPECT_TRUE(RequireLegacyRead(target, 0));
}

TEST_F(Exchange, NamesCrossInOem) {
    SectionModel section = SmallSection(L"\u00C9tamb\u00F4t", 0.5F);
    section.panels[0].name = L"Bord\u00E9";
    section.compartments.resize(1);
    section.compartments[0].name = L"\u00C0 vide";
    ExportSection({target, 1}, section, bsd, report);
    EXPECT_EQ(Library::calls.end()[-5], "addsectvelkdb ship.vel '\x90tamb\x93t' 0.5");
    EXPECT_STREQ(Library::record.main.name, "\x90tamb\x93t");
    EXPECT_STREQ(Library::record.geometry.strakeName[0], "Bord\x82");
    EXPECT_STREQ(Library::record.compLoad.name[0], "\xB7 vide");
    WriteFileBytes(target, "any");
    SectionModel back;
    Losses losses;
    ASSERT_TRUE(ImportSection(target, 1, back, losses));
    EXPECT_EQ(back.name, section.name);
    EXPECT_EQ(back.panels[0].name, section.panels[0].name);
    EXPECT_EQ(back.compartments[0].name, section.compartments[0].name);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(Exchange, CharacterThatOemLacksIsAQuestionMarkAndIsReported) {
    SectionModel section = SmallSection(L"5 \u20AC", 0.5F);
    ExportSection({target, 1}, section, bsd, report);
    EXPECT_EQ(Library::calls.end()[-5], "addsectvelkdb ship.vel '5 ?' 0.5");
    EXPECT_STREQ(Library::record.main.name, "5 ?");
    EXPECT_EQ(OutcomesOf(report),
              Calls{Narrow(L"5 \u20AC Changed: " + FormatMessage(3595, {L"5 \u20AC", L"5 ?"}))});
}

// ---- Section defaults --------------------------------------------------------------------------

TEST_F(Exchange, SectionWithoutDimensionsGetsThoseOfTheShipAfterAMessage) {
    SectionModel section = SmallSection(L" Frame 10 ", 0);
    section.breadth_m = section.depth_m = section.draught_m = 0;
    ExportSection({target, 1}, section, bsd, report);
    const LegacyMainSection& main = Library::record.main;
    EXPECT_EQ(main.x_m, 108.89F) << "half of the length, rounded to 2 decimals";
    EXPECT_EQ(main.breadth_m, 32.25F);
    EXPECT_EQ(main.depth_m, 19.6F);
    EXPECT_EQ(main.draught_m, 14);
    EXPECT_EQ(main.shipType, 3);
    EXPECT_EQ(main.classCode, 4);
    EXPECT_EQ(main.navigationCode, 5);
    EXPECT_EQ(section.bottomSlope_deg, 30);
    EXPECT_EQ(section.sideSlope_deg, 45);
    EXPECT_EQ(Library::calls.end()[-5], "addsectvelkdb ship.vel 'Frame 10' 108.89");
    EXPECT_EQ(Warnings(), Calls{WarningText(1074, {L"Frame 10"})});
}

TEST_F(Exchange, DimensionsAreReportedBeforeTheBlocksAreWritten) {
    static size_t warningsBefore;
    SectionModel section = SmallSection(L"Frame 10", 1);
    section.draught_m = 0.0009F;
    const FakeFunction fake(exportvelkmainsec, [](const char*, int16_t, LegacyMainSection*) {
        warningsBefore = RecordedReports::Of("warning").size();
        return int16_t{0};
    });
    ExportSection({target, 1}, section, bsd, report);
    EXPECT_EQ(warningsBefore, 1u);
}

TEST_F(Exchange, NeitherTheDepthAloneNorOneThousandthIsAReasonForDefaults) {
    SectionModel section = SmallSection(L"Frame 10", 1);
    section.depth_m = 0;
    section.breadth_m = 0.001F;
    ExportSection({target, 1}, section, bsd, report);
    EXPECT_EQ(Library::record.main.depth_m, 0);
    EXPECT_EQ(Library::record.main.breadth_m, 0.001F);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(Exchange, DefaultsLeaveWhatIsSetUnlessThereIsNoThreshold) {
    SectionModel section = SmallSection(L"Frame 10", 7.5F);
    section.draught_m = 0;
    section.shipType = 9;
    section.navigationCode = -2;
    section.bottomSlope_deg = 20;
    SetSectionDefaults(section, bsd, kUnsetBelow);
    EXPECT_EQ(section.name, L"Frame 10");
    EXPECT_EQ(section.x_m, 7.5F);
    EXPECT_EQ(section.breadth_m, 32);
    EXPECT_EQ(section.draught_m, 14);
    EXPECT_EQ(section.shipType, 9);
    EXPECT_EQ(section.navigationCode, -2);
    EXPECT_EQ(section.bottomSlope_deg, 20);
    EXPECT_EQ(section.sideSlope_deg, 45);
    SetSectionDefaults(section, bsd);
    EXPECT_EQ(section.name, L"Frame 10");
    EXPECT_EQ(section.x_m, 108.89F);
    EXPECT_EQ(section.breadth_m, 32.25F);
    EXPECT_EQ(section.shipType, 3);
    EXPECT_EQ(section.navigationCode, 5);
    EXPECT_EQ(section.bottomSlope_deg, 30);
}

TEST_F(Exchange, NamelessSectionGetsAName) {
    for (const std::wstring& name : {std::wstring(), std::wstring(L"  "), GetMessage(102)}) {
        SectionModel section = SmallSection(name, 1);
        SetSectionDefaults(section, bsd, kUnsetBelow);
        EXPECT_EQ(section.name, GetMessage(161));
    }
}

// ---- Export of a whole database ----------------------------------------------------------------

TEST_F(Exchange, WholeDatabaseIsWrittenInTheDescribedOrder) {
    WriteModels(
        {SmallSection(L"Frame 10", 7.5F), SmallSection(L"", 0), SmallSection(L"Frame 20", 15)});
    EXPECT_TRUE(ExportDatabase({source, target}, report));
    EXPECT_EQ(Library::calls, (Calls{"createvelkdb ship.vel",
                                     "exportvelkbsd ship.vel",
                                     "extendvelkdb ship.vel",
                                     "exportvelkmainsec ship.vel 1",
                                     "exportsectiongeometry ship.vel 1",
                                     "exportvelkcompload ship.vel 1",
                                     "addsectvelkdb ship.vel 'Frame 10' 7.5",
                                     "extendvelkdb ship.vel",
                                     "exportvelkmainsec ship.vel 2",
                                     "exportsectiongeometry ship.vel 2",
                                     "exportvelkcompload ship.vel 2",
                                     "addsectvelkdb ship.vel 'Frame 20' 15",
                                     "getvelksections ship.vel",
                                     "importvelknavi ship.vel",
                                     "importvelkmainsec ship.vel 1",
                                     "importsectiongeometry ship.vel 1",
                                     "importvelkcompload ship.vel 1",
                                     "importvelkmainsec ship.vel 2",
                                     "importsectiongeometry ship.vel 2",
                                     "importvelkcompload ship.vel 2"}))
        << "the list at the end says whether all has been written; then it is read again";
    EXPECT_TRUE(Warnings().empty());
    EXPECT_EQ(
        OutcomesOf(report),
        (Calls{"Frame 10 Went over:", "A bulkhead Left out: A DOS database holds sections only.",
               "Frame 20 Went over:"}));
}

TEST_F(Exchange, OldTargetIsDeletedFirst) {
    WriteModels({});
    WriteFileBytes(target, "old");
    static std::wstring path;
    path = target;
    const FakeFunction fake(createvelkdb, [](const char*, int16_t* status) {
        EXPECT_FALSE(FileExists(path));
        *status = 0;
    });
    EXPECT_TRUE(ExportDatabase({source, target}, report));
}

TEST_F(Exchange, SourceIsNeverItsOwnTarget) {
    WriteModels({SmallSection(L"Frame 10", 7.5F)});
    const std::string before = ReadFileBytes(source);
    EXPECT_FALSE(ExportDatabase({source, source}, report));
    EXPECT_TRUE(Library::calls.empty());
    EXPECT_EQ(Warnings(), Calls{WarningText(3535, {source})});
    EXPECT_EQ(ReadFileBytes(source), before);
}

TEST_F(Exchange, NothingHappensWithoutAModelDatabase) {
    WriteFileBytes(target, "old");
    EXPECT_FALSE(ExportDatabase({source, target}, report));
    WriteFileBytes(source, "no database");
    EXPECT_FALSE(ExportDatabase({source, target}, report));
    const std::string text = WarningText(kMsgNoDatabase, {source});
    EXPECT_EQ(Warnings(), (Calls{text, text}));
    EXPECT_TRUE(Library::calls.empty());
    EXPECT_EQ(ReadFileBytes(target), "old");
}

TEST_F(Exchange, FailureEndsTheExportOfADatabaseAndIsReportedInWords) {
    WriteModels({SmallSection(L"Frame 10", 7.5F)});
    for (const Failure& failure :
         {Failure{Library::createStatus, 4, 1, FailureText(1067, {target}, 4)},
          Failure{Library::bsdStatus, 3, 2, FailureText(1068, {target, 3}, 3)},
          Failure{Library::listStatus, 4, 8, FailureText(1067, {target}, 4)}}) {
        Library::calls.clear();
        failure.status = failure.value;
        EXPECT_FALSE(ExportDatabase({source, target}, report));
        failure.status = 0;
        EXPECT_EQ(Library::calls.size(), failure.calls);
        EXPECT_EQ(Warnings(), Calls{failure.report});
    }
}

TEST_F(Exchange, SlotThatIsRefusedEndsTheLoop) {
    WriteModels({SmallSection(L"Frame 10", 7.5F), SmallSection(L"", 0),
                 SmallSection(L"Frame 20", 15), SmallSection(L"Frame 30", 20)});
    Library::extendFailsAt = 2;
    EXPECT_FALSE(ExportDatabase({source, target}, report));
    EXPECT_EQ(Library::calls.size(), 9u);
    EXPECT_EQ(Library::calls[7], "extendvelkdb ship.vel");
    EXPECT_EQ(Library::calls[8], "getvelksections ship.vel") << "the library keeps nothing back";
    EXPECT_EQ(Warnings(), Calls{FailureText(1003, {2, target}, 5)});
}

TEST_F(Exchange, SectionThatCannotBeReadIsLeftOut) {
    WriteModels({SmallSection(L"Frame 10", 7.5F), SmallSection(L"Frame 10", 15)});
    std::string text = ReadFileBytes(source);
    const size_t second = text.rfind("\r\n 2 \r\n");
    ASSERT_NE(second, std::string::npos);
    WriteFileBytes(source, text.replace(second + 3, 1, "1"));
    EXPECT_TRUE(ExportDatabase({source, target}, report));
    EXPECT_EQ(Warnings().size(), 2u) << "each model that shares a number is reported";
    const std::string line = "Frame 10 Left out: It could not be read.";
    EXPECT_EQ(OutcomesOf(report), (Calls{line, line}));
}

TEST_F(Exchange, NameThatIsRefusedDoesNotEndTheLoop) {
    WriteModels({SmallSection(L"Frame 10", 7.5F), SmallSection(L"Frame 20", 15)});
    Library::nameStatus = 6;
    EXPECT_TRUE(ExportDatabase({source, target}, report));
    EXPECT_EQ(Library::calls.size(), 20u);
    EXPECT_TRUE(Warnings().empty());
    EXPECT_EQ(OutcomesOf(report),
              (Calls{"Frame 10 Changed: In the list of the DOS database its name is ''.",
                     "Frame 20 Changed: In the list of the DOS database its name is ''."}));
}

TEST_F(Exchange, LossesOfAWholeDatabaseAreGatheredSectionBySectionWithCountsAndLimits) {
    SectionModel few = SmallSection(L"Frame 10", 7.5F);
    few.panels[0].openings.resize(13);
    few.panels[0].pillars.resize(9);
    SectionModel none = SmallSection(L"Frame 20", 15);
    SectionModel one = SmallSection(L"Frame 30", 20);
    one.compartments.resize(9);
    WriteModels({few, none, one});
    EXPECT_TRUE(ExportDatabase({source, target}, report));
    EXPECT_TRUE(Warnings().empty());
    const std::wstring openings = FormatMessage(2017, {12}) + L" This section has 13.";
    const std::wstring pillars = FormatMessage(2015, {8}) + L" This section has 9.";
    const std::wstring compartments = FormatMessage(2009, {8}) + L" This section has 9.";
    EXPECT_EQ(OutcomesOf(report),
              (Calls{Narrow(L"Frame 10 Changed: " + openings + L" " + pillars),
                     "Frame 20 Went over:", Narrow(L"Frame 30 Changed: " + compartments)}));
}

TEST_F(Exchange, FaultyGeometryShowsNoBox) {
    SectionModel section = SmallSection(L"Frame 10", 7.5F);
    Panel panel;
    for (int i = 0; i < 27; ++i) panel.nodes.push_back(section.panels[0].nodes[0]);
    section.panels.push_back(panel);
    EXPECT_TRUE(ExportSection({target, 1}, section, bsd, report));
    EXPECT_TRUE(RecordedReports::Happened("colour red"));
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(Exchange, WholeDatabaseGetsDefaultsInSilenceForItsDepthToo) {
    SectionModel section = SmallSection(L"Frame 10", 0);
    section.depth_m = 0;
    WriteModels({section});
    EXPECT_TRUE(ExportDatabase({source, target}, report));
    EXPECT_EQ(Library::record.main.depth_m, 19.6F);
    EXPECT_EQ(Library::record.main.x_m, 108.89F);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(Exchange, TitlesCrossInOemPaddedToThirty) {
    bsd.Titles(1).Assign(L"\u00C9toile");
    bsd.Titles(5).Assign(L"ETOILE");
    bsd.Remark.Assign(L"\u00E9");
    WriteModels({});
    ExportDatabase({source, target}, report);
    EXPECT_EQ(std::string(Library::bsd.Titles[0], 30), "\x90toile" + std::string(24, ' '));
    EXPECT_EQ(std::string(Library::bsd.Titles[4], 30), "ETOILE" + std::string(24, ' '));
    EXPECT_EQ(Library::bsd.Remark[0], '\xE9') << "only the titles are OEM";
    BasicShipData back;
    EXPECT_EQ(LoadBsdFromLegacy(target, back), 0);
    EXPECT_EQ(back.Titles(1), bsd.Titles(1));
    EXPECT_EQ(back.Remark, bsd.Remark);
    EXPECT_EQ(back.MainData, bsd.MainData);
}

TEST_F(Exchange, ShipDataCrossInALargerZeroedBuffer) {
    const FakeFunction fake(importvelknavi, [](const char*, LegacyBsd* read, int16_t* status) {
        const auto* bytes = reinterpret_cast<const char*>(read);
        for (size_t i = 0; i < kLegacyBsdBufferSize; ++i) EXPECT_EQ(bytes[i], 0) << i;
        std::memset(reinterpret_cast<char*>(read), ' ', kLegacyBsdBufferSize);
        *status = 0;
    });
    BasicShipData back;
    EXPECT_EQ(LoadBsdFromLegacy(target, back), 0);
}

TEST_F(Exchange, ShipDataThatCannotBeReadLeaveTheRecord) {
    Library::naviStatus = 3;
    BasicShipData back = bsd;
    EXPECT_EQ(LoadBsdFromLegacy(target, back), 3);
    EXPECT_EQ(back, bsd);
}

// ---- Import and list ---------------------------------------------------------------------------

TEST_F(Exchange, SectionIsImportedInTheDescribedOrder) {
    SectionModel section = SmallSection(L"Frame 10", 7.5F);
    ToLegacyRecord(section, Library::record);
    WriteFileBytes(target, "any");
    RecordedReports::events.clear();
    SectionModel back;
    Losses losses;
    EXPECT_TRUE(ImportSection(target, 7, back, losses));
    EXPECT_EQ(Library::calls,
              (Calls{"importvelkmainsec ship.vel 7", "importsectiongeometry ship.vel 7",
                     "importvelkcompload ship.vel 7"}));
    EXPECT_EQ(back.name, L"Frame 10");
    const Calls reports = Reports();
    ASSERT_EQ(reports.size(), 2u);
    EXPECT_EQ(reports[0], Caption(610, {L"Frame 10"}));
    EXPECT_EQ(reports[1], "caption ");
    EXPECT_EQ(RecordedReports::tag, L"-1");
}

TEST_F(Exchange, LossesOfAnImportAreGathered) {
    SectionModel section = SmallSection(L"Frame 10", 7.5F);
    ToLegacyRecord(section, Library::record);
    Library::record.geometry.counts.pillars = 1;
    Library::record.geometry.pillars[0].strake = 9;
    WriteFileBytes(target, "any");
    RecordedReports::events.clear();
    Losses losses;
    SectionModel back;
    EXPECT_TRUE(ImportSection(target, 7, back, losses));
    EXPECT_TRUE(ImportSection(target, 8, back, losses));
    EXPECT_TRUE(Warnings().empty());
    const std::wstring lost = FormatMessage(2001, {1, 0, 0});
    EXPECT_EQ(losses, (Losses{lost, lost}));
}

TEST_F(Exchange, CompartmentsOfTheSectionItselfNeverCross) {
    static const auto isZeroed = [](const void* compartments) {
        const auto* bytes = static_cast<const unsigned char*>(compartments);
        return std::all_of(bytes, bytes + 65536, [](unsigned char byte) { return byte == 0; });
    };
    static LegacyCompLoad written;
    const FakeFunction out(exportvelkcompload,
                           [](const char*, int16_t, void* own, LegacyCompLoad* block) {
                               EXPECT_TRUE(isZeroed(own));
                               std::memset(own, 0x5A, 65536);
                               written = *block;
                               return int16_t{0};
                           });
    const FakeFunction in(importvelkcompload,
                          [](const char*, int16_t, void* own, LegacyCompLoad* block) {
                              EXPECT_TRUE(isZeroed(own));
                              std::memset(own, 0x5A, 65536);
                              *block = written;
                              return int16_t{0};
                          });
    SectionModel section = SmallSection(L"Frame 10", 7.5F);
    section.compartments.resize(2);
    EXPECT_TRUE(ExportSection({target, 1}, section, bsd, report));
    EXPECT_EQ(section.compartments.size(), 2u);
    WriteFileBytes(target, "any");
    Losses losses;
    EXPECT_TRUE(ImportSection(target, 1, section, losses));
    EXPECT_EQ(section.compartments.size(), 2u);
}

TEST_F(Exchange, MissingFileIsReportedBeforeAnyCall) {
    SectionModel section;
    Losses losses;
    EXPECT_FALSE(ImportSection(target, 1, section, losses));
    EXPECT_TRUE(Library::calls.empty());
    EXPECT_EQ(Warnings(), Calls{WarningText(1020, {target})});
}

TEST_F(Exchange, ListHasTheNamesInAnsi) {
    Library::listCount = 3;
    std::memcpy(Library::entries[0].name, "\x90tamb\x93t                       ", 30);
    std::memcpy(Library::entries[1].name, "0123456789012345678901234567890123456789", 40);
    std::memcpy(Library::entries[2].name, "\xB0 tank ", 7);  // a shade, which ANSI lacks
    int16_t status = -1;
    const std::vector<ModelEntry> list = ListLegacySections(target, status);
    EXPECT_EQ(Library::calls, Calls{"getvelksections ship.vel"});
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0].name, L"\u00C9tamb\u00F4t");
    EXPECT_EQ(list[1].name.size(), 40u);
    EXPECT_EQ(list[2].name, L"? tank");
    for (const ModelEntry& entry : list) EXPECT_EQ(entry.kind, ModelKind::kSection);
}

TEST_F(Exchange, CountThatIsTooLargeListsTwentyAndADamagedDatabaseNone) {
    Library::listCount = 500;
    int16_t status = -1;
    EXPECT_EQ(ListLegacySections(target, status).size(), 20u);
    Library::listCount = -3;
    EXPECT_TRUE(ListLegacySections(target, status).empty());
    Library::listCount = 2;
    Library::listStatus = 3;
    EXPECT_TRUE(ListLegacySections(target, status).empty());
    EXPECT_EQ(status, 3);
}

}  // namespace
}  // namespace corvane
