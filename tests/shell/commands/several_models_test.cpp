// Copy, Delete and Export with more than one model selected.
#include "shell/commands/several_models.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "database/listing.h"
#include "legacy/exchange.h"
#include "platform/system.h"
#include "platform/ztvelk32.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/commands/view_commands.h"
#include "shell/exchange_boxes.h"
#include "tests/shell/command_support.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeView;
using test::Narrow;
using test::RecordedReports;
using Events = std::vector<std::string>;

// Five models: sections 1, 3 and 5, a bulkhead arrangement and a torsion model, in the window.
struct SeveralModelsTest : test::CommandTest {
    const test::OwnHistory history;
    std::string before;

    SeveralModelsTest() {
        UseHistory();
        MakeOpen(L"ship.ve2", {ModelKind::kSection, ModelKind::kBulkhead, ModelKind::kSection,
                               ModelKind::kTorsion, ModelKind::kSection});
        before = test::ReadFileBytes(shell.database.path);
        RefreshMainWindow();
        RecordedReports::events.clear();
        FakeView::answerYes = true;
    }
    static void Select(int focused, const std::vector<int>& others) {
        SelectLine(focused);
        FakeView::selected = focused;
        FakeView::alsoSelected = others;
        RecordedReports::events.clear();
    }
    static std::vector<int32_t> Numbers() {
        std::vector<int32_t> numbers;
        for (const ModelEntry& model : ListModels(shell.database.path)) {
            numbers.push_back(model.number);
        }
        return numbers;
    }
    static std::vector<ModelKind> Kinds() {
        std::vector<ModelKind> kinds;
        for (const ModelEntry& model : ListModels(shell.database.path)) kinds.push_back(model.kind);
        return kinds;
    }
    void ExpectUntouched() const { EXPECT_EQ(test::ReadFileBytes(shell.database.path), before); }
};

// ---- Delete ------------------------------------------------------------------------------------

TEST_F(SeveralModelsTest, DeleteRemovesAllOfThemAfterOneQuestionThatNamesThem) {
    Select(3, {1});
    RunCommand(ME_SectionRemove);
    const Events questions = RecordedReports::Of("ask");
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_NE(questions[0].find("irreversible Are you sure to remove these 2 models"),
              std::string::npos)
        << questions[0];
    const std::string name = Narrow(shell.database.rows[0].name);
    EXPECT_NE(questions[0].find("Bulkhead '" + name + "'\rTorsion '" + name + "'\r"),
              std::string::npos)
        << questions[0];
    EXPECT_EQ(Kinds(), std::vector<ModelKind>(3, ModelKind::kSection));
    EXPECT_EQ(Numbers(), (std::vector<int32_t>{1, 2, 3}));
    EXPECT_EQ(shell.database.currentModel, 2) << "the one after the first that has gone";
    EXPECT_EQ(FakeView::selected, 1);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(SeveralModelsTest, LinesAreTheModelsThatTheListShowsThere) {
    SortList({ListColumn::kKind, true});  // the torsion model, the sections, the bulkhead
    Select(0, {4});
    RunCommand(ME_SectionRemove);
    EXPECT_EQ(Kinds(), std::vector<ModelKind>(3, ModelKind::kSection));
}

TEST_F(SeveralModelsTest, DeleteIsOneStepOfTheHistory) {
    Select(0, {2, 4});
    RunCommand(ME_SectionRemove);
    ASSERT_EQ(Numbers().size(), 2U);
    EXPECT_EQ(Narrow(CaptionNow(*FindCommand(ME_EditUndo))), "&Undo Delete of 3 models\tCtrl+Z");
    RunCommand(ME_EditUndo);
    ExpectUntouched();
}

TEST_F(SeveralModelsTest, NoChangesNothing) {
    FakeView::answerYes = false;
    Select(0, {1, 2, 3, 4});
    RunCommand(ME_SectionRemove);
    RunCommand(ME_SectionCopy);
    EXPECT_EQ(RecordedReports::Of("ask").size(), 2U);
    ExpectUntouched();
}

TEST_F(SeveralModelsTest, QuestionAboutManyNamesTenOfThem) {
    MakeOpen(L"many.ve2", std::vector<ModelKind>(13, ModelKind::kSection));
    RefreshMainWindow();
    Select(0, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
    FakeView::answerYes = false;
    RunCommand(ME_SectionRemove);
    const std::string question = RecordedReports::Of("ask").front();
    EXPECT_NE(question.find("these 12 models"), std::string::npos) << question;
    EXPECT_NE(question.find("\rand 2 more\r"), std::string::npos) << question;
    size_t names = 0;
    for (size_t at = question.find("Section '"); at != std::string::npos;
         at = question.find("Section '", at + 1)) {
        ++names;
    }
    EXPECT_EQ(names, 10U);
}

TEST_F(SeveralModelsTest, ModelThatAnotherProgramHasChangedMeanwhileKeepsThemAll) {
    for (const CommandId command : {ME_SectionRemove, ME_SectionCopy}) {
        Select(0, {2});
        static std::wstring path;
        path = shell.database.path;
        const auto change = [](const std::wstring&) {
            std::string text = test::ReadFileBytes(path);
            const size_t last = text.rfind("SECTION");
            test::WriteFileBytes(path, text.replace(text.rfind("SECTION", last - 1), 7, "BHA"));
            return true;
        };
        shell.view.askIrreversible = change;
        shell.view.askYesNo = change;
        RunCommand(command);
        EXPECT_TRUE(OnlyWarning("Another program"));
        EXPECT_EQ(Numbers().size(), 5U);
        EXPECT_FALSE(RecordedReports::Of("rows").empty()) << "the list is read again";
        test::WriteFileBytes(path, before);
        RefreshMainWindow();
    }
}

TEST_F(SeveralModelsTest, ReadOnlyDatabaseKeepsThemAll) {
    Select(0, {2});
    ASSERT_EQ(system::SetReadOnly(shell.database.path, true), system::kErrorNone);
    RunCommand(ME_SectionRemove);
    ASSERT_EQ(system::SetReadOnly(shell.database.path, false), system::kErrorNone);
    EXPECT_EQ(Warnings().size(), 1U);
    EXPECT_TRUE(RecordedReports::Of("ask").empty());
    ExpectUntouched();
}

// ---- Copy --------------------------------------------------------------------------------------

TEST_F(SeveralModelsTest, CopyAppendsACopyOfEachInTheOrderOfTheFile) {
    Select(3, {0, 1});
    RunCommand(ME_SectionCopy);
    const Events questions = RecordedReports::Of("ask");
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_NE(questions[0].find("Do you want to copy these 3 models?"), std::string::npos);
    const std::vector<ModelEntry> models = ListModels(shell.database.path);
    ASSERT_EQ(models.size(), 8U);
    const std::wstring name = models[0].name;
    EXPECT_EQ(models[5].name, L"Copy of " + name);
    EXPECT_EQ(models[5].kind, ModelKind::kSection);
    EXPECT_EQ(models[6].name, L"Copy of " + name);
    EXPECT_EQ(models[6].kind, ModelKind::kBulkhead);
    EXPECT_EQ(models[7].name, name) << "a torsion model's copy keeps the name";
    EXPECT_EQ(models[7].number, 8);
    EXPECT_EQ(shell.database.currentModel, 8);
    EXPECT_EQ(Narrow(CaptionNow(*FindCommand(ME_EditUndo))), "&Undo Copy of 3 models\tCtrl+Z");
}

// ---- Export ------------------------------------------------------------------------------------

TEST_F(SeveralModelsTest, ExportOfAModelThatIsNotASectionIsRefusedBeforeTheBox) {
    Select(0, {1, 2});
    FakeView::askExport = [](ExportChoice&) {
        ADD_FAILURE() << "the box was shown";
        return false;
    };
    RunCommand(ME_SectionExport);
    EXPECT_EQ(Warnings().size(), 1U);
}

TEST_F(SeveralModelsTest, ExportAddsASlotForEachSectionWithItsOwnName) {
    static std::wstring legacy;
    legacy = File(L"old.vel");
    ExchangeReport report;
    ASSERT_TRUE(ExportDatabase({Make(L"empty.ve2"), legacy}, report));
    int16_t status = 0;
    ASSERT_EQ(ListLegacySections(legacy, status).size(), 0U);
    Select(4, {0, 2});
    FakeView::askExport = [](ExportChoice& choice) {
        EXPECT_EQ(choice.sections, 3);
        choice.path = legacy;
        return true;
    };
    RunCommand(ME_SectionExport);
    const std::vector<ModelEntry> sections = ListLegacySections(legacy, status);
    ASSERT_EQ(sections.size(), 3U);
    for (const ModelEntry& section : sections) {
        EXPECT_EQ(Narrow(section.name), Narrow(shell.database.rows[0].name));
    }
    EXPECT_EQ(RecordedReports::caption,
              FormatMessage(kMsgSectionsExported, {3, 3, legacy}) + L"; 3 sections were changed");
    ExpectUntouched();
}

TEST_F(SeveralModelsTest, ExportThatFailsIsReportedOnce) {
    Select(0, {2});
    FakeView::askExport = [](ExportChoice& choice) {
        choice.path = L"C:\\no such folder\\none.vel";
        return true;
    };
    RunCommand(ME_SectionExport);
    EXPECT_EQ(Warnings().size(), 1U) << "once, not for each section";
    ExpectUntouched();
}

TEST_F(SeveralModelsTest, ExportThatFailsHalfwayLeavesTheFileAsItWas) {
    static std::wstring legacy;
    legacy = File(L"old.vel");
    ExchangeReport report;
    ASSERT_TRUE(ExportDatabase({Make(L"empty.ve2"), legacy}, report));
    const std::string old = test::ReadFileBytes(legacy);
    Select(4, {0, 2});
    FakeView::askExport = [](ExportChoice& choice) {
        choice.path = legacy;
        return true;
    };
    static int slots;
    slots = 0;
    const test::FakeFunction fake(extendvelkdb, [](const char*, int16_t* status) {
        *status = ++slots == 2 ? kLegacyFull : kLegacyDone;
    });
    RunCommand(ME_SectionExport);
    EXPECT_FALSE(Warnings().empty());
    EXPECT_EQ(test::ReadFileBytes(legacy), old);
    ExpectUntouched();
}

// ---- What cannot be done with several ----------------------------------------------------------

TEST_F(SeveralModelsTest, CommandsOnOneModelAreDisabledAndSayWhy) {
    Select(0, {2});
    for (const CommandId id :
         {ME_SectionInput, ME_SectionVelkRule, ME_SectionRename, ME_SectionProperties}) {
        EXPECT_FALSE(IsEnabled(*FindCommand(id))) << id;
        EXPECT_EQ(WhyDisabled(*FindCommand(id)),
                  L"2 models are selected: this command works on one");
    }
    for (const CommandId id : {ME_SectionCopy, ME_SectionRemove, ME_SectionExport}) {
        EXPECT_TRUE(IsEnabled(*FindCommand(id))) << id;
        EXPECT_EQ(WhyDisabled(*FindCommand(id)), L"");
    }
    FakeView::selected = -1;
    FakeView::alsoSelected.clear();
    EXPECT_EQ(WhyDisabled(*FindCommand(ME_SectionCopy)), L"No model is selected");
    EXPECT_EQ(WhyDisabled(*FindCommand(ME_EditRedo)), L"There is nothing to redo");
    EXPECT_EQ(WhyDisabled(*FindCommand(ME_SectionNew)), L"");
    AdoptShipRecord({});
    EXPECT_EQ(WhyDisabled(*FindCommand(ME_SectionNew)), GetMessage(kMsgInputBsdFirst));
    AdoptDatabase(L"", {});
    EXPECT_EQ(WhyDisabled(*FindCommand(ME_SectionNew)), GetMessage(kMsgNoDatabaseOpen));
}

// ---- The selection -----------------------------------------------------------------------------

TEST_F(SeveralModelsTest, PreviewFollowsTheLineThatHasTheFocus) {
    Select(0, {});
    FakeView::selected = 2;
    FakeView::alsoSelected = {0, 1};
    ShowSelection();
    EXPECT_EQ(shell.database.currentModel, 3);
    EXPECT_EQ(FakeView::modelCount, L"5 models, 3 selected");
    RecordedReports::events.clear();
    FakeView::alsoSelected = {1};
    ShowSelection();
    EXPECT_EQ(FakeView::modelCount, L"5 models, 2 selected");
    EXPECT_FALSE(RecordedReports::Happened("clear preview")) << "it is not read again";
    EXPECT_TRUE(RecordedReports::Happened("enabling"));
    FakeView::selected = -1;
    FakeView::alsoSelected.clear();
    ShowSelection();
    EXPECT_EQ(FakeView::position, L"");
    EXPECT_EQ(FakeView::modelCount, L"5 models");
    FakeView::selected = 2;
    ShowSelection();
    EXPECT_NE(FakeView::position, L"") << "the same model is selected again";
}

TEST_F(SeveralModelsTest, SelectAllSelectsTheLinesOfTheList) {
    RunCommand(ME_EditSelectAll);
    EXPECT_TRUE(RecordedReports::Happened("select all"));
}

}  // namespace
}  // namespace corvane
