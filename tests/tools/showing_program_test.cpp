// The program as a process: what only looks, and what is wrong with arguments.
#include "tests/tools/program_fixture.h"

namespace corvane {
namespace {

using test::ProgramRun;
using test::RunProgram;
using Words = std::vector<std::wstring>;

struct ShowingProgram : test::ProgramTest {};

constexpr char kList[] =
    R"(No  Name                                Kind        x [m]  Frame
 1  Engine room, frame 30               Section    20.700     30
 2  Hold 7, frame 61                    Section    44.700     61
 3  Hold 6, frame 91                    Section    68.700     91
 4  Hold 5, frame 121                   Section    92.700    121
 5  Midship section, hold 4             Section   108.500    141
 6  Hold 3, frame 181                   Section   140.700    181
 7  Hold 2, frame 211                   Section   164.700    211
 8  Hold 1, frame 240                   Section   187.900    240
 9  Fore peak, frame 270                Section   208.700    270
10  Engine room bulkhead, frame 46      Bulkhead   32.700     46
11  Corrugated bulkhead, holds 5 and 4  Bulkhead  104.700    136
12  Collision bulkhead, frame 254       Bulkhead  199.100    254
13  Torsion model, holds 7 to 1         Torsion
14  Torsion model, holds 5 to 3         Torsion
)";

TEST_F(ShowingProgram, ListsTheModelsInColumns) {
    EXPECT_EQ(Out(0, {L"list", L"ship.ve2"}), kList);
    EXPECT_EQ(Out(0, {L"list", L"ship.ve2", L"--format=text"}), kList);
    EXPECT_EQ(Out(0, {L"list", folder.File(L"ship.ve2")}), kList);
}

// A name with a comma, a quote, a letter beyond English and an escape.
TEST_F(ShowingProgram, ListsTheModelsAsCsvAndAsJson) {
    const std::vector<std::string> parts = PartsOf(Sample());
    std::string section = parts[1];
    const std::string name = "Engine room, frame 30";
    section.replace(section.find(name), name.size(), "B\xFCg \"A\", \x1B[2J");
    Write(L"two.ve2", parts[0] + section + Numbered(parts[13], 2));
    EXPECT_EQ(Out(0, {L"list", L"two.ve2", L"--format", L"csv"}),
              "number,own_number,name,kind,x_m,frame\n"
              "1,yes,\"B\xC3\xBCg \"\"A\"\", \x1B[2J\",Section,20.7,30\n"
              "2,yes,\"Torsion model, holds 7 to 1\",Torsion,,\n");
    EXPECT_EQ(Out(0, {L"list", L"two.ve2", L"--format", L"json"}),
              "[\n"
              "  {\"number\": 1, \"ownNumber\": true, \"name\": \"B\xC3\xBCg \\\"A\\\", "
              "\\u001b[2J\", \"kind\": \"Section\", \"x_m\": 20.7, \"frame\": 30},\n"
              "  {\"number\": 2, \"ownNumber\": true, \"name\": \"Torsion model, holds 7 to 1\", "
              "\"kind\": \"Torsion\", \"x_m\": null, \"frame\": null}\n"
              "]\n");
    Write(L"empty.ve2", parts[0]);
    EXPECT_EQ(Out(0, {L"list", L"empty.ve2", L"--format", L"json"}), "[]\n");
    EXPECT_EQ(Out(0, {L"list", L"empty.ve2"}), "No  Name  Kind  x [m]  Frame\n");
}

TEST_F(ShowingProgram, MarksNumbersThatAreNotOfOneModelAlone) {
    const std::vector<std::string> parts = PartsOf(Sample());
    Write(L"two.ve2", parts[0] + Numbered(parts[1], 3) + Numbered(parts[2], 3));
    EXPECT_EQ(Out(0, {L"list", L"two.ve2"}),
              "No  Name                   Kind      x [m]  Frame\n"
              "3!  Engine room, frame 30  Section  20.700     30\n"
              "3!  Hold 7, frame 61       Section  44.700     61\n");
    EXPECT_EQ(Err(3, {L"show", L"two.ve2", L"3"}),
              "corvane: the number 3 in 'two.ve2' does not lead to one model alone; 'corvane "
              "renumber' gives each its own\n");
}

TEST_F(ShowingProgram, ListsTheSectionsOfADosDatabase) {
    EXPECT_EQ(Out(0, {L"list", L"old.vel", L"--format", L"csv"}),
              "number,own_number,name,kind,x_m,frame\n"
              "1,yes,\"Engine room, frame 30\",Section,,\n"
              "2,yes,\"Hold 7, frame 61\",Section,,\n"
              "3,yes,\"Hold 6, frame 91\",Section,,\n"
              "4,yes,\"Hold 5, frame 121\",Section,,\n"
              "5,yes,\"Midship section, hold 4\",Section,,\n"
              "6,yes,\"Hold 3, frame 181\",Section,,\n"
              "7,yes,\"Hold 2, frame 211\",Section,,\n"
              "8,yes,\"Hold 1, frame 240\",Section,,\n"
              "9,yes,\"Fore peak, frame 270\",Section,,\n");
    Write(L"bad.vel", "nothing");
    EXPECT_NE(Err(3, {L"list", L"bad.vel"}).find("bad.vel"), std::string::npos);
}

TEST_F(ShowingProgram, ShowsAModelByNumberOrByName) {
    const std::string expected =
        "Number          3\n"
        "Name            Hold 6, frame 91\n"
        "Kind            Section\n"
        "x [m]           68.7\n"
        "Frame           91\n"
        "Identifier      AURORABAY-0003\n"
        "Written by      Corvane, sample 02/03/2026,  10:15:00\n"
        "Program         Corvane 1.0 R0 32bit\n"
        "Format version  2.002\n"
        "Bytes           11361\n"
        "Breadth         32.25 m\n"
        "Depth           19.6 m\n"
        "Panels          18\n"
        "Nodes           36\n"
        "Stiffeners      22\n"
        "Compartments    4\n";
    EXPECT_EQ(Out(0, {L"show", L"ship.ve2", L"3"}), expected);
    EXPECT_EQ(Out(0, {L"show", L"ship.ve2", L"Hold 6, frame 91"}), expected);
    EXPECT_EQ(Out(0, {L"show", L"ship.ve2", L"13", L"--format", L"json"}),
              "{\n"
              "  \"number\": 13,\n"
              "  \"name\": \"Torsion model, holds 7 to 1\",\n"
              "  \"kind\": \"Torsion\",\n"
              "  \"x_m\": null,\n"
              "  \"frame\": null,\n"
              "  \"identifier\": \"\",\n"
              "  \"writtenBy\": \"Corvane, sample 02/03/2026,  10:15:00\",\n"
              "  \"user\": \"\",\n"
              "  \"program\": \"Corvane 1.0 R0 32bit\",\n"
              "  \"formatVersion\": \"2.002\",\n"
              "  \"bytes\": 1971,\n"
              "  \"contents\": {\"Tables\": \"5\", \"Lines\": \"41\"}\n"
              "}\n");
}

TEST_F(ShowingProgram, ANameThatSeveralModelsHaveIsRefusedWithTheirNumbers) {
    const std::vector<std::string> parts = PartsOf(Sample());
    Write(L"two.ve2", parts[0] + parts[1] + Numbered(parts[1], 2));
    EXPECT_EQ(
        Err(3, {L"show", L"two.ve2", L"Engine room, frame 30"}),
        "corvane: several models in 'two.ve2' have the name 'Engine room, frame 30': give the "
        "number of one of them: 1, 2\n");
    EXPECT_EQ(Err(3, {L"show", L"two.ve2", L"7"}),
              "corvane: no model '7' in 'two.ve2'; 'corvane list' shows its models\n");
}

TEST_F(ShowingProgram, ShowsTheShipsData) {
    const std::string expected =
        "Name     Aurora Bay\n"
        "Ship     AURORA BAY\n"
        "Type     Bulk carrier\n"
        "Length   217 m\n"
        "Breadth  32.25 m\n"
        "Depth    19.6 m\n"
        "Draught  14 m\n"
        "Frames   -6 to 12 at 0.6 m to 46 at 0.75 m to 254 at 0.8 m to 292 at 0.6 m, frame 0 at x "
        "= 0 m\n"
        "Remark   Sample data: not a ship in service\n"
        "Valid    yes\n";
    EXPECT_EQ(Out(0, {L"bsd", L"show", L"ship.ve2"}), expected);
    EXPECT_EQ(Out(0, {L"bsd", L"show", L"old.vel"}), expected);
    EXPECT_EQ(Out(0, {L"bsd", L"show", L"ship.ve2", L"--format", L"json"}),
              "{\n"
              "  \"name\": \"Aurora Bay\",\n"
              "  \"ship\": \"AURORA BAY\",\n"
              "  \"type\": \"Bulk carrier\",\n"
              "  \"length_m\": 217,\n"
              "  \"breadth_m\": 32.25,\n"
              "  \"depth_m\": 19.6,\n"
              "  \"draught_m\": 14,\n"
              "  \"frames\": {\"first\": -6, \"zeroAt_m\": 0, \"zones\": [{\"last\": 12, "
              "\"spacing_m\": 0.6}, {\"last\": 46, \"spacing_m\": 0.75}, {\"last\": 254, "
              "\"spacing_m\": 0.8}, {\"last\": 292, \"spacing_m\": 0.6}]},\n"
              "  \"remark\": \"Sample data: not a ship in service\",\n"
              "  \"valid\": true\n"
              "}\n");
}

TEST_F(ShowingProgram, WhatCannotBeReadFails) {
    Write(L"text.ve2", "no database\r\n");
    const std::pair<Words, std::string> cases[] = {
        {{L"list", L"none.ve2"}, "none.ve2"},
        {{L"list", L"text.ve2"}, "text.ve2"},
        {{L"list", L"."}, "'.'"},
        {{L"show", L"none.ve2", L"1"}, "none.ve2"},
        {{L"bsd", L"show", L"none.ve2"}, "none.ve2"},
        {{L"bsd", L"show", L"text.ve2"}, "text.ve2"},
        {{L"bsd", L"show", L"none.bsd"}, "none.bsd"},
        {{L"list", L"none.vel"}, "none.vel"},
        {{L"list", L"nul"}, "'nul'"},
    };
    for (const auto& [arguments, named] : cases) {
        EXPECT_NE(Err(3, arguments).find(named), std::string::npos) << test::Narrow(arguments[1]);
    }
}

// Without the line "SHIP", the eighth one.
TEST_F(ShowingProgram, CheckNamesWhatIsWrong) {
    std::string text = test::ReadFileBytes(test::DataPath("golden/checked.ve2"));
    Write(L"sound.ve2", text);
    EXPECT_EQ(Out(0, {L"check", L"sound.ve2"}),
              "faults: 0, warnings: 0, notes: 0; models: 4, lines: 417\n");
    EXPECT_EQ(Out(0, {L"check", L"sound.ve2", L"--format", L"json"}),
              "{\n  \"models\": 4,\n  \"lines\": 417,\n  \"findings\": []\n}\n");
    text.erase(text.find("SHIP\r\n"), 6);
    Write(L"head.ve2", text);
    EXPECT_EQ(Out(1, {L"check", L"head.ve2"}),
              "Line 9, note: The file's head has no line 'SHIP'.\n"
              "\n"
              "Head label missing: A line of the head was lost. Corvane does not need it. Nothing "
              "has to be done.\n"
              "\n"
              "faults: 0, warnings: 0, notes: 1; models: 4, lines: 416\n");
    EXPECT_EQ(
        Out(1, {L"check", L"head.ve2", L"--format=json"}),
        "{\n  \"models\": 4,\n  \"lines\": 416,\n  \"findings\": [\n"
        "    {\"line\": 9, \"severity\": \"note\", \"model\": null, \"rule\": \"Head label "
        "missing\", \"text\": \"The file's head has no line 'SHIP'.\", \"meaning\": \"A line of "
        "the head was lost. Corvane does not need it.\", \"remedy\": \"Nothing has to be "
        "done.\"}\n  ]\n}\n");
    EXPECT_EQ(Bytes(L"head.ve2"), text) << "nothing is changed";
}

// A name with a quote and an escape, of a model whose number is too large.
TEST_F(ShowingProgram, CheckSaysInWhichModel) {
    const std::vector<std::string> parts = PartsOf(Sample());
    std::string section = parts[1];
    const std::string name = "Engine room, frame 30";
    section.replace(section.find(name), name.size(), "A \"B\" \x1B[2J");
    Write(L"gap.ve2", parts[0] + Numbered(section, 3));
    EXPECT_NE(Out(1, {L"check", L"gap.ve2"})
                  .find("warning, model 3 'A \"B\"  [2J' (Section): The "
                        "model's number is 3"),
              std::string::npos);
    EXPECT_NE(Out(1, {L"check", L"gap.ve2", L"--format", L"json"})
                  .find("\"severity\": \"warning\", \"model\": {\"number\": 3, \"name\": \"A "
                        "\\\"B\\\"  [2J\", \"kind\": \"Section\"}"),
              std::string::npos);
}

TEST_F(ShowingProgram, CheckOfWhatIsNoDatabaseFindsThatAndOneThatIsNotThereFails) {
    Write(L"text.ve2", "no database\r\n");
    EXPECT_NE(
        Out(1, {L"check", L"text.ve2"}).find("Line 1, fault: The first line is 'no database'"),
        std::string::npos);
    EXPECT_NE(Err(3, {L"check", L"none.ve2"}).find("none.ve2"), std::string::npos);
    EXPECT_NE(Err(2, {L"check", L"old.vel"}).find("a DOS database is not checked"),
              std::string::npos);
}

// The ship's name, a model's name and a plate of it are others, and the third model has gone.
TEST_F(ShowingProgram, ComparePrintsModelsAndValuesThatDiffer) {
    std::string text = test::ReadFileBytes(test::DataPath("golden/checked.ve2"));
    Write(L"before.ve2", text);
    EXPECT_EQ(Out(0, {L"compare", L"before.ve2", L"before.ve2"}),
              "There are no differences. Models: 4.\n");
    EXPECT_EQ(Out(0, {L"compare", L"before.ve2", L"before.ve2", L"--format", L"json"}),
              "{\n  \"ship\": [],\n  \"same\": 4,\n  \"models\": []\n}\n");
    const std::vector<std::string> parts = PartsOf(text);
    ASSERT_EQ(parts.size(), 5U);
    const auto replaced = [](std::string in, std::string_view from, std::string_view to) {
        return in.replace(in.find(from), from.size(), to);
    };
    const std::string section =
        replaced(replaced(parts[1], "Frame 100", "Frame \"101\""), "9.125\t 12 ", "9.125\t 14 ");
    Write(L"now.ve2", replaced(parts[0], "Aurora Bay", "Aurora Day") + section + parts[2] +
                          Numbered(parts[4], 3));
    EXPECT_EQ(Out(1, {L"compare", L"before.ve2", L"now.ve2"}),
              "Basic Ship Data: changed\n"
              "    Title 1: Aurora Bay -> Aurora Day\n"
              "Model 1 'Frame \"101\"' (Section): renamed, changed\n"
              "    Model, Name: Frame 100 -> Frame \"101\"\n"
              "    Panel 2 'Inner side of exactly forty characters,,', plate 1, Thickness [mm]: "
              "12 -> 14\n"
              "Model 3 'Bare' (Section): other number\n"
              "    Model, Number: 4 -> 3\n"
              "Model 3 'Torsion model, holds 7 to 1' (Torsion): removed\n"
              "\n"
              "Models added: 0, removed: 1, renamed: 1, with another number: 1, changed: 1, as "
              "before: 1. The Basic Ship Data differ.\n");
    EXPECT_EQ(Out(1, {L"compare", L"before.ve2", L"now.ve2", L"--format", L"json"}),
              test::WithLineFeeds(test::ReadFileBytes(test::DataPath("golden/compared.json"))));
}

TEST_F(ShowingProgram, CompareOfWhatIsNoDatabaseFails) {
    Write(L"text.ve2", "no database\r\n");
    EXPECT_NE(Err(3, {L"compare", L"ship.ve2", L"none.ve2"}).find("none.ve2"), std::string::npos);
    EXPECT_NE(Err(3, {L"compare", L"text.ve2", L"ship.ve2"}).find("text.ve2"), std::string::npos);
    EXPECT_NE(Err(2, {L"compare", L"old.vel", L"ship.ve2"}).find("a DOS database is not compared"),
              std::string::npos);
    EXPECT_NE(Err(2, {L"compare", L"ship.ve2"}).find("usage: corvane compare BEFORE NOW"),
              std::string::npos);
}

TEST_F(ShowingProgram, HelpAndVersionArePrinted) {
    EXPECT_EQ(Out(0, {L"--version"}), "corvane 1.0\n");
    EXPECT_EQ(
        Out(0, {L"--help"}),
        "usage: corvane COMMAND [ARGUMENTS]\n"
        "\n"
        "Commands:\n"
        "  list        lists the models of a database\n"
        "  show        shows what a model is\n"
        "  check       checks a database from its first line to its last\n"
        "  repair      repairs what can be repaired without loss\n"
        "  compare     compares two databases, or two versions of one\n"
        "  extract     writes models into a new database\n"
        "  append      adds models of another database\n"
        "  delete      deletes models\n"
        "  renumber    numbers the models from 1 in the order of the file\n"
        "  bsd show    shows the Basic Ship Data of a file\n"
        "  bsd import  replaces the Basic Ship Data of a database\n"
        "  convert     converts a DOS database to a model database, or back\n"
        "  draw        draws sections and bulkheads to scale\n"
        "\n"
        "'corvane COMMAND --help' explains a command, 'corvane --version' gives the version.\n"
        "MODEL is the number of a model as 'list' shows it, or its name, when one model alone "
        "has it.\n"
        "Exit status: 0 done; 1 done, and something was reported; 2 wrong arguments;\n"
        "3 failed, every file is as it was.\n");
    EXPECT_EQ(Out(0, {L"list", L"--help"}),
              "usage: corvane list DATABASE [--format text|csv|json]\n"
              "\n"
              "Number, name, kind, position in m and nearest frame of each model, in the order of "
              "the\n"
              "file. A \"!\" marks a number that does not lead to one model alone. Of a DOS "
              "database\n"
              "its sections.\n"
              "\n"
              "  --format KIND   text (usual), csv or json\n"
              "\n"
              "Exit status: 0 done; 1 done, and something was reported; 2 wrong arguments;\n"
              "3 failed, every file is as it was.\n");
}

// Every command, with each kind of misuse. Nothing is made or changed.
TEST_F(ShowingProgram, WrongArgumentsEndWithStatusTwoAndTheUsageLine) {
    const Words commands[] = {{L"list"},         {L"show"},           {L"check"},   {L"repair"},
                              {L"extract"},      {L"append"},         {L"delete"},  {L"renumber"},
                              {L"bsd", L"show"}, {L"bsd", L"import"}, {L"convert"}, {L"draw"}};
    for (const Words& command : commands) {
        std::string name;
        for (const std::wstring& word : command)
            name += (name.empty() ? "" : " ") + test::Narrow(word);
        const auto with = [&command](Words more) {
            more.insert(more.begin(), command.begin(), command.end());
            return more;
        };
        for (const auto& [arguments, fault] : std::vector<std::pair<Words, std::string>>{
                 {with({}), "an argument is missing"},
                 {with({L"ship.ve2", L"--nothing"}), "unknown option '--nothing'"},
                 {with({L"ship.ve2", L"-q"}), "unknown option '-q'"}}) {
            const std::string expected = "corvane: " + fault + "\nusage: corvane " + name + " ";
            EXPECT_EQ(Err(2, arguments).substr(0, expected.size()), expected);
        }
    }
    const std::pair<Words, std::string> others[] = {
        {{L"extract", L"ship.ve2", L"1"}, "'--to FILE' is missing"},
        {{L"extract", L"ship.ve2", L"1", L"--to"}, "'--to' needs a value"},
        {{L"append", L"ship.ve2", L"old.vel"}, "name models, or give '--all'"},
        {{L"append", L"ship.ve2", L"old.vel", L"1", L"--all"},
         "models and '--all' exclude each other"},
        {{L"renumber", L"ship.ve2", L"x"}, "too many arguments: 'x'"},
        {{L"bsd", L"import", L"ship.ve2", L"a", L"b"}, "too many arguments: 'b'"},
        {{L"convert", L"ship.ve2", L"b.ve2"}, "one of SOURCE and TARGET must end in .vel"},
        {{L"convert", L"old.vel", L"b.vel"}, "one of SOURCE and TARGET must end in .vel"},
        {{L"draw", L"ship.ve2", L"1"}, "an argument is missing"},
        {{L"draw", L"ship.ve2", L"1", L"a.gif"}, "'a.gif' must end in .svg, .dxf or .png"},
        {{L"draw", L"ship.ve2", L"--all", L"out"}, "'--kind' is missing"},
        {{L"draw", L"ship.ve2", L"1", L"a.svg", L"--all"},
         "a model and '--all' exclude each other"},
        {{L"draw", L"ship.ve2", L"1", L"a.svg", L"--kind=svg"},
         "'--kind' is for '--all' alone: FILE says its kind"},
    };
    for (const auto& [arguments, fault] : others) {
        const std::string err = Err(2, arguments);
        EXPECT_EQ(err.substr(0, err.find('\n')), "corvane: " + fault);
        EXPECT_NE(err.find("\nusage: corvane "), std::string::npos);
    }
    EXPECT_EQ(Err(2, {}),
              "corvane: a command is missing\n"
              "usage: corvane COMMAND [ARGUMENTS]\n"
              "'corvane --help' explains it.\n");
    EXPECT_EQ(test::FilesIn(folder.path), (std::vector<std::wstring>{L"old.vel", L"ship.ve2"}));
    EXPECT_EQ(Bytes(L"ship.ve2"), Sample());
}

}  // namespace
}  // namespace corvane
