// Repairs: what is repaired, that nothing else changes, and that a second check finds it repaired.
#include "database/repair.h"

#include <gtest/gtest.h>

#include "database/listing.h"
#include "tests/database/check_damage.h"
#include "tests/database/editing_fixture.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::Checked;
using test::CheckedFile;
using test::RecordedReports;
using test::Replaced;
using Lines = std::vector<std::string>;

struct RepairTest : test::EditingTest {
    std::string sound = test::SoundDatabase();
    RepairCounts done{};

    // Checks the text, repairs all that can be, and checks again.
    CheckedFile Repaired(const std::string& text) {
        Write(text);
        const CheckedFile before = Checked(path);
        EXPECT_TRUE(RepairDatabase(path, before.result.stamp, before.result.repairs, done));
        CheckedFile after = Checked(path);
        for (const Finding& finding : after.findings) {
            EXPECT_FALSE(FactsOf(finding.rule).isRepaired) << test::Narrow(ReportLineOf(finding));
        }
        EXPECT_TRUE(after.result.repairs.empty());
        return after;
    }
};

TEST_F(RepairTest, NumbersBecomePlacesAndNothingElseChanges) {
    const std::string damaged =
        Replaced(Replaced(sound, "\r\n 3 \r\nTORSION", "\r\n 2 \r\nTORSION"), "\r\n 4 \r\nSECTION",
                 "\r\n* a comment\r\n9 aft\r\nSECTION");
    Repaired(damaged);
    EXPECT_EQ(Text(), Replaced(sound, "\r\n 4 \r\nSECTION", "\r\n* a comment\r\n 4 \r\nSECTION"));
    EXPECT_EQ(done, (RepairCounts{2, 0, 0, 0}));
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), damaged);
}

TEST_F(RepairTest, NumbersAfterAGapAreAllRepaired) {
    Repaired(Replaced(Replaced(sound, "\r\n 3 \r\nTORSION", "\r\n 5 \r\nTORSION"),
                      "\r\n 4 \r\nSECTION", "\r\n 6 \r\nSECTION"));
    EXPECT_EQ(Text(), sound);
}

TEST_F(RepairTest, UnreadableNumberIsWrittenAgain) {
    Repaired(Replaced(sound, "\r\n 2 \r\nBHA", "\r\n?\r\nBHA"));
    EXPECT_EQ(Text(), sound);
}

TEST_F(RepairTest, LostNumberLineIsPutIn) {
    Repaired(Replaced(sound, "\r\n 2 \r\nBHA", "\r\nBHA"));
    EXPECT_EQ(Text(), sound);
}

TEST_F(RepairTest, PlannedChangesCanBeShownBeforeTheyAreMade) {
    Write(Replaced(sound, "\r\n 4 \r\nSECTION", "\r\n 7 \r\nSECTION"));
    const CheckedFile checked = Checked(path);
    ASSERT_EQ(checked.result.repairs.size(), 1U);
    const Repair& repair = checked.result.repairs[0];
    EXPECT_EQ(repair.kind, RepairKind::kNumber);
    EXPECT_EQ(repair.line, 373);
    EXPECT_EQ(repair.block, 4);
    EXPECT_EQ(repair.was, L"7");
    EXPECT_EQ(repair.becomes, L"4");
}

// Nobody can say that the line is the number: it may be what is left of the kind.
TEST_F(RepairTest, UnclearLineIsNotOverwritten) {
    const std::string damaged = Replaced(sound, "\r\n 2 \r\nBHA\r\n", "\r\nBHX\r\n");
    Write(damaged);
    EXPECT_TRUE(Checked(path).result.repairs.empty());
}

TEST_F(RepairTest, NumbersStayWhereAMarkerIsDamaged) {
    const std::string marker = lines.modelMarker + "\r\n*\r\n 2 ";
    Write(Replaced(sound, marker, "====== CORVANE MO\r\n*\r\n 2 "));
    EXPECT_TRUE(Checked(path).result.repairs.empty());
}

TEST_F(RepairTest, SecondOfTwoEqualIdentifiersGetsANewOne) {
    Write(Replaced(sound, "\r\nID-0002\r\n", "\r\nID-0001\r\n"));
    const CheckedFile before = Checked(path);
    ASSERT_EQ(before.result.repairs.size(), 1U);
    const std::string made = test::Narrow(before.result.repairs[0].becomes);
    EXPECT_FALSE(made.empty());
    EXPECT_TRUE(RepairDatabase(path, before.result.stamp, before.result.repairs, done));
    EXPECT_EQ(Text(), Replaced(sound, "\r\nID-0002\r\n", "\r\n" + made + "\r\n"));
    EXPECT_EQ(done, (RepairCounts{0, 1, 0, 0}));
    EXPECT_EQ(test::ReportOf(Checked(path)), Lines{});
}

TEST_F(RepairTest, EmptyIdentifierGetsANewOne) {
    const CheckedFile after = Repaired(Replaced(sound, "\r\nID-0003\r\n", "\r\n\r\n"));
    EXPECT_EQ(test::ReportOf(after), Lines{});
    EXPECT_EQ(done, (RepairCounts{0, 1, 0, 0}));
}

TEST_F(RepairTest, LostLineOfAnIdentifierIsPutIn) {
    const CheckedFile after = Repaired(Replaced(sound, "\r\nID-0003\r\n", "\r\n"));
    EXPECT_EQ(test::ReportOf(after), Lines{});
    EXPECT_EQ(done, (RepairCounts{0, 1, 0, 0}));
    EXPECT_EQ(ListModelsWithPositions(path)[1].identifier.empty(), false);
}

TEST_F(RepairTest, IdentifierOfADamagedHeadIsLeftAlone) {
    const std::string damaged = Replaced(Replaced(sound, "\r\nID-0002\r\n", "\r\nID-0001\r\n"),
                                         "\r\n .001 \t 0 \t 0 \r\n", "\r\n");
    Write(damaged);
    EXPECT_TRUE(Checked(path).result.repairs.empty());
}

TEST_F(RepairTest, LastLineGetsItsEnd) {
    for (const size_t cut : {1, 2}) {
        const CheckedFile after = Repaired(sound.substr(0, sound.size() - cut));
        EXPECT_EQ(test::ReportOf(after), Lines{});
        EXPECT_EQ(Text(), sound);
        EXPECT_EQ(done, (RepairCounts{0, 0, 1, 0}));
    }
}

TEST_F(RepairTest, FileLeftOverGoesWhenTheDatabaseHasAllOfIt) {
    const std::wstring file = folder.File(L"Cor2F.tmp");
    test::WriteFileBytes(file, sound.substr(0, 3000));
    Repaired(sound);
    EXPECT_EQ(done, (RepairCounts{0, 0, 0, 1}));
    EXPECT_EQ(test::FilesIn(folder.path), std::vector<std::wstring>{L"ship.ve2"});
    EXPECT_EQ(Text(), sound);
}

TEST_F(RepairTest, FileLeftOverThatHasChangedSinceTheCheckStays) {
    const std::wstring file = folder.File(L"Cor2F.tmp");
    test::WriteFileBytes(file, sound.substr(0, 3000));
    Write(sound);
    const CheckedFile checked = Checked(path);
    test::WriteFileBytes(file, sound + "* more\r\n");
    EXPECT_TRUE(RepairDatabase(path, checked.result.stamp, checked.result.repairs, done));
    EXPECT_EQ(done, RepairCounts{});
    EXPECT_EQ(test::ReadFileBytes(file), sound + "* more\r\n");
}

TEST_F(RepairTest, EverythingAtOnceIsOneEdit) {
    std::string damaged = Replaced(sound, "\r\n 3 \r\nTORSION", "\r\n 8 \r\nTORSION");
    damaged = Replaced(damaged, "\r\nID-0002\r\n", "\r\nID-0001\r\n");
    damaged.resize(damaged.size() - 2);
    test::WriteFileBytes(folder.File(L"Cor2F.tmp"), damaged.substr(0, 100));
    EXPECT_EQ(test::ReportOf(Repaired(damaged)), Lines{});
    EXPECT_EQ(done, (RepairCounts{1, 1, 1, 1}));
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), damaged);
}

TEST_F(RepairTest, SomeOfThePlannedChangesAlone) {
    const std::string damaged = Replaced(sound, "\r\nID-0002\r\n", "\r\nID-0001\r\n");
    Write(Replaced(damaged, "\r\n 4 \r\nSECTION", "\r\n 5 \r\nSECTION"));
    CheckedFile checked = Checked(path);
    std::erase_if(checked.result.repairs,
                  [](const Repair& repair) { return repair.kind != RepairKind::kNumber; });
    EXPECT_TRUE(RepairDatabase(path, checked.result.stamp, checked.result.repairs, done));
    EXPECT_EQ(Text(), damaged);
}

TEST_F(RepairTest, NothingToRepairWritesNothing) {
    Write(sound);
    const CheckedFile checked = Checked(path);
    EXPECT_TRUE(RepairDatabase(path, checked.result.stamp, {}, done));
    EXPECT_EQ(done, RepairCounts{});
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

TEST_F(RepairTest, FileThatIsNoLongerTheCheckedOneIsReported) {
    Write(Replaced(sound, "\r\n 4 \r\nSECTION", "\r\n 7 \r\nSECTION"));
    const CheckedFile checked = Checked(path);
    const std::string other = Replaced(sound, "\r\n 4 \r\nSECTION", "\r\n 17 \r\nSECTION");
    Write(other);
    EXPECT_FALSE(RepairDatabase(path, checked.result.stamp, checked.result.repairs, done));
    ExpectRefusal(other, kMsgChangedSinceCheck, {path});
}

TEST_F(RepairTest, ReadOnlyFileIsReported) {
    const std::string damaged = Replaced(sound, "\r\n 4 \r\nSECTION", "\r\n 7 \r\nSECTION");
    Write(damaged);
    system::SetReadOnly(path, true);
    const CheckedFile checked = Checked(path);
    EXPECT_FALSE(RepairDatabase(path, checked.result.stamp, checked.result.repairs, done));
    ExpectRefusal(damaged, kMsgReadOnly, {path});
    system::SetReadOnly(path, false);
}

TEST_F(RepairTest, CancelledAtAnyTimeChangesNothing) {
    std::string damaged = Replaced(sound, "\r\n 2 \r\nBHA", "\r\n 7 \r\nBHA");
    for (int i = 0; i < 20'000; ++i) damaged += "* a comment of a long file\r\n";
    Write(damaged);
    const CheckedFile checked = Checked(path);
    const test::SlowSystem system;
    int time = 1;
    for (;; ++time) {
        RecordedReports::timesShown = 0;
        RecordedReports::cancelAt = time;
        if (RepairDatabase(path, checked.result.stamp, checked.result.repairs, done)) break;
        ASSERT_EQ(Text(), damaged) << time;
        ASSERT_EQ(test::FilesIn(folder.path).size(), 1U) << time;
    }
    EXPECT_GT(time, 2);
    EXPECT_EQ(Text(), Replaced(damaged, "\r\n 7 \r\nBHA", "\r\n 2 \r\nBHA"));
}

}  // namespace
}  // namespace corvane
