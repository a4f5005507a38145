// The legacy database library: its functions, its file, and files that are damaged or foreign.
#include "platform/ztvelk32.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/system.h"
#include "tests/companions/file_bytes.h"
#include "tests/support/damage.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using namespace test;

struct LegacyFile : testing::Test {
    TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.vel");
    std::string name = system::AnsiFromWide(path);

    const char* Name() const { return name.c_str(); }

    int16_t Create() const {
        int16_t status = -1;
        createvelkdb(Name(), &status);
        return status;
    }
    int16_t Extend() const {
        int16_t status = -1;
        extendvelkdb(Name(), &status);
        return status;
    }
    int16_t AddSection(const char* section, float x) const {
        int16_t status = -1;
        addsectvelkdb(Name(), section, x, &status);
        return status;
    }
    std::vector<std::string> List(int16_t& status) const {
        std::array<LegacySectionEntry, kLegacyListedSections> entries{};
        int16_t count = -1;
        status = -1;
        getvelksections(Name(), &status, &count, entries.data());
        std::vector<std::string> names;
        for (int16_t i = 0; i < count; ++i) names.emplace_back(entries[i].name, 40);
        return names;
    }
    int16_t ListStatus() const {
        int16_t status = -1;
        List(status);
        return status;
    }
    int16_t BsdStatus() const {
        int16_t status = -1;
        const auto buffer = std::make_unique<std::array<char, kLegacyBsdBufferSize>>();
        importvelknavi(Name(), reinterpret_cast<LegacyBsd*>(buffer->data()), &status);
        return status;
    }
    // All that a reader asks of a file: the statuses of the ship's data and of the list.
    std::pair<int16_t, int16_t> Statuses() const { return {BsdStatus(), ListStatus()}; }

    // A file with this many sections, written at once.
    void WriteSections(int count) const {
        ASSERT_EQ(Create(), 0);
        ASSERT_EQ(Extend(), 0);
        ASSERT_EQ(ListStatus(), 0) << "all is written";
        RepeatSection(path, count);
    }
};

// Bytes that differ from place to place.
template <class Record>
std::unique_ptr<Record> Pattern(int seed) {
    auto record = std::make_unique<Record>();
    auto* bytes = reinterpret_cast<unsigned char*>(record.get());
    for (size_t i = 0; i < sizeof(Record); ++i) {
        bytes[i] = static_cast<unsigned char>(seed + static_cast<int>(i * 7 % 251));
    }
    return record;
}

template <class Record>
bool SameBytes(const Record& a, const Record& b) {
    return std::memcmp(&a, &b, sizeof(Record)) == 0;
}

// ---- Functions ---------------------------------------------------------------------------------

TEST_F(LegacyFile, VersionSuitsTheShell) {
    EXPECT_EQ(getztvelk32version(), 2.0f);
}

TEST_F(LegacyFile, NewDatabaseIsEmpty) {
    EXPECT_EQ(Create(), kLegacyDone);
    int16_t status = -1;
    EXPECT_TRUE(List(status).empty());
    EXPECT_EQ(status, kLegacyDone);
    EXPECT_EQ(ReadFileBytes(path).size(), kLegacyEmptySize);
}

TEST_F(LegacyFile, NewDatabaseReplacesAnOldFile) {
    WriteFileBytes(path, "an old file");
    EXPECT_EQ(Create(), kLegacyDone);
    EXPECT_EQ(ListStatus(), kLegacyDone);
}

TEST_F(LegacyFile, SlotHasNoNameUntilItIsNamed) {
    Create();
    EXPECT_EQ(Extend(), kLegacyDone);
    int16_t status = -1;
    EXPECT_EQ(List(status), std::vector<std::string>{std::string(40, ' ')});
}

TEST_F(LegacyFile, LastSlotIsNamed) {
    Create();
    Extend();
    EXPECT_EQ(AddSection("Frame 10", 7.5f), kLegacyDone);
    Extend();
    EXPECT_EQ(AddSection("A name that is longer than the forty bytes of its field", 9), 0);
    int16_t status = -1;
    const std::vector<std::string> names = List(status);
    ASSERT_EQ(names.size(), 2u);
    EXPECT_EQ(names[0], "Frame 10" + std::string(32, ' '));
    EXPECT_EQ(names[1], "A name that is longer than the forty byt");
}

TEST_F(LegacyFile, PositionFollowsTheName) {
    Create();
    Extend();
    AddSection("Frame 10", 7.5f);
    std::array<LegacySectionEntry, kLegacyListedSections> entries{};
    int16_t status = -1;
    int16_t count = 0;
    getvelksections(Name(), &status, &count, entries.data());
    EXPECT_EQ(entries[0].x_m, 7.5f);
}

TEST_F(LegacyFile, BlocksComeBackFromTheirOwnSection) {
    Create();
    for (int i = 1; i <= 3; ++i) Extend();
    for (int16_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(exportvelkmainsec(Name(), i, Pattern<LegacyMainSection>(i).get()), 0);
        EXPECT_EQ(exportsectiongeometry(Name(), i, Pattern<LegacyGeometry>(10 + i).get()), 0);
        EXPECT_EQ(exportvelkcompload(Name(), i, nullptr, Pattern<LegacyCompLoad>(20 + i).get()), 0);
    }
    const auto record = std::make_unique<LegacySectionRecord>();
    for (int16_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(importvelkmainsec(Name(), i, &record->main), 0);
        EXPECT_EQ(importsectiongeometry(Name(), i, &record->geometry), 0);
        EXPECT_EQ(importvelkcompload(Name(), i, nullptr, &record->compLoad), 0);
        EXPECT_TRUE(SameBytes(record->main, *Pattern<LegacyMainSection>(i)));
        EXPECT_TRUE(SameBytes(record->geometry, *Pattern<LegacyGeometry>(10 + i)));
        EXPECT_TRUE(SameBytes(record->compLoad, *Pattern<LegacyCompLoad>(20 + i)));
    }
}

TEST_F(LegacyFile, ShipDataComeBack) {
    Create();
    Extend();
    const auto buffer = Pattern<std::array<char, kLegacyBsdBufferSize>>(3);
    int16_t status = -1;
    exportvelkbsd(Name(), reinterpret_cast<const LegacyBsd*>(buffer->data()), &status);
    EXPECT_EQ(status, kLegacyDone);
    std::array<char, kLegacyBsdBufferSize> back{};
    importvelknavi(Name(), reinterpret_cast<LegacyBsd*>(back.data()), &status);
    EXPECT_EQ(status, kLegacyDone);
    EXPECT_EQ(std::memcmp(back.data(), buffer->data(), sizeof(LegacyBsd)), 0);
    EXPECT_EQ(back[sizeof(LegacyBsd)], 0) << "nothing after the record is touched";
}

TEST_F(LegacyFile, WhatFailsLeavesRecordAndFileAsTheyWere) {
    WriteSections(1);
    const std::string before = ReadFileBytes(path);
    for (const int16_t section : {int16_t{0}, int16_t{-1}, int16_t{2}, int16_t{INT16_MAX}}) {
        auto record = Pattern<LegacyMainSection>(5);
        EXPECT_EQ(importvelkmainsec(Name(), section, record.get()), kLegacyNoSection);
        EXPECT_TRUE(SameBytes(*record, *Pattern<LegacyMainSection>(5)));
        EXPECT_EQ(exportvelkmainsec(Name(), section, record.get()), kLegacyNoSection);
    }
    EXPECT_EQ(ReadFileBytes(path), before);
}

TEST_F(LegacyFile, NamingWithoutASlotIsNoSection) {
    Create();
    EXPECT_EQ(AddSection("Frame 10", 0), kLegacyNoSection);
}

TEST_F(LegacyFile, NoFileBesideTheDatabaseIsLeft) {
    Create();
    Extend();
    AddSection("Frame 10", 1);
    EXPECT_EQ(FilesIn(folder.path), std::vector<std::wstring>{L"ship.vel"});
}

TEST_F(LegacyFile, MissingFileIsReportedByAll) {
    EXPECT_EQ(Extend(), kLegacyFileMissing);
    EXPECT_EQ(AddSection("Frame 10", 0), kLegacyFileMissing);
    EXPECT_EQ(ListStatus(), kLegacyFileMissing);
    EXPECT_EQ(BsdStatus(), kLegacyFileMissing);
    int16_t status = -1;
    const LegacyBsd bsd{};
    exportvelkbsd(Name(), &bsd, &status);
    EXPECT_EQ(status, kLegacyFileMissing);
    const auto record = std::make_unique<LegacySectionRecord>();
    EXPECT_EQ(importsectiongeometry(Name(), 1, &record->geometry), kLegacyFileMissing);
    EXPECT_EQ(exportsectiongeometry(Name(), 1, &record->geometry), kLegacyFileMissing);
    EXPECT_TRUE(FilesIn(folder.path).empty());
}

TEST_F(LegacyFile, NoPathIsAMissingFile) {
    int16_t status = -1;
    extendvelkdb("", &status);
    EXPECT_EQ(status, kLegacyFileMissing);
    createvelkdb(nullptr, &status);
    EXPECT_EQ(status, kLegacyFileMissing);
    extendvelkdb(folder.path.empty() ? "" : system::AnsiFromWide(folder.path).c_str(), &status);
    EXPECT_EQ(status, kLegacyFileMissing) << "a folder";
}

TEST_F(LegacyFile, ReadOnlyFileIsNotWritten) {
    Create();
    const std::string before = ReadFileBytes(path);
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    EXPECT_EQ(Extend(), kLegacyNotWritten);
    EXPECT_EQ(Create(), kLegacyNotWritten);
    EXPECT_EQ(ListStatus(), kLegacyDone);
    ASSERT_EQ(system::SetReadOnly(path, false), system::kErrorNone);
    EXPECT_EQ(ReadFileBytes(path), before);
}

TEST_F(LegacyFile, FolderThatIsMissingCannotBeWritten) {
    int16_t status = -1;
    createvelkdb((name + "x\\ship.vel").c_str(), &status);
    EXPECT_EQ(status, kLegacyNotWritten);
}

// ---- When changes are written ------------------------------------------------------------------

// A database of one named section that was there before, and the way to a further one.
struct ChangedFile : LegacyFile {
    std::string before;

    void SetUp() override {
        Create();
        Extend();
        AddSection("Frame 10", 7.5f);
        ListStatus();
        before = ReadFileBytes(path);
    }
    int16_t ExportBlocks(int16_t section) const {
        exportvelkmainsec(Name(), section, Pattern<LegacyMainSection>(1).get());
        exportsectiongeometry(Name(), section, Pattern<LegacyGeometry>(2).get());
        return exportvelkcompload(Name(), section, nullptr, Pattern<LegacyCompLoad>(3).get());
    }
    bool IsUnchanged() const { return ReadFileBytes(path) == before; }
    size_t Slots() const {
        return (ReadFileBytes(path).size() - kLegacyEmptySize) / kLegacySlotSize;
    }
};

TEST_F(ChangedFile, BlockThatCannotBeReadIsTheStatusOfTheNextList) {
    std::string damaged = before;
    damaged[kLegacyEmptySize + 100] ^= 1;
    WriteFileBytes(path, damaged);
    EXPECT_EQ(importvelkmainsec(Name(), 1, std::make_unique<LegacyMainSection>().get()),
              kLegacyDamaged);
    WriteFileBytes(path, before);
    EXPECT_EQ(ListStatus(), kLegacyDamaged);
    EXPECT_EQ(ListStatus(), kLegacyDone);
}

TEST_F(ChangedFile, AfterABlockThatFailedNothingIsWritten) {
    EXPECT_EQ(Extend(), kLegacyDone);
    system::RemoveFile(path);
    EXPECT_EQ(exportvelkmainsec(Name(), 2, Pattern<LegacyMainSection>(1).get()),
              kLegacyFileMissing);
    WriteFileBytes(path, before);
    EXPECT_EQ(ExportBlocks(2), kLegacyFileMissing);
    EXPECT_EQ(AddSection("Frame 20", 9), kLegacyFileMissing);
    EXPECT_EQ(ListStatus(), kLegacyFileMissing);
    EXPECT_TRUE(IsUnchanged());
    EXPECT_EQ(ListStatus(), kLegacyDone);
}

TEST_F(ChangedFile, NewSectionIsWrittenWhenItGetsItsName) {
    EXPECT_EQ(Extend(), kLegacyDone);
    EXPECT_EQ(ExportBlocks(2), kLegacyDone);
    EXPECT_TRUE(IsUnchanged());
    EXPECT_EQ(AddSection("Frame 20", 9), kLegacyDone);
    const std::string after = ReadFileBytes(path);
    ASSERT_EQ(Slots(), 2u);
    EXPECT_EQ(after.substr(kLegacyEmptySize + kLegacySlotSize, 8), "Frame 20");
    EXPECT_EQ(ListStatus(), kLegacyDone);
    EXPECT_EQ(ReadFileBytes(path), after) << "once";
}

TEST_F(ChangedFile, ReplacedSectionIsWrittenWithItsThirdBlock) {
    exportvelkmainsec(Name(), 1, Pattern<LegacyMainSection>(1).get());
    exportsectiongeometry(Name(), 1, Pattern<LegacyGeometry>(2).get());
    EXPECT_TRUE(IsUnchanged()) << "never a slot of which only a part is new";
    EXPECT_EQ(exportvelkcompload(Name(), 1, nullptr, Pattern<LegacyCompLoad>(3).get()), 0);
    const std::string after = ReadFileBytes(path);
    EXPECT_NE(after, before);
    EXPECT_EQ(after.substr(kLegacyEmptySize, 44), before.substr(kLegacyEmptySize, 44));
}

TEST_F(ChangedFile, ShipDataAreWrittenAtOnce) {
    int16_t status = -1;
    exportvelkbsd(Name(), Pattern<LegacyBsd>(3).get(), &status);
    EXPECT_EQ(status, kLegacyDone);
    EXPECT_FALSE(IsUnchanged());
}

TEST_F(ChangedFile, NewDatabaseIsWrittenWhenItIsRead) {
    const auto main = std::make_unique<LegacyMainSection>();
    const std::function<int16_t()> reads[] = {
        [&] { return ListStatus(); }, [&] { return BsdStatus(); },
        [&] { return importvelkmainsec(Name(), 3, main.get()); }};
    for (const auto& read : reads) {
        Create();
        for (int16_t i = 1; i <= 3; ++i) {
            EXPECT_EQ(Extend(), kLegacyDone);
            EXPECT_EQ(ExportBlocks(i), kLegacyDone);
            EXPECT_EQ(AddSection("Frame", i), kLegacyDone);
        }
        EXPECT_EQ(ReadFileBytes(path).size(), kLegacyEmptySize) << "one rewrite for all of them";
        EXPECT_EQ(read(), kLegacyDone);
        EXPECT_EQ(Slots(), 3u);
    }
}

TEST_F(ChangedFile, NewDatabaseIsWrittenWhenAnotherIsNamed) {
    const std::string other = system::AnsiFromWide(folder.File(L"other.vel"));
    int16_t status = -1;
    Create();
    Extend();
    createvelkdb(other.c_str(), &status);
    EXPECT_EQ(status, kLegacyDone);
    EXPECT_EQ(Slots(), 1u);
    Create();
    Extend();
    extendvelkdb(other.c_str(), &status);
    EXPECT_EQ(status, kLegacyDone);
    EXPECT_EQ(Slots(), 1u);
}

TEST_F(ChangedFile, DatabaseThatIsMadeAgainLosesItsChanges) {
    Create();
    Extend();
    EXPECT_EQ(Create(), kLegacyDone);
    EXPECT_EQ(ListStatus(), kLegacyDone);
    EXPECT_EQ(Slots(), 0u);
}

TEST_F(ChangedFile, FailedWriteIsTheStatusOfTheName) {
    EXPECT_EQ(Extend(), kLegacyDone);
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    EXPECT_EQ(AddSection("Frame 20", 9), kLegacyNotWritten);
    ASSERT_EQ(system::SetReadOnly(path, false), system::kErrorNone);
    EXPECT_EQ(ListStatus(), kLegacyNotWritten) << "nobody need judge the naming";
    EXPECT_EQ(ListStatus(), kLegacyDone) << "it was reported";
    EXPECT_TRUE(IsUnchanged()) << "and is forgotten";
}

TEST_F(ChangedFile, FailedWriteOfAReplacedSectionIsTheNextStatus) {
    exportvelkmainsec(Name(), 1, Pattern<LegacyMainSection>(1).get());
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    EXPECT_EQ(exportvelkcompload(Name(), 1, nullptr, Pattern<LegacyCompLoad>(3).get()),
              kLegacyNotWritten);
    ASSERT_EQ(system::SetReadOnly(path, false), system::kErrorNone);
    EXPECT_EQ(ListStatus(), kLegacyNotWritten);
    EXPECT_EQ(ListStatus(), kLegacyDone) << "once";
    EXPECT_TRUE(IsUnchanged());
}

TEST_F(ChangedFile, WhatAnotherProgramHasWrittenIsNotOverwritten) {
    EXPECT_EQ(Extend(), kLegacyDone);
    WriteFileBytes(path, before + "another program's");
    EXPECT_EQ(AddSection("Frame 20", 9), kLegacyNotWritten);
    EXPECT_EQ(ReadFileBytes(path), before + "another program's");
}

TEST_F(ChangedFile, ChangesOfADeletedFileGoWithIt) {
    const std::string other = system::AnsiFromWide(folder.File(L"other.vel"));
    EXPECT_EQ(Extend(), kLegacyDone);
    system::RemoveFile(path);
    int16_t status = -1;
    createvelkdb(other.c_str(), &status);
    EXPECT_EQ(status, kLegacyDone);
    EXPECT_EQ(FilesIn(folder.path), std::vector<std::wstring>{L"other.vel"});
}

// ---- The file ----------------------------------------------------------------------------------

TEST_F(LegacyFile, LayoutIsTheDocumentedOne) {
    Create();
    Extend();
    AddSection("Frame 10", 7.5f);
    const auto main = Pattern<LegacyMainSection>(1);
    exportvelkmainsec(Name(), 1, main.get());
    ListStatus();
    const std::string bytes = ReadFileBytes(path);
    ASSERT_EQ(bytes.size(), kLegacyEmptySize + kLegacySlotSize);
    EXPECT_EQ(bytes.substr(0, 8), "CVNLEG\r\n");
    EXPECT_EQ(bytes.substr(8, 8), std::string("\1\0\0\0\1\0\0\0", 8)) << "version, sections";
    EXPECT_EQ(bytes.substr(16, 12), std::string(12, '\0'));
    std::string again = bytes;
    SetHeadChecksum(again);
    EXPECT_EQ(again, bytes);
    EXPECT_EQ(bytes.substr(kLegacyEmptySize, 8), "Frame 10");
    EXPECT_EQ(bytes.substr(kLegacyEmptySize + 44, sizeof(*main)),
              std::string(reinterpret_cast<const char*>(main.get()), sizeof(*main)));
}

TEST_F(LegacyFile, TwentySectionsAreListed) {
    WriteSections(20);
    int16_t status = -1;
    EXPECT_EQ(List(status).size(), 20u);
    EXPECT_EQ(status, kLegacyDone);
}

TEST_F(LegacyFile, OfTwentyOneSectionsTheFirstTwentyAreListed) {
    WriteSections(20);
    EXPECT_EQ(Extend(), kLegacyDone);
    EXPECT_EQ(AddSection("The last one", 0), kLegacyDone);
    int16_t status = -1;
    const std::vector<std::string> names = List(status);
    EXPECT_EQ(names.size(), 20u);
    EXPECT_EQ(names.back(), std::string(40, ' '));
    const auto record = std::make_unique<LegacyMainSection>();
    EXPECT_EQ(importvelkmainsec(Name(), 21, record.get()), kLegacyDone);
}

TEST_F(LegacyFile, FiveHundredSectionsAreRead) {
    WriteSections(500);
    int16_t status = -1;
    EXPECT_EQ(List(status).size(), 20u);
    EXPECT_EQ(status, kLegacyDone);
    const auto record = std::make_unique<LegacyMainSection>();
    EXPECT_EQ(importvelkmainsec(Name(), 500, record.get()), kLegacyDone);
    EXPECT_EQ(importvelkmainsec(Name(), 501, record.get()), kLegacyNoSection);
}

TEST_F(LegacyFile, NineHundredNinetyNineSectionsAreFull) {
    WriteSections(999);
    EXPECT_EQ(Extend(), kLegacyFull);
    EXPECT_EQ(ListStatus(), kLegacyDone);
}

TEST_F(LegacyFile, MoreSectionsThanThatAreDamage) {
    WriteSections(1000);
    EXPECT_EQ(ListStatus(), kLegacyDamaged);
}

// ---- Foreign and damaged files -----------------------------------------------------------------

TEST_F(LegacyFile, ForeignFilesAreReported) {
    for (const std::string& bytes :
         {std::string(), std::string("C0"), std::string("CORVANE DATABASE\r\n*\r\n"),
          std::string(40000, '\0'), std::string("CVNLEG\n\n") + std::string(2000, 'x')}) {
        WriteFileBytes(path, bytes);
        EXPECT_EQ(Statuses(), std::pair(kLegacyForeign, kLegacyForeign)) << bytes.substr(0, 9);
        EXPECT_EQ(Extend(), kLegacyForeign);
        EXPECT_EQ(ReadFileBytes(path), bytes) << "a foreign file is never written";
    }
}

TEST_F(LegacyFile, FileOfALaterVersionIsForeign) {
    Create();
    std::string bytes = ReadFileBytes(path);
    bytes[8] = 2;
    SetHeadChecksum(bytes);
    WriteFileBytes(path, bytes);
    EXPECT_EQ(Statuses(), std::pair(kLegacyForeign, kLegacyForeign));
    EXPECT_EQ(Extend(), kLegacyForeign);
    EXPECT_EQ(ReadFileBytes(path), bytes);
}

TEST_F(LegacyFile, FileCutAtAnyByteIsDamaged) {
    WriteSections(1);
    for (size_t size = kLegacyEmptySize + kLegacySlotSize; --size > 0;) {
        CutFile(path, size);
        ASSERT_EQ(ListStatus(), kLegacyDamaged) << size;
    }
}

TEST_F(LegacyFile, FileWithMoreBytesIsDamaged) {
    Create();
    WriteFileBytes(path, ReadFileBytes(path) + '\0');
    EXPECT_EQ(Statuses(), std::pair(kLegacyDamaged, kLegacyDamaged));
}

TEST_F(LegacyFile, AnyByteThatIsFlippedIsFound) {
    WriteSections(1);
    BitFlipper flipper(path);
    for (size_t i = 0; i < kLegacyEmptySize + kLegacySlotSize; ++i) {
        flipper.Flip(i, static_cast<int>(i % 8));
        ASSERT_EQ(ListStatus(), i < 8 ? kLegacyForeign : kLegacyDamaged) << i;
    }
}

TEST_F(LegacyFile, DamagedSectionLeavesTheOthersReadable) {
    WriteSections(2);
    std::string bytes = ReadFileBytes(path);
    bytes[kLegacyEmptySize + 100] ^= 1;
    WriteFileBytes(path, bytes);
    const auto record = std::make_unique<LegacyMainSection>();
    EXPECT_EQ(importvelkmainsec(Name(), 1, record.get()), kLegacyDamaged);
    EXPECT_EQ(importvelkmainsec(Name(), 2, record.get()), kLegacyDone);
    EXPECT_EQ(Extend(), kLegacyDamaged);
    EXPECT_EQ(ReadFileBytes(path), bytes) << "damage is never written over";
}

}  // namespace
}  // namespace corvane
