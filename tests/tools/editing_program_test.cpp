// The program as a process: what changes files.
#include <algorithm>

#include "database/listing.h"
#include "files/history.h"
#include "tests/support/without_stamps.h"
#include "tests/tools/program_fixture.h"

namespace corvane {
namespace {

using test::Narrow;
using test::ProgramRun;
using test::RunProgram;
using Words = std::vector<std::wstring>;

struct EditingProgram : test::ProgramTest {
    // Numbers and names of a database's models: "1 Hold 7, frame 61".
    std::vector<std::string> Models(std::wstring_view name) const {
        std::vector<std::string> models;
        for (const ModelEntry& model : ListModels(folder.File(name))) {
            models.push_back(std::to_string(model.number) + " " + Narrow(model.name));
        }
        return models;
    }
    // What the history would undo, the newest first.
    std::vector<std::string> Edits(std::wstring_view name) const {
        std::vector<TextVersion> versions;
        EXPECT_EQ(ReadHistory(folder.File(name), versions), system::kErrorNone);
        std::vector<std::string> edits;
        for (const TextVersion& version : versions) edits.push_back(Narrow(version.what));
        std::ranges::reverse(edits);
        return edits;
    }
};

// ---- extract -----------------------------------------------------------------------------------

TEST_F(EditingProgram, ExtractCopiesHeadAndBlocksByteForByte) {
    EXPECT_EQ(Out(0, {L"extract", L"ship.ve2", L"Fore peak, frame 270", L"13", L"2", L"2", L"--to",
                      L"some.ve2"}),
              "");
    const std::vector<std::string> parts = PartsOf(Sample());
    EXPECT_EQ(Bytes(L"some.ve2"),
              parts[0] + Numbered(parts[2], 1) + Numbered(parts[9], 2) + Numbered(parts[13], 3));
    EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
    EXPECT_FALSE(IsThere(L"ship.bak"));
}

TEST_F(EditingProgram, ExtractReplacesAFileOnlyByForce) {
    Write(L"some.ve2", "old text");
    EXPECT_EQ(Err(3, {L"extract", L"ship.ve2", L"1", L"--to", L"some.ve2"}),
              "corvane: This would replace 'some.ve2', which is there already.\n"
              "  Nothing was changed. --force does it.\n");
    EXPECT_EQ(Bytes(L"some.ve2"), "old text");
    EXPECT_EQ(Out(0, {L"extract", L"ship.ve2", L"1", L"--to", L"some.ve2", L"-y"}), "");
    const std::vector<std::string> parts = PartsOf(Sample());
    EXPECT_EQ(Bytes(L"some.ve2"), parts[0] + parts[1]);
    EXPECT_EQ(Err(3, {L"extract", L"ship.ve2", L"1", L"--to", L"ship.ve2", L"-y"}),
              "corvane: 'ship.ve2' is the file that is read: name another one\n");
    EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
}

TEST_F(EditingProgram, ExtractOfAModelThatIsNotThereWritesNothing) {
    EXPECT_EQ(Err(3, {L"extract", L"ship.ve2", L"1", L"99", L"--to", L"some.ve2"}),
              "corvane: no model '99' in 'ship.ve2'; 'corvane list' shows its models\n");
    EXPECT_FALSE(IsThere(L"some.ve2"));
    EXPECT_EQ(RunProgram({L"extract", L"ship.ve2", L"1", L"--to", L"none/some.ve2"}).status, 3);
}

// ---- append ------------------------------------------------------------------------------------

TEST_F(EditingProgram, AppendAddsModelsWithNewNumbers) {
    Out(0, {L"extract", L"ship.ve2", L"1", L"--to", L"some.ve2"});
    const std::string before = Bytes(L"some.ve2");
    EXPECT_EQ(Out(0, {L"append", L"some.ve2", L"ship.ve2", L"14", L"10", L"3"}),
              "2  Hold 6, frame 91\n"
              "3  Engine room bulkhead, frame 46\n"
              "4  Torsion model, holds 5 to 3\n");
    EXPECT_EQ(Models(L"some.ve2"),
              (std::vector<std::string>{"1 Engine room, frame 30", "2 Hold 6, frame 91",
                                        "3 Engine room bulkhead, frame 46",
                                        "4 Torsion model, holds 5 to 3"}));
    EXPECT_EQ(Bytes(L"some.ve2").substr(0, before.size()), before);
    EXPECT_EQ(Bytes(L"some.bak"), before);
    EXPECT_EQ(Edits(L"some.ve2"), std::vector<std::string>{"Import from 'ship.ve2'"});
}

TEST_F(EditingProgram, AppendTakesADosDatabaseInOneEdit) {
    Out(0, {L"extract", L"ship.ve2", L"1", L"--to", L"some.ve2"});
    EXPECT_EQ(Out(0, {L"append", L"some.ve2", L"old.vel", L"--all", L"--no-history"}),
              "2  Engine room, frame 30\n"
              "3  Hold 7, frame 61\n"
              "4  Hold 6, frame 91\n"
              "5  Hold 5, frame 121\n"
              "6  Midship section, hold 4\n"
              "7  Hold 3, frame 181\n"
              "8  Hold 2, frame 211\n"
              "9  Hold 1, frame 240\n"
              "10  Fore peak, frame 270\n");
    EXPECT_EQ(Models(L"some.ve2").size(), 10U);
    EXPECT_TRUE(Edits(L"some.ve2").empty());
}

TEST_F(EditingProgram, AppendThatFailsLeavesTheDatabase) {
    Write(L"bad.vel", "nothing");
    Write(L"twice.ve2", SampleNumbered({1, 2, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
    const Words sources[] = {{L"bad.vel", L"--all"},   {L"none.ve2", L"1"},  {L"old.vel", L"77"},
                             {L"twice.ve2", L"--all"}, {L"twice.ve2", L"2"}, {L"ship.ve2", L"1"}};
    for (const Words& source : sources) {
        Words arguments{L"append", L"ship.ve2"};
        arguments.insert(arguments.end(), source.begin(), source.end());
        EXPECT_NE(Err(3, arguments), "") << Narrow(source[0]);
        EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
        EXPECT_FALSE(IsThere(L"ship.bak"));
    }
}

// A model whose head is damaged, with a table that is not known: the copy is made without it.
TEST_F(EditingProgram, AppendNamesWhatItLeavesOut) {
    std::string text = test::ReadFileBytes(test::DataPath("golden/checked.ve2"));
    const auto replace = [&text](const std::string& from, const std::string& to) {
        text.replace(text.find(from), from.size(), to);
    };
    replace("------------------ OPENINGS",
            "------------------ COATINGS ------------------\r\n 1 \t 2 \r\n"
            "------------------ OPENINGS");
    replace("\r\n .001 \t 6.75 \t 0 \r\n", "\r\n .001 \t 6.75 \r\n");
    Write(L"damaged.ve2", text);
    const ProgramRun run = RunProgram({L"append", L"ship.ve2", L"damaged.ve2", L"1"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "15  Frame 100\n");
    EXPECT_NE(run.err.find("Line 194, warning, model 1 'Frame 100' (Section): The table COATINGS "
                           "is not known (lines: 1)."),
              std::string::npos)
        << run.err;
}

// ---- repair ------------------------------------------------------------------------------------

TEST_F(EditingProgram, RepairPrintsEachChangeAndKeepsTheOldText) {
    const std::string damaged = SampleNumbered({1, 2, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15});
    Write(L"twice.ve2", damaged);
    const std::string out = Out(0, {L"repair", L"twice.ve2"});
    EXPECT_NE(out.find("Line 615, model in place 3: number '2' becomes '3'\n"), std::string::npos)
        << out;
    EXPECT_NE(out.find(", model in place 14: number '15' becomes '14'\n"
                       "changes: 2; left: faults: 0, warnings: 0, notes: 0\n"),
              std::string::npos)
        << out;
    EXPECT_EQ(Bytes(L"twice.ve2"), Sample());
    EXPECT_EQ(Bytes(L"twice.bak"), damaged);
    EXPECT_EQ(Edits(L"twice.ve2"), std::vector<std::string>{"Repair of the database"});
}

TEST_F(EditingProgram, RepairOfASoundDatabaseChangesNothing) {
    EXPECT_EQ(Out(0, {L"repair", L"ship.ve2"}),
              "changes: 0; left: faults: 0, warnings: 0, notes: 0\n");
    EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
    EXPECT_FALSE(IsThere(L"ship.bak"));
    EXPECT_TRUE(Edits(L"ship.ve2").empty());
}

TEST_F(EditingProgram, RepairSaysWhatIsLeft) {
    std::string text = test::ReadFileBytes(test::DataPath("golden/checked.ve2"));
    text.erase(text.find("SHIP\r\n"), 6);
    text.resize(text.size() - 2);
    Write(L"head.ve2", text);
    EXPECT_EQ(Out(1, {L"repair", L"head.ve2", L"--no-history"}),
              "Line 416: gets its line end\n"
              "changes: 1; left: faults: 0, warnings: 0, notes: 1\n");
    EXPECT_EQ(Bytes(L"head.ve2"), text + "\r\n");
    EXPECT_TRUE(Edits(L"head.ve2").empty());
}

TEST_F(EditingProgram, DryRunOfRepairShowsTheChangesAndMakesNone) {
    const std::string damaged = SampleNumbered({1, 2, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14});
    Write(L"twice.ve2", damaged);
    EXPECT_EQ(Out(1, {L"repair", L"twice.ve2", L"--dry-run"}),
              "Line 615, model in place 3: number '2' becomes '3'\n"
              "changes: 1, not made\n");
    EXPECT_EQ(Bytes(L"twice.ve2"), damaged);
    EXPECT_FALSE(IsThere(L"twice.bak"));
    EXPECT_EQ(Out(0, {L"repair", L"ship.ve2", L"--dry-run"}), "changes: 0, not made\n");
}

TEST_F(EditingProgram, RepairOfWhatCannotBeRepairedFails) {
    Write(L"text.ve2", "no database");
    EXPECT_NE(Err(3, {L"repair", L"text.ve2"}).find("text.ve2"), std::string::npos);
    EXPECT_EQ(Bytes(L"text.ve2"), "no database");
    EXPECT_NE(Err(3, {L"repair", L"none.ve2"}).find("none.ve2"), std::string::npos);
    EXPECT_NE(Err(2, {L"repair", L"old.vel"}).find("a DOS database is not repaired"),
              std::string::npos);
}

TEST_F(EditingProgram, RepairOfAReadOnlyDatabaseIsRefused) {
    const std::string damaged = SampleNumbered({1, 2, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14});
    Write(L"twice.ve2", damaged);
    system::SetReadOnly(folder.File(L"twice.ve2"), true);
    EXPECT_NE(Err(3, {L"repair", L"twice.ve2"}).find("twice.ve2"), std::string::npos);
    EXPECT_EQ(RunProgram({L"repair", L"twice.ve2", L"--dry-run"}).status, 1);
    system::SetReadOnly(folder.File(L"twice.ve2"), false);
    EXPECT_EQ(Bytes(L"twice.ve2"), damaged);
}

// ---- delete ------------------------------------------------------------------------------------

TEST_F(EditingProgram, DeleteAsksForForce) {
    EXPECT_EQ(Err(3, {L"delete", L"ship.ve2", L"2", L"Hold 3, frame 181"}),
              "corvane: This would delete 2 models from 'ship.ve2'.\n"
              "  Nothing was changed. --force does it.\n");
    EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
    EXPECT_EQ(Out(0, {L"delete", L"ship.ve2", L"2", L"Hold 3, frame 181", L"--force"}), "");
    const std::vector<std::string> parts = PartsOf(Sample());
    std::string expected = parts[0] + parts[1];
    int number = 1;
    for (const size_t kept : {3, 4, 5, 7, 8, 9, 10, 11, 12, 13, 14}) {
        expected += Numbered(parts[kept], ++number);
    }
    EXPECT_EQ(Bytes(L"ship.ve2"), expected);
    EXPECT_EQ(Bytes(L"ship.bak"), Sample());
    EXPECT_EQ(Edits(L"ship.ve2"), std::vector<std::string>{"Delete of 2 models"});
}

TEST_F(EditingProgram, AReadOnlyDatabaseIsRefusedBeforeTheQuestion) {
    ASSERT_EQ(system::SetReadOnly(folder.File(L"ship.ve2"), true), system::kErrorNone);
    const Words edits[] = {{L"delete", L"ship.ve2", L"2"},
                           {L"renumber", L"ship.ve2"},
                           {L"append", L"ship.ve2", L"old.vel", L"--all"},
                           {L"bsd", L"import", L"ship.ve2", L"old.vel"}};
    for (const Words& edit : edits) {
        const std::string err = Err(3, edit);
        EXPECT_NE(err.find("'ship.ve2' is read-only"), std::string::npos) << err;
        EXPECT_EQ(err.find("--force"), std::string::npos) << err;
        EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
    }
}

// ---- renumber ----------------------------------------------------------------------------------

TEST_F(EditingProgram, RenumberPrintsWhatHasChanged) {
    const std::string before = SampleNumbered({1, 2, 2, 4, 5, 6, 30, 8, 9, 10, 11, 12, 13, 14});
    Write(L"ship.ve2", before);
    EXPECT_EQ(Out(0, {L"renumber", L"ship.ve2"}),
              "2 is now 3: Hold 6, frame 91\n"
              "30 is now 7: Hold 2, frame 211\n");
    EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
    EXPECT_EQ(Bytes(L"ship.bak"), before);
    EXPECT_EQ(Edits(L"ship.ve2"), std::vector<std::string>{"Renumbering"});
    EXPECT_EQ(Out(0, {L"renumber", L"ship.ve2"}), "");
    EXPECT_EQ(Edits(L"ship.ve2").size(), 1U);
}

// ---- Ship's data -------------------------------------------------------------------------------

TEST_F(EditingProgram, ImportOfShipDataReplacesValidOnesByForce) {
    Write(L"other.bsd", test::ReadFileBytes(test::DataPath("golden/standalone.bsd")));
    EXPECT_EQ(Err(3, {L"bsd", L"import", L"ship.ve2", L"other.bsd"}),
              "corvane: This would replace the ship's data of 'ship.ve2'.\n"
              "  Nothing was changed. --force does it.\n");
    EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
    EXPECT_EQ(Out(0, {L"bsd", L"import", L"ship.ve2", L"other.bsd", L"--force"}), "");
    EXPECT_EQ(Out(0, {L"bsd", L"show", L"ship.ve2"}), Out(0, {L"bsd", L"show", L"other.bsd"}));
    EXPECT_EQ(Bytes(L"ship.bak"), Sample());
    EXPECT_EQ(Models(L"ship.ve2").size(), 14U);
    EXPECT_EQ(Edits(L"ship.ve2").size(), 1U);
}

TEST_F(EditingProgram, ImportOfShipDataFromGarbageLeavesTheDatabase) {
    Write(L"other.bsd", "garbage\r\n");
    EXPECT_NE(Err(3, {L"bsd", L"import", L"ship.ve2", L"other.bsd", L"-y"}).find("other.bsd"),
              std::string::npos);
    EXPECT_EQ(Err(3, {L"bsd", L"import", L"ship.ve2", L"none.bsd", L"-y"}).find("--force"),
              std::string::npos);
    EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
}

// ---- convert -----------------------------------------------------------------------------------

TEST_F(EditingProgram, ConvertGoesBothWays) {
    EXPECT_EQ(Out(0, {L"convert", L"old.vel", L"new.ve2"}), "");
    EXPECT_EQ(Models(L"new.ve2"),
              (std::vector<std::string>{
                  "1 Engine room, frame 30", "2 Hold 7, frame 61", "3 Hold 6, frame 91",
                  "4 Hold 5, frame 121", "5 Midship section, hold 4", "6 Hold 3, frame 181",
                  "7 Hold 2, frame 211", "8 Hold 1, frame 240", "9 Fore peak, frame 270"}));
    EXPECT_NE(Out(0, {L"bsd", L"show", L"new.ve2"}).find("Ship     OLD\n"), std::string::npos);
    const std::string lost = Err(1, {L"convert", L"ship.ve2", L"back.vel"});
    EXPECT_NE(lost.find("was left out. A DOS database holds sections only."), std::string::npos)
        << lost;
    EXPECT_EQ(Bytes(L"back.vel"), Bytes(L"old.vel"));
}

TEST_F(EditingProgram, ConvertReplacesAFileOnlyByForce) {
    Write(L"new.ve2", "old text");
    Write(L"new.vel", "old text");
    const Words conversions[] = {{L"convert", L"old.vel", L"new.ve2"},
                                 {L"convert", L"ship.ve2", L"new.vel"}};
    for (const Words& conversion : conversions) {
        EXPECT_EQ(Err(3, conversion),
                  "corvane: This would replace '" + Narrow(conversion[2]) +
                      "', which is there already.\n  Nothing was changed. --force does it.\n");
        EXPECT_EQ(Bytes(conversion[2]), "old text");
        Words forced = conversion;
        forced.push_back(L"--force");
        EXPECT_EQ(Out(conversion[1] == L"ship.ve2" ? 1 : 0, forced), "");
        EXPECT_GT(Bytes(conversion[2]).size(), 1000U);
    }
}

// The library of DOS databases lists 20 sections; the others are asked for by their numbers.
TEST_F(EditingProgram, MoreSectionsThanAreListedAreThere) {
    Out(0, {L"convert", L"old.vel", L"many.ve2"});
    for (int i = 0; i < 2; ++i) Out(0, {L"append", L"many.ve2", L"old.vel", L"--all"});
    Out(0, {L"convert", L"many.ve2", L"many.vel"});
    EXPECT_EQ(Out(0, {L"convert", L"many.vel", L"all.ve2"}), "");
    EXPECT_EQ(Models(L"all.ve2").size(), 27U);
    const std::string list = Out(0, {L"list", L"many.vel", L"--format", L"csv"});
    EXPECT_EQ(std::ranges::count(list, '\n'), 28);
    EXPECT_NE(list.find("27,yes,\"Fore peak, frame 270\",Section,,\n"), std::string::npos);
    EXPECT_EQ(Out(0, {L"append", L"ship.ve2", L"many.vel", L"25"}), "15  Hold 2, frame 211\n");
    Out(0, {L"append", L"all.ve2", L"many.vel", L"--all"});
    EXPECT_EQ(Models(L"all.ve2").size(), 54U);
}

TEST_F(EditingProgram, ConvertOfADamagedFileMakesNothing) {
    std::string damaged = Bytes(L"old.vel");
    damaged.resize(damaged.size() / 2);
    Write(L"bad.vel", damaged);
    EXPECT_NE(Err(3, {L"convert", L"bad.vel", L"new.ve2"}).find("bad.vel"), std::string::npos);
    EXPECT_NE(Err(3, {L"convert", L"none.ve2", L"new.vel"}).find("none.ve2"), std::string::npos);
    EXPECT_FALSE(IsThere(L"new.ve2"));
    EXPECT_FALSE(IsThere(L"new.vel"));
}

// ---- draw --------------------------------------------------------------------------------------

TEST_F(EditingProgram, DrawWritesASheetWithATitleBlock) {
    EXPECT_EQ(Out(0, {L"draw", L"ship.ve2", L"Midship section, hold 4", L"a.svg"}), "");
    const std::string svg = Bytes(L"a.svg");
    EXPECT_EQ(svg.substr(0, 5), "<?xml");
    for (const char* part :
         {"width=\"297mm\"", "height=\"210mm\"", ">AURORA BAY<", ">ship.ve2<",
          ">Midship section, hold 4<", ">108.500 m<", "id=\"stiffener\"", "</svg>"}) {
        EXPECT_NE(svg.find(part), std::string::npos) << part;
    }
    EXPECT_EQ(Out(0, {L"draw", L"ship.ve2", L"11", L"b.DXF"}), "");
    const std::string dxf = Bytes(L"b.DXF");
    EXPECT_NE(dxf.find("AC1009"), std::string::npos);
    EXPECT_NE(dxf.find("Lower stool, aft side"), std::string::npos);
    EXPECT_EQ(dxf.substr(dxf.size() - 5), "EOF\r\n");
}

TEST_F(EditingProgram, DrawReplacesAPictureOnlyByForce) {
    Write(L"a.svg", "old");
    EXPECT_EQ(Err(3, {L"draw", L"ship.ve2", L"1", L"a.svg"}),
              "corvane: This would replace 'a.svg', which is there already.\n"
              "  Nothing was changed. --force does it.\n");
    EXPECT_EQ(Bytes(L"a.svg"), "old");
    EXPECT_EQ(Out(0, {L"draw", L"ship.ve2", L"1", L"a.svg", L"--force"}), "");
    EXPECT_GT(Bytes(L"a.svg").size(), 1000U);
}

TEST_F(EditingProgram, WhatHasNoPictureFails) {
    const std::string err = Err(3, {L"draw", L"ship.ve2", L"13", L"a.svg"});
    EXPECT_NE(err.find("'Torsion model, holds 7 to 1' is not drawn"), std::string::npos) << err;
    EXPECT_EQ(Err(3, {L"draw", L"ship.ve2", L"--all", L"none", L"--kind", L"svg"}),
              "corvane: there is no folder 'none': make it first\n");
    EXPECT_FALSE(IsThere(L"a.svg"));
}

TEST_F(EditingProgram, DrawAllWritesAFileForEachSectionAndBulkheadArrangement) {
    const test::TemporaryFolder out;
    const Words arguments{L"draw", L"ship.ve2", L"--all", out.path, L"--kind", L"svg"};
    const std::string names =
        "1 Engine room, frame 30.svg\n2 Hold 7, frame 61.svg\n3 Hold 6, frame 91.svg\n"
        "4 Hold 5, frame 121.svg\n5 Midship section, hold 4.svg\n6 Hold 3, frame 181.svg\n"
        "7 Hold 2, frame 211.svg\n8 Hold 1, frame 240.svg\n9 Fore peak, frame 270.svg\n"
        "10 Engine room bulkhead, frame 46.svg\n11 Corrugated bulkhead, holds 5 and 4.svg\n"
        "12 Collision bulkhead, frame 254.svg\n";
    EXPECT_EQ(Out(0, arguments), names);
    EXPECT_EQ(test::FilesIn(out.path).size(), 12U);
    EXPECT_NE(Err(3, arguments).find("1 Engine room, frame 30.svg', which is there already"),
              std::string::npos);
}

// A section without plating is left out, and the others are drawn; names that no file can have.
TEST_F(EditingProgram, DrawAllNamesWhatItLeavesOut) {
    const test::TemporaryFolder out;
    const std::vector<std::string> parts = PartsOf(Sample());
    std::string named = parts[1];
    const std::string name = "Engine room, frame 30";
    named.replace(named.find(name), name.size(), "a/b\\c:d*? .");
    const std::string bare = parts[2].substr(0, parts[2].find("\r\n---") + 2);
    Write(L"two.ve2", parts[0] + named + bare);
    const ProgramRun run = RunProgram({L"draw", L"two.ve2", L"--all", out.path, L"--kind=svg"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "1 a_b_c_d__.svg\n");
    EXPECT_NE(run.err.find("'Hold 7, frame 61' is not drawn: "), std::string::npos) << run.err;
    EXPECT_EQ(test::FilesIn(out.path), std::vector<std::wstring>{L"1 a_b_c_d__.svg"});
}

}  // namespace
}  // namespace corvane
