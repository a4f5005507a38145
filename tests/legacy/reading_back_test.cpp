// What was written into a legacy database is read again: a library that fails without a word is
// found out. And the slots that it does not list.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "bsd/basic_ship_data.h"
#include "database/creating.h"
#include "database/editing.h"
#include "legacy/exchange.h"
#include "report/reporters.h"
#include "tests/legacy/legacy_support.h"
#include "tests/support/recorded_reports.h"

namespace corvane {
namespace {

using namespace test;
using Calls = std::vector<std::string>;
using Library = FakeLegacyLibrary;

struct ReadingBack : testing::Test {
    RecordedReports screen;
    FakeLegacyLibrary library;
    TemporaryFolder folder;
    std::wstring source = folder.File(L"ship.ve2");
    std::wstring target = folder.File(L"ship.vel");
    BasicShipData bsd = NewBasicShipData(L"AURORA");
    ExchangeReport report;

    static SectionModel SmallSection(const std::wstring& name) {
        SectionModel section;
        section.name = name;
        section.x_m = 7.5F;
        section.breadth_m = section.depth_m = section.draught_m = 10;
        section.panels.push_back(PanelOfNodes(3, 0, 1));
        section.compartments.resize(1);
        section.compartments[0].name = L"Tank";
        return section;
    }
    void WriteModels() {
        ASSERT_TRUE(CreateDatabaseFile(source, bsd));
        for (int32_t number = 1; number <= 2; ++number) {
            SectionModel section = SmallSection(L"Frame " + std::to_wstring(10 * number));
            ASSERT_TRUE(ReplaceSection(source, section, number));
        }
        RecordedReports::events.clear();
    }
    void ExpectFoundOut(const std::wstring& name) const {
        EXPECT_EQ(RecordedReports::Of("warning"),
                  Calls{WarningText(kMsgReadBackDiffers, {name, target})});
        RecordedReports::events.clear();
    }
    bool Export() {
        SectionModel section = SmallSection(L"Frame 10");
        Library::listCount = 0;
        return ExportSection({target, 1}, section, bsd, report);
    }
};

TEST_F(ReadingBack, BlockThatTheLibraryDropsIsFoundOut) {
    const FakeFunction fake(exportsectiongeometry,
                            [](const char*, int16_t, LegacyGeometry*) { return int16_t{0}; });
    EXPECT_FALSE(Export());
    ExpectFoundOut(L"Frame 10");
    EXPECT_TRUE(report.models.empty());
}

TEST_F(ReadingBack, ChangedNumberIsFoundOutInEachBlock) {
    static size_t at = 0;
    const auto damage = [](int16_t section, size_t offset) {
        reinterpret_cast<unsigned char*>(&Library::slots[section])[offset] ^= 0x40;
    };
    static const auto kDamage = damage;
    const FakeFunction fake(addsectvelkdb,
                            [](const char*, const char* name, float, int16_t* status) {
                                *status = 0;
                                std::strcpy(Library::entries[0].name, name);
                                kDamage(1, at);
                            });
    // The depth, y of the second point, and the first letter of a name.
    for (const size_t offset :
         {size_t{51}, offsetof(LegacySectionRecord, geometry) + size_t{4000 + 7},
          offsetof(LegacySectionRecord, compLoad)}) {
        at = offset;
        EXPECT_FALSE(Export()) << offset;
        ExpectFoundOut(L"Frame 10");
    }
}

TEST_F(ReadingBack, BytesThatAreNotUsedMayDiffer) {
    static const auto kBlanks = [](int16_t section) {
        LegacySectionRecord& record = Library::slots[section];
        for (char& letter : record.main.name) {
            if (letter == 0) letter = ' ';
        }
        std::memset(record.main.unused56, 7, sizeof(record.main.unused56));
    };
    const FakeFunction fake(addsectvelkdb,
                            [](const char*, const char* name, float, int16_t* status) {
                                *status = 0;
                                std::strcpy(Library::entries[0].name, name);
                                kBlanks(1);
                            });
    EXPECT_TRUE(Export());
    EXPECT_EQ(CountOf(report, Outcome::kWentOver), 1);
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(ReadingBack, SlotThatIsNotThereIsFoundOut) {
    const FakeFunction fake(extendvelkdb, [](const char*, int16_t* status) { *status = 0; });
    EXPECT_FALSE(Export());
    ExpectFoundOut(L"Frame 10");
}

TEST_F(ReadingBack, WholeDatabaseIsReadAgain) {
    WriteModels();
    EXPECT_TRUE(ExportDatabase({source, target}, report));
    {
        const FakeFunction fake(exportvelkcompload, [](const char*, int16_t, void*,
                                                       LegacyCompLoad*) { return int16_t{0}; });
        EXPECT_FALSE(ExportDatabase({source, target}, report));
        ExpectFoundOut(L"Frame 10");
    }
    const FakeFunction fake(exportvelkbsd, [](const char*, const LegacyBsd*, int16_t* status) {
        Library::bsd = {};
        *status = 0;
    });
    EXPECT_FALSE(ExportDatabase({source, target}, report));
    ExpectFoundOut(L"Basic Ship Data");
}

TEST_F(ReadingBack, DefaultsAndWhatTheFormLacksAreInTheReport) {
    bsd.MainData(2) = 32.25F;
    SectionModel section = SmallSection(L"Frame 10");
    section.breadth_m = 0;
    section.bottomSlope_deg = 20;
    section.stressRule = 3;
    EXPECT_TRUE(ExportSection({target, 1}, section, bsd, report));
    ASSERT_EQ(report.models.size(), 1U);
    const std::wstring form =
        FormatMessage(kMsgNotInLegacyForm, {L"bottom slope 20, stress rule 3"});
    ASSERT_EQ(report.models[0].what.size(), 2U);
    EXPECT_NE(report.models[0].what[0].find(L"breadth 32.25"), std::wstring::npos)
        << Narrow(report.models[0].what[0]);
    EXPECT_EQ(Narrow(report.models[0].what[1]), Narrow(form));
    EXPECT_EQ(report.models[0].outcome, Outcome::kChanged);
}

// ---- Slots -------------------------------------------------------------------------------------

// A library with this many slots. Asked for another one, it leaves the record as it is.
struct FakeSlots {
    static inline int slots = 0;
    static inline int reads = 0;
    FakeFunction<decltype(importvelkmainsec)> fake{
        importvelkmainsec, [](const char*, int16_t number, LegacyMainSection* record) {
            ++reads;
            if (number <= slots) record->x_m = number;
            return int16_t{0};
        }};
    explicit FakeSlots(int count) {
        slots = count;
        reads = 0;
    }
};

TEST_F(ReadingBack, SlotsBeyondTheListAreCountedInFewReads) {
    for (const int count : {0, 19, 20, 21, 22, 37, 999, 1000, 32766}) {
        const FakeSlots slots(count);
        EXPECT_EQ(CountLegacySections(target, static_cast<size_t>(std::min(count, 20))), count);
        EXPECT_LE(FakeSlots::reads, 16) << count;
    }
    const FakeSlots anyNumber(INT16_MAX);
    EXPECT_EQ(CountLegacySections(target, 20), INT16_MAX);
    EXPECT_EQ(FakeSlots::reads, 1);
}

TEST_F(ReadingBack, SectionsBeyondTheListHaveTheNamesOfTheirSlots) {
    Library::listCount = 20;
    const FakeFunction fake(
        importvelkmainsec, [](const char*, int16_t number, LegacyMainSection* record) {
            if (number > 22) return int16_t{6};
            std::snprintf(record->name, sizeof(record->name), "Slot %d", number);
            return int16_t{0};
        });
    int16_t status = -1;
    const LegacySections all = ListAllLegacySections(target, status);
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(all.hasMore);
    ASSERT_EQ(all.sections.size(), 22U);
    EXPECT_EQ(all.sections[21].name, L"Slot 22");
    EXPECT_EQ(all.sections[21].number, 22);
}

TEST_F(ReadingBack, LibraryThatGivesAnySectionIsNotAskedForMoreThanItLists) {
    Library::listCount = 20;
    const FakeSlots anyNumber(INT16_MAX);
    int16_t status = -1;
    const LegacySections all = ListAllLegacySections(target, status);
    EXPECT_TRUE(all.hasMore);
    EXPECT_EQ(all.sections.size(), 20U);
}

}  // namespace
}  // namespace corvane
