// Section > Export to Velk Dos and File > Save as Velk Dos.
#include <gtest/gtest.h>

#include <algorithm>

#include "bsd/bsd_file.h"
#include "database/editing.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "legacy/exchange.h"
#include "platform/system.h"
#include "report/messages.h"
#include "shell/commands/file_commands.h"
#include "shell/commands/section_commands.h"
#include "shell/model_exchange.h"
#include "shell/open_database.h"
#include "shell/report.h"
#include "tests/companions/file_bytes.h"
#include "tests/database/sample_database.h"
#include "tests/legacy/legacy_support.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/sample_models.h"
#include "text/text.h"

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::wstring>;
using Texts = std::vector<std::string>;

struct ExportCommands : CommandTest {
    std::wstring legacy = File(L"old.vel");
    std::wstring path = File(L"ship.ve2");

    std::string reported;  // the report as text

    ExportCommands() {
        FakeView::showReport = [this](Report& report) {
            reported += Narrow(ReportAsText(report));
            return false;
        };
    }
    // Opens a database of these sections.
    void OpenSections(std::vector<SectionModel> sections) {
        MakeOpen(L"ship.ve2");
        int32_t number = 0;
        for (SectionModel& section : sections) {
            ASSERT_TRUE(ReplaceSection(path, section, ++number));
        }
        RecordedReports::events.clear();
    }
    void OpenSample() {
        WriteFileBytes(path, ReadFileBytes(SamplePath()));
        shell.database.path = path;
        ASSERT_TRUE(LoadBsdFromDatabase(path, shell.database.bsd));
        shell.database.currentModel = 1;
        RecordedReports::events.clear();
    }
    // The test's files; its folders have no extension.
    Names Files() const {
        Names names = FilesIn(folder.path);
        std::erase_if(names, [](const std::wstring& name) { return FileExtension(name).empty(); });
        return names;
    }
    static SectionModel SmallSection(const std::wstring& name) {
        SectionModel section;
        section.name = name;
        section.x_m = 7.5F;
        section.breadth_m = section.depth_m = section.draught_m = 10;
        section.panels.push_back(PanelOfNodes(2, 0, 1));
        return section;
    }
    static Names ListedNames(const std::wstring& file) {
        int16_t status = -1;
        Names names;
        for (const ModelEntry& entry : ListLegacySections(file, status)) {
            names.push_back(entry.name);
        }
        EXPECT_EQ(status, 0);
        return names;
    }
    static std::wstring NameInSlot(const std::wstring& file, int16_t slot) {
        SectionModel section;
        Losses losses;
        EXPECT_TRUE(ImportSection(file, slot, section, losses));
        return section.name;
    }
};

// ---- Section > Export --------------------------------------------------------------------------

struct ExportSectionCommand : ExportCommands {
    ExportSectionCommand() { OpenSections({SmallSection(L"Frame 10"), SmallSection(L"Frame 20")}); }

    // What the user chooses.
    ExportChoice New(const std::wstring& name) const { return {legacy, true, 0, name}; }
    ExportChoice Over(int16_t slot) const { return {legacy, false, slot, L"Any"}; }

    // What the user answers. The box's proposals are in `proposed`.
    inline static ExportChoice answer, proposed;
    static void Answer(const ExportChoice& choice) {
        answer = choice;
        FakeView::askExport = [](ExportChoice& asked) {
            proposed = asked;
            asked = answer;
            return true;
        };
    }
    static void Export(const ExportChoice& choice) {
        Answer(choice);
        RecordedReports::events.clear();
        ME_SectionExport_Click();
    }
    // Nothing is reported but this, and the legacy database stays.
    void ExpectRefused(const ExportChoice& choice, const std::string& warning) {
        const std::string before = FileExists(legacy) ? ReadFileBytes(legacy) : "";
        Export(choice);
        EXPECT_EQ(Warnings(), Texts{warning});
        EXPECT_EQ(FileExists(legacy) ? ReadFileBytes(legacy) : "", before);
        EXPECT_EQ(Files().size(), FileExists(legacy) ? 2u : 1u);
    }
    static void FailWhenAsked() {
        FakeView::askExport = [](ExportChoice&) {
            ADD_FAILURE() << "the box was shown";
            return false;
        };
    }
};

TEST_F(ExportSectionCommand, SectionGoesIntoANewSlotAfterTheOthers) {
    WriteLegacyDatabase(legacy, {L"One", L"Two"});
    const std::string one = SlotBytes(legacy, 1);
    shell.database.currentModel = 2;
    Export(New(L"Frame 20"));
    EXPECT_EQ(ListedNames(legacy), (Names{L"One", L"Two", L"Frame 20"}));
    EXPECT_EQ(NameInSlot(legacy, 3), L"Frame 20");
    EXPECT_EQ(SlotBytes(legacy, 1), one);
    EXPECT_TRUE(Warnings().empty());
    EXPECT_TRUE(RecordedReports::caption.empty());
    EXPECT_EQ(shell.database.currentModel, 2);
}

TEST_F(ExportSectionCommand, SectionsNameIsProposedAndTheFolderRemembered) {
    WriteLegacyDatabase(legacy, {});
    Export(New(L"Frame 10"));
    EXPECT_EQ(proposed.name, L"Frame 10");
    EXPECT_TRUE(proposed.createNew);
    EXPECT_EQ(shell.settings.BrowseDirectory, folder.path);
}

TEST_F(ExportSectionCommand, NewSectionHasTheNameThatTheUserGives) {
    WriteLegacyDatabase(legacy, {});
    Export(New(L"  Midship  "));
    Export(New(L"   "));
    EXPECT_EQ(ListedNames(legacy), (Names{L"Midship", L"Frame 10"}));
    EXPECT_EQ(NameInSlot(legacy, 1), L"Midship");
    SectionModel section;
    ASSERT_TRUE(ReadSectionBlock(path, 1, false, section));
    EXPECT_EQ(section.name, L"Frame 10") << "the open database keeps its name";
}

TEST_F(ExportSectionCommand, ReplacedSlotKeepsItsNameInTheListAndTheOthersStay) {
    WriteLegacyDatabase(legacy, {L"One", L"Two", L"Three"});
    const std::string one = SlotBytes(legacy, 1);
    const std::string three = SlotBytes(legacy, 3);
    Export(Over(2));
    EXPECT_EQ(ListedNames(legacy), (Names{L"One", L"Two", L"Three"}));
    EXPECT_EQ(NameInSlot(legacy, 2), L"Frame 10");
    EXPECT_EQ(SlotBytes(legacy, 1), one);
    EXPECT_EQ(SlotBytes(legacy, 3), three);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(ExportSectionCommand, NewSlotFollowsTheLastOneHoweverManyThereAre) {
    for (const int count : {0, 1, 19, 20, 21, 500}) {
        WriteLegacyDatabase(legacy, {L"One"});
        RepeatSection(legacy, count);
        Export(New(L"New"));
        EXPECT_TRUE(Warnings().empty()) << count;
        EXPECT_EQ(NameInSlot(legacy, static_cast<int16_t>(count + 1)), L"New") << count;
        for (int slot = 1; slot <= count; slot += 7) {
            EXPECT_EQ(NameInSlot(legacy, static_cast<int16_t>(slot)), L"One");
        }
    }
}

TEST_F(ExportSectionCommand, SlotBeyondTheListCanBeReplaced) {
    WriteLegacyDatabase(legacy, {L"One"});
    RepeatSection(legacy, 22);
    Export(Over(22));
    EXPECT_EQ(NameInSlot(legacy, 22), L"Frame 10");
    EXPECT_EQ(NameInSlot(legacy, 21), L"One");
}

TEST_F(ExportSectionCommand, SuccessIsNamedInTheStatusLine) {
    WriteLegacyDatabase(legacy, {});
    Export(New(L"Frame 10"));
    EXPECT_EQ(RecordedReports::Of("caption").back(),
              Narrow(FormatMessage(kMsgSectionExported, {L"Frame 10", legacy})));
}

TEST_F(ExportSectionCommand, CancelChangesNothing) {
    ME_SectionExport_Click();
    EXPECT_TRUE(Warnings().empty());
    EXPECT_TRUE(RecordedReports::Of("caption").empty()) << "the status line stays";
    EXPECT_EQ(shell.settings.BrowseDirectory, browse);
}

TEST_F(ExportSectionCommand, BoxHasTheSectionForItsPreview) {
    WriteLegacyDatabase(legacy, {});
    Export(New(L"Frame 10"));
    EXPECT_EQ(proposed.section.name, L"Frame 10");
    EXPECT_EQ(proposed.section.panels.size(), 1u);
}

TEST_F(ExportSectionCommand, OtherKindsAreRefusedBeforeTheBox) {
    WriteFileBytes(path, DatabaseText(FiveBlocks()));
    FailWhenAsked();
    shell.database.currentModel = 2;
    ME_SectionExport_Click();
    shell.database.currentModel = 4;
    ME_SectionExport_Click();
    EXPECT_EQ(Warnings(), (Texts{WarningText(3560, {L"Bulkhead", L"Bulkhead 40"}),
                                 WarningText(3560, {L"Torsion", L"Girder"})}));
}

TEST_F(ExportSectionCommand, NumberThatLeadsToNoModelAloneIsRefusedBeforeTheBox) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[1].number = blocks[2].number = " 3 ";
    WriteFileBytes(path, DatabaseText(blocks));
    FailWhenAsked();
    shell.database.currentModel = 3;
    ME_SectionExport_Click();
    shell.database.currentModel = 9;
    ME_SectionExport_Click();
    system::RemoveFile(path);
    ME_SectionExport_Click();
    EXPECT_EQ(Warnings(), (Texts{WarningText(3522, {3, path, GetMessage(kMsgModelMarker)}),
                                 test::AdvisedText(1011, {9, path}, kMsgModelGoneAdvice),
                                 test::AdvisedText(1020, {path}, kMsgFileAdvice)}));
}

TEST_F(ExportSectionCommand, AnotherModelInItsPlaceAfterTheBoxIsLeftAlone) {
    WriteLegacyDatabase(legacy, {L"One"});
    const std::string before = ReadFileBytes(legacy);
    FakeView::askExport = [this](ExportChoice& choice) {
        choice.path = legacy;
        WriteFileBytes(path, DatabaseText(FiveBlocks()));
        shell.database.currentModel = 1;
        return true;
    };
    shell.database.currentModel = 2;
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[0].name = "Before";
    blocks[1].keyword = "SECTION";
    WriteFileBytes(path, DatabaseText(blocks));
    ME_SectionExport_Click();
    EXPECT_EQ(Warnings(), Texts{WarningText(3523, {path})});
    EXPECT_EQ(RecordedReports::Of("rows"), Texts{"5"});
    EXPECT_EQ(ReadFileBytes(legacy), before);
}

TEST_F(ExportSectionCommand, TargetThatCannotBeWrittenIsReportedAndStays) {
    ExpectRefused(New(L"New"), WarningText(1020, {legacy}));
    WriteFileBytes(legacy, "no legacy database");
    ExpectRefused(New(L"New"), UnreadText(legacy, kLegacyForeign));
    WriteLegacyDatabase(legacy, {L"One"});
    const std::string whole = ReadFileBytes(legacy);
    for (size_t size = 1; size < whole.size(); size += 1709) {
        WriteFileBytes(legacy, whole.substr(0, size));
        ExpectRefused(New(L"New"), UnreadText(legacy, kLegacyDamaged));
    }
    for (size_t i = 8; i < whole.size(); i += 1709) {
        std::string bytes = whole;
        bytes[i] = static_cast<char>(bytes[i] ^ 0x10);
        WriteFileBytes(legacy, bytes);
        ExpectRefused(Over(1), UnreadText(legacy, kLegacyDamaged));
    }
}

TEST_F(ExportSectionCommand, ReadOnlyTargetIsReportedBeforeAnyCall) {
    WriteLegacyDatabase(legacy, {L"One"});
    ASSERT_EQ(system::SetReadOnly(legacy, true), system::kErrorNone);
    ExpectRefused(New(L"New"), WarningText(1086, {legacy}));
    ExpectRefused(Over(1), WarningText(1086, {legacy}));
    ASSERT_EQ(system::SetReadOnly(legacy, false), system::kErrorNone);
}

TEST_F(ExportSectionCommand, SlotThatIsNotThereIsReported) {
    WriteLegacyDatabase(legacy, {L"One"});
    for (const int16_t slot : {int16_t{0}, int16_t{-1}, int16_t{2}}) {
        ExpectRefused(Over(slot), WarningText(3561, {int32_t{slot}, legacy}));
    }
}

TEST_F(ExportSectionCommand, FullDatabaseTakesNoFurtherSection) {
    WriteLegacyDatabase(legacy, {L"One"});
    RepeatSection(legacy, 999);
    ExpectRefused(New(L"New"), FailureText(1002, {legacy}, 5));
}

// ---- All or nothing ----------------------------------------------------------------------------

TEST_F(ExportSectionCommand, LibraryThatDropsABlockIsFoundOutAndTheFileIsAsItWas) {
    WriteLegacyDatabase(legacy, {L"One"});
    const FakeFunction fake(exportsectiongeometry,
                            [](const char*, int16_t, LegacyGeometry*) { return int16_t{0}; });
    ExpectRefused(New(L"New"), WarningText(kMsgReadBackDiffers, {L"New", legacy}));
    EXPECT_TRUE(reported.empty());
}

TEST_F(ExportSectionCommand, TargetThatChangesMeanwhileIsNotReplaced) {
    WriteLegacyDatabase(legacy, {L"One"});
    static std::wstring target;
    target = legacy;
    const FakeFunction fake(exportvelkmainsec, [](const char*, int16_t, LegacyMainSection*) {
        WriteFileBytes(target, "changed by another program");
        return int16_t{0};
    });
    Export(New(L"New"));
    EXPECT_EQ(ReadFileBytes(legacy), "changed by another program");
    EXPECT_EQ(Warnings().size(), 1U);
}

TEST_F(ExportSectionCommand, WhatIsLostIsInTheReportOnce) {
    WriteLegacyDatabase(legacy, {});
    SectionModel section = SmallSection(L"Frame 10");
    section.panels[0].openings.resize(14);
    ASSERT_TRUE(ReplaceSection(path, section, 1));
    Export(New(L"Frame 10"));
    EXPECT_TRUE(Warnings().empty());
    EXPECT_NE(reported.find("Frame 10\tSection\tChanged\tToo many openings: only the first 12 are "
                            "in the DOS database. This section has 14."),
              std::string::npos)
        << reported;
    EXPECT_EQ(Narrow(RecordedReports::caption),
              Narrow(FormatMessage(kMsgSectionExported, {L"Frame 10", legacy})) +
                  "; 1 section was changed");
}

TEST_F(ExportSectionCommand, BoxHasTheRoomForTheSection) {
    WriteLegacyDatabase(legacy, {});
    Export(New(L"Frame 10"));
    EXPECT_NE(proposed.room.find(L"A DOS database has room for all of it"), std::wstring::npos);
}

TEST_F(ExportSectionCommand, NewDatabaseHasTheShipAndNoSections) {
    ASSERT_TRUE(MakeLegacyDatabase(legacy));
    EXPECT_TRUE(ListedNames(legacy).empty());
    BasicShipData bsd;
    ASSERT_EQ(LoadBsdFromLegacy(legacy, bsd), 0);
    EXPECT_EQ(bsd.Titles(5), shell.database.bsd.Titles(5));
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgLegacyMade, {legacy}));
    Export(New(L"First"));
    EXPECT_EQ(ListedNames(legacy), Names{L"First"});
}

TEST_F(ExportSectionCommand, NewDatabaseThatCannotBeMadeIsReported) {
    WriteFileBytes(legacy, "old");
    const FakeLegacyLibrary library;
    FakeLegacyLibrary::createStatus = 4;
    EXPECT_FALSE(MakeLegacyDatabase(legacy));
    EXPECT_EQ(Warnings(), Texts{FailureText(1067, {legacy}, 4)});
    EXPECT_EQ(ReadFileBytes(legacy), "old");
}

// ---- File > Save as Velk Dos -------------------------------------------------------------------

struct SaveLegacyCommand : ExportCommands {
    SaveLegacyCommand() { OpenSections({SmallSection(L"Frame 10"), SmallSection(L"Frame 20")}); }

    static void Save(const std::wstring& target) {
        const FakePrompt prompt{target};
        RecordedReports::events.clear();
        ME_FileSaveLegacy_Click();
    }
    void ExpectOnly(const Names& files) const { EXPECT_EQ(Files(), files); }
};

TEST_F(SaveLegacyCommand, SectionsAndShipOfTheSampleAreWritten) {
    OpenSample();
    Save(legacy);
    EXPECT_TRUE(Warnings().empty());
    EXPECT_EQ(ListedNames(legacy).size(), static_cast<size_t>(kSectionCount));
    const std::wstring expected = DataPath("../samples/aurora_bay.vel");
    EXPECT_EQ(ReadFileBytes(legacy), ReadFileBytes(expected));
    EXPECT_EQ(Narrow(RecordedReports::caption),
              Narrow(FormatMessage(kMsgSavedAsLegacy, {legacy})) +
                  "; 9 sections were changed; 3 bulkhead arrangements and 2 torsion models were "
                  "left out");
    EXPECT_NE(reported.find("\tTorsion\tLeft out\tA DOS database holds sections only."),
              std::string::npos)
        << reported;
    EXPECT_EQ(RecordedReports::events.back(), "pointer reset");
    EXPECT_EQ(shell.database.path, path) << "the open database stays open";
    ExpectOnly({L"old.vel", L"ship.ve2"});
}

TEST_F(SaveLegacyCommand, UserIsAskedWithTheDatabasesBaseName) {
    const FakePrompt prompt{L""};
    ME_FileSaveLegacy_Click();
    ASSERT_EQ(FakePrompt::questions.size(), 1u);
    const FakePrompt::Question& asked = FakePrompt::questions[0];
    EXPECT_EQ(asked.proposed, L"ship.vel");
    EXPECT_EQ(asked.extension, L"vel");
    EXPECT_EQ(asked.types, GetMessage(105));
    EXPECT_EQ(asked.caption, L"Save as Velk Dos");
    EXPECT_EQ(asked.flags, -1) << "asks before it overwrites";
    EXPECT_EQ(asked.directory + L"\\", browse);
    EXPECT_TRUE(RecordedReports::events.empty());
    ExpectOnly({L"ship.ve2"});
}

TEST_F(SaveLegacyCommand, ExistingFileIsReplaced) {
    WriteLegacyDatabase(legacy, {L"One", L"Two", L"Three"});
    Save(legacy);
    EXPECT_EQ(ListedNames(legacy), (Names{L"Frame 10", L"Frame 20"}));
    EXPECT_EQ(shell.settings.BrowseDirectory, folder.path);
}

TEST_F(SaveLegacyCommand, LibraryThatFailsLeavesTheOldFile) {
    WriteFileBytes(legacy, "old");
    const FakeLegacyLibrary library;
    FakeLegacyLibrary::createStatus = 4;
    Save(legacy);
    EXPECT_EQ(Warnings(), Texts{FailureText(1067, {legacy}, 4)});
    FakeLegacyLibrary::createStatus = 0;
    FakeLegacyLibrary::bsdStatus = 4;
    Save(legacy);
    EXPECT_EQ(Warnings(), Texts{FailureText(1068, {legacy, 4}, 4)});
    FakeLegacyLibrary::bsdStatus = 0;
    FakeLegacyLibrary::calls.clear();
    FakeLegacyLibrary::extendFailsAt = 2;
    Save(legacy);
    EXPECT_EQ(Warnings(), Texts{FailureText(1003, {2, legacy}, 5)});
    EXPECT_EQ(ReadFileBytes(legacy), "old");
    EXPECT_EQ(RecordedReports::events.back(), "pointer reset");
}

TEST_F(SaveLegacyCommand, NewFileThatIsNotThereIsReportedAndLeavesTheOldOne) {
    WriteFileBytes(legacy, "old");
    const FakeLegacyLibrary library;  // says yes to all and writes nothing
    Save(legacy);
    EXPECT_TRUE(OnlyWarning(Narrow(legacy)));
    EXPECT_EQ(ReadFileBytes(legacy), "old");
}

TEST_F(SaveLegacyCommand, OpenDatabaseIsNeverTheTarget) {
    const std::string before = ReadFileBytes(path);
    Save(path);
    EXPECT_EQ(Warnings(), Texts{WarningText(3535, {path})});
    EXPECT_EQ(ReadFileBytes(path), before);
}

TEST_F(SaveLegacyCommand, ReadOnlyTargetIsReportedAndStays) {
    WriteFileBytes(legacy, "old");
    ASSERT_EQ(system::SetReadOnly(legacy, true), system::kErrorNone);
    Save(legacy);
    ASSERT_EQ(system::SetReadOnly(legacy, false), system::kErrorNone);
    EXPECT_EQ(Warnings(), Texts{WarningText(1086, {legacy})});
    EXPECT_EQ(ReadFileBytes(legacy), "old");
}

TEST_F(SaveLegacyCommand, SectionThatCannotBeReadIsReportedAndLeftOut) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[2].number = " 2 ";  // that of a bulkhead arrangement before it
    WriteFileBytes(path, DatabaseText(blocks));
    Save(legacy);
    EXPECT_EQ(Warnings().size(), 1u);
    EXPECT_NE(reported.find("Frame 20\tSection\tLeft out\tIt could not be read."),
              std::string::npos)
        << reported;
    EXPECT_EQ(ListedNames(legacy), (Names{L"Frame 10", L"Aft"}));
}

TEST_F(SaveLegacyCommand, FileThatIsNotADatabaseIsReportedBeforeThePrompt) {
    WriteFileBytes(path, "no database");
    const FakePrompt prompt{legacy};
    ME_FileSaveLegacy_Click();
    system::RemoveFile(path);
    ME_FileSaveLegacy_Click();
    EXPECT_EQ(Warnings(),
              (Texts{WarningText(1083, {path}), test::AdvisedText(1020, {path}, kMsgFileAdvice)}));
    EXPECT_TRUE(FakePrompt::questions.empty());
    ExpectOnly({});
}

TEST_F(SaveLegacyCommand, DatabaseWithoutSectionsGivesOneWithoutSections) {
    WriteFileBytes(path, SampleHead());
    Save(legacy);
    EXPECT_TRUE(Warnings().empty());
    EXPECT_TRUE(ListedNames(legacy).empty());
    EXPECT_TRUE(FileExists(legacy));
}

}  // namespace
}  // namespace corvane
