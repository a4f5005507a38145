// The backups that edits keep.
#include <utility>

#include "files/file_system.h"
#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

using test::DatabaseText;
using test::FiveBlocks;

struct EditingBackupTest : test::EditingTest {
    std::string text = DatabaseText(FiveBlocks());
    const std::wstring backup = folder.File(L"ship.bak");

    void SetUp() override { Write(text); }
};

TEST_F(EditingBackupTest, BackupStandsBesideTheFileWithTheOldText) {
    for (const auto& [name, backupName] :
         {std::pair(L"ship.ve2", L"ship.bak"), std::pair(L"my.ship.ve2", L"my.ship.bak")}) {
        path = folder.File(name);
        Write(text);
        EXPECT_TRUE(ReplaceSection(path, section, 1));
        EXPECT_FALSE(FileExists(folder.File(backupName)));
        const std::string old = Text();
        EXPECT_TRUE(ReplaceSection(path, section, 2, {.keepBackup = true}));
        EXPECT_EQ(test::ReadFileBytes(folder.File(backupName)), old);
        const std::string older = Text();
        EXPECT_TRUE(ReplaceSection(path, section, 3, {.keepBackup = true}));
        EXPECT_EQ(test::ReadFileBytes(folder.File(backupName)), older);
    }
    EXPECT_EQ(test::FilesIn(folder.path).size(), 4U);
}

TEST_F(EditingBackupTest, DeletingKeepsTheOldText) {
    EXPECT_TRUE(DeleteModel(path, 1, true));
    EXPECT_EQ(test::ReadFileBytes(backup), text);
    EXPECT_NE(Text(), text);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
}

TEST_F(EditingBackupTest, SectionIsCopiedWithABackupWhateverIsAskedFor) {
    EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L"Copy", {false}}), 6);
    EXPECT_EQ(test::ReadFileBytes(backup), text);
}

TEST_F(EditingBackupTest, TorsionCopyKeepsABackupAsAsked) {
    EXPECT_EQ(CopyModel(path, {4, ModelKind::kTorsion, L"", {false}}), 6);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
    Write(text);
    EXPECT_EQ(CopyModel(path, {4, ModelKind::kTorsion, L"", {true}}), 6);
    EXPECT_EQ(test::ReadFileBytes(backup), text);
}

}  // namespace
}  // namespace corvane
