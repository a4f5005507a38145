// The host has no imaging library for PNG files.
#include "tests/tools/program_fixture.h"

namespace corvane {
namespace {

struct PngOfTheProgram : test::ProgramTest {};

TEST_F(PngOfTheProgram, IsRefusedOnTheHost) {
    const std::string fault = "corvane: pictures of kind PNG are made on Windows alone\n";
    const std::string one = Err(2, {L"draw", L"ship.ve2", L"1", L"a.png"});
    EXPECT_EQ(one.substr(0, fault.size()), fault);
    const std::string all = Err(2, {L"draw", L"ship.ve2", L"--all", folder.path, L"--kind=png"});
    EXPECT_EQ(all.substr(0, fault.size()), fault);
    EXPECT_FALSE(IsThere(L"a.png"));
}

}  // namespace
}  // namespace corvane
