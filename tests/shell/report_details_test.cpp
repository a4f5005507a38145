#include "shell/report_details.h"

#include <gtest/gtest.h>

#include "files/settings_file.h"
#include "platform/ztvelk32.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/library_checks.h"
#include "shell/program_log.h"
#include "shell/state.h"
#include "shell/status_parts.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::Narrow;

// The first line that begins with this text, or an empty one.
std::string Line(const std::string& begin) {
    const std::string text = "\n" + Narrow(DetailsForReport());
    const size_t at = text.find("\n" + begin);
    return at == std::string::npos ? "" : text.substr(at + 1, text.find('\r', at) - at - 1);
}

TEST(ReportDetails, BeginWithProgramBuildSystemAndScreen) {
    const test::FakeView screen;
    shell.title = L"Corvane MIL";
    EXPECT_EQ(Narrow(DetailsForReport()).rfind("Corvane MIL 1.0 (r0)\r\nBuild: ", 0), 0U);
    EXPECT_EQ(Line("Build: "), "Build: " + std::to_string(8 * sizeof(void*)) + " bits, GCC " +
                                   std::to_string(__GNUC__) + "." + std::to_string(__GNUC_MINOR__) +
                                   "." + std::to_string(__GNUC_PATCHLEVEL__));
    EXPECT_EQ(Line("System: "), "System: " + Narrow(system::SystemVersion()));
    EXPECT_EQ(Line("Screen: "), "Screen: 1920 x 1200 pixels, 144 dots per inch");
}

TEST(ReportDetails, NameTheSettingsFileAndTheFolderOfThePrograms) {
    const test::FakeView screen;
    shell.settings.DataDirectory = L"C:\\the suite m²\\";
    EXPECT_EQ(Line("Settings file: "), "Settings file: " + Narrow(SettingsFilePath()));
    EXPECT_EQ(Line("Programs of the suite: "),
              "Programs of the suite: " + Narrow(L"C:\\the suite m²\\"));
}

TEST(ReportDetails, NameTheLog) {
    const test::FakeView screen;
    EXPECT_EQ(Line("Log: "), "Log: " + Narrow(LogPath()));
}

TEST(ReportDetails, NameEachLibraryWithItsVersionOrThatItIsMissing) {
    const test::FakeView screen;
    EXPECT_EQ(Line("\tGrVelk Data: "), "\tGrVelk Data: 2.002");
    EXPECT_EQ(Line("\tGrVelk Bulkhead Data: "), "\tGrVelk Bulkhead Data: 0.443");
    EXPECT_EQ(Line("\tBsdVelk: "), "\tBsdVelk: 5.0");
    EXPECT_EQ(Line("\tZTVelk32: "), "\tZTVelk32: 2.0");
    const auto before = getztvelk32version;
    getztvelk32version.pointer = nullptr;
    getztvelk32version.fileName = "not_there.dll";
    EXPECT_EQ(Line("\tZTVelk32: "),
              "\tZTVelk32: not found: " + Narrow(system::ErrorText(system::kErrorModuleNotFound)));
    getztvelk32version = before;
}

TEST(ReportDetails, NameTheOpenDatabaseWithSizeModelsAndWhetherItCanBeChanged) {
    const test::FakeView screen;
    shell.database.path = L"C:\\ships\\alpha.ve2";
    shell.database.stamp.size = 12345678901;
    shell.database.rows.resize(1);
    shell.database.isReadOnly = true;
    EXPECT_EQ(Line("Database: "), "Database: C:\\ships\\alpha.ve2, 12345678901 bytes, " +
                                      Narrow(CurrentStatusParts().models) + ", Read-only");
}

TEST(ReportDetails, SayThatNoDatabaseIsOpen) {
    const test::FakeView screen;
    EXPECT_EQ(Line("Database: "), "Database: " + Narrow(GetMessage(kMsgNoDatabaseOpen)));
}

TEST(ReportDetails, EndWithTheLastWarningWhichTheNextCommandDoesNotTake) {
    const test::FakeView screen;
    EXPECT_EQ(Line("Last warning: "), "Last warning: ");
    ReportMessage(L"The first");
    ReportMessage(L"The second²what to do");
    RunCommand(ME_HelpDetails);
    EXPECT_TRUE(
        Narrow(test::FakeView::copied).ends_with("\r\nLast warning: The second\r\nwhat to do\r\n"))
        << Narrow(test::FakeView::copied);
}

}  // namespace
}  // namespace corvane
