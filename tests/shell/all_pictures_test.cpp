// File > Export all pictures: names, the question, and what becomes of every file.
#include "shell/all_pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bsd/bsd_file.h"
#include "database/editing.h"
#include "files/file_system.h"
#include "report/messages.h"
#include "shell/commands/commands.h"
#include "shell/open_database.h"
#include "shell/picture_file.h"
#include "tests/shell/command_support.h"
#include "tests/shell/sample_models.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::FakeView;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::WriteFileBytes;

// The sample ship; its second section is "Bare: 1/2", without plating.
struct AllPictures : test::CommandTest {
    std::wstring database = File(L"ship.ve2");
    std::wstring out = File(L"out");
    size_t kind = 1;  // svg
    int asked = 0;    // sections that the box spoke of
    std::vector<ModelRow> sections;

    AllPictures() {
        WriteFileBytes(database, ReadFileBytes(test::SamplePath()));
        SectionModel bare;
        bare.name = L"Bare: 1/2";
        std::wstring path = database;
        ReplaceSection(path, bare, 2);
        BasicShipData bsd;
        LoadBsdFromDatabase(database, bsd);
        ShowDatabase(database, bsd);
        system::MakeDirectory(out);
        FakeView::askPictures = [this](PicturesChoice& choice) {
            asked = choice.count;
            choice.folder = out;
            choice.kind = kind;
            return true;
        };
        sections = SectionsToDraw();
        RecordedReports::events.clear();
    }
    std::wstring Path(const std::wstring& name) const { return out + L"\\" + name; }
    std::wstring FirstPath() const { return Path(L"ship - 1 " + sections[0].name + L".svg"); }
    size_t Files() const { return test::FilesIn(out).size(); }
    static std::string Box() {
        const std::vector<std::string> boxes = RecordedReports::Of("plain");
        return boxes.size() == 1 ? boxes[0] : std::to_string(boxes.size()) + " boxes";
    }
};

TEST_F(AllPictures, EverySectionThatCanBeDrawnIsWrittenUnderItsNumberAndName) {
    RunCommand(ME_FileExportAllPictures);
    EXPECT_EQ(asked, static_cast<int>(sections.size()));
    EXPECT_EQ(Files(), sections.size() - 1);
    EXPECT_TRUE(ReadFileBytes(FirstPath()).starts_with("<?xml"));
    const auto count = static_cast<int32_t>(sections.size());
    EXPECT_EQ(RecordedReports::caption,
              FormatMessage(kMsgPicturesWritten, {count - 1, count, out}));
    EXPECT_NE(Box().find("Bare: 1/2: This section has no plating to draw."), std::string::npos)
        << Box();
    EXPECT_EQ(shell.settings.BrowseDirectory, out + L"\\");
    SectionModel first;
    ASSERT_EQ(ReadToDraw(sections[0], first), L"");
    const std::wstring alone = File(L"alone.svg");
    ASSERT_EQ(WritePicture(PictureOf(first), alone), FileEnd::kMade);
    EXPECT_EQ(ReadFileBytes(FirstPath()), ReadFileBytes(alone));
}

TEST_F(AllPictures, KindOfFileIsTheOneThatWasChosen) {
    std::vector<std::wstring> extensions;
    for (const PictureKind& each : PictureKinds()) extensions.push_back(each.extension);
    EXPECT_EQ(extensions, (std::vector<std::wstring>{L"emf", L"svg", L"png", L"dxf"}));
    kind = 3;
    RunCommand(ME_FileExportAllPictures);
    EXPECT_TRUE(ReadFileBytes(Path(L"ship - 1 " + sections[0].name + L".dxf")).starts_with("999"));
    EXPECT_EQ(PictureKinds()[3].name, L"Drawing, release 12 (*.dxf)");
}

TEST_F(AllPictures, NameThatNoFileCanHaveIsChangedAndALongOneCut) {
    SectionModel section;
    ASSERT_EQ(ReadToDraw(sections[0], section), L"");
    section.name = L"Hold: 1/2 *new* ";
    std::wstring path = database;
    ASSERT_TRUE(ReplaceSection(path, section, 1));
    RefreshMainWindow();
    shell.database.rows[2].name = std::wstring(200, L'x');
    RunCommand(ME_FileExportAllPictures);
    EXPECT_TRUE(FileExists(Path(L"ship - 1 Hold_ 1_2 _new_.svg")));
    EXPECT_TRUE(FileExists(Path(L"ship - 3 " + std::wstring(60, L'x') + L".svg")));
}

TEST_F(AllPictures, FilesThatAreThereAreAskedAboutOnce) {
    const std::wstring second = Path(L"ship - 3 " + sections[2].name + L".svg");
    WriteFileBytes(FirstPath(), "old");
    WriteFileBytes(second, "old");
    RunCommand(ME_FileExportAllPictures);
    const std::vector<std::string> questions = RecordedReports::Of("ask ok");
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_NE(questions[0].find("2 of " + std::to_string(sections.size())), std::string::npos)
        << questions[0];
    EXPECT_EQ(ReadFileBytes(FirstPath()), "old") << "the user cancelled";
    EXPECT_EQ(Files(), 2U);
    FakeView::answerYes = true;
    RunCommand(ME_FileExportAllPictures);
    EXPECT_NE(ReadFileBytes(FirstPath()), "old");
    EXPECT_NE(ReadFileBytes(second), "old");
}

TEST_F(AllPictures, FileThatCannotBeReplacedIsRefusedBeforeTheQuestion) {
    WriteFileBytes(FirstPath(), "old");
    ASSERT_EQ(system::SetReadOnly(FirstPath(), true), system::kErrorNone);
    FakeView::answerYes = true;
    RunCommand(ME_FileExportAllPictures);
    EXPECT_TRUE(OnlyWarning("ship - 1"));
    EXPECT_TRUE(RecordedReports::Of("ask ok").empty());
    EXPECT_EQ(Files(), 1U);
    system::SetReadOnly(FirstPath(), false);
}

TEST_F(AllPictures, FailureEndsItAndTheOldFileStays) {
    kind = 2;
    const std::wstring path = Path(L"ship - 1 " + sections[0].name + L".png");
    WriteFileBytes(path, "old");
    FakeView::answerYes = true;
    FakeView::pictureError = system::kErrorDiskFull;
    RunCommand(ME_FileExportAllPictures);
    EXPECT_TRUE(OnlyWarning("ship - 1"));
    EXPECT_EQ(ReadFileBytes(path), "old");
    EXPECT_EQ(Files(), 1U);
    EXPECT_NE(Box().find("The rest, " + std::to_string(sections.size()) +
                         ", because a file was not written."),
              std::string::npos)
        << Box();
}

TEST_F(AllPictures, UserCanCancelInAFileAndBetweenTwo) {
    const test::SlowSystem slow;
    for (int time = 1; time <= 12; ++time) {
        for (const std::wstring& name : test::FilesIn(out)) RemoveOwnFile(Path(name));
        RecordedReports::events.clear();
        RecordedReports::timesShown = 0;
        RecordedReports::cancelAt = time;
        RunCommand(ME_FileExportAllPictures);
        EXPECT_NE(Box().find(", because you cancelled."), std::string::npos) << time << Box();
        EXPECT_NE(Box().find(std::to_string(Files()) + " of "), std::string::npos) << Box();
        EXPECT_LT(Files(), sections.size() - 1) << time;
        EXPECT_TRUE(Warnings().empty()) << time;
    }
}

TEST_F(AllPictures, SectionThatCannotBeReadIsLeftOutWithoutABoxOfItsOwn) {
    shell.database.rows[0].offset = 1;
    shell.database.rows[0].tag = 77;
    RunCommand(ME_FileExportAllPictures);
    EXPECT_TRUE(Warnings().empty());
    EXPECT_NE(Box().find(Narrow(sections[0].name) + ": This section could not be read."),
              std::string::npos)
        << Box();
    EXPECT_EQ(Files(), sections.size() - 2);
}

TEST_F(AllPictures, BoxNamesTenOfManyAndTheCount) {
    // None of them can be drawn without the ship's data.
    shell.database.bsd = BasicShipData();
    const ModelRow row = shell.database.rows[0];
    for (int32_t number = 100; number < 130; ++number) {
        shell.database.rows.push_back(row);
        shell.database.rows.back().tag = number;
    }
    ExportAllPictures();
    const std::string box = Box();
    EXPECT_NE(box.find(" more are not shown"), std::string::npos) << box;
    EXPECT_LT(std::ranges::count(box, '\r'), 20);
    EXPECT_EQ(Files(), 0U);
}

TEST_F(AllPictures, CancelledBoxAndADatabaseWithoutSectionsWriteNothing) {
    FakeView::askPictures = [](PicturesChoice&) { return false; };
    RunCommand(ME_FileExportAllPictures);
    EXPECT_EQ(Files(), 0U);
    std::erase_if(shell.database.rows,
                  [](const ModelRow& row) { return row.kind == ModelKind::kSection; });
    ExportAllPictures();
    EXPECT_EQ(RecordedReports::caption, GetMessage(kMsgNoSectionsToExport));
    EXPECT_EQ(RecordedReports::Of("plain").size(), 0U);
}

TEST_F(AllPictures, FolderMustBeThere) {
    EXPECT_TRUE(RequirePictureFolder({.folder = out}));
    EXPECT_FALSE(RequirePictureFolder({.folder = File(L"missing")}));
    EXPECT_FALSE(RequirePictureFolder({.folder = L"out"})) << "whatever the current one is";
    EXPECT_FALSE(RequirePictureFolder({}));
    EXPECT_EQ(Warnings().size(), 3U);
}

}  // namespace
}  // namespace corvane
