// Companion libraries that are missing, too old, of another version, or no libraries at all: the
// program tells which one, and ends.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/support.h"
#include "tests/ui/driver.h"

namespace corvane::ui {
namespace {

using test::Narrow;

struct WrongLibrary {
    const char* name;         // of the test
    const wchar_t* fileName;  // the file that is changed
    const char* wrong;        // folder of the file that takes its place; null: it is removed
    const char* text;         // what the box says
};

// Without GrVelk.dll there is no catalogue either: the number and the arguments are all there is.
const WrongLibrary kCases[] = {
    {"GrVelkDataOfAnotherVersion", L"GrVelk.dll", "data",
     "Corvane cannot start: its library GrVelk Data is missing or has another version.\r\r"
     "Version found: 2.003\rVersion needed: 2.002\r\r"
     "Install Corvane again, so that all its files are there and of one version. "
     "Error number of the system:\r0"},
    {"GrVelkMissing", L"GrVelk.dll", nullptr, "Res #1052 GrVelk Data Unknown ver. 2.002 \r126"},
    {"ZTUtil32TooOld", L"ztutil32.dll", "ztutil32",
     "Corvane cannot start: its library ZTUtil32 is missing or has another version.\r\r"
     "Version found: 3.72\rVersion needed: 3.73\r\r"
     "Install Corvane again, so that all its files are there and of one version. "
     "Error number of the system:\r0"},
    {"ZTUtil32Missing", L"ztutil32.dll", nullptr,
     "Corvane cannot start: its library ZTUtil32 is missing or has another version.\r\r"
     "Version found: Unknown ver.\rVersion needed: 3.73\r\r"
     "Install Corvane again, so that all its files are there and of one version. "
     "Error number of the system:\r126"},
    {"BsdVelkTooOld", L"BsdVelk.dll", "bsdvelk",
     "Corvane cannot start: its library BsdVelk is missing or has another version.\r\r"
     "Version found: 4.9\rVersion needed: 5.0\r\r"
     "Install Corvane again, so that all its files are there and of one version. "
     "Error number of the system:\r0"},
    {"BsdVelkMissing", L"BsdVelk.dll", nullptr,
     "Corvane cannot start: its library BsdVelk is missing or has another version.\r\r"
     "Version found: Unknown ver.\rVersion needed: 5.0\r\r"
     "Install Corvane again, so that all its files are there and of one version. "
     "Error number of the system:\r126"},
    {"ZTVelk32TooOld", L"ZTVelk32.dll", "ztvelk32",
     "Corvane cannot start: its library ZTVelk32 is missing or has another version.\r\r"
     "Version found: 1.5\rVersion needed: 2.0\r\r"
     "Install Corvane again, so that all its files are there and of one version. "
     "Error number of the system:\r0"},
    {"ZTVelk32Missing", L"ZTVelk32.dll", nullptr,
     "Corvane cannot start: its library ZTVelk32 is missing or has another version.\r\r"
     "Version found: Unknown ver.\rVersion needed: 2.0\r\r"
     "Install Corvane again, so that all its files are there and of one version. "
     "Error number of the system:\r126"},
    {"GrVelkBulkheadDataOfAnotherVersion", L"GrVelk.dll", "bha",
     "Corvane cannot start: its library GrVelk Bulkhead Data is missing or has another version.\r\r"
     "Version found: 0.444\rVersion needed: 0.443\r\r"
     "Install Corvane again, so that all its files are there and of one version. "
     "Error number of the system:\r0"},
    {"GrVelkWithoutBulkheadData", L"GrVelk.dll", "no_bha",
     "Corvane cannot start: its library GrVelk Bulkhead Data is missing or has another version.\r\r"
     "Version found: Unknown ver.\rVersion needed: 0.443\r\r"
     "Install Corvane again, so that all its files are there and of one version. "
     "Error number of the system:\r127"},
};

struct LibraryTest : testing::TestWithParam<WrongLibrary> {
    Settings settings;
    Installation installation;

    // The text of the box that the program shows before it ends by itself.
    std::string ReportOfTheEndingProgram() const {
        const Program program(installation);
        const Box box = WaitForBox(program);
        EXPECT_NE(box.window, nullptr);
        EXPECT_EQ(Narrow(box.title), "Corvane");
        EXPECT_TRUE(Press(box, IDOK));
        EXPECT_TRUE(program.HasEnded());
        EXPECT_EQ(program.FindNow(L"FM_Main"), nullptr);
        return Narrow(box.text);
    }
};

TEST_P(LibraryTest, IsNamedAndEndsTheProgram) {
    const WrongLibrary& example = GetParam();
    const std::wstring file = installation.File(example.fileName);
    ASSERT_TRUE(DeleteFileW(file.c_str()));
    if (example.wrong != nullptr) {
        const std::string folder = std::string("wrong\\") + example.wrong + "\\";
        const std::wstring source = std::wstring(folder.begin(), folder.end()) + example.fileName;
        ASSERT_TRUE(CopyFileW(source.c_str(), file.c_str(), TRUE)) << GetLastError();
    }
    EXPECT_EQ(ReportOfTheEndingProgram(), example.text);
}

INSTANTIATE_TEST_SUITE_P(FiveChecks, LibraryTest, testing::ValuesIn(kCases),
                         [](const auto& instance) { return std::string(instance.param.name); });

using GarbageLibraryTest = LibraryTest;

TEST_P(GarbageLibraryTest, FileThatIsNoLibraryIsNamed) {
    test::WriteFileBytes(installation.File(GetParam().fileName), "this is no library");
    EXPECT_EQ(ReportOfTheEndingProgram(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Garbage, GarbageLibraryTest,
    testing::Values(WrongLibrary{
        "BsdVelk", L"BsdVelk.dll", nullptr,
        "Corvane cannot start: its library BsdVelk is missing or has another version.\r\r"
        "Version found: Unknown ver.\rVersion needed: 5.0\r\r"
        "Install Corvane again, so that all its files are there and of one version. "
        "Error number of the system:\r193"}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(LibrarySearch, LibraryOnTheSearchPathIsNotTaken) {
    const Settings settings;
    const Installation installation;
    const Installation planted;
    ASSERT_TRUE(DeleteFileW(installation.File(L"BsdVelk.dll").c_str()));
    // The program inherits the search path, where a good library lies.
    wchar_t path[8192] = L"";
    GetEnvironmentVariableW(L"PATH", path, 8192);
    SetEnvironmentVariableW(L"PATH", (planted.folder + L";" + path).c_str());
    const Program program(installation);
    SetEnvironmentVariableW(L"PATH", path);
    const Box box = WaitForBox(program);
    ASSERT_NE(box.window, nullptr);
    EXPECT_NE(Narrow(box.text).find("BsdVelk"), std::string::npos);
    EXPECT_TRUE(Press(box, IDOK));
    EXPECT_TRUE(program.HasEnded());
}

}  // namespace
}  // namespace corvane::ui
