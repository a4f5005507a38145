// One file by several names: the links of the host.
#include <gtest/gtest.h>

#include <filesystem>

#include "files/file_system.h"
#include "tests/support/damage.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

TEST(IsSameFile, LinksAreTheFile) {
    const test::TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.ve2");
    const std::wstring symbolic = folder.File(L"symbolic.ve2");
    const std::wstring hard = folder.File(L"hard.ve2");
    test::WriteFileBytes(path, "");
    std::filesystem::create_symlink(test::NativePath(path), test::NativePath(symbolic));
    std::filesystem::create_hard_link(test::NativePath(path), test::NativePath(hard));
    EXPECT_TRUE(IsSameFile(path, symbolic));
    EXPECT_TRUE(IsSameFile(hard, path));
    EXPECT_TRUE(IsSameFile(hard, symbolic));
}

}  // namespace
}  // namespace corvane
