// What becomes of changes of a legacy database when the process ends.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "platform/system.h"
#include "platform/ztvelk32.h"
#include "tests/companions/file_bytes.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using namespace test;

// A process that makes a new database of two sections, and ends before the file is read.
void MakeInAnotherProcess(const std::wstring& path, void (*end)()) {
    const std::string name = system::AnsiFromWide(path);
    const pid_t child = fork();
    if (child == 0) {
        int16_t status = 0;
        createvelkdb(name.c_str(), &status);
        for (int i = 0; i < 2; ++i) {
            extendvelkdb(name.c_str(), &status);
            addsectvelkdb(name.c_str(), "Frame", 1, &status);
        }
        end();
    }
    ASSERT_GT(child, 0);
    int state = 0;
    ASSERT_EQ(waitpid(child, &state, 0), child);
}

TEST(LegacyFileAtTheEnd, IsWrittenWhenTheLibraryIsUnloaded) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.vel");
    MakeInAnotherProcess(path, [] { std::exit(0); });
    EXPECT_EQ(ReadFileBytes(path).size(), kLegacyEmptySize + 2 * kLegacySlotSize);
}

TEST(LegacyFileAtTheEnd, IsWholeWhenTheProcessDies) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.vel");
    MakeInAnotherProcess(path, [] { _exit(1); });
    EXPECT_EQ(ReadFileBytes(path).size(), kLegacyEmptySize);
    EXPECT_EQ(FilesIn(folder.path), std::vector<std::wstring>{L"ship.vel"});
}

}  // namespace
}  // namespace corvane
