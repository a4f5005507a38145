#include "shell/library_checks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/bsdvelk.h"
#include "platform/grvelk.h"
#include "platform/ztutil32.h"
#include "platform/ztvelk32.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeCatalogue;
using test::FakeFunction;
using test::FakeView;
using test::Narrow;
using test::RecordedReports;
using Events = std::vector<std::string>;

// What the fake functions say, one for each library function.
struct FakeVersions {
    static inline float data, utility, bsd, legacy, bulkhead;
    static inline Events calls;

    FakeFunction<VersionFunction> functions[5] = {
        {GetGrVelkDataVersion, [] { return calls.push_back("data"), data; }},
        {GetZTUtilVersion, [] { return calls.push_back("utility"), utility; }},
        {GetBsdVelkVersion, [] { return calls.push_back("bsd"), bsd; }},
        {getztvelk32version, [] { return calls.push_back("legacy"), legacy; }},
        {GetGrVelkBhaVersion, [] { return calls.push_back("bulkhead"), bulkhead; }},
    };

    FakeVersions() {
        data = 2.002f;
        utility = 3.73f;
        bsd = 5.0f;
        legacy = 2.0f;
        bulkhead = 0.443f;
        calls.clear();
    }
};

class LibraryChecksTest : public testing::Test {
protected:
    FakeView screen;
    FakeCatalogue catalogue{{{1052, "\xA4: found \xA4, needed \xA4"}}};
    FakeVersions versions;

    Events Warnings() { return RecordedReports::Of("warning"); }
};

TEST_F(LibraryChecksTest, AllFivePassInTheirOrder) {
    EXPECT_TRUE(CheckLibraryVersions());
    EXPECT_EQ(FakeVersions::calls, (Events{"data", "utility", "bsd", "legacy", "bulkhead"}));
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(LibraryChecksTest, TheFirstThatFailsEndsTheChecks) {
    FakeVersions::bsd = 4.9f;
    FakeVersions::legacy = 1;
    EXPECT_FALSE(CheckLibraryVersions());
    EXPECT_EQ(FakeVersions::calls, (Events{"data", "utility", "bsd"}));
    EXPECT_EQ(Warnings(), Events{"BsdVelk: found 4.9, needed 5.0 \r0"});
}

struct VersionCase {
    float* version;
    float value;
    const char* warning;  // null: fits
};

TEST_F(LibraryChecksTest, Table) {
    const float infinity = std::numeric_limits<float>::infinity();
    const VersionCase cases[] = {
        {&FakeVersions::data, 2.001f, "GrVelk Data: found 2.001, needed 2.002 \r0"},
        {&FakeVersions::data, 2.003f, "GrVelk Data: found 2.003, needed 2.002 \r0"},
        {&FakeVersions::data, 0, "GrVelk Data: found Unknown ver., needed 2.002 \r0"},
        {&FakeVersions::utility, 3.72f, "ZTUtil32: found 3.72, needed 3.73 \r0"},
        {&FakeVersions::utility, 3.74f, nullptr},
        {&FakeVersions::utility, 100, nullptr},
        {&FakeVersions::bsd, 4.5f, "BsdVelk: found 4.5, needed 5.0 \r0"},
        {&FakeVersions::bsd, 5.01f, nullptr},
        {&FakeVersions::legacy, 1.99f, "ZTVelk32: found 1.99, needed 2.0 \r0"},
        {&FakeVersions::legacy, infinity, nullptr},
        {&FakeVersions::bulkhead, 0.442f, "GrVelk Bulkhead Data: found 0.442, needed 0.443 \r0"},
        {&FakeVersions::bulkhead, 1, "GrVelk Bulkhead Data: found 1.0, needed 0.443 \r0"},
        {&FakeVersions::bulkhead, -0.443f, "GrVelk Bulkhead Data: found -0.443, needed 0.443 \r0"},
    };
    for (const VersionCase& each : cases) {
        const float usual = *each.version;
        *each.version = each.value;
        RecordedReports::events.clear();
        EXPECT_EQ(CheckLibraryVersions(), each.warning == nullptr) << each.value;
        EXPECT_EQ(Warnings(), each.warning == nullptr ? Events{} : Events{each.warning});
        *each.version = usual;
    }
}

TEST_F(LibraryChecksTest, DataPartsMustMatchToTheLastBit) {
    FakeVersions::data = std::nextafter(2.002f, 3.0f);
    EXPECT_FALSE(CheckLibraryVersions());
    FakeVersions::data = 2.002f;
    FakeVersions::bulkhead = std::nextafter(0.443f, 0.0f);
    EXPECT_FALSE(CheckLibraryVersions());
}

TEST_F(LibraryChecksTest, AVersionThatIsNoNumberFitsNothing) {
    FakeVersions::utility = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(CheckLibraryVersions());
    EXPECT_EQ(Warnings().size(), 1u);
}

TEST_F(LibraryChecksTest, MissingLibraryIsReportedWithVersion0AndItsError) {
    GetZTUtilVersion.pointer = nullptr;
    GetZTUtilVersion.fileName = "NoSuchLibrary.dll";
    EXPECT_FALSE(CheckLibraryVersions());
    EXPECT_EQ(Warnings(), Events{"ZTUtil32: found Unknown ver., needed 3.73 \r126"});
}

TEST_F(LibraryChecksTest, MissingFunctionIsReportedWithVersion0AndItsError) {
    GetGrVelkBhaVersion.pointer = nullptr;
    GetGrVelkBhaVersion.function = "NoSuchFunction";
    EXPECT_FALSE(CheckLibraryVersions());
    EXPECT_EQ(Warnings(), Events{"GrVelk Bulkhead Data: found Unknown ver., needed 0.443 \r127"});
}

TEST_F(LibraryChecksTest, AnErrorOfAnEarlierCallIsNotReported) {
    GetBsdVelkVersion.error = 126;
    FakeVersions::bsd = 1;
    EXPECT_FALSE(CheckLibraryVersions());
    EXPECT_EQ(Warnings(), Events{"BsdVelk: found 1.0, needed 5.0 \r0"});
}

TEST_F(LibraryChecksTest, MissingCatalogueStillShowsTheFourArguments) {
    FakeCatalogue::texts.clear();
    FakeVersions::data = 1;
    EXPECT_FALSE(CheckLibraryVersions());
    EXPECT_EQ(Warnings(), Events{"Res #1052 GrVelk Data 1.0 2.002 \r0"});
}

TEST_F(LibraryChecksTest, OneCheckOfAnotherLibrary) {
    VersionFunction function{"NoSuchLibrary.dll", "Version"};
    EXPECT_FALSE(CheckLibrary({L"Label", &function, 1.0f, false}));
    EXPECT_EQ(Warnings(), Events{"Label: found Unknown ver., needed 1.0 \r126"});
    const test::FakeFunction fake(function, [] { return 1.5f; });
    EXPECT_TRUE(CheckLibrary({L"Label", &function, 1.0f, false}));
    EXPECT_FALSE(CheckLibrary({L"Label", &function, 1.0f, true}));
}

TEST(LibraryChecks, OurOwnCompanionsFit) {
    const FakeView screen;
    EXPECT_TRUE(CheckLibraryVersions());
    EXPECT_EQ(RecordedReports::events, Events{});
}

}  // namespace
}  // namespace corvane
