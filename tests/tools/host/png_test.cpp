// PNG files where the system's library for them is not there.
#include <cstdlib>

#include "tests/support/damage.h"
#include "tests/tools/program_fixture.h"

namespace corvane {
namespace {

// The program's process finds an empty file in the library's place.
struct PngWithoutTheLibrary : test::ProgramTest {
    test::TemporaryFolder libraries;

    PngWithoutTheLibrary() {
        test::WriteFileBytes(libraries.File(L"libcairo.so.2"), "");
        setenv("LD_LIBRARY_PATH", test::NativePath(libraries.path).c_str(), 1);
    }
    ~PngWithoutTheLibrary() override { unsetenv("LD_LIBRARY_PATH"); }
};

TEST_F(PngWithoutTheLibrary, IsRefusedBeforeAnythingIsDone) {
    const std::string fault =
        "corvane: the library that makes PNG files is not there: install cairo (libcairo.so.2)\n";
    EXPECT_EQ(Err(3, {L"draw", L"ship.ve2", L"1", L"a.png"}), fault);
    EXPECT_EQ(Err(3, {L"draw", L"ship.ve2", L"--all", folder.path, L"--kind=png"}), fault);
    EXPECT_FALSE(IsThere(L"a.png"));
    EXPECT_EQ(Out(0, {L"draw", L"ship.ve2", L"1", L"a.svg"}), "");
}

}  // namespace
}  // namespace corvane
