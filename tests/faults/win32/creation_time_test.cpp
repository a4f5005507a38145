// After an edit the file was created when the old one was. A system that keeps no such time shows
// that of the last write, so what is looked at is what the file is given.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/win32/win32.h"
#include "tests/faults/scene.h"
#include "tests/faults/win32/set_times.h"

namespace corvane::faults {
namespace {

constexpr FILETIME kLongAgo{0x12345678, 0x01C00000};

void SetTimes(const std::wstring& path, const FILETIME& time) {
    const HANDLE file = CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(SetFileTime(file, &time, nullptr, &time));
    CloseHandle(file);
}

class Created : public testing::TestWithParam<const char*> {};

TEST_P(Created, WhenTheOldFileWas) {
    const test::TemporaryFolder folder;
    const test::TemporaryFolder temporaries;
    Scene scene{*FindEdit(GetParam()), folder.path, temporaries.path};
    Measure(scene);
    Prepare(scene);
    SetTimes(scene.path, kLongAgo);
    CreationTimesSet().clear();
    ASSERT_TRUE(RunEdit(scene, {}).done);
    constexpr int64_t kTime = int64_t{kLongAgo.dwHighDateTime} << 32 | kLongAgo.dwLowDateTime;
    EXPECT_EQ(std::ranges::count(CreationTimesSet(), kTime), 1);
}

INSTANTIATE_TEST_SUITE_P(Every, Created,
                         testing::Values("save_bsd", "delete_middle_backup", "export_section",
                                         "save_as_over"),
                         [](const auto& name) { return std::string(name.param); });

}  // namespace
}  // namespace corvane::faults
