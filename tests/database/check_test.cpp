// The check of a database: what it accepts as readers do, files that cannot be checked, files that
// edits left over, what a copy leaves out.
#include "database/check.h"

#include <gtest/gtest.h>

#include <set>

#include "database/left_overs.h"
#include "platform/system.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/check_damage.h"
#include "tests/database/editing_fixture.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::Checked;
using test::CheckedFile;
using test::RecordedReports;
using test::ReportOf;
using Lines = std::vector<std::string>;

struct CheckTest : test::EditingTest {
    std::string sound = test::SoundDatabase();

    Lines ReportOn(const std::string& text) {
        Write(text);
        const CheckedFile checked = Checked(path);
        EXPECT_TRUE(checked.isDone);
        return ReportOf(checked);
    }
    // The sound database with this block instead of its first model's.
    std::string WithFirstBlock(const std::string& block) const {
        const std::string marker = lines.modelMarker + "\r\n";
        const size_t first = sound.find(marker);
        return sound.substr(0, first) + block + sound.substr(sound.find(marker, first + 1));
    }
};

// ---- What readers accept is no finding ---------------------------------------------------------

TEST_F(CheckTest, SampleShipHasNoFinding) {
    EXPECT_EQ(ReportOf(Checked(test::DataPath("../samples/aurora_bay.ve2"))), Lines{});
}

TEST_F(CheckTest, LineFeedsAloneAreNoFinding) {
    EXPECT_EQ(ReportOn(test::WithLineFeeds(sound)), Lines{});
}

TEST_F(CheckTest, CommentsAfterEveryLineOfTheModelsAreNoFinding) {
    const size_t models = sound.find(lines.modelMarker);
    EXPECT_EQ(ReportOn(sound.substr(0, models) +
                       test::WithLineAfterEach(sound.substr(models), "* a comment")),
              Lines{});
}

TEST_F(CheckTest, TablesInTheOtherOrderAreNoFinding) {
    SectionModel full = test::FullSection();
    const std::string block = test::BlockText(full, 1);
    EXPECT_EQ(ReportOn(WithFirstBlock(test::WithTablesReversed(block))), Lines{});
}

TEST_F(CheckTest, FatigueTableOnOneLineIsNoFinding) {
    const size_t row = sound.find("SPAN FATIGUE");
    std::string text = sound.substr(row, sound.find(lines.modelMarker, row) - row);
    const size_t first = text.find(" 1 \t 1 \t 2 ");
    for (size_t end = text.find("\r\n", first); end + 2 < text.size();
         end = text.find("\r\n", end)) {
        text.replace(end, 2, "\t");
    }
    EXPECT_EQ(ReportOn(sound.substr(0, row) + text + sound.substr(row + text.size() + 3)), Lines{});
}

TEST_F(CheckTest, RowsOfAnyWrittenSectionHaveTheRightForm) {
    const std::set<CheckRule> contents = {
        CheckRule::kNoReference,   CheckRule::kNodeKind,    CheckRule::kNodeShape,
        CheckRule::kStiffenerSide, CheckRule::kProfileType, CheckRule::kFewNodes,
        CheckRule::kFurther,       CheckRule::kNoName,      CheckRule::kCountDiffers};
    for (uint32_t seed = 1; seed <= 60; ++seed) {
        SectionModel random = test::RandomSection(seed);
        Write(WithFirstBlock(test::BlockText(random, 1)));
        for (const Finding& finding : Checked(path).findings) {
            EXPECT_TRUE(contents.contains(finding.rule))
                << seed << ": " << test::Narrow(ReportLineOf(finding));
        }
    }
}

TEST_F(CheckTest, RowsOfAnyWrittenArrangementHaveTheRightForm) {
    const std::set<CheckRule> contents = {CheckRule::kNoReference, CheckRule::kNodeKind,
                                          CheckRule::kNodeShape,   CheckRule::kProfileType,
                                          CheckRule::kFurther,     CheckRule::kNoName,
                                          CheckRule::kCountDiffers};
    for (uint32_t seed = 1; seed <= 60; ++seed) {
        BulkheadArrangement random = test::RandomArrangement(seed);
        Write(WithFirstBlock(test::BlockText(random, 1)));
        for (const Finding& finding : Checked(path).findings) {
            EXPECT_TRUE(contents.contains(finding.rule))
                << seed << ": " << test::Narrow(ReportLineOf(finding));
        }
    }
}

// ---- Numbers -----------------------------------------------------------------------------------

// What is wrong with the numbers of models that have these, in the order of the file: by model a
// letter, "d" for a number that another one has, "o" for one out of order, "." for a right one.
struct NumbersTest : CheckTest {
    std::string JudgedNumbers(const std::vector<int>& numbers) {
        const std::string marker = lines.modelMarker + "\r\n";
        const size_t last = sound.rfind(marker);
        const size_t number = sound.find(" 4 \r\n", last);
        std::string text = sound.substr(0, sound.find(marker));
        for (const int each : numbers) {
            text += sound.substr(last, number - last) + ' ' + std::to_string(each) +
                    sound.substr(number + 2);
        }
        Write(text);
        std::string judged(numbers.size(), '.');
        for (const Finding& finding : Checked(path).findings) {
            if (!finding.isInModel) continue;
            char& letter = judged[static_cast<size_t>(finding.block) - 1];
            if (finding.rule == CheckRule::kNumberDouble) letter = 'd';
            if (finding.rule == CheckRule::kNumberOrder) letter = 'o';
        }
        return judged;
    }
};

TEST_F(NumbersTest, NextAfterANumberThatIsThereTwiceIsRight) {
    EXPECT_EQ(JudgedNumbers({1, 2, 2, 4, 5}), "..d..");
    EXPECT_EQ(JudgedNumbers({1, 2, 2, 3, 4}), "..d..");
    EXPECT_EQ(JudgedNumbers({1, 2, 3, 1, 5}), "...d.");
    EXPECT_EQ(JudgedNumbers({1, 2, 3, 1, 4}), "...d.");
    EXPECT_EQ(JudgedNumbers({1, 2, 2, 2, 5, 6}), "..dd..");
    EXPECT_EQ(JudgedNumbers({1, 2, 2, 2, 3, 4}), "..dd..");
    EXPECT_EQ(JudgedNumbers({1, 1, 1}), ".dd");
}

TEST_F(NumbersTest, GapAndReversedOrderAreFoundAfterOneThatIsThereTwice) {
    EXPECT_EQ(JudgedNumbers({1, 2, 2, 5, 6}), "..do.");
    EXPECT_EQ(JudgedNumbers({1, 4, 4, 2, 3}), ".odo.");
    EXPECT_EQ(JudgedNumbers({1, 2, 2, 4, 3}), "..d.o");
    EXPECT_EQ(JudgedNumbers({2, 3, 5, 4}), "o.oo");
}

// ---- Files -------------------------------------------------------------------------------------

TEST_F(CheckTest, EmptyFile) {
    EXPECT_EQ(ReportOn(""),
              (Lines{"File, note: The file's head has no line 'SHIP'.",
                     "File, fault: The line '------------------ BSD ------------------' is missing "
                     "before the first model.",
                     "Line 1, fault: The first line is ''; 'CORVANE DATABASE' is expected.",
                     "File, note: The database has no models."}));
}

TEST_F(CheckTest, FileOfOtherContents) {
    const Lines report = ReportOn("Dear Ann,\r\nthe ship is fine.\r\n");
    ASSERT_EQ(report.size(), 5U);
    EXPECT_EQ(report[0],
              "Line 1, fault: The first line is 'Dear Ann,'; 'CORVANE DATABASE' is expected.");
}

TEST_F(CheckTest, MissingFileIsReported) {
    const CheckedFile checked = Checked(path);
    EXPECT_FALSE(checked.isDone);
    EXPECT_TRUE(checked.findings.empty());
    EXPECT_EQ(RecordedReports::Of("warning"), Lines{test::ShownText(kMsgDatabaseMissing, {path})});
}

TEST_F(CheckTest, FileThatCannotBeReadIsReported) {
    EXPECT_FALSE(Checked(test::kUnreadableFile).isDone);
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

TEST_F(CheckTest, CanBeCancelledAtEveryTimeItIsShown) {
    std::string text = sound;
    for (int i = 0; i < 8'000; ++i) text += " 1 \t 2 \t 3 \t 4 \t 5 \t 6 \t 7 \t 8 \t\r\n";
    Write(text);
    const test::SlowSystem system;
    int time = 1;
    for (;; ++time) {
        RecordedReports::timesShown = 0;
        RecordedReports::cancelAt = time;
        if (Checked(path).isDone) break;
        ASSERT_EQ(RecordedReports::caption, FormatMessage(kMsgReadingCancelled, {path})) << time;
    }
    RecordedReports::cancelAt = 0;
    EXPECT_GT(time, 1);
    EXPECT_EQ(RecordedReports::Of("warning"), Lines{});
    EXPECT_EQ(Text(), text);
}

TEST_F(CheckTest, FileThatChangesMeanwhileIsReported) {
    Write(sound.substr(0, sound.size() - 2));
    CheckResult result;
    const auto change = [&](const Finding&) { Write(sound + "* later\r\n"); };
    EXPECT_FALSE(CheckDatabase(path, change, result));
    EXPECT_EQ(RecordedReports::Of("warning"), Lines{test::ShownText(kMsgChangedInCheck, {path})});
}

TEST_F(CheckTest, FindingsAreCountedBySeverity) {
    Write(sound.substr(0, sound.size() - 2));
    EXPECT_EQ(Checked(path).result.findings, (std::array<int64_t, kSeverities>{0, 0, 1}));
}

TEST_F(CheckTest, StatusLineIsClearedAtTheEnd) {
    Write(sound);
    Checked(path);
    EXPECT_EQ(Captions(), (Lines{test::Narrow(FormatMessage(kMsgChecking, {path})) + "...", ""}));
}

// ---- Rules -------------------------------------------------------------------------------------

TEST(CheckRules, EveryRuleSaysWhatWhyAndWhatToDo) {
    std::set<std::wstring> titles;
    for (int rule = 0; rule < static_cast<int>(CheckRule::kCount); ++rule) {
        const RuleFacts& facts = FactsOf(static_cast<CheckRule>(rule));
        EXPECT_TRUE(titles.insert(facts.title).second) << test::Narrow(facts.title);
        for (const std::wstring text : {facts.text, facts.meaning, facts.remedy}) {
            EXPECT_TRUE(text.ends_with(L'.')) << test::Narrow(text);
        }
        EXPECT_FALSE(facts.isRepaired && facts.isLostByCopy) << test::Narrow(facts.title);
    }
}

// ---- Files that were left over -----------------------------------------------------------------

TEST_F(CheckTest, FileLeftOverWithTheBeginningOfTheDatabaseCanGo) {
    Write(sound);
    test::WriteFileBytes(folder.File(L"Cor1A.tmp"), sound.substr(0, 5000));
    const CheckedFile checked = Checked(path);
    const std::string file = test::Narrow(folder.File(L"Cor1A.tmp"));
    EXPECT_EQ(ReportOf(checked), Lines{"File, note: The file '" + file +
                                       "' was left by an edit that did not end; the database has "
                                       "all that is in it."});
    ASSERT_EQ(checked.result.repairs.size(), 1U);
    EXPECT_EQ(checked.result.repairs[0].kind, RepairKind::kLeftOver);
}

TEST_F(CheckTest, FileLeftOverWithOtherTextIsNamedOnly) {
    Write(sound);
    test::WriteFileBytes(folder.File(L"Cor1A.tmp"), sound + "* more\r\n");
    const CheckedFile checked = Checked(path);
    const std::string file = test::Narrow(folder.File(L"Cor1A.tmp"));
    EXPECT_EQ(ReportOf(checked), Lines{"File, warning: The file '" + file +
                                       "' was left by an edit that did not end; it has other text "
                                       "than the database."});
    EXPECT_TRUE(checked.result.repairs.empty());
}

TEST_F(CheckTest, OtherFilesInTheFolderAreNoFinding) {
    Write(sound);
    test::WriteFileBytes(folder.File(L"Cor1A.tmp"), "a text of another program");
    test::WriteFileBytes(folder.File(L"copy.ve2"), sound);
    test::WriteFileBytes(folder.File(L"Corner.tmp"), sound);
    EXPECT_EQ(ReportOf(Checked(path)), Lines{});
}

TEST_F(CheckTest, PartOfTheDatabaseIsJudgedByAllBytes) {
    const std::wstring file = folder.File(L"Cor1A.tmp");
    std::string large = sound;
    while (large.size() < 200'000) large += sound;
    Write(large);
    test::WriteFileBytes(file, large);
    EXPECT_TRUE(IsPartOfDatabase(file, path));
    test::WriteFileBytes(file, large.substr(0, 32 * 1024));
    EXPECT_TRUE(IsPartOfDatabase(file, path));
    large[150'000] = '\x01';
    test::WriteFileBytes(file, large);
    EXPECT_FALSE(IsPartOfDatabase(file, path));
    EXPECT_FALSE(IsPartOfDatabase(folder.File(L"none"), path));
}

// ---- What a copy leaves out --------------------------------------------------------------------

TEST_F(CheckTest, CopyOfASoundModelLosesNothing) {
    Write(sound);
    for (int32_t number = 1; number <= 4; ++number) {
        std::vector<Finding> losses = {Finding{}};
        EXPECT_TRUE(FindLossesOfCopy(path, number, losses));
        EXPECT_TRUE(losses.empty()) << number;
    }
}

// Line 111 of the sound database, without which nobody can say where the identifier is.
constexpr char kHeadLine[] = "\r\n .001 \t 6.75 \t 0 \r\n";

TEST_F(CheckTest, CopyOfADamagedHeadNamesUnknownTablesAndANewerLayout) {
    std::string text = test::Replaced(sound, " 2.002 \r\n*\r\nMODEL", " 2.1 \r\n*\r\nMODEL");
    text = test::Replaced(text, "------------------ OPENINGS",
                          "------------------ COATINGS ------------------\r\n 1 \t 2 \r\n 2 \t 2 "
                          "\r\n------------------ OPENINGS");
    Write(text);
    std::vector<Finding> losses;
    ASSERT_TRUE(FindLossesOfCopy(path, 1, losses));
    EXPECT_TRUE(losses.empty()) << "it is carried over";

    Write(test::Replaced(text, kHeadLine, "\r\n .001 \t 6.75 \r\n"));
    ASSERT_TRUE(FindLossesOfCopy(path, 1, losses));
    ASSERT_EQ(losses.size(), 2U);
    EXPECT_EQ(test::Narrow(ReportLineOf(losses[0])),
              "Line 89, warning, model 1 'Frame 100' (Section): The model's layout version is 2.1; "
              "Corvane knows those up to 2.002.");
    EXPECT_EQ(test::Narrow(ReportLineOf(losses[1])),
              "Line 194, warning, model 1 'Frame 100' (Section): The table COATINGS is not known "
              "(lines: 2).");
}

TEST_F(CheckTest, CopyOfABulkheadArrangementNamesRowsThatBelongToNothing) {
    const std::string text =
        test::Replaced(sound, " 2 \t 1 \t 1 \t 14.5 \t", " 4 \t 1 \t 1 \t 14.5 \t");
    Write(test::Replaced(text, "\r\n 4.25 \t 6.5 \t", "\r\n 4.25 \t"));
    std::vector<Finding> losses;
    ASSERT_TRUE(FindLossesOfCopy(path, 2, losses));
    ASSERT_EQ(losses.size(), 1U);
    EXPECT_EQ(losses[0].rule, CheckRule::kNoOwner);
    EXPECT_EQ(losses[0].line, 284);
}

TEST_F(CheckTest, CopyOfATorsionModelLosesNothingWhateverItHas) {
    Write(test::Replaced(sound, "------------------ LONG BEAM", "------------------ NEW TABLE"));
    std::vector<Finding> losses;
    EXPECT_TRUE(FindLossesOfCopy(path, 3, losses));
    EXPECT_TRUE(losses.empty());
}

TEST_F(CheckTest, LossesOfAModelThatIsNotThereAreReported) {
    Write(sound);
    std::vector<Finding> losses;
    EXPECT_FALSE(FindLossesOfCopy(path, 9, losses));
    EXPECT_EQ(RecordedReports::Of("warning"), Lines{test::ShownText(kMsgModelMissing, {9, path})});
}

}  // namespace
}  // namespace corvane
