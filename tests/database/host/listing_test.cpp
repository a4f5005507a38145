// The list of a database that another program writes: the host's locks.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include "database/listing.h"
#include "platform/host/native.h"
#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

struct WrittenListTest : test::EditingTest {};

TEST_F(WrittenListTest, ListOfAFileThatIsBeingWrittenIsNotShownAsWhole) {
    Write(test::DatabaseText(test::FiveBlocks()));
    std::string native;
    ASSERT_EQ(system::NativePath(path, native), system::kErrorNone);
    const int other = open(native.c_str(), O_RDWR);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    EXPECT_EQ(ListModels(path).size(), 5U);
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              std::vector<std::string>{
                  test::ShownText(kMsgBeingWritten, {path, GetMessage(kMsgAnotherProgram)})});
    EXPECT_EQ(DeleteModel(path, 1, false), false);
    EXPECT_EQ(Text(), test::DatabaseText(test::FiveBlocks()));
    close(other);
    test::RecordedReports::events.clear();
    EXPECT_EQ(ListModels(path).size(), 5U);
    EXPECT_TRUE(test::RecordedReports::events.empty());
}

}  // namespace
}  // namespace corvane
