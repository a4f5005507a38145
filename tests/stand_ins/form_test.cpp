// Forms of the stand-ins: which requests open one, what they show, and which values their fields
// accept.
#include "stand_ins/form.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/system.h"
#include "stand_ins/stand_ins.h"
#include "tests/stand_ins/stand_in_fixture.h"

namespace corvane::stand_ins {
namespace {

using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::WriteFileBytes;

bool FillNothing(Form&) {
    return true;
}

int saveCount = 0;

bool CountSave(Form& form, Question) {
    ++saveCount;
    form.request.model = 1;
    form.modelName = L"saved";
    return true;
}

constexpr StandIn kEditor{L"Editor",           L"",         ModelUse::kOptional,
                          ModelKind::kSection, FillNothing, CountSave};

struct FormTest : StandInTest {
    void SetUp() override {
        saveCount = 0;
        StandInTest::SetUp();
    }
};

TEST_F(FormTest, ShowsTheRequest) {
    ASSERT_TRUE(OpenForm(kSectionRule, L"/d /JBP " + Line(L" 5"), form)) << Warning();
    EXPECT_EQ(Fact(L"Switches"), "/d /JBP");
    EXPECT_EQ(Fact(L"Database"), Narrow(path));
    EXPECT_EQ(Fact(L"Model"), "5, Midship section, hold 4");
    EXPECT_EQ(Fact(L"Breadth, depth"), "32.25 m, 19.6 m");
    EXPECT_EQ(Fact(L"Compartments"), "4");
    EXPECT_TRUE(form.fields.empty());
    EXPECT_EQ(kSectionRule.save, nullptr);
}

TEST_F(FormTest, BulkheadRuleShowsTheArrangement) {
    ASSERT_TRUE(OpenForm(kBulkheadRule, Line(L" 11"), form)) << Warning();
    EXPECT_EQ(Fact(L"Model"), "11, Corrugated bulkhead, holds 5 and 4");
    EXPECT_EQ(Fact(L"Position"), "104.7 m");
    EXPECT_EQ(Fact(L"Bulkheads"), "5");
}

TEST_F(FormTest, NewModelIsAskedForWithoutANumber) {
    ASSERT_TRUE(OpenForm(kEditor, Line(), form));
    EXPECT_EQ(Fact(L"Model"), "a new one");
}

TEST_F(FormTest, ModelOfAnotherKindIsRefused) {
    EXPECT_FALSE(OpenForm(kSectionRule, Line(L" 11"), form));
    EXPECT_NE(Warning().find("Model 11 of '"), std::string::npos) << Warning();
    EXPECT_NE(Warning().find("is of the kind 'Bulkhead'; this program is for the kind 'Section'"),
              std::string::npos)
        << Warning();
}

TEST_F(FormTest, MissingModelIsReported) {
    EXPECT_FALSE(OpenForm(kSectionRule, Line(L" 99"), form));
    EXPECT_EQ(Warning(), "There is no model 99 in the database '" + Narrow(path) + "'.");
}

TEST_F(FormTest, RuleProgramNeedsAModel) {
    EXPECT_FALSE(OpenForm(kSectionRule, Line(), form));
    EXPECT_TRUE(Warning().starts_with("No model was chosen in '")) << Warning();
}

TEST_F(FormTest, MissingDatabaseIsReported) {
    EXPECT_FALSE(OpenForm(kEditor, L"\"" + folder.File(L"none.ve2") + L"\"", form));
    EXPECT_TRUE(Warning().starts_with("The database '")) << Warning();
    EXPECT_NE(Warning().find("was not found:\r"), std::string::npos) << Warning();
    // A folder is not a database either.
    RecordedReports::events.clear();
    EXPECT_FALSE(OpenForm(kEditor, L"\"" + folder.path + L"\"", form));
    EXPECT_NE(Warning().find("was not found:\r"), std::string::npos) << Warning();
}

TEST_F(FormTest, ForeignFileIsReported) {
    for (const std::string& bytes :
         {std::string("no database\r\n"), std::string(), std::string(5000, '\0')}) {
        RecordedReports::events.clear();
        WriteFileBytes(path, bytes);
        EXPECT_FALSE(OpenForm(kEditor, Line(), form));
        EXPECT_NE(Warning().find("' is not a Corvane database."), std::string::npos) << Warning();
    }
}

TEST_F(FormTest, ReadOnlyDatabaseIsRefusedByAnEditorOnly) {
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    EXPECT_FALSE(OpenForm(kEditor, Line(L" 5"), form));
    EXPECT_NE(Warning().find("' is read-only and cannot be changed."), std::string::npos)
        << Warning();
    RecordedReports::events.clear();
    EXPECT_TRUE(OpenForm(kSectionRule, Line(L" 5"), form));
}

TEST_F(FormTest, BlockCutOffInItsHeadIsShownAsFarAsItGoes) {
    const std::string whole = ReadFileBytes(path);
    const size_t label = whole.find("MODEL NAME");
    WriteFileBytes(path, whole.substr(0, label));
    ASSERT_TRUE(OpenForm(kSectionRule, Line(L" 1"), form)) << Warning();
    EXPECT_EQ(Fact(L"Model"), "1, ");
}

// ---- Fields ------------------------------------------------------------------------------------

int CheckOne(const Field& field) {
    return CheckFields({field});
}

TEST_F(FormTest, NumberOutsideOfItsRangeIsReported) {
    Field depth = NumberField(L"&Depth", L"m", 20, {3, 40});
    EXPECT_EQ(Narrow(depth.value), "20");
    EXPECT_EQ(CheckOne(depth), -1);
    for (const wchar_t* good : {L"3", L" 40 ", L"4E1", L"12.5"}) {
        depth.value = good;
        EXPECT_EQ(CheckOne(depth), -1) << Narrow(good);
    }
    for (const wchar_t* bad : {L"", L" ", L"2.999", L"40.01", L"12,5", L"1 2", L"x", L"20 m",
                               L"1E999", L"-20", L"nan", L"inf"}) {
        RecordedReports::events.clear();
        depth.value = bad;
        EXPECT_EQ(CheckOne(depth), 0) << Narrow(bad);
        EXPECT_TRUE(
            Warning().starts_with("Depth: '" + Narrow(bad) + "' is not a number from 3 to 40 m."))
            << Warning();
    }
}

TEST_F(FormTest, IntegerHasNoDecimals) {
    Field count = NumberField(L"Holds", L"", 5, {1, 20});
    count.kind = FieldKind::kInteger;
    EXPECT_EQ(CheckOne(count), -1);
    count.value = L"5.5";
    EXPECT_EQ(CheckOne(count), 0);
    EXPECT_EQ(Warning(), "Holds: '5.5' is not a whole number from 1 to 20.");
}

TEST_F(FormTest, NameThatTheFileCannotHoldIsReported) {
    EXPECT_EQ(CheckOne(NameField(L"Côte d'Émeraude")), -1);
    for (const wchar_t* bad : {L"", L"   ", L"* star", L"------ head", L"  ------", L"Ελλάς",
                               L"====== CORVANE MODEL ======"}) {
        RecordedReports::events.clear();
        EXPECT_EQ(CheckOne(NameField(bad)), 0) << Narrow(bad);
        EXPECT_TRUE(Warning().starts_with("Name: ")) << Warning();
    }
}

TEST_F(FormTest, FirstWrongFieldIsReturned) {
    const Field good = NumberField(L"A", L"m", 5, {1, 20});
    Field bad = good;
    bad.value = L"?";
    EXPECT_EQ(CheckFields({good, bad, bad}), 1);
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

// ---- Saving ------------------------------------------------------------------------------------

struct SaveTest : FormTest {
    std::wstring saved;

    void SetUp() override {
        FormTest::SetUp();
        ASSERT_TRUE(OpenForm(kEditor, Line(), form));
    }
    bool Save() {
        saved = SaveForm(kEditor, form, Ask);
        return !saved.empty();
    }
};

TEST_F(SaveTest, SaysWhatWasSaved) {
    ASSERT_TRUE(Save());
    EXPECT_EQ(Narrow(saved), "Saved: section 1, saved, in my ship.ve2");
    EXPECT_EQ(form.fault, -1);
    EXPECT_EQ(Fact(L"Model"), "1, saved");
    EXPECT_TRUE(Save()) << "and once more";
    EXPECT_EQ(saveCount, 2);
}

TEST_F(SaveTest, WrongFieldSavesNothing) {
    form.fields = {NameField(L"")};
    EXPECT_FALSE(Save());
    EXPECT_EQ(form.fault, 0);
    EXPECT_EQ(saveCount, 0);
}

TEST_F(SaveTest, FileThatSomebodyElseChangedIsNotOverwritten) {
    WriteFileBytes(path, ReadFileBytes(path) + "* more\r\n");
    EXPECT_FALSE(Save());
    EXPECT_EQ(form.fault, -1);
    EXPECT_EQ(saveCount, 0);
    EXPECT_TRUE(Warning().starts_with("Another program has changed the database '")) << Warning();
}

TEST_F(SaveTest, FileThatIsGoneIsReported) {
    ASSERT_EQ(system::RemoveFile(path), system::kErrorNone);
    EXPECT_FALSE(Save());
    EXPECT_EQ(saveCount, 0);
    EXPECT_NE(Warning().find("' is gone: nothing was saved."), std::string::npos) << Warning();
}

TEST_F(SaveTest, FileThatBecameReadOnlyIsReported) {
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    EXPECT_FALSE(Save());
    EXPECT_EQ(saveCount, 0);
    EXPECT_NE(Warning().find("' has become read-only: nothing was saved."), std::string::npos);
}

}  // namespace
}  // namespace corvane::stand_ins
