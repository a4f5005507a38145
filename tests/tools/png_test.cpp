// PNG files of the command line program, which a library of the system makes.
#include <algorithm>

#include "tests/tools/program_fixture.h"

namespace corvane {
namespace {

struct PngOfTheProgram : test::ProgramTest {
    // Signature, and width and height in the header: a sheet of A4 across with 300 dots per inch;
    // and these as dots per metre.
    static void ExpectSheet(const std::string& bytes) {
        const std::string start("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\x0D\xB4\0\0\x09\xB0", 24);
        EXPECT_EQ(bytes.substr(0, start.size()), start);
        const size_t resolution = bytes.find("pHYs");
        const std::string dots("\0\0\x2E\x23\0\0\x2E\x23\x01", 9);
        EXPECT_EQ(bytes.substr(resolution + 4, dots.size()), dots);
        EXPECT_EQ(bytes.find("pHYs", resolution + 1), bytes.npos);
        EXPECT_GT(bytes.size(), 20000U);
        EXPECT_EQ(bytes.substr(bytes.size() - 8, 4), "IEND");
    }
};

TEST_F(PngOfTheProgram, IsASheetWith300DotsPerInch) {
    EXPECT_EQ(Out(0, {L"draw", L"ship.ve2", L"5", L"a.png"}), "");
    ExpectSheet(Bytes(L"a.png"));
    EXPECT_NE(Err(3, {L"draw", L"ship.ve2", L"5", L"a.png"}).find("a.png"), std::string::npos);
}

TEST_F(PngOfTheProgram, OfAllModelsIsInTheFolder) {
    const test::TemporaryFolder out;
    const std::string names = Out(0, {L"draw", L"ship.ve2", L"--all", out.path, L"--kind=png"});
    EXPECT_EQ(std::ranges::count(names, '\n'), 12);
    ExpectSheet(test::ReadFileBytes(out.File(L"5 Midship section, hold 4.png")));
}

}  // namespace
}  // namespace corvane
