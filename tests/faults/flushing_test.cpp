// A power cut after success must not cost the file: what is put in place has been written, flushed
// and closed, in this order, and a failure of the last of these steps is one of the edit.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/faults/scene.h"

namespace corvane::faults {
namespace {

using Calls = std::vector<std::string>;

// Index of the first call of that kind in [begin, end); `end` without one.
size_t Find(const Calls& calls, bool (*isKind)(const std::string&), size_t begin, size_t end) {
    const auto first = calls.begin();
    const auto last = first + static_cast<ptrdiff_t>(end);
    const auto found = std::find_if(first + static_cast<ptrdiff_t>(begin), last, isKind);
    return static_cast<size_t>(found - first);
}

// Index after the last call of that kind before `end`; 0 without one.
size_t AfterLast(const Calls& calls, bool (*isKind)(const std::string&), size_t end) {
    size_t place = end;
    while (place > 0 && !isKind(calls[place - 1])) --place;
    return place;
}

std::string Listed(const Calls& calls) {
    std::string text;
    for (const std::string& call : calls) text += call + '\n';
    return text;
}

class Flushed : public testing::TestWithParam<Edit> {
protected:
    const test::TemporaryFolder folder;
    const test::TemporaryFolder temporaries;
    Scene scene{GetParam(), folder.path, temporaries.path};

    void SetUp() override { Measure(scene); }
    // The call that puts the new file in place: the last rename.
    size_t Putting() const { return AfterLast(scene.calls, IsRename, scene.calls.size()) - 1; }
};

TEST_P(Flushed, BeforeItIsPutInPlace) {
    const Calls& calls = scene.calls;
    ASSERT_LT(Putting(), calls.size()) << Listed(calls);
    for (size_t place = 0; place <= Putting(); ++place) {
        const size_t written = AfterLast(calls, IsWrite, place);
        if (!IsRename(calls[place]) || written == 0) continue;
        const size_t flush = Find(calls, IsFlush, written, place);
        ASSERT_LT(flush, place) << "no flush before call " << place + 1 << '\n' << Listed(calls);
        EXPECT_LT(Find(calls, IsClose, flush, place), place)
            << "not closed before call " << place + 1 << '\n'
            << Listed(calls);
    }
}

TEST_P(Flushed, AndAFailureToCloseItIsReported) {
    const Calls& calls = scene.calls;
    const size_t put = Putting();
    const size_t flush = Find(calls, IsFlush, AfterLast(calls, IsWrite, put), put);
    const size_t close = Find(calls, IsClose, flush, put);
    ASSERT_LT(close, put) << Listed(calls);
    Prepare(scene);
    const auto number = static_cast<int>(close) + 1;
    const Outcome outcome = RunEdit(scene, {Fault::kFailOnce, number, system::kErrorIoDevice});
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(FaultAfterEnd(scene, outcome), "");
}

// What closes last before the file is put in place is not its own text where a history is kept.
std::vector<Edit> EditsWithoutHistory() {
    std::vector<Edit> edits = Edits();
    std::erase_if(edits, [](const Edit& edit) { return edit.keepsHistory; });
    return edits;
}

INSTANTIATE_TEST_SUITE_P(Every, Flushed, testing::ValuesIn(EditsWithoutHistory()),
                         [](const auto& edit) { return edit.param.name; });

}  // namespace
}  // namespace corvane::faults
