// Companion libraries that are missing, too old, of another version, or no libraries at all: the
// program says which one, and ends.
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
    const char* wrong;        // folder of the file that replaces it; null: it is removed
    // What the box says of it.
    const char* label;
    const char* found;
    const char* needed;
    int error;
};

// Folder "": a file that is no library.
const WrongLibrary kCases[] = {
    {"GrVelkDataOfAnotherVersion", L"GrVelk.dll", "data", "GrVelk Data", "2.003", "2.002", 0},
    {"GrVelkMissing", L"GrVelk.dll", nullptr, nullptr, nullptr, nullptr, 0},
    {"ZTUtil32TooOld", L"ztutil32.dll", "ztutil32", "ZTUtil32", "3.72", "3.73", 0},
    {"ZTUtil32Missing", L"ztutil32.dll", nullptr, "ZTUtil32", "Unknown ver.", "3.73", 126},
    {"BsdVelkTooOld", L"BsdVelk.dll", "bsdvelk", "BsdVelk", "4.9", "5.0", 0},
    {"BsdVelkMissing", L"BsdVelk.dll", nullptr, "BsdVelk", "Unknown ver.", "5.0", 126},
    {"BsdVelkNoLibrary", L"BsdVelk.dll", "", "BsdVelk", "Unknown ver.", "5.0", 193},
    {"ZTVelk32TooOld", L"ZTVelk32.dll", "ztvelk32", "ZTVelk32", "1.5", "2.0", 0},
    {"ZTVelk32Missing", L"ZTVelk32.dll", nullptr, "ZTVelk32", "Unknown ver.", "2.0", 126},
    {"GrVelkBulkheadDataOfAnotherVersion", L"GrVelk.dll", "bha", "GrVelk Bulkhead Data", "0.444",
     "0.443", 0},
    {"GrVelkWithoutBulkheadData", L"GrVelk.dll", "no_bha", "GrVelk Bulkhead Data", "Unknown ver.",
     "0.443", 127},
};

std::string ReportOf(const WrongLibrary& example) {
    // Without GrVelk.dll there is no catalogue either: the number and the arguments are all there
    // is.
    if (example.label == nullptr) return "Res #1052 GrVelk Data Unknown ver. 2.002 \r126";
    return std::string("Corvane cannot start: its library ") + example.label +
           " is missing or has another version.\r\rVersion found: " + example.found +
           "\rVersion needed: " + example.needed +
           "\r\rInstall Corvane again, so that all its files are there and of one version. "
           "Error number of the system:\r" +
           std::to_string(example.error);
}

struct LibraryTest : testing::TestWithParam<WrongLibrary> {
    Settings settings;
    Installation installation;
};

TEST_P(LibraryTest, IsNamedAndEndsTheProgram) {
    const WrongLibrary& example = GetParam();
    const std::wstring file = installation.File(example.fileName);
    ASSERT_TRUE(DeleteFileW(file.c_str()));
    const std::string folder = example.wrong == nullptr ? "" : example.wrong;
    if (!folder.empty()) {
        const std::wstring source =
            L"wrong\\" + std::wstring(folder.begin(), folder.end()) + L"\\" + example.fileName;
        ASSERT_TRUE(CopyFileW(source.c_str(), file.c_str(), TRUE)) << GetLastError();
    } else if (example.wrong != nullptr) {
        test::WriteFileBytes(file, "this is no library");
    }
    const Program program(installation);
    const Box box = WaitForBox(program);
    EXPECT_NE(box.window, nullptr);
    EXPECT_EQ(Narrow(box.title), "Corvane");
    EXPECT_EQ(Narrow(box.text), ReportOf(example));
    EXPECT_TRUE(Press(box, IDOK));
    EXPECT_TRUE(program.HasEnded());
    EXPECT_EQ(program.FindNow(L"FM_Main"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Libraries, LibraryTest, testing::ValuesIn(kCases),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(LibrarySearch, LibraryOnTheSearchPathIsNotUsed) {
    const Settings settings;
    const Installation installation;
    const Installation planted;
    ASSERT_TRUE(DeleteFileW(installation.File(L"BsdVelk.dll").c_str()));
    // The program inherits the search path, where a good library is.
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
