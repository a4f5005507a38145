// A section there and back: what the legacy form can hold comes back to the bit.
#include <gtest/gtest.h>

#include "bsd/bsd_file.h"
#include "database/section_block.h"
#include "legacy/exchange.h"
#include "tests/legacy/legacy_support.h"
#include "tests/support/recorded_reports.h"

namespace corvane {
namespace {

using namespace test;

constexpr uint32_t kSections = 10000;
// Equal bytes give equal sections; that is looked at now and then.
constexpr uint32_t kLookedAtAgain = 16;

TEST(LegacyRoundTrip, TenThousandSectionsComeBack) {
    const RecordedReports screen;
    for (uint32_t seed = 1; seed <= kSections; ++seed) {
        SectionModel section = GeneratedSection(seed);
        const auto exported = RecordOf(section);
        SectionModel imported = SectionOf(*exported);
        SetImportedHead(section);
        ASSERT_EQ(ExactText(imported), ExactText(section)) << "seed " << seed;
        const auto again = RecordOf(imported);
        ASSERT_TRUE(SameBytes(*again, *exported)) << "seed " << seed;
        RecordedReports::events.clear();
        if (seed % kLookedAtAgain != 0) continue;
        SectionModel importedAgain = SectionOf(*again);
        ASSERT_EQ(ExactText(importedAgain), ExactText(imported)) << "seed " << seed;
    }
}

// Through the library and its file.
TEST(LegacyRoundTrip, SampleShipComesBackFromItsFile) {
    const RecordedReports screen;
    const TemporaryFolder folder;
    const std::wstring source = DataPath("../samples/aurora_bay.ve2");
    const std::wstring target = folder.File(L"aurora.vel");
    ExchangeReport report;
    ASSERT_TRUE(ExportDatabase({source, target}, report));
    EXPECT_EQ(RecordedReports::Of("warning"), std::vector<std::string>{});
    EXPECT_EQ(CountArrived(report), 9);
    for (const ExchangedModel& model : report.models) {
        if (model.outcome == Outcome::kLeftOut) continue;
        EXPECT_EQ(model.what, Losses{FormatMessage(kMsgNotInLegacyForm, {L"side slope 60"})})
            << "all else of the sections is kept";
    }
    int16_t status = -1;
    const std::vector<ModelEntry> list = ListLegacySections(target, status);
    ASSERT_EQ(list.size(), 9u);
    for (int16_t number = 1; number <= 9; ++number) {
        SectionModel section;
        SectionModel imported;
        ASSERT_TRUE(ReadSectionBlock(source, number, false, section));
        Losses losses;
        ASSERT_TRUE(ImportSection(target, number, imported, losses));
        EXPECT_TRUE(losses.empty());
        EXPECT_EQ(list[static_cast<size_t>(number - 1)].name, section.name);
        SetImportedHead(section);
        EXPECT_EQ(ExactText(imported), ExactText(section)) << number;
    }
    BasicShipData ship;
    BasicShipData back;
    ASSERT_TRUE(LoadBsdFromDatabase(source, ship));
    ASSERT_EQ(LoadBsdFromLegacy(target, back), 0);
    EXPECT_EQ(back, ship);
}

}  // namespace
}  // namespace corvane
