// A log on a disk that is full.
#include <gtest/gtest.h>

#include "files/log_file.h"

namespace corvane {
namespace {

TEST(LogFullDisk, HurtsNobody) {
    // Each write fails there.
    LogFile log{L"Z:\\dev\\full"};
    WriteEntry(log, LogKind::kOpen, L"one");
    WriteEntry(log, LogKind::kOpen, L"two");
    EXPECT_EQ(log.slowEntries, 0);
}

}  // namespace
}  // namespace corvane
