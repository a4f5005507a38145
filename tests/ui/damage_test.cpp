// Databases that are locked, empty, cut off or no databases: the program says so or shows what can
// be read, continues, and leaves the file as it was.
#include <gtest/gtest.h>

#include <string>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::Narrow;

struct Damage {
    const char* name;
    bool isReported;  // "... : not a valid Corvane file"
    size_t rows;
    std::string (*bytes)(const std::string& sample);
};

const Damage kDamages[] = {
    {"Binary", true, 0,
     [](const std::string&) {
         std::string bytes;
         for (int i = 0; i < 300000; ++i) bytes += static_cast<char>(i * i >> 5);
         return bytes;
     }},
    {"OneEndlessLine", true, 0, [](const std::string&) { return std::string(5000000, '-'); }},
    {"CutOffAfterTheThirdMarker", false, 3,
     [](const std::string& sample) {
         const std::string marker = "====== CORVANE MODEL ======";
         size_t at = 0;
         for (int i = 0; i < 3; ++i) at = sample.find(marker, at) + marker.size();
         return sample.substr(0, at);
     }},
};

struct DamageTest : testing::TestWithParam<Damage> {
    Settings settings;
    Installation installation;
    std::wstring database = installation.File(L"damaged.ve2");
    std::string sample = test::ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2"));
};

TEST_P(DamageTest, IsReportedAndTheFileStaysAsItIs) {
    const Damage& damage = GetParam();
    const std::string bytes = damage.bytes(sample);
    test::WriteFileBytes(database, bytes);
    {
        const Program program(installation, L"damaged.ve2");
        if (damage.isReported) {
            const Box box = WaitForBox(program);
            ASSERT_NE(box.window, nullptr);
            EXPECT_EQ(Message(box), Narrow(database) + " : not a valid Corvane file");
            ASSERT_TRUE(Press(box, IDOK));
        }
        const HWND main = program.Main();
        ASSERT_NE(main, nullptr);
        EXPECT_EQ(Rows(program, GetDlgItem(main, LI_Sections)).size(), damage.rows);
        Choose(main, ME_FileQuit);
        EXPECT_TRUE(program.HasEnded());
        EXPECT_EQ(program.ExitCode(), 0U);
    }
    EXPECT_EQ(test::ReadFileBytes(database), bytes);
}

INSTANTIATE_TEST_SUITE_P(Databases, DamageTest, testing::ValuesIn(kDamages),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(LockedDatabase, IsReported) {
    const Settings settings;
    const Installation installation;
    const std::wstring path = installation.File(L"locked.ve2");
    test::WriteFileBytes(path, "held by another program");
    const HANDLE held = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    {
        const Program program(installation, L"locked.ve2");
        const Box box = WaitForBox(program);
        EXPECT_NE(box.window, nullptr);
        EXPECT_NE(Narrow(box.text).find(Narrow(path)), std::string::npos) << Narrow(box.text);
        EXPECT_TRUE(Press(box, IDOK));
        const HWND main = program.Main();
        EXPECT_NE(main, nullptr);
        EXPECT_EQ(Narrow(TextOf(GetDlgItem(main, TX_DataBase))), "No database selected");
    }
    CloseHandle(held);
}

// The file has gone; the box that says so is up when the window is to close.
TEST(GoneDatabase, WindowStaysOpenWhileItsBoxIsUp) {
    const Settings settings;
    const Installation installation;
    const std::wstring path = installation.File(L"ship.ve2");
    test::WriteFileBytes(path, test::ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2")));
    const Program program(installation, L"ship.ve2");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    ASSERT_TRUE(DeleteFileW(path.c_str()));
    Choose(main, ME_SectionRemove);
    const Box box = WaitForBox(program);
    ASSERT_NE(box.window, nullptr);
    Send(main, WM_CLOSE, 0, 0);
    ASSERT_TRUE(IsWindow(main)) << "closed under its box";
    ASSERT_TRUE(Press(box, IDOK));
    Send(main, WM_NULL, 0, 0);
    EXPECT_FALSE(program.HasEnded(0));
    PostMessageW(main, WM_CLOSE, 0, 0);
    ASSERT_TRUE(program.HasEnded());
    EXPECT_EQ(program.ExitCode(), 0U);
}

// The sample with a gigabyte of nothing after its last model.
TEST(HugeDatabase, OfOneGigabyteIsListed) {
    constexpr LONGLONG kSize = 1LL << 30;
    const Settings settings;
    const Installation installation;
    const std::wstring path = installation.File(L"huge.ve2");
    test::WriteFileBytes(path, test::ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2")));
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    LARGE_INTEGER size{};
    size.QuadPart = kSize;
    EXPECT_TRUE(SetFilePointerEx(file, size, nullptr, FILE_BEGIN) && SetEndOfFile(file));
    CloseHandle(file);
    {
        const Program program(installation, L"huge.ve2");
        const HWND main = program.Main();
        ASSERT_NE(main, nullptr);
        EXPECT_EQ(Rows(program, GetDlgItem(main, LI_Sections)).size(), 14U);
        Choose(main, ME_FileQuit);
        EXPECT_TRUE(program.HasEnded());
    }
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ASSERT_TRUE(GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ((LONGLONG{data.nFileSizeHigh} << 32) + data.nFileSizeLow, kSize);
}

}  // namespace
}  // namespace corvane::ui
